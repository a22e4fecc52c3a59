#pragma once
#include "Db.h"
#include <QString>

// Copies the open embedded database to `target` with SQLite's online backup, so the
// connection stays usable and the copy is consistent. An existing file is replaced.
// On failure returns false with the reason in `error`.
bool BackupSqlite(Db& db, const QString& target, QString* error);

// "<venue>/DBBackup/yyyyMMddhhmm.db" for a backup at the given time.
QString DefaultBackupName(const QString& home);
