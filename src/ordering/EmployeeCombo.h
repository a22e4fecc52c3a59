#pragma once
#include "Db.h"

class QComboBox;

// The employees who can be credited with a sale: an empty first item (nobody), then the
// name of every employee in service (State 0), with the key as item data. Throws DbError.
void FillEmployeeCombo(QComboBox* combo, Db& db = DB());
