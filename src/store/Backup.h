#pragma once
#include "Db.h"
#include <QString>
#include <functional>

// Copies the open embedded database to `target` while the connection stays open and usable,
// as one consistent snapshot: the file itself when the write-ahead log can be folded into it
// under a read transaction, else page by page with SQLite's online backup. An existing file
// is replaced.
// On failure returns false with the reason in `error`. `progress` hears the pages copied
// and the pages in all after each step; a write by another connection starts the copy over,
// and after a few such restarts the rest is copied in one step so the copy always ends.
bool BackupSqlite(Db& db, const QString& target, QString* error,
                  const std::function<void(int done, int total)>& progress = {});

// "<venue>/DBBackup/yyyyMMddhhmm.db" for a backup at the given time.
QString DefaultBackupName(const QString& home);
