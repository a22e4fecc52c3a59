#include "TextLimit.h"
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWidget>

namespace {
constexpr int Unlimited = 32767; // QLineEdit's own default
const char* const LimitProperty = "characterLimit";

// The UTF-16 length of the first `characters` characters of the text.
qsizetype unitsOf(const QString& text, int characters) {
    qsizetype i = 0;
    for (int n = 0; n < characters && i < text.size(); ++n)
        i += (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) ? 2 : 1;
    return i;
}

void enforce(QLineEdit* box) {
    const int limit = box->property(LimitProperty).toInt();
    const QString text = box->text();
    const qsizetype keep = unitsOf(text, limit);
    if (keep >= text.size()) return;
    const int cursor = box->cursorPosition();
    box->setText(text.left(keep));
    box->setCursorPosition(int(qMin<qsizetype>(cursor, keep)));
}
} // namespace

void LimitByCharacters(QLineEdit* box, int characters) {
    const bool installed = box->property(LimitProperty).isValid();
    box->setProperty(LimitProperty, characters);
    // Room for every character to take two units; the characters are counted on each change.
    box->setMaxLength(qMin(Unlimited, characters * 2));
    if (!installed) QObject::connect(box, &QLineEdit::textChanged, box, [box] { enforce(box); });
    enforce(box);
}

void LimitByCharacters(QWidget* form) {
    for (QLineEdit* box : form->findChildren<QLineEdit*>()) {
        if (box->property(LimitProperty).isValid()) continue;
        if (box->maxLength() < Unlimited) LimitByCharacters(box, box->maxLength());
    }
}
