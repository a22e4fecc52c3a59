#include "Schema.h"
#include "Db.h"
#include "Dialect.h"
#include "NewID.h"
#include "Password.h"
#include <QFile>

namespace {
struct Step {
    int version;
    QStringList scripts;
};

const QList<Step>& steps() {
    static const QList<Step> s = {
        {1, {QStringLiteral(":/sql/001_schema.sql"), QStringLiteral(":/sql/001_seed.sql")}},
        {2, {QStringLiteral(":/sql/002_list_columns.sql")}},
        {3, {QStringLiteral(":/sql/003_print_queue.sql")}},
        {4, {QStringLiteral(":/sql/004_card_payments.sql")}},
        {5, {QStringLiteral(":/sql/005_corrections.sql")}},
        {6, {QStringLiteral(":/sql/006_report_indexes.sql")}},
    };
    return s;
}

QString readResource(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) throw DbError(-1, QStringLiteral("缺少数据库脚本 ") + path);
    return QString::fromUtf8(f.readAll());
}

bool hasTable(Db& db, const QString& table) {
    if (db.backend() == Backend::SQLite)
        return db.scalar(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type='table' AND lower(name)=lower(?)"),
                         {table})
                   .toInt() > 0;
    return db.scalar(QStringLiteral("SELECT count(*) FROM information_schema.tables WHERE table_schema=current_schema() "
                                    "AND lower(table_name)=lower(?)"),
                     {table})
               .toInt() > 0;
}

void ensureAdministrator(Db& db) {
    const bool exists =
        db.scalar(QStringLiteral("SELECT count(*) FROM Operator WHERE OperatorID='qa042'")).toInt() > 0;
    if (!exists) {
        db.exec(QStringLiteral("INSERT INTO Operator (OperatorID, LoginName, operatorname, pw, Description, discount, "
                               "Closetimeset, State) VALUES ('qa042', 'admin', ?, ?, ?, 10, 0, 0)"),
                {QStringLiteral("系统管理员"), Password::hash(QString()), QStringLiteral("系统内置管理员")});
    }
    // Every right for the built-in administrator, also those of newer versions.
    db.exec(QStringLiteral("INSERT INTO Puissance (OperatorID, SysPuissanceID, isHave) "
                           "SELECT 'qa042', s.SysPuissanceID, 1 FROM SysPuissance s WHERE NOT EXISTS "
                           "(SELECT 1 FROM Puissance p WHERE p.OperatorID='qa042' AND p.SysPuissanceID=s.SysPuissanceID)"));
}
} // namespace

namespace Schema {
int latestVersion() { return steps().last().version; }

int currentVersion(Db& db) {
    if (!hasTable(db, QStringLiteral("pSetup"))) return 0;
    const QVariant v = db.scalar(QStringLiteral("SELECT setupvalue FROM pSetup WHERE lower(setupname)='dbver'"));
    return v.toString().toInt();
}

int migrate(Db& db) {
    int applied = 0;
    const int from = currentVersion(db);
    for (const Step& step : steps()) {
        if (step.version <= from) continue;
        db.write([&] {
            for (const QString& path : step.scripts) db.execScript(db.dialect().expand(readResource(path)));
            const int n = db.exec(QStringLiteral("UPDATE pSetup SET setupvalue=? WHERE lower(setupname)='dbver'"),
                                  {QString::number(step.version)});
            if (n == 0)
                db.exec(QStringLiteral("INSERT INTO pSetup (setupname, setupvalue) VALUES ('dbver', ?)"),
                        {QString::number(step.version)});
        });
        ++applied;
    }
    const bool adminMissing =
        db.scalar(QStringLiteral("SELECT count(*) FROM Operator WHERE OperatorID='qa042'")).toInt() == 0;
    const bool grantsMissing =
        db.scalar(QStringLiteral("SELECT count(*) FROM SysPuissance s WHERE NOT EXISTS (SELECT 1 FROM Puissance p "
                                 "WHERE p.OperatorID='qa042' AND p.SysPuissanceID=s.SysPuissanceID)"))
            .toInt() > 0;
    if (adminMissing || grantsMissing) db.write([&] { ensureAdministrator(db); });
    return applied;
}
} // namespace Schema
