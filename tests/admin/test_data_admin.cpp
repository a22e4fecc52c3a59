#include "DataAdmin.h"
#include "GoodsImport.h"
#include "Schema.h"
#include "TestKit.h"
#include "Upgrade.h"
#include "Venue.h"
#include "frmDataImport.h"
#include "frmSetup.h"
#include <QPlainTextEdit>
#include <QStringEncoder>
#include <csignal>
#include <sqlite3.h>
#include <xlsxwriter.h>

namespace {
// A bill with `lines` lines, written in one transaction on `db`.
void writeBill(Db& db, const QString& id, int lines) {
    db.exec(u"insert into Expense (ExpenseID, State, OpenTime) values (?, 1, '2026-11-21 19:00')"_s, {id});
    for (int i = 0; i < lines; ++i)
        db.exec(u"insert into ExpenseDetail (DetailID, ExpenseID, WareID, num) values (?, ?, 'w1', 1)"_s,
                {id + QString::number(i), id});
}

// Enough pages that a backup takes several steps.
void addBulk(Db& db) {
    db.write([&] {
        const QString text(4000, u'x');
        for (int i = 0; i < 3000; ++i)
            db.exec(u"insert into s_log (logid, theContent) values (?, ?)"_s,
                    {u"bulk"_s + QString::number(i), text});
    });
}

QString sqliteText(const QString& file, const QString& sql) {
    Db db(u"probe"_s);
    DbConfig c;
    c.file = file;
    db.open(c);
    const QString v = db.scalar(sql).toString();
    db.close();
    return v;
}

// Statements run on a SQLite file through a connection of its own.
void onFile(const QString& file, const QByteArray& sql) {
    sqlite3* db = nullptr;
    QCOMPARE(sqlite3_open(QFile::encodeName(file).constData(), &db), SQLITE_OK);
    QCOMPARE(sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
}

QString marker() {
    return text(u"select CompanyName from CompanyInfo"_s);
}
void setMarker(const QString& m) {
    DB().exec(u"update CompanyInfo set CompanyName=?"_s, {m});
}
// A copy of the venue's database, several pages long, taken while its marker reads
// "备份时的数据".
QString backUp(const TestVenue& v) {
    addBulk(DB());
    setMarker(u"备份时的数据"_s);
    const QString file = v.home() + u"/DBBackup/chosen.db"_s;
    if (const QString why = DataAdmin::BackupDatabase(file, false); !why.isEmpty())
        qFatal("backup failed: %s", qPrintable(why));
    return file;
}

const QString header = u"编号,名称,单位,助记码,售价,类别,库存,最低库存,进价"_s;

void writeXlsx(const QString& path, const QList<QStringList>& rows) {
    lxw_workbook* wb = workbook_new(QFile::encodeName(path).constData());
    lxw_worksheet* ws = workbook_add_worksheet(wb, "商品");
    for (int r = 0; r < rows.size(); ++r)
        for (int c = 0; c < rows[r].size(); ++c) {
            bool number = false;
            const double d = rows[r][c].toDouble(&number);
            if (number && r > 0 && c >= 4)
                worksheet_write_number(ws, lxw_row_t(r), lxw_col_t(c), d, nullptr);
            else
                worksheet_write_string(ws, lxw_row_t(r), lxw_col_t(c), rows[r][c].toUtf8().constData(),
                                       nullptr);
        }
    workbook_close(wb);
}

} // namespace

class TestDataAdmin : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void backup_is_consistent_while_a_bill_is_written_data() {
        columns<bool, bool>("pageByPage", "committed");
        QTest::newRow("pages: bill committed between two steps") << true << true;
        QTest::newRow("pages: bill still open while the copy runs") << true << false;
        QTest::newRow("file: bill committed, log not yet folded in") << false << true;
        QTest::newRow("file: bill still open while the copy runs") << false << false;
    }

    void backup_is_consistent_while_a_bill_is_written() {
        auto [pageByPage, committed] = fetch<bool, bool>("pageByPage", "committed");
        if (TestVenue::isPg()) QSKIP("the server keeps its own backups");
        NEW_VENUE(v);
        // A reader on an older snapshot keeps the log from being folded into the file, so the
        // copy goes page by page.
        sqlite3* old = nullptr;
        if (pageByPage) {
            QCOMPARE(sqlite3_open(QFile::encodeName(v.config().file).constData(), &old), SQLITE_OK);
            QCOMPARE(sqlite3_exec(old, "BEGIN; SELECT count(*) FROM s_log;", nullptr, nullptr, nullptr),
                     SQLITE_OK);
        }
        addBulk(DB());
        Db till(u"till"_s);
        till.open(v.config());
        std::optional<Transaction> open;
        const auto write = [&] {
            if (committed) {
                till.write([&] { writeBill(till, u"B1"_s, 5); });
            } else {
                open.emplace(till);
                writeBill(till, u"B1"_s, 5);
            }
        };
        if (!pageByPage) write();
        const QString copy = v.home() + u"/DBBackup/copy.db"_s;
        int steps = 0;
        const QString why = DataAdmin::BackupDatabase(copy, false, DB(), [&](int done, int total) {
            // Another till writes a whole bill between two steps of the copy.
            if (steps++ == 0 && done < total && pageByPage) write();
        });
        QCOMPARE(why, QString());
        QCOMPARE(steps > 1, pageByPage);
        open.reset();
        till.close();
        sqlite3_close(old);
        QCOMPARE(sqliteText(copy, u"PRAGMA quick_check"_s), u"ok"_s);
        QCOMPARE(sqliteText(copy, u"select count(*) from Expense where ExpenseID='B1'"_s).toInt(),
                 committed ? 1 : 0);
        QCOMPARE(sqliteText(copy, u"select count(*) from ExpenseDetail where ExpenseID='B1'"_s).toInt(),
                 committed ? 5 : 0);
        QCOMPARE(marker(), sqliteText(copy, u"select CompanyName from CompanyInfo"_s)); // the program went on
    }

    void restore_takes_only_a_sound_copy_data() {
        columns<QString, QString>("kind", "says"); // clang-format off
        QTest::newRow("sound copy") << "sound" << "";
        QTest::newRow("text file") << "text" << "不是星澜系统的数据文件";
        QTest::newRow("another program's database") << "foreign" << "不是星澜系统的数据文件";
        QTest::newRow("truncated copy") << "truncated" << "不完整或已损坏";
        QTest::newRow("damaged page") << "damaged" << "不完整或已损坏";
        QTest::newRow("newer version") << "newer" << "比本程序能读的版本";
        QTest::newRow("the live file itself") << "live" << "正在使用"; // clang-format on
    }

    void restore_takes_only_a_sound_copy() {
        auto [kind, says] = fetch<QString, QString>("kind", "says");
        if (TestVenue::isPg()) QSKIP("the server keeps its own backups");
        NEW_VENUE(v);
        const QString file = backUp(v);
        if (kind == u"text"_s) {
            QFile f(file);
            QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
            f.write("编号,名称\n1,啤酒\n");
        } else if (kind == u"foreign"_s) {
            QFile::remove(file);
            onFile(file, "create table pSetup (setupname text, setupvalue text); "
                         "insert into pSetup values ('dbver', '1');");
        } else if (kind == u"truncated"_s || kind == u"damaged"_s) {
            QFile f(file);
            QVERIFY(f.open(QIODevice::ReadWrite));
            if (kind == u"truncated"_s) {
                QVERIFY(f.resize(f.size() / 2));
            } else {
                f.seek(4096 * 40);
                f.write(QByteArray(4096 * 8, '\x5a'));
            }
        } else if (kind == u"newer"_s) {
            onFile(file, "update pSetup set setupvalue='" + QByteArray::number(Schema::latestVersion() + 1) +
                             "' where setupname='dbver'");
        }
        setMarker(u"现在的数据"_s);
        const QString live = Venue::databaseFile(v.home());
        const QString why = DataAdmin::RestoreDatabase(kind == u"live"_s ? live : file);
        QVERIFY2(says.isEmpty() ? why.isEmpty() : why.contains(says), qPrintable(why));
        // A refused copy leaves the data untouched and open; a restored one keeps the data it
        // replaced beside the backups.
        QCOMPARE(marker(), says.isEmpty() ? u"备份时的数据"_s : u"现在的数据"_s);
        if (says.isEmpty())
            QCOMPARE(
                sqliteText(DataAdmin::SafetyCopyName(v.home()), u"select CompanyName from CompanyInfo"_s),
                u"现在的数据"_s);
        QVERIFY(!QFile::exists(live + u".restore"_s));
    }

    void restore_killed_midway_leaves_a_working_database_data() {
        columns<int, QString>("step", "expected");
        QTest::newRow("staged") << int(DataAdmin::RestoreStep::Staged) << "后来的数据";
        QTest::newRow("safety copy made") << int(DataAdmin::RestoreStep::SafetyCopied) << "后来的数据";
        QTest::newRow("connection closed") << int(DataAdmin::RestoreStep::Closed) << "后来的数据";
        QTest::newRow("files swapped") << int(DataAdmin::RestoreStep::Swapped) << "备份时的数据";
    }

    void restore_killed_midway_leaves_a_working_database() {
        auto [step, expected] = fetch<int, QString>("step", "expected");
        if (TestVenue::isPg()) QSKIP("the server keeps its own backups");
        NEW_VENUE(v);
        const QString file = backUp(v);
        setMarker(u"后来的数据"_s);
        DB().close();
        // The restore runs in a process of its own that is killed at the step.
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    {u"--restore-child"_s, Venue::databaseFile(v.home()), file, QString::number(step)});
        QVERIFY(child.waitForFinished(60000));
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        Venue::openAndUpgrade(DB(), v.config());
        QCOMPARE(text(u"PRAGMA quick_check"_s), u"ok"_s);
        QCOMPARE(marker(), expected);
        QCOMPARE(count(u"select count(*) from s_log where logid like 'bulk%'"_s), 3000);
    }

    void purge_counts_exactly_data() {
        QTest::addColumn<bool>("all");
        QTest::newRow("business data") << false;
        QTest::newRow("all data") << true;
    }

    void purge_counts_exactly() {
        QFETCH(bool, all);
        NEW_VENUE(v);
        Db& db = DB();
        db.exec(u"insert into WareType (WareTypeID, WareTypeName) values ('t1', '酒水')"_s);
        db.exec(u"insert into Ware (WareID, WareTypeID, WareName, nownum) values ('w1', 't1', '啤酒', 12), "
                "('w2', 't1', '可乐', 3)"_s);
        db.exec(u"insert into MemberSetup (SetupID, SetupName) values ('s1', '金卡')"_s);
        db.exec(u"insert into Member (MemberCode, MemberName, SetupID) values ('M1', '张三', 's1')"_s);
        db.exec(
            u"insert into Operator (OperatorID, LoginName, operatorname) values ('o2', 'cash', '收银员')"_s);
        db.exec(u"insert into Puissance (OperatorID, SysPuissanceID, isHave) values ('o2', 'S02', 1)"_s);
        writeBill(db, u"B1"_s, 3);
        writeBill(db, u"B2"_s, 2);
        const auto rows = [](const QString& table, const QString& where = u"1=1"_s) {
            return int(count(u"select count(*) from "_s + table + u" where "_s + where));
        };
        int expected = 0;
        for (const QString& t :
             {u"ExpenseDetail"_s, u"Expense"_s, u"Reservation"_s, u"WareInList"_s, u"WareIn"_s,
              u"OutsaleDetail"_s, u"Outsale"_s, u"Shouyininfo"_s, u"The"_s, u"Ware"_s})
            expected += rows(t);
        if (all) {
            for (const QString& t :
                 {u"Employee"_s, u"CompanyInfo"_s, u"chongzhi"_s, u"Member"_s, u"MemberSetup"_s, u"The"_s,
                  u"TheAssort"_s, u"PayLevel"_s, u"WareLevel"_s, u"Ware"_s, u"WareType"_s, u"s_log"_s})
                expected += rows(t);
            expected += rows(u"pSetup"_s, u"lower(setupname)<>'dbver'"_s) +
                        rows(u"Puissance"_s, u"OperatorID<>'qa042'"_s) +
                        rows(u"Operator"_s, u"OperatorID<>'qa042'"_s);
        }
        const int grants = rows(u"Puissance"_s, u"OperatorID='qa042'"_s);
        QCOMPARE(DataAdmin::DelAllData(all), expected);
        QCOMPARE(rows(u"Expense"_s) + rows(u"ExpenseDetail"_s), 0);
        QCOMPARE(rows(u"Member"_s), all ? 0 : 1); // a business purge keeps the members
        QCOMPARE(rows(u"Ware"_s, u"nownum<>0"_s), 0);
        QCOMPARE(rows(u"Puissance"_s, u"OperatorID='qa042'"_s), grants);
        QCOMPARE(Schema::currentVersion(db), Schema::latestVersion());
    }

    void versions_compare_over_the_shorter_list_data() {
        columns<QString, QString, int>("a", "b", "sign"); // clang-format off
        QTest::newRow("shorter list decides") << "5.2.1" << "5.2" << 0;
        QTest::newRow("numbers, not text") << "5.10" << "5.9" << 1;
        QTest::newRow("lower") << "4" << "5" << -1;
        QTest::newRow("empty") << "" << "5" << -1; // clang-format on
    }

    void versions_compare_over_the_shorter_list() {
        auto [a, b, sign] = fetch<QString, QString, int>("a", "b", "sign");
        const int c = Upgrade::CompareVersion(a, b);
        QCOMPARE((c > 0) - (c < 0), sign);
    }

    void upgrade_pack_is_all_or_nothing() {
        NEW_VENUE(v);
        QVERIFY(Upgrade::ReadPack(v.home()).newVer.isEmpty());
        const QString ini = v.home() + u"/Update/config.ini"_s;
        QVERIFY(WriteIniFile(u"Info"_s, u"NewVer"_s, u"99"_s, ini));
        QVERIFY(
            WriteIniFile(u"UpdateDB"_s, u"Do"_s,
                         u"update CompanyInfo set CompanyName='升级后'|insert into NoSuchTable values (1)|"
                         "update pSetup set setupvalue='99' where setupname='dbver'"_s,
                         ini));
        const QString before = marker();
        QVERIFY_THROWS_EXCEPTION(DbError, Upgrade::ApplyPack(Upgrade::ReadPack(v.home())));
        QCOMPARE(marker(), before);
        QCOMPARE(Upgrade::CurrentVersion(), QString::number(Schema::latestVersion()));
        QVERIFY(GetIni(u"NowVer"_s).isEmpty());

        QVERIFY(WriteIniFile(
            u"UpdateDB"_s, u"Do"_s,
            u"update CompanyInfo set CompanyName='升级后'| |update pSetup set setupvalue='99' where "
            "setupname='dbver'"_s,
            ini));
        Upgrade::ApplyPack(Upgrade::ReadPack(v.home()));
        QCOMPARE(marker(), u"升级后"_s);
        QCOMPARE(Upgrade::CurrentVersion(), u"99"_s);
        QCOMPARE(GetIni(u"NowVer"_s), u"99"_s);

        // The free statement is logged, done or not.
        QVERIFY_THROWS_EXCEPTION(DbError, Upgrade::RunSql(u"delete from NoSuchTable"_s));
        Upgrade::RunSql(u"update CompanyInfo set CompanyName='手工'"_s);
        QCOMPARE(marker(), u"手工"_s);
        QCOMPARE(count(u"select count(*) from s_log where theContent like '%NoSuchTable%' and dook='失败'"_s),
                 1);
    }

    void import_previews_and_imports_all_or_nothing_data() {
        columns<QString, QList<QStringList>, QStringList>("format", "rows", "refusals");
        const QList<QStringList> good = {
            header.split(u','),
            {u"1001"_s, u"青岛啤酒"_s, u"瓶"_s, u"QDPJ"_s, u"12.5"_s, u"t1"_s, u"24"_s, u"6"_s, u"4.2"_s},
            {u"1002"_s, u"果盘 \"大\", 拼"_s, u"份"_s, u""_s, u"38"_s, u"t1"_s, u""_s, u""_s, u"10"_s},
        };
        const QStringList none = {QString(), QString()};
        QTest::newRow("csv, UTF-8") << "csv" << good << none;
        QTest::newRow("csv, GB18030 from a Chinese Excel") << "csv-gb" << good << none;
        QTest::newRow("xlsx") << "xlsx" << good << none;
        QTest::newRow("xls") << "xls" << good << none;
        QList<QStringList> bad = good;
        bad << QStringList{u"w0"_s, u"已有的"_s, u"瓶"_s, u""_s, u"1"_s, u"t1"_s, u"1"_s, u"1"_s, u"1"_s}
            << QStringList{u"1001"_s, u"重复"_s, u"瓶"_s, u""_s, u"1"_s, u"t1"_s, u"1"_s, u"1"_s, u"1"_s}
            << QStringList{u"1003"_s, u"贵"_s, u"瓶"_s, u""_s, u"十元"_s, u"t1"_s, u"1"_s, u"1"_s, u"1"_s}
            << QStringList{u"1004"_s, u"无类"_s, u"瓶"_s, u""_s, u"1"_s, u"t9"_s, u"1"_s, u"1"_s, u"1"_s}
            << QStringList{u"1005"_s, u"大"_s, u"瓶"_s, u""_s, u"1"_s, u"t1"_s, u"1e300"_s, u"1"_s, u"1"_s}
            << QStringList{u""_s, u"无编号"_s, u"瓶"_s, u""_s, u"1"_s, u"t1"_s, u"1"_s, u"1"_s, u"1"_s};
        const QStringList why = none + L({"商品编号已存在", "商品编号在表中重复", "售价不是有效的数字",
                                          "商品类别编号不存在", "库存数量不是有效的数字", "商品编号为空"});
        QTest::newRow("csv with bad rows") << "csv" << bad << why;
        QTest::newRow("xls with bad rows") << "xls" << bad << why;
        QList<QStringList> narrow;
        for (const QStringList& r : good)
            narrow << r.mid(0, 8);
        QTest::newRow("eight columns") << "csv" << narrow << QStringList{u"少于9列"_s, u"少于9列"_s};
    }

    void import_previews_and_imports_all_or_nothing() {
        auto [format, rows, refusals] =
            fetch<QString, QList<QStringList>, QStringList>("format", "rows", "refusals");
        NEW_VENUE(v);
        DB().exec(u"insert into WareType (WareTypeID, WareTypeName) values ('t1', '酒水')"_s);
        DB().exec(u"insert into Ware (WareID, WareTypeID, WareName) values ('w0', 't1', '已有的')"_s);
        const QString file = v.home() + u"/Other/goods."_s + format.section(u'-', 0, 0);
        if (format == u"xlsx"_s) {
            writeXlsx(file, rows);
        } else if (format == u"xls"_s) {
            // Excel 97 workbooks of the same rows, one sheet, empty cells left out.
            QVERIFY(QFile::copy(QStringLiteral(QT_TESTCASE_SOURCEDIR "/admin/data/") +
                                    (refusals.size() > 2 ? u"goods-bad.xls"_s : u"goods.xls"_s),
                                file));
        } else {
            QString text;
            for (const QStringList& r : rows) {
                QStringList cells;
                for (const QString& c : r)
                    cells << (c.contains(u',') || c.contains(u'"')
                                  ? u"\""_s + QString(c).replace(u"\""_s, u"\"\""_s) + u"\""_s
                                  : c);
                text += cells.join(u',') + u"\r\n"_s;
            }
            QFile f(file);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(format == u"csv-gb"_s ? QStringEncoder("GB18030").encode(text) : text.toUtf8());
        }
        const Sheet sheet = ReadSheet(file, format == u"xlsx"_s ? u"商品$"_s : u"Sheet1"_s);
        QVERIFY2(sheet.ok(), qPrintable(sheet.error));
        QCOMPARE(sheet.headers.first(), u"编号"_s);
        const GoodsImport::Preview p = GoodsImport::Check(sheet);
        QStringList got;
        for (const auto& l : p.lines)
            got << l.refusal;
        QCOMPARE(got, refusals);
        const qint64 before = count(u"select count(*) from Ware"_s);
        const GoodsImport::Outcome o = GoodsImport::Import(p);
        const bool clean = p.refused() == 0;
        QCOMPARE(o.imported, clean ? int(rows.size() - 1) : 0);
        QCOMPARE(count(u"select count(*) from Ware"_s), before + o.imported);
        QVERIFY(o.info.endsWith(clean ? u"成功导入了 2 行数据"_s
                                      : u"请检查商品编号是否已存在，金额或数字值是否正确！"_s));
        QCOMPARE(
            text(
                u"select theContent from s_log where theDoName='商品及服务' order by Logdate desc, logid desc"_s),
            clean ? u"成功导入商品数据共计 2 条。"_s
                  : u"准备导入商品数据共计 %1 条，实际导入 0 条，未成功！"_s.arg(rows.size() - 1));
        if (clean) {
            const Rows r = DB().query(u"select * from Ware where WareID='1002'"_s);
            QCOMPARE(r.first().text(u"WareName"_s), u"果盘 \"大\", 拼"_s);
            QCOMPARE(r.first().money(u"Price"_s), Money::yuan(38));
            QCOMPARE(r.first().money(u"ProcurePrice"_s), Money::yuan(10));
        }
    }

    void import_window_and_purge_window() {
        NEW_VENUE(v);
        DB().exec(u"insert into WareType (WareTypeID, WareTypeName) values ('t1', '酒水')"_s);
        const QString file = v.home() + u"/Other/goods.csv"_s;
        {
            QFile f(file);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write((header + u"\n2001,红酒,瓶,HJ,288,t1,6,1,120\n"_s).toUtf8());
        }
        frmDataImport dlg;
        auto* cmdDo = child<QPushButton>(dlg, "cmdDo");
        cmdDo->click(); // no preview: nothing
        QCOMPARE(count(u"select count(*) from Ware"_s), 0);
        child<QLineEdit>(dlg, "txtFileName")->setText(file + u".none"_s);
        child<QPushButton>(dlg, "cmdShowData")->click();
        QCOMPARE(messages(), QStringList{u"没找到"_s + file + u".none文件，请检查此文件是否存在！"_s});
        child<QLineEdit>(dlg, "txtFileName")->setText(file);
        child<QPushButton>(dlg, "cmdShowData")->click();
        QCOMPARE(child<QLabel>(dlg, "lblRowCount")->text(), u"共有 1 行数据"_s);
        cmdDo->click();
        QCOMPARE(child<QPlainTextEdit>(dlg, "txtDoInfo")->toPlainText(),
                 u"编号为 2001 的商品导入成功！\n成功导入了 1 行数据"_s);
        QCOMPARE(text(u"select WareName from Ware where WareID='2001'"_s), u"红酒"_s);

        frmSetup setup;
        Msg::setNextAnswer(QMessageBox::No);
        child<QPushButton>(setup, "cmdClearBusinessData")->click();
        QVERIFY(!setup.programMustEnd());
        QCOMPARE(messages(), QStringList{u"您打算清除系统中的所有数据吗？"_s});
        Msg::setNextAnswer(QMessageBox::Yes);
        child<QPushButton>(setup, "cmdClearBusinessData")->click();
        QVERIFY(setup.programMustEnd());
        QCOMPARE(messages().last(), u"系统共清除了%1条数据！\n系统将自动退出，退出后请您重新登陆系统！"_s.arg(
                                        count(u"select count(*) from The"_s) + 1));
    }

    void xls_reader_dying_is_a_refusal() {
        // freexl can overrun a buffer on a damaged file: the reader's process dies, not the till.
        QTemporaryDir dir;
        const QString reader = dir.filePath(u"dies"_s), file = dir.filePath(u"goods.xls"_s);
        for (const auto& [path, text] :
             {std::pair{reader, QByteArray("#!/bin/sh\nkill -9 $$\n")}, {file, QByteArray("x")}}) {
            QFile f(path);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(text);
        }
        QFile::setPermissions(reader, QFile::ReadOwner | QFile::ExeOwner);
        qputenv("SINGBOX_XLS_READER", reader.toLocal8Bit());
        const Sheet s = ReadSheet(file, u"Sheet1"_s);
        qunsetenv("SINGBOX_XLS_READER");
        QCOMPARE(s.error, u"文件不是有效的 Excel 工作簿"_s);
    }
};

// The child of the crash test: restores, and kills itself at the step it was given.
static int restoreChild(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int step = QString::fromLocal8Bit(argv[4]).toInt();
    DbConfig c;
    c.file = QString::fromLocal8Bit(argv[2]);
    Venue::openAndUpgrade(DB(), c);
    DataAdmin::RestoreDatabase(QString::fromLocal8Bit(argv[3]), DB(), [step](DataAdmin::RestoreStep s) {
        if (int(s) == step) std::raise(SIGKILL);
    });
    return 0;
}

int main(int argc, char** argv) {
    if (argc == 5 && qstrcmp(argv[1], "--restore-child") == 0) return restoreChild(argc, argv);
    QApplication app(argc, argv);
    TestDataAdmin t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_data_admin.moc"
