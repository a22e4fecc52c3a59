#include "RestoreCheck.h"
#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace {
RestoreCheck refuse(const QString& why) {
    return {why, 0};
}

quint32 bigEndian(const unsigned char* p, int n) {
    quint32 v = 0;
    for (int i = 0; i < n; ++i)
        v = (v << 8) | p[i];
    return v;
}

const QString notOurs = QStringLiteral("所选文件不是星澜系统的数据文件。");
const QString damaged = QStringLiteral("所选文件不完整或已损坏，不能用来恢复。");
} // namespace

RestoreCheck CheckRestoreFile(const QString& path, int newestVersion) {
    QFile f(path);
    if (!QFileInfo(path).isFile() || !f.open(QIODevice::ReadOnly))
        return refuse(QStringLiteral("找不到所选文件，或没有权限读取它。"));
    const qint64 size = f.size();
    const QByteArray head = f.read(100);
    f.close();
    if (head.size() < 100 || !head.startsWith(QByteArrayLiteral("SQLite format 3\0"))) return refuse(notOurs);
    const auto* h = reinterpret_cast<const unsigned char*>(head.constData());
    quint32 pageSize = bigEndian(h + 16, 2);
    if (pageSize == 1) pageSize = 65536;
    if (pageSize < 512 || pageSize > 65536 || (pageSize & (pageSize - 1))) return refuse(damaged);
    // The page count in the header is trusted only when written by a library that keeps it.
    const quint32 pages = bigEndian(h + 28, 4);
    if (bigEndian(h + 24, 4) == bigEndian(h + 92, 4) && pages > 0 && qint64(pages) * pageSize > size)
        return refuse(damaged);
    if (size % pageSize != 0) return refuse(damaged);

    sqlite3* db = nullptr;
    const QByteArray name = QFile::encodeName(path);
    if (sqlite3_open_v2(name.constData(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        sqlite3_close(db);
        return refuse(damaged);
    }
    auto text = [db](const char* sql, bool* ok) {
        sqlite3_stmt* st = nullptr;
        QString out;
        *ok = sqlite3_prepare_v2(db, sql, -1, &st, nullptr) == SQLITE_OK;
        if (*ok) {
            const int rc = sqlite3_step(st);
            *ok = rc == SQLITE_ROW || rc == SQLITE_DONE;
            if (rc == SQLITE_ROW)
                if (const unsigned char* t = sqlite3_column_text(st, 0))
                    out = QString::fromUtf8(reinterpret_cast<const char*>(t));
        }
        sqlite3_finalize(st);
        return out;
    };
    RestoreCheck result;
    bool ok = false;
    const QString check = text("PRAGMA quick_check(1)", &ok);
    if (!ok || check != u"ok") {
        result = refuse(damaged);
    } else {
        const QString tables =
            text("SELECT count(*) FROM sqlite_master WHERE type='table' AND lower(name) IN "
                 "('psetup','operator','puissance','the','expense','expensedetail','ware')",
                 &ok);
        const QString ver = ok && tables == u"7"
                                ? text("SELECT setupvalue FROM pSetup WHERE lower(setupname)='dbver'", &ok)
                                : QString();
        bool numeric = false;
        const int v = ver.trimmed().toInt(&numeric);
        if (!ok || tables != u"7" || !numeric || v < 1) {
            result = refuse(notOurs);
        } else if (v > newestVersion) {
            result = refuse(
                QStringLiteral("所选文件的数据版本（%1）比本程序能读的版本（%2）新，请先升级程序再恢复。")
                    .arg(v)
                    .arg(newestVersion));
        } else {
            result.version = v;
        }
    }
    sqlite3_close(db);
    return result;
}
