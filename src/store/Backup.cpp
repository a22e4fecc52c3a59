#include "Backup.h"
#include "Clock.h"
#include "Format.h"
#include <QDir>
#include <QFile>
#include <QSqlDriver>
#include <sqlite3.h>

QString DefaultBackupName(const QString& home) {
    return QDir(home).filePath(QStringLiteral("DBBackup/") +
                               FormatDate(Now(), QStringLiteral("yyyyMMddhhmm")) + QStringLiteral(".db"));
}

namespace {
// The quick way, for a connection in write-ahead-log mode with no transaction of its own: a
// read transaction fixes a snapshot, and a checkpoint from a second connection folds the log
// into the file up to that snapshot. When that gets the whole log in, the file itself is the
// snapshot, and stays so while the read lasts: no checkpoint writes past a reader's mark, and
// the log cannot start over under it. The file is then copied whole. False when the quick
// way does not apply; the caller copies page by page.
bool copySnapshot(sqlite3* source, const QString& temp) {
    const char* file = sqlite3_db_filename(source, "main");
    if (!file || !*file || !sqlite3_get_autocommit(source)) return false;
    QByteArray mode;
    if (sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(source, "PRAGMA journal_mode", -1, &st, nullptr) == SQLITE_OK) {
        if (sqlite3_step(st) == SQLITE_ROW) mode = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
        sqlite3_finalize(st);
    }
    if (mode != "wal") return false;
    if (sqlite3_exec(source, "BEGIN; SELECT count(*) FROM sqlite_master;", nullptr, nullptr, nullptr) !=
        SQLITE_OK) {
        if (!sqlite3_get_autocommit(source)) sqlite3_exec(source, "ROLLBACK", nullptr, nullptr, nullptr);
        return false;
    }
    bool copied = false;
    sqlite3* other = nullptr;
    int log = -1, done = -1;
    const int o = sqlite3_open_v2(file, &other, SQLITE_OPEN_READWRITE, nullptr);
    // A fresh connection learns the file is in log mode on its first read.
    if (o == SQLITE_OK) sqlite3_exec(other, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
    if (o == SQLITE_OK &&
        sqlite3_wal_checkpoint_v2(other, "main", SQLITE_CHECKPOINT_PASSIVE, &log, &done) == SQLITE_OK &&
        log >= 0 && log == done)
        copied = QFile::copy(QFile::decodeName(file), temp);
    sqlite3_close(other);
    sqlite3_exec(source, "COMMIT", nullptr, nullptr, nullptr);
    if (!copied) QFile::remove(temp);
    return copied;
}
} // namespace

bool BackupSqlite(Db& db, const QString& target, QString* error,
                  const std::function<void(int done, int total)>& progress) {
    auto fail = [&](const QString& why) {
        if (error) *error = why;
        return false;
    };
    if (db.backend() != Backend::SQLite) return fail(QStringLiteral("网络版不适用"));
    const QVariant h = db.handle().driver()->handle();
    if (!h.isValid() || qstrcmp(h.typeName(), "sqlite3*") != 0) return fail(QStringLiteral("数据库未连接"));
    sqlite3* source = *static_cast<sqlite3* const*>(h.constData());
    if (!source) return fail(QStringLiteral("数据库未连接"));

    QDir().mkpath(QFileInfo(target).absolutePath());
    const QString temp = target + QStringLiteral(".part");
    QFile::remove(temp);
    if (copySnapshot(source, temp)) {
        if (progress) progress(1, 1);
        QFile::remove(target);
        if (QFile::rename(temp, target)) return true;
        QFile::remove(temp);
        return fail(QStringLiteral("无法写入 ") + target);
    }
    sqlite3* dest = nullptr;
    if (sqlite3_open(QFile::encodeName(temp).constData(), &dest) != SQLITE_OK) {
        const QString why = QString::fromUtf8(sqlite3_errmsg(dest));
        sqlite3_close(dest);
        return fail(why);
    }
    // The copy is written under a temporary name and renamed when whole, so it needs no
    // journal of its own and no syncing page by page.
    sqlite3_exec(dest, "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;", nullptr, nullptr, nullptr);
    // Pages read straight from the mapped file for the length of the copy; the connection
    // gets its own setting back afterwards.
    sqlite3_int64 mapped = 0;
    if (sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(source, "PRAGMA mmap_size", -1, &st, nullptr) == SQLITE_OK) {
        if (sqlite3_step(st) == SQLITE_ROW) mapped = sqlite3_column_int64(st, 0);
        sqlite3_finalize(st);
    }
    sqlite3_exec(source, "PRAGMA mmap_size=1073741824", nullptr, nullptr, nullptr);
    sqlite3_backup* b = sqlite3_backup_init(dest, "main", source, "main");
    int rc = SQLITE_OK;
    if (b) {
        int restarts = 0, lastDone = 0, busy = 0;
        do {
            // 4 MB of 4 KB pages a step: few locks, and the window still hears progress.
            rc = sqlite3_backup_step(b, restarts > 3 ? -1 : 1024);
            const int total = sqlite3_backup_pagecount(b);
            const int done = total - sqlite3_backup_remaining(b);
            if (done < lastDone) ++restarts;
            lastDone = done;
            if (progress) progress(done, total);
            if (rc == SQLITE_BUSY || rc == SQLITE_LOCKED) {
                if (++busy > 500) break; // ten seconds locked out: give up rather than hang
                sqlite3_sleep(20);
            }
        } while (rc == SQLITE_OK || rc == SQLITE_BUSY || rc == SQLITE_LOCKED);
        sqlite3_backup_finish(b);
    }
    sqlite3_exec(source, QByteArray("PRAGMA mmap_size=" + QByteArray::number(mapped)).constData(), nullptr,
                 nullptr, nullptr);
    const QString why = QString::fromUtf8(sqlite3_errmsg(dest));
    rc = b ? (rc == SQLITE_DONE ? sqlite3_errcode(dest) : rc) : sqlite3_errcode(dest);
    sqlite3_close(dest);
    if (rc != SQLITE_OK) {
        QFile::remove(temp);
        return fail(why);
    }
    QFile::remove(target);
    if (!QFile::rename(temp, target)) {
        QFile::remove(temp);
        return fail(QStringLiteral("无法写入 ") + target);
    }
    return true;
}
