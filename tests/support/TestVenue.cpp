#include "TestVenue.h"
#include "AppInit.h"
#include "AppState.h"
#include "Clock.h"
#include "MessageBox.h"
#include "Schema.h"
#include "Venue.h"
#include <QCoreApplication>
#include <QFile>

namespace {
// One seeded SQLite file per process, copied for each test: seeding hashes a password.
QString sqliteTemplate() {
    static QTemporaryDir dir;
    static QString file;
    if (file.isEmpty()) {
        file = dir.filePath(QStringLiteral("template.db"));
        Db db;
        DbConfig c;
        c.file = file;
        db.open(c);
        Schema::migrate(db);
        db.exec(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        db.close();
    }
    return file;
}
} // namespace

bool TestVenue::isPg() { return qEnvironmentVariable("SINGBOX_TEST_BACKEND") == QLatin1String("pg"); }

TestVenue::TestVenue() {
    static bool resources = [] {
        InitResources();
        return true;
    }();
    Q_UNUSED(resources);
    Clock::install(std::make_unique<FixedClock>(fixedNow()));
    Venue::prepare(m_dir.path());
    AppInit(m_dir.path());
    AppState& a = App();
    a.CurrentOperatorID = QStringLiteral("qa042");
    a.CurrentOperatorName = QStringLiteral("系统管理员");
    a.CurrentDiscountLimit = 10;
    a.CurrentCloseTimeLimit = 0;
    Msg::installRecorder();
}

TestVenue::~TestVenue() {
    DB().close();
    Msg::uninstallRecorder();
    Clock::install(nullptr);
}

bool TestVenue::open(Db& db) {
    if (isPg()) {
        const QString conn = qEnvironmentVariable("SINGBOX_TEST_PG");
        if (conn.isEmpty()) return false;
        m_config = DbConfig::fromPgString(conn);
        m_config.schema = QStringLiteral("t%1").arg(QCoreApplication::applicationPid());
        {
            Db admin;
            DbConfig plain = m_config;
            plain.schema.clear();
            admin.open(plain);
            admin.exec(QStringLiteral("DROP SCHEMA IF EXISTS ") + m_config.schema + QStringLiteral(" CASCADE"));
        }
        db.open(m_config);
        Schema::migrate(db);
        Venue::saveConnection(home(), m_config);
        AppInit(home());
    } else {
        m_config.backend = Backend::SQLite;
        m_config.file = Venue::databaseFile(m_dir.path());
        QFile::remove(m_config.file);
        QFile::copy(sqliteTemplate(), m_config.file);
        QFile::setPermissions(m_config.file, QFile::ReadOwner | QFile::WriteOwner);
        db.open(m_config);
        App().IsNetVersion = 0;
    }
    return true;
}

QStringList messages() {
    QStringList out;
    for (const Msg::Shown& s : Msg::taken()) out << s.text;
    return out;
}
