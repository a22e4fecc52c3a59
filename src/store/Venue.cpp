#include "Venue.h"
#include "AppState.h"
#include "Ini.h"
#include "Schema.h"
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace Venue {
namespace {
// An installed program lives in a shared bin folder, which root could write to; its venues
// belong to the users, never beside the program.
bool isSharedProgramFolder(const QString& dir) {
#ifdef Q_OS_WIN
    Q_UNUSED(dir);
    return false;
#else
    const QString d = QDir::cleanPath(dir);
    return d == QLatin1String("/bin") || d.endsWith(QLatin1String("/usr/bin")) ||
           d.endsWith(QLatin1String("/usr/local/bin")) || d.endsWith(QLatin1String("/usr/games"));
#endif
}
} // namespace

QString resolveHome(const QString& fromCommandLine) {
    if (!fromCommandLine.isEmpty()) return QDir(fromCommandLine).absolutePath();
    const QString env = qEnvironmentVariable("SINGBOX_HOME");
    if (!env.isEmpty()) return QDir(env).absolutePath();
    const QString appDir = QCoreApplication::applicationDirPath();
    if (!isSharedProgramFolder(appDir) && QFileInfo(appDir).isWritable()) return appDir;
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

void prepare(const QString& home) {
    QDir dir(home);
    dir.mkpath(QStringLiteral("."));
    for (const char* sub : {"Data", "DBBackup", "Export", "Other", "Update"})
        dir.mkpath(QLatin1String(sub));
    const QString ini = dir.filePath(QStringLiteral("config.ini"));
    if (!QFile::exists(ini)) {
        QFile::copy(QStringLiteral(":/config.ini"), ini);
        QFile::setPermissions(ini,
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    }
}

QString databaseFile(const QString& home) {
    return QDir(home).filePath(QStringLiteral("Data/dat.db"));
}

DbConfig connection(const QString& home) {
    const QString ini = QDir(home).filePath(QStringLiteral("config.ini"));
    const QString section = App().AppTitle;
    DbConfig c;
    if (ReadIniFile(section, QStringLiteral("DBType"), ini) == QLatin1String("1")) {
        c.backend = Backend::PostgreSQL;
        c.host = ReadIniFile(section, QStringLiteral("DBServer"), ini);
        const int port = ReadIniFile(section, QStringLiteral("DBPort"), ini).toInt();
        c.port = port > 0 ? port : 5432;
        c.name = ReadIniFile(section, QStringLiteral("DBName"), ini);
        c.user = ReadIniFile(section, QStringLiteral("DBUser"), ini);
        c.password = ReadIniFile(section, QStringLiteral("DBPassword"), ini);
        c.schema = ReadIniFile(section, QStringLiteral("DBSchema"), ini);
    } else {
        c.backend = Backend::SQLite;
        c.file = databaseFile(home);
    }
    return c;
}

bool saveConnection(const QString& home, const DbConfig& c) {
    const QString ini = QDir(home).filePath(QStringLiteral("config.ini"));
    const QString s = App().AppTitle;
    const bool pg = c.backend == Backend::PostgreSQL;
    bool ok = WriteIniFile(s, QStringLiteral("DBType"), pg ? QStringLiteral("1") : QStringLiteral("0"), ini);
    if (pg) {
        ok = ok && WriteIniFile(s, QStringLiteral("DBServer"), c.host, ini) &&
             WriteIniFile(s, QStringLiteral("DBPort"), QString::number(c.port), ini) &&
             WriteIniFile(s, QStringLiteral("DBName"), c.name, ini) &&
             WriteIniFile(s, QStringLiteral("DBUser"), c.user, ini) &&
             WriteIniFile(s, QStringLiteral("DBPassword"), c.password, ini) &&
             WriteIniFile(s, QStringLiteral("DBSchema"), c.schema, ini);
    }
    return ok;
}

void openAndUpgrade(Db& db, const DbConfig& config) {
    if (config.backend == Backend::SQLite) QDir().mkpath(QFileInfo(config.file).absolutePath());
    db.open(config);
    try {
        if (config.backend == Backend::SQLite) {
            const QString check = db.scalar(QStringLiteral("PRAGMA quick_check")).toString();
            if (check != QLatin1String("ok")) throw DbError(11, QStringLiteral("数据库文件已损坏：") + check);
        }
        Schema::migrate(db);
    } catch (...) {
        db.close();
        throw;
    }
}
} // namespace Venue
