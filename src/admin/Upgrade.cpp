#include "Upgrade.h"
#include "AppState.h"
#include "Clock.h"
#include "Ini.h"
#include "Log.h"
#include "Val.h"
#include <QDir>

namespace Upgrade {
int CompareVersion(const QString& a, const QString& b) {
    const QStringList x = a.split(QLatin1Char('.')), y = b.split(QLatin1Char('.'));
    for (qsizetype i = 0; i < std::min(x.size(), y.size()); ++i) {
        const double p = Val(x[i]), q = Val(y[i]);
        if (p != q) return p > q ? 1 : -1;
    }
    return 0;
}

Pack ReadPack(const QString& home) {
    const QString ini = QDir(home).filePath(QStringLiteral("Update/config.ini"));
    Pack p;
    if (!QFile::exists(ini)) return p;
    p.newVer = ReadIniFile(QStringLiteral("Info"), QStringLiteral("NewVer"), ini).trimmed();
    for (const QString& s :
         ReadIniFile(QStringLiteral("UpdateDB"), QStringLiteral("Do"), ini).split(QLatin1Char('|')))
        if (!s.trimmed().isEmpty()) p.statements << s.trimmed();
    return p;
}

QString CurrentVersion(Db& db) {
    const Rows r = db.query(QStringLiteral("select setupvalue from pSetup where setupname='dbver'"));
    return QString::number(Val(r.isEmpty() ? QString() : r.first().text(QStringLiteral("setupvalue"))), 'g',
                           15);
}

void ApplyPack(const Pack& pack, Db& db) {
    db.write([&] {
        for (const QString& sql : pack.statements)
            db.exec(sql);
    });
    SetIni(QStringLiteral("NowVer"), pack.newVer);
    WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("系统设置"), QStringLiteral("系统升级"), 0,
             true, QStringLiteral("数据库升级为 ") + pack.newVer, db);
}

void RunSql(const QString& sql, Db& db) {
    try {
        db.write([&] { db.exec(sql); });
    } catch (const DbError& e) {
        WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("系统设置"), QStringLiteral("数据库操作"),
                 0, false, sql.left(1000), db);
        throw;
    }
    WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("系统设置"), QStringLiteral("数据库操作"), 0,
             true, sql.left(1000), db);
}
} // namespace Upgrade
