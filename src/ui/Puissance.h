#pragma once
#include "Db.h"
#include <QString>

// Whether the operator holds the right: a Puissance row whose isHave is numerically 1.
// Asked of the database each time; nothing is cached.
bool HasPuissance(const QString& operatorID, const QString& code, Db& db = DB());

// The one rights check of the program: true silently, or "您没有操作此项业务的权限！".
bool CheckPuissance(const QString& code);
