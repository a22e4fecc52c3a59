#include "Backup.h"
#include "Db.h"
#include "Gateway.h"
#include "Log.h"
#include "NextNo.h"
#include "Schema.h"
#include "TestKit.h"

namespace {
void setNow(const QDateTime& t) {
    Clock::install(std::make_unique<FixedClock>(t));
}
} // namespace

class TestStore : public QObject {
    Q_OBJECT
    std::unique_ptr<TestVenue> m_venue;

  private Q_SLOTS:
    // Each test starts on a fresh, seeded venue.
    void init() {
        m_venue = std::make_unique<TestVenue>();
        OPEN_VENUE(*m_venue);
    }
    void cleanup() { m_venue.reset(); }
    void seededDatabase() {
        // The administrator holds every right, C30 and C030 as separate rows.
        QCOMPARE(
            dump(u"select (select count(*) from SysPuissance), (select count(*) from Puissance where "
                 "OperatorID='qa042' and isHave=1), (select count(*) from SysPuissance where SysPuissanceID "
                 "in ('C30','C030','C26')), (select count(*) from CompanyInfo)"_s),
            u"45|45|3|1"_s);
        QVERIFY(text(u"select pw from Operator where LoginName='admin'"_s).startsWith(u"$argon2id$"_s));
        // A second run changes nothing.
        const QString hash = text(u"select pw from Operator"_s);
        QCOMPARE(Schema::migrate(DB()), 0);
        QCOMPARE(text(u"select pw from Operator"_s), hash);
        QCOMPARE(count(u"select count(*) from Puissance"_s), 45);
    }

    void nullMapping() {
        DB().exec(u"insert into Operator (OperatorID, LoginName) values ('x1', 'nulls')"_s);
        DB().exec(u"insert into Expense (ExpenseID, TheID, State) values ('e1', NULL, 0)"_s);
        const Row op = DB().query(u"select * from Operator where OperatorID='x1'"_s).first();
        // A null single float reads as empty text, and so as 0.
        QCOMPARE(op.text(u"pw"_s) + op.text(u"DISCOUNT"_s), QString());
        QCOMPARE(op.num(u"discount"_s), 0.0);
        const Row e = DB().query(u"select * from Expense where ExpenseID='e1'"_s).first();
        QCOMPARE(e.money(u"factpay"_s), Money());
        QCOMPARE(e.date(u"CloseTime"_s), u"1900-01-01 01:01"_s);
        QCOMPARE(e.integer(u"CustomerNum"_s), qint64(0));
        QVERIFY_THROWS_EXCEPTION(DbError, e.text(u"NoSuchColumn"_s));
    }

    void textRoundTrips_data() { // clang-format off
        QTest::addColumn<QString>("text");
        QTest::newRow("quote") << u"O'Brien's \"room\""_s;
        QTest::newRow("backslash") << u"a\\b\\'c"_s;
        QTest::newRow("empty") << QString(); // clang-format on
    }
    void textRoundTrips() {
        QFETCH(QString, text);
        DB().exec(u"insert into sys_AutoInput (autoinputID, autoInputType, thisValue) values (?,?,?)"_s,
                  {u"a1"_s, u"DetailDescription"_s, text});
        QCOMPARE(DB().query(u"select thisValue from sys_AutoInput where thisValue=?"_s, {text}).count(), 1);
        QCOMPARE(::text(u"select thisValue from sys_AutoInput"_s), text);
        QCOMPARE(DeleteByField(u"sys_AutoInput"_s, u"thisValue"_s, text), 1);
        QCOMPARE(count(u"select count(*) from sys_AutoInput"_s), 0);
    }

    void gatewayOperations() {
        ExecuteSQL(u"insert into CompanyInfo (CompanyName) values (?)"_s, {u"二店"_s});
        QCOMPARE(UpdateTable(u"CompanyInfo"_s, {{u"phone"_s, u"110"_s}}, u"CompanyName=?"_s, {u"二店"_s}), 1);
        QCOMPARE(text(u"select phone from CompanyInfo where CompanyName=?"_s, {u"二店"_s}), u"110"_s);
        // A refused delete reads as 0, without a message.
        QCOMPARE(DeleteByField(u"PayLevel"_s, u"PayLevelID"_s, u"00000000000000001"_s), 1);
        DB().exec(u"insert into PayLevel (PayLevelID, Unit) values ('p', 10)"_s);
        DB().exec(u"insert into TheAssort (AssortID, PayLevelID) values ('a', 'p')"_s);
        QCOMPARE(DeleteByField(u"PayLevel"_s, u"PayLevelID"_s, u"p"_s), 0);
        QCOMPARE(DeleteByField(u"No such"_s, u"x"_s, u"p"_s), 0);
        // Binary fields: a file in and out again.
        DB().exec(u"insert into Employee (EmployeeID, EmployeeName) values ('e', '赵敏')"_s);
        const QString in = QDir(m_venue->home()).filePath(u"photo.bin"_s);
        const QString out = QDir(m_venue->home()).filePath(u"temp.db"_s);
        QByteArray bytes;
        for (int i = 0; i < 70000; ++i)
            bytes.append(char(i * 7));
        QFile f(in);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        f.close();
        QVERIFY(WriteDataToDB(u"Employee"_s, u"ThisPhoto"_s, u"EmployeeID"_s, u"e"_s, in));
        QVERIFY(ReadDataDB(u"Employee"_s, u"ThisPhoto"_s, u"EmployeeID"_s, u"e"_s, out));
        QFile g(out);
        QVERIFY(g.open(QIODevice::ReadOnly));
        QCOMPARE(g.readAll(), bytes);
        QString error;
        QVERIFY(!WriteDataToDB(u"Employee"_s, u"ThisPhoto"_s, u"EmployeeID"_s, u"e"_s, in + u".missing"_s,
                               &error));
        QVERIFY(error.contains(u"in procedure WriteDataToDB of Module mdQNDbToForm"_s));
    }

    // A failing write rolls back whole: see the list columns' save in the lists test.
    void rollbackOnError() {
        {
            Transaction t;
            DB().exec(u"insert into Employee (EmployeeID) values ('e2')"_s);
            // Leaving the scope without commit rolls back.
        }
        QCOMPARE(count(u"select count(*) from Employee"_s), 0);
        // The schema refuses a second open bill for one room.
        DB().exec(u"insert into The (TheID, TheCode) values ('t', '101')"_s);
        DB().exec(u"insert into Expense (ExpenseID, TheID, State) values ('b1', 't', 1)"_s);
        QVERIFY_THROWS_EXCEPTION(
            DbError, DB().exec(u"insert into Expense (ExpenseID, TheID, State) values ('b2', 't', 1)"_s));
        DB().exec(u"insert into Expense (ExpenseID, TheID, State) values ('b3', 't', 0)"_s);
    }

    void nextNo_data() { // clang-format off
        columns<QString, QString>("stored", "expected");
        QTest::newRow("none") << QString() << "20240131-00001";
        QTest::newRow("same day") << "20240131-00006" << "20240131-00007";
        QTest::newRow("new day") << "20240130-00042" << "20240131-00001";
        QTest::newRow("widening") << "20240131-99999" << "20240131-100000";
        QTest::newRow("after widening") << "20240131-100000" << "20240131-00001"; // clang-format on
    }
    void nextNo() {
        auto [stored, expected] = fetch<QString, QString>("stored", "expected");
        setNow(QDateTime(QDate(2024, 1, 31), QTime(23, 59)));
        if (!stored.isNull()) QVERIFY(SetSetup(u"NextNo_Out"_s, stored));
        QCOMPARE(GetNextNo(u"Out"_s, u"-"_s), expected);
        QCOMPARE(GetSetup(u"nextno_out"_s), expected);
    }

    void nextNoFromTwoConnections() {
        Db other;
        other.open(m_venue->config());
        QSet<QString> seen;
        for (int i = 0; i < 10; ++i) {
            seen.insert(GetNextNo(u"Out"_s, u"-"_s));
            seen.insert(GetNextNo(u"Out"_s, u"-"_s, other));
        }
        QCOMPARE(seen.size(), 20);
        QCOMPARE(GetSetup(u"NextNo_Out"_s), u"20261121-00020"_s);
    }

    void settingsAndFlags_data() { // clang-format off
        columns<QString, int>("value", "on");
        QTest::newRow("one") << "1" << 1;
        QTest::newRow("minus one") << "-1" << 0;
        QTest::newRow("empty") << "" << 0;
        QTest::newRow("one with text") << "1abc" << 1; // clang-format on
    }
    void settingsAndFlags() {
        auto [value, on] = fetch<QString, int>("value", "on");
        QVERIFY(SetSetup(u"IsUseWareHouse"_s, value));
        QVERIFY(SetSetup(u"PrintStartBill"_s, value));
        QVERIFY(SetSetup(u"btNum"_s, u"3"_s));
        QCOMPARE(GetSetup(u"BTNum"_s), u"3"_s);
        QCOMPARE(count(u"select count(*) from pSetup where lower(setupname)='btnum'"_s), 1);
        QVERIFY(SetSetup(u"LockTime"_s, u"40000"_s));
        LoadSetupValue();
        QCOMPARE(App().IsUseWareHouse, on);
        QCOMPARE(App().IsPrintStartBill, on);
        QCOMPARE(App().LockTime, 40000);
        LoadCompanyInfo();
        QCOMPARE(App().CompanyName, u"星澜KTV"_s);
        DB().exec(u"delete from CompanyInfo"_s);
        LoadCompanyInfo();
        QCOMPARE(App().CompanyName, QString());
    }

    void iniFile() {
        const QString path = IniPath();
        QVERIFY(SetIni(u"remind"_s, u"新"_s));
        QCOMPARE(GetIni(u"Remind"_s), u"新"_s);
        QVERIFY(WriteIniFile(u"Other"_s, u"k"_s, u"v"_s, path));
        QCOMPARE(ReadIniFile(u"other"_s, u"K"_s, path), u"v"_s);
        QCOMPARE(ReadIniFile(u"Other"_s, u"missing"_s, path), QString());
        // Reads are cut at 800 bytes without splitting a character.
        SetIni(u"Long"_s, QString(500, QChar(0x6B4C)));
        QCOMPARE(GetIni(u"Long"_s).toUtf8().size(), 798);
        // The shipped help texts; "|" becomes a line break, four blanks behind.
        const QString help = GetHelpText(u"LOGIN"_s);
        QVERIFY(help.contains(u'\n'));
        QVERIFY(help.endsWith(u"    "_s));
        QCOMPARE(GetHelpText(u"nosuchform"_s), u"    "_s);
    }

    void writeLogAndRetention_data() { // clang-format off
        columns<int, QString, int>("type", "number", "left");
        // Rows dated 10, 3, 1 and 0 days ago (now: 2026-11-21 20:00).
        QTest::newRow("keep 5 days") << 0 << "5" << 3;
        QTest::newRow("keep 0 days") << 0 << "0" << 1;
        QTest::newRow("negative days") << 0 << "-4" << 1;
        QTest::newRow("keep 2 rows") << 1 << "2" << 2;
        QTest::newRow("keep 0 rows") << 1 << "0" << 0; // clang-format on
    }
    // The rows a log keeps, newest first, each of its own kind (add, change, delete, other).
    void writeLogAndRetention() {
        auto [type, number, left] = fetch<int, QString, int>("type", "number", "left");
        const QDateTime now = TestVenue::fixedNow();
        int kind = 0;
        for (int days : {10, 3, 1, 0}) {
            ++kind;
            WriteLog(now.addDays(-days), u"O'Neil"_s, u"营业设置"_s, u"其它设置"_s, kind, kind != 2,
                     u"it's %1"_s.arg(days));
        }
        SetSetup(u"LogType"_s, QString::number(type));
        SetSetup(u"LogSaveNumber"_s, number);
        TrimLog();
        const QStringList all{
            u"it's 0|O'Neil|其它|成功|2026-11-21 20:00"_s, u"it's 1|O'Neil|删除|成功|2026-11-20 20:00"_s,
            u"it's 3|O'Neil|修改|失败|2026-11-18 20:00"_s, u"it's 10|O'Neil|新增|成功|2026-11-11 20:00"_s};
        QCOMPARE(
            dump(u"select theContent, theOperator, Dotype, dook, Logdate from s_log order by Logdate desc"_s),
            all.mid(0, left).join(u'\n'));
    }

    // What the copy holds is checked by the restore tests, its name by the backup on leaving the
    // program; here a second copy in the same minute, and a place it cannot be written.
    void backupNameAndRefusal() {
        if (TestVenue::isPg()) QSKIP("the file backup is for the embedded database");
        const QString target = DefaultBackupName(m_venue->home());
        QString error;
        QVERIFY2(BackupSqlite(DB(), target, &error), qPrintable(error));
        QVERIFY2(BackupSqlite(DB(), target, &error), qPrintable(error)); // same minute: replaced
        QVERIFY(!BackupSqlite(DB(), u"/proc/no/such/dir/x.db"_s, &error));
        QVERIFY(!error.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestStore)
#include "test_store.moc"
