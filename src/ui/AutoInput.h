#pragma once
#include "Db.h"
#include <QString>

class QComboBox;

// The remembered inputs of a field (sys_AutoInput), offered again in its combo box.
// `type` names the field, e.g. "DetailDescription" for the notes of bill lines.

// Fills the combo with the remembered values of the type in text order; text being typed
// stays. Throws DbError.
void LoadAutoInput(const QString& type, QComboBox* combo, Db& db = DB());

// Remembers a value once; a blank value is not remembered. Throws DbError.
void SaveAutoInput(const QString& type, const QString& value, Db& db = DB());

// Forgets a value. On failure shows "删除失败，请稍候再试！" and returns false.
bool DeleteAutoInput(const QString& type, const QString& value, Db& db = DB());
