#pragma once
#include "Db.h"
#include <QString>
#include <optional>

// Venue settings (table pSetup). Keys are matched without regard to case.
QString GetSetup(const QString& name, Db& db = DB());
bool SetSetup(const QString& name, const QString& value, Db& db = DB());

// A pSetup flag is on only when its numeric value is exactly 1 ("-1" and "" are off).
bool IsFlagOn(const QString& value);

// Copies the eight cached keys into the application state. A read that fails stops there:
// the values read so far stay, and the error comes back for the caller to show.
std::optional<DbError> LoadSetupValue(Db& db = DB());
// Copies the first CompanyInfo row into the application state (empty when there is none).
void LoadCompanyInfo(Db& db = DB());
