#pragma once
#include "Db.h"

// Next running number of the day: "yyyyMMdd" + separator + "00000", kept in the setting
// "NextNo_" + name. It restarts on a new day, or when the stored text is not 14 characters
// long (another separator length, or a sequence past 99999). Any failure gives a fresh
// NewID() instead. Two workstations never get the same number: the setting only moves
// from the value that was read.
QString GetNextNo(const QString& name, const QString& separator, Db& db = DB());
