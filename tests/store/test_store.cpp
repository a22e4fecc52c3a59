#include "AppState.h"
#include "Backup.h"
#include "Clock.h"
#include "Db.h"
#include "Gateway.h"
#include "Ini.h"
#include "Log.h"
#include "NextNo.h"
#include "Schema.h"
#include "Settings.h"
#include "TestVenue.h"
#include <QDir>
#include <QFile>
#include <QTest>

namespace {
void setNow(const QDateTime& t) { Clock::install(std::make_unique<FixedClock>(t)); }
} // namespace

class TestStore : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void seededDatabase() {
        TestVenue v;
        OPEN_VENUE(v);
        QCOMPARE(Schema::currentVersion(DB()), Schema::latestVersion());
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from SysPuissance")).toInt(), 45);
        // The administrator holds every right, C30 and C030 as separate rows.
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from Puissance where OperatorID='qa042' and isHave=1")).toInt(), 45);
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from SysPuissance where SysPuissanceID in ('C30','C030','C26')")).toInt(), 3);
        QVERIFY(DB().scalar(QStringLiteral("select pw from Operator where LoginName='admin'")).toString().startsWith(QStringLiteral("$argon2id$")));
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from CompanyInfo")).toInt(), 1);
        QVERIFY(DB().scalar(QStringLiteral("select count(*) from PayLevel")).toInt() >= 1);
        // A second run changes nothing.
        const QString hash = DB().scalar(QStringLiteral("select pw from Operator")).toString();
        QCOMPARE(Schema::migrate(DB()), 0);
        QCOMPARE(DB().scalar(QStringLiteral("select pw from Operator")).toString(), hash);
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from Puissance")).toInt(), 45);
    }

    void nullMapping() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(QStringLiteral("insert into Operator (OperatorID, LoginName) values ('x1', 'nulls')"));
        DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, State) values ('e1', NULL, 0)"));
        const Row op = DB().query(QStringLiteral("select * from Operator where OperatorID='x1'")).first();
        QCOMPARE(op.text(QStringLiteral("pw")), QString());
        QCOMPARE(op.text(QStringLiteral("DISCOUNT")), QString()); // a null single float reads as empty text...
        QCOMPARE(op.num(QStringLiteral("discount")), 0.0);        // ...and so as 0
        const Row e = DB().query(QStringLiteral("select * from Expense where ExpenseID='e1'")).first();
        QCOMPARE(e.money(QStringLiteral("factpay")), Money());
        QCOMPARE(e.date(QStringLiteral("CloseTime")), QStringLiteral("1900-01-01 01:01"));
        QCOMPARE(e.integer(QStringLiteral("CustomerNum")), qint64(0));
        QVERIFY_THROWS_EXCEPTION(DbError, e.text(QStringLiteral("NoSuchColumn")));
    }

    void textRoundTrips_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("quote") << QStringLiteral("O'Brien's \"room\"");
        QTest::newRow("backslash") << QStringLiteral("a\\b\\'c");
        QTest::newRow("sql") << QStringLiteral("x'); delete from Operator; --");
        QTest::newRow("emoji") << QStringLiteral("生日快乐🎂🎉");
        QTest::newRow("long") << QString(5000, QChar(0x6B4C));
        QTest::newRow("empty") << QString();
    }
    void textRoundTrips() {
        QFETCH(QString, text);
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(QStringLiteral("insert into sys_AutoInput (autoinputID, autoInputType, thisValue) values (?,?,?)"),
                  {QStringLiteral("a1"), QStringLiteral("DetailDescription"), text});
        QCOMPARE(DB().query(QStringLiteral("select thisValue from sys_AutoInput where thisValue=?"), {text}).count(), 1);
        QCOMPARE(DB().scalar(QStringLiteral("select thisValue from sys_AutoInput")).toString(), text);
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from Operator")).toInt(), 1);
        QCOMPARE(DeleteByField(QStringLiteral("sys_AutoInput"), QStringLiteral("thisValue"), text), 1);
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from sys_AutoInput")).toInt(), 0);
    }

    void gatewayOperations() {
        TestVenue v;
        OPEN_VENUE(v);
        ExecuteSQL(QStringLiteral("insert into CompanyInfo (CompanyName) values (?)"), {QStringLiteral("二店")});
        QCOMPARE(UpdateTable(QStringLiteral("CompanyInfo"), {{QStringLiteral("phone"), QStringLiteral("110")}},
                             QStringLiteral("CompanyName=?"), {QStringLiteral("二店")}),
                 1);
        QCOMPARE(DB().scalar(QStringLiteral("select phone from CompanyInfo where CompanyName=?"), {QStringLiteral("二店")}).toString(),
                 QStringLiteral("110"));
        // A refused delete reads as 0, without a message.
        QCOMPARE(DeleteByField(QStringLiteral("PayLevel"), QStringLiteral("PayLevelID"), QStringLiteral("00000000000000001")), 1);
        DB().exec(QStringLiteral("insert into PayLevel (PayLevelID, Unit) values ('p', 10)"));
        DB().exec(QStringLiteral("insert into TheAssort (AssortID, PayLevelID) values ('a', 'p')"));
        QCOMPARE(DeleteByField(QStringLiteral("PayLevel"), QStringLiteral("PayLevelID"), QStringLiteral("p")), 0);
        QCOMPARE(DeleteByField(QStringLiteral("No such"), QStringLiteral("x"), QStringLiteral("p")), 0);
        // Binary fields: a file in and out again.
        DB().exec(QStringLiteral("insert into Employee (EmployeeID, EmployeeName) values ('e', '赵敏')"));
        const QString in = QDir(v.home()).filePath(QStringLiteral("photo.bin"));
        const QString out = QDir(v.home()).filePath(QStringLiteral("temp.db"));
        QByteArray bytes;
        for (int i = 0; i < 70000; ++i) bytes.append(char(i * 7));
        QFile f(in);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        f.close();
        QVERIFY(WriteDataToDB(QStringLiteral("Employee"), QStringLiteral("ThisPhoto"), QStringLiteral("EmployeeID"),
                              QStringLiteral("e"), in));
        QVERIFY(ReadDataDB(QStringLiteral("Employee"), QStringLiteral("ThisPhoto"), QStringLiteral("EmployeeID"),
                           QStringLiteral("e"), out));
        QFile g(out);
        QVERIFY(g.open(QIODevice::ReadOnly));
        QCOMPARE(g.readAll(), bytes);
        QString error;
        QVERIFY(!WriteDataToDB(QStringLiteral("Employee"), QStringLiteral("ThisPhoto"), QStringLiteral("EmployeeID"),
                               QStringLiteral("e"), in + QStringLiteral(".missing"), &error));
        QVERIFY(error.contains(QStringLiteral("in procedure WriteDataToDB of Module mdQNDbToForm")));
    }

    void rollbackOnError() {
        TestVenue v;
        OPEN_VENUE(v);
        QVERIFY_THROWS_EXCEPTION(DbError, DB().write([&] {
            DB().exec(QStringLiteral("insert into Employee (EmployeeID, EmployeeName) values ('e1', 'a')"));
            DB().exec(QStringLiteral("insert into Employee (EmployeeID, EmployeeName) values ('e1', 'duplicate')"));
        }));
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from Employee")).toInt(), 0);
        QVERIFY(!DB().inTransaction());
        {
            Transaction t;
            DB().exec(QStringLiteral("insert into Employee (EmployeeID) values ('e2')"));
            // Leaving the scope without commit rolls back.
        }
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from Employee")).toInt(), 0);
        DB().write([&] { DB().exec(QStringLiteral("insert into Employee (EmployeeID) values ('e3')")); });
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from Employee")).toInt(), 1);
        // The schema refuses a second open bill for one room.
        DB().exec(QStringLiteral("insert into The (TheID, TheCode) values ('t', '101')"));
        DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, State) values ('b1', 't', 1)"));
        QVERIFY_THROWS_EXCEPTION(DbError, DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, State) values ('b2', 't', 1)")));
        DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, State) values ('b3', 't', 0)"));
    }

    void nextNo_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("expected");
        QTest::newRow("none") << QString() << "20240131-00001";
        QTest::newRow("same day") << "20240131-00006" << "20240131-00007";
        QTest::newRow("new day") << "20240130-00042" << "20240131-00001";
        QTest::newRow("other length") << "20240131--00042" << "20240131-00001";
        QTest::newRow("widening") << "20240131-99999" << "20240131-100000";
        QTest::newRow("after widening") << "20240131-100000" << "20240131-00001";
        QTest::newRow("garbage") << "abcdefghijklmn" << "20240131-00001";
    }
    void nextNo() {
        QFETCH(QString, stored);
        QFETCH(QString, expected);
        TestVenue v;
        OPEN_VENUE(v);
        setNow(QDateTime(QDate(2024, 1, 31), QTime(23, 59)));
        if (!stored.isNull()) QVERIFY(SetSetup(QStringLiteral("NextNo_Out"), stored));
        QCOMPARE(GetNextNo(QStringLiteral("Out"), QStringLiteral("-")), expected);
        QCOMPARE(GetSetup(QStringLiteral("nextno_out")), expected);
    }

    void nextNoFromTwoConnections() {
        TestVenue v;
        OPEN_VENUE(v);
        Db other;
        other.open(v.config());
        QSet<QString> seen;
        for (int i = 0; i < 10; ++i) {
            seen.insert(GetNextNo(QStringLiteral("Out"), QStringLiteral("-")));
            seen.insert(GetNextNo(QStringLiteral("Out"), QStringLiteral("-"), other));
        }
        QCOMPARE(seen.size(), 20);
        QCOMPARE(GetSetup(QStringLiteral("NextNo_Out")), QStringLiteral("20261121-00020"));
    }

    void settingsAndFlags_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("on");
        QTest::newRow("one") << "1" << 1;
        QTest::newRow("minus one") << "-1" << 0;
        QTest::newRow("empty") << "" << 0;
        QTest::newRow("one with text") << "1abc" << 1;
        QTest::newRow("one point zero") << "1.0" << 1;
        QTest::newRow("two") << "2" << 0;
    }
    void settingsAndFlags() {
        QFETCH(QString, value);
        QFETCH(int, on);
        TestVenue v;
        OPEN_VENUE(v);
        QVERIFY(SetSetup(QStringLiteral("IsUseWareHouse"), value));
        QVERIFY(SetSetup(QStringLiteral("PrintStartBill"), value));
        QVERIFY(SetSetup(QStringLiteral("btNum"), QStringLiteral("3")));
        QCOMPARE(GetSetup(QStringLiteral("BTNum")), QStringLiteral("3"));
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from pSetup where lower(setupname)='btnum'")).toInt(), 1);
        QVERIFY(SetSetup(QStringLiteral("LockTime"), QStringLiteral("40000")));
        LoadSetupValue();
        QCOMPARE(App().IsUseWareHouse, on);
        QCOMPARE(App().IsPrintStartBill, on);
        QCOMPARE(App().LockTime, 40000);
        LoadCompanyInfo();
        QCOMPARE(App().CompanyName, QStringLiteral("星澜KTV"));
        DB().exec(QStringLiteral("delete from CompanyInfo"));
        LoadCompanyInfo();
        QCOMPARE(App().CompanyName, QString());
    }

    void iniFile() {
        TestVenue v;
        const QString path = IniPath();
        QVERIFY(SetIni(QStringLiteral("Remind"), QStringLiteral("第一行|第二行")));
        QCOMPARE(GetIni(QStringLiteral("REMIND")), QStringLiteral("第一行|第二行"));
        QVERIFY(SetIni(QStringLiteral("remind"), QStringLiteral("新")));
        QCOMPARE(GetIni(QStringLiteral("Remind")), QStringLiteral("新"));
        QVERIFY(WriteIniFile(QStringLiteral("Other"), QStringLiteral("k"), QStringLiteral("v"), path));
        QCOMPARE(ReadIniFile(QStringLiteral("other"), QStringLiteral("K"), path), QStringLiteral("v"));
        QCOMPARE(ReadIniFile(QStringLiteral("Other"), QStringLiteral("missing"), path), QString());
        // Reads are cut at 800 bytes without splitting a character.
        SetIni(QStringLiteral("Long"), QString(500, QChar(0x6B4C)));
        QCOMPARE(GetIni(QStringLiteral("Long")).toUtf8().size(), 798);
        // The shipped help texts; "|" becomes a line break, four blanks behind.
        const QString help = GetHelpText(QStringLiteral("LOGIN"));
        QVERIFY(help.contains(QLatin1Char('\n')));
        QVERIFY(help.endsWith(QStringLiteral("    ")));
        QCOMPARE(GetHelpText(QStringLiteral("nosuchform")), QStringLiteral("    "));
    }

    void writeLogAndRetention_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("number");
        QTest::addColumn<int>("left");
        // Rows dated 10, 3, 1 and 0 days ago (now: 2026-11-21 20:00).
        QTest::newRow("keep 5 days") << 0 << "5" << 3;
        QTest::newRow("keep 0 days") << 0 << "0" << 1;
        QTest::newRow("negative days") << 0 << "-4" << 1;
        QTest::newRow("keep 2 rows") << 1 << "2" << 2;
        QTest::newRow("keep 0 rows") << 1 << "0" << 0;
        QTest::newRow("keep more rows") << 1 << "10" << 4;
    }
    void writeLogAndRetention() {
        QFETCH(int, type);
        QFETCH(QString, number);
        QFETCH(int, left);
        TestVenue v;
        OPEN_VENUE(v);
        const QDateTime now = TestVenue::fixedNow();
        for (int days : {10, 3, 1, 0})
            WriteLog(now.addDays(-days), QStringLiteral("O'Neil"), QStringLiteral("营业设置"), QStringLiteral("其它设置"),
                     days, days != 3, QStringLiteral("it's %1").arg(days));
        SetSetup(QStringLiteral("LogType"), QString::number(type));
        SetSetup(QStringLiteral("LogSaveNumber"), number);
        TrimLog();
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from s_log")).toInt(), left);
        if (left > 0) {
            const Row newest = DB().query(QStringLiteral("select * from s_log order by Logdate desc")).first();
            QCOMPARE(newest.text(QStringLiteral("theContent")), QStringLiteral("it's 0"));
            QCOMPARE(newest.text(QStringLiteral("theOperator")), QStringLiteral("O'Neil"));
            QCOMPARE(newest.text(QStringLiteral("Dotype")), QStringLiteral("其它"));
            QCOMPARE(newest.text(QStringLiteral("dook")), QStringLiteral("成功"));
            QCOMPARE(newest.date(QStringLiteral("Logdate")), QStringLiteral("2026-11-21 20:00"));
        }
    }

    void logKinds() {
        TestVenue v;
        OPEN_VENUE(v);
        const QStringList expected = {QStringLiteral("新增"), QStringLiteral("修改"), QStringLiteral("删除"), QStringLiteral("其它")};
        for (int kind = 1; kind <= 4; ++kind)
            WriteLog(TestVenue::fixedNow(), QString(), QString(), QString(), kind, kind != 2, QString());
        QStringList got;
        for (const Row r : DB().query(QStringLiteral("select Dotype, dook from s_log order by Dotype")))
            got << r.text(QStringLiteral("Dotype"));
        std::sort(got.begin(), got.end());
        QStringList sorted = expected;
        std::sort(sorted.begin(), sorted.end());
        QCOMPARE(got, sorted);
        QCOMPARE(DB().scalar(QStringLiteral("select dook from s_log where Dotype=?"), {QStringLiteral("修改")}).toString(),
                 QStringLiteral("失败"));
    }

    void backupCopiesTheDatabase() {
        if (TestVenue::isPg()) QSKIP("the file backup is for the embedded database");
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(QStringLiteral("insert into Employee (EmployeeID, EmployeeName) values ('e', '孙磊')"));
        const QString target = DefaultBackupName(v.home());
        QCOMPARE(QFileInfo(target).fileName(), QStringLiteral("202611212000.db"));
        QString error;
        QVERIFY2(BackupSqlite(DB(), target, &error), qPrintable(error));
        QVERIFY2(BackupSqlite(DB(), target, &error), qPrintable(error)); // same minute: replaced
        Db copy;
        DbConfig c;
        c.file = target;
        copy.open(c);
        QCOMPARE(copy.scalar(QStringLiteral("select EmployeeName from Employee")).toString(), QStringLiteral("孙磊"));
        QVERIFY(!BackupSqlite(DB(), QStringLiteral("/proc/no/such/dir/x.db"), &error));
        QVERIFY(!error.isEmpty());
    }

    void migrationFromAnEmptyDatabase() {
        if (TestVenue::isPg()) QSKIP("covered by the seeded fixture on PostgreSQL");
        QTemporaryDir dir;
        Db db;
        DbConfig c;
        c.file = dir.filePath(QStringLiteral("old.db"));
        db.open(c);
        // A database from before any version: only the settings table with an old dbver.
        QCOMPARE(Schema::currentVersion(db), 0);
        QCOMPARE(Schema::migrate(db), Schema::latestVersion());
        QCOMPARE(Schema::currentVersion(db), Schema::latestVersion());
        QCOMPARE(Schema::migrate(db), 0);
    }
};

QTEST_GUILESS_MAIN(TestStore)
#include "test_store.moc"
