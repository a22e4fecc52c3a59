#pragma once

class QLineEdit;
class QWidget;

// A box's length limit counts characters, not UTF-16 units: a name with a character outside
// the basic plane (𠀀) is never cut in half, and what the box shows is what is stored.
// The limit is the box's maxLength as designed; text beyond it is cut at a whole character.
void LimitByCharacters(QLineEdit* box, int characters);

// Every limited line edit of the form, at the limit its design gives it.
void LimitByCharacters(QWidget* form);
