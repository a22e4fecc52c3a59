#include "DataAdmin.h"
#include "AppState.h"
#include "Backup.h"
#include "Clock.h"
#include "Format.h"
#include "RestoreCheck.h"
#include "Schema.h"
#include "Venue.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sqlite3.h>
#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace DataAdmin {

QString BackupErrorText(const QString& description) {
    return QStringLiteral("数据备份时出错！\n错误描述：") + description;
}

QString RestoreErrorText(const QString& description) {
    return QStringLiteral("数据恢复时出错！\n错误描述：") + description;
}

QString ServerBackupAdvice() {
    return QStringLiteral(
        "本系统连接的是数据库服务器（网络版），数据保存在服务器上，这里的备份和恢复不适用。\n"
        "请在服务器上用 pg_dump 备份，例如：pg_dump -Fc -f 备份文件名.dump 数据库名；\n"
        "恢复时先停止所有收银台，再用 pg_restore --clean -d 数据库名 备份文件名.dump。");
}

QString BackupDatabase(const QString& fileName, bool atExit, Db& db,
                       const std::function<void(int, int)>& progress) {
    Q_UNUSED(atExit)
    if (db.backend() != Backend::SQLite) return QStringLiteral("网络版不适用");
    const QString target =
        fileName.trimmed().isEmpty() ? DefaultBackupName(App().AppPath) : fileName.trimmed();
    QString error;
    return BackupSqlite(db, target, &error, progress) ? QString() : error;
}

QString SafetyCopyName(const QString& home) {
    return QDir(home).filePath(QStringLiteral("DBBackup/before-restore-") +
                               FormatDate(Now(), QStringLiteral("yyyyMMddHHmm")) + QStringLiteral(".db"));
}

namespace {
// Copies a database file through SQLite, so a chosen file that is itself in use comes whole.
QString copyDatabase(const QString& from, const QString& to) {
    QFile::remove(to);
    sqlite3 *src = nullptr, *dst = nullptr;
    QString why;
    if (sqlite3_open_v2(QFile::encodeName(from).constData(), &src, SQLITE_OPEN_READONLY, nullptr) !=
            SQLITE_OK ||
        sqlite3_open(QFile::encodeName(to).constData(), &dst) != SQLITE_OK) {
        why = QString::fromUtf8(sqlite3_errmsg(dst ? dst : src));
    } else if (sqlite3_backup* b = sqlite3_backup_init(dst, "main", src, "main")) {
        const int rc = sqlite3_backup_step(b, -1);
        sqlite3_backup_finish(b);
        if (rc != SQLITE_DONE) why = QString::fromUtf8(sqlite3_errstr(rc));
    } else {
        why = QString::fromUtf8(sqlite3_errmsg(dst));
    }
    sqlite3_close(src);
    sqlite3_close(dst);
    if (!why.isEmpty()) QFile::remove(to);
    return why;
}

bool syncFile(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadWrite)) return false;
    f.flush();
#ifndef Q_OS_WIN
    return ::fsync(f.handle()) == 0;
#else
    return true;
#endif
}

// Replaces `to` by `from` in one step: a reader sees the old file or the new one, never a mix.
QString renameOver(const QString& from, const QString& to) {
#ifdef Q_OS_WIN
    if (MoveFileExW(reinterpret_cast<const wchar_t*>(QDir::toNativeSeparators(from).utf16()),
                    reinterpret_cast<const wchar_t*>(QDir::toNativeSeparators(to).utf16()),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return {};
    return QStringLiteral("无法替换数据文件");
#else
    if (::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0) return {};
    return QString::fromLocal8Bit(std::strerror(errno));
#endif
}
} // namespace

QString RestoreDatabase(const QString& fileName, Db& db, const std::function<void(RestoreStep)>& onStep) {
    if (db.backend() != Backend::SQLite) return QStringLiteral("网络版不适用");
    const DbConfig config = db.config();
    const QString live = QFileInfo(config.file).absoluteFilePath();
    const QString chosen = QFileInfo(fileName.trimmed()).absoluteFilePath();
    if (chosen == live) return QStringLiteral("所选文件就是系统当前正在使用的数据文件。");
    const RestoreCheck check = CheckRestoreFile(chosen, Schema::latestVersion());
    if (!check.ok()) return check.refusal;

    // The new file is made whole beside the live one first, so the swap is one rename.
    const QString staged = live + QStringLiteral(".restore");
    if (const QString why = copyDatabase(chosen, staged); !why.isEmpty()) return why;
    if (const RestoreCheck again = CheckRestoreFile(staged, Schema::latestVersion()); !again.ok()) {
        QFile::remove(staged);
        return again.refusal;
    }
    syncFile(staged);
    if (onStep) onStep(RestoreStep::Staged);

    const QString home = QFileInfo(QFileInfo(live).absolutePath()).absolutePath();
    const QString safety = SafetyCopyName(home);
    QString why;
    if (!BackupSqlite(db, safety, &why)) {
        QFile::remove(staged);
        return QStringLiteral("无法保存当前数据的副本：") + why;
    }
    if (onStep) onStep(RestoreStep::SafetyCopied);

    // Closing the last connection folds the write-ahead log into the file; a log left behind
    // would be replayed onto the restored file, so then the swap is off.
    db.close();
    if (onStep) onStep(RestoreStep::Closed);
    if (QFileInfo(live + QStringLiteral("-wal")).size() > 0) {
        QFile::remove(staged);
        Venue::openAndUpgrade(db, config);
        return QStringLiteral("数据文件正被其它程序使用，请关闭其它程序后再恢复。");
    }
    QFile::remove(live + QStringLiteral("-wal"));
    QFile::remove(live + QStringLiteral("-shm"));
    why = renameOver(staged, live);
    if (onStep && why.isEmpty()) onStep(RestoreStep::Swapped);
    try {
        Venue::openAndUpgrade(db, config);
    } catch (const DbError& e) {
        // The restored file would not open: the safety copy goes back in its place.
        why = e.description;
        const QString back = live + QStringLiteral(".restore");
        if (copyDatabase(safety, back).isEmpty()) renameOver(back, live);
        Venue::openAndUpgrade(db, config);
    }
    return why;
}

int DelAllData(bool includeMasterData, Db& db) {
    static const char* const business[] = {
        "Delete From ExpenseDetail",
        "Delete From Expense",
        "Delete From Reservation",
        "Delete From WareInList",
        "Delete From WareIn",
        "Delete From OutsaleDetail",
        "Delete From Outsale",
        "Delete From Shouyininfo",
        "Delete From WareInList",
        "Delete From WareIn",
        "Update The set state=0,ExpenseID=''",
        "Update Ware set nowNum=0",
    };
    // The settings go, all but the version of the database: without it the next start
    // could not tell what the file holds.
    static const char* const master[] = {
        "Delete From Employee",
        "Delete From pSetup where lower(setupname)<>'dbver'",
        "Delete From CompanyInfo",
        "Delete From chongzhi",
        "Delete From Member",
        "Delete From MemberSetup",
        "Delete From Puissance where OperatorID<>'qa042'",
        "Delete From Operator where OperatorID<>'qa042'",
        "Delete From The",
        "Delete From TheAssort",
        "Delete From PayLevel",
        "Delete From WareLevel",
        "Delete From Ware",
        "Delete From WareType",
        "Delete From s_log",
    };
    return db.write([&] {
        int count = 0;
        for (const char* sql : business)
            count += db.exec(QString::fromLatin1(sql));
        if (includeMasterData)
            for (const char* sql : master)
                count += db.exec(QString::fromLatin1(sql));
        return count;
    });
}
} // namespace DataAdmin
