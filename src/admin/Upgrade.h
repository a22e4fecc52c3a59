#pragma once
#include "Db.h"
#include <QString>
#include <QStringList>

// Database upgrades unpacked into <venue>/Update, the free SQL statement, and the
// recalculation of commissions.
namespace Upgrade {
// Compares "5.2.1"-style versions part by part over the shorter list: >0 when `a` is the
// higher, 0 equal, <0 lower.
int CompareVersion(const QString& a, const QString& b);

struct Pack {
    QString newVer;         // Info/NewVer, empty without a pack
    QStringList statements; // UpdateDB/Do split at "|", blanks dropped
};
Pack ReadPack(const QString& home);
// The numeric value of dbver.
QString CurrentVersion(Db& db = DB());

// Runs the pack's statements in one transaction and notes NowVer in the workstation's
// config.ini. Throws DbError, having changed nothing.
void ApplyPack(const Pack& pack, Db& db = DB());

// Runs one statement typed by the operator and logs it, done or failed. Throws DbError.
void RunSql(const QString& sql, Db& db = DB());
} // namespace Upgrade
