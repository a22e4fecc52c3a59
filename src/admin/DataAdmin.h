#pragma once
#include "Db.h"
#include <QString>
#include <functional>

// Backup, restore and purge of the venue's database.
namespace DataAdmin {
// The message a failed backup shows: "数据备份时出错！" and the reason.
QString BackupErrorText(const QString& description);
QString RestoreErrorText(const QString& description);
// What the window says on a server install, where the file operations don't apply.
QString ServerBackupAdvice();

// Copies the open database to `fileName` (the time-stamped name under DBBackup when empty)
// while the connection stays open and usable. `atExit` changes nothing in the copy.
// Returns an empty text on success, else the reason.
QString BackupDatabase(const QString& fileName, bool atExit, Db& db = DB(),
                       const std::function<void(int done, int total)>& progress = {});

// The steps of a restore, for the crash tests: each is heard before it starts.
enum class RestoreStep { Staged, SafetyCopied, Closed, Swapped };

// Replaces the database with the one in `fileName` after checking it is a database of this
// system at a version this program reads. Keeps a copy of the present database in DBBackup
// first, swaps the files in one rename, and leaves the present database as it was on any
// failure. The connection is open again afterwards, in either case. Returns an empty text
// on success, else the reason.
QString RestoreDatabase(const QString& fileName, Db& db = DB(),
                        const std::function<void(RestoreStep)>& onStep = {});
// Where the copy of the present database goes before a restore at the present time.
QString SafetyCopyName(const QString& home);

// Deletes the business data, and the master data too when asked, in one transaction.
// Returns the rows touched. Throws DbError, having changed nothing.
int DelAllData(bool includeMasterData, Db& db = DB());
} // namespace DataAdmin
