#include "AutoInput.h"
#include "BusinessQueries.h"
#include "CheckoutService.h"
#include "Dialect.h"
#include "EmployeeService.h"
#include "FindService.h"
#include "ListExport.h"
#include "ListSort.h"
#include "LogService.h"
#include "MemberService.h"
#include "Reconcile.h"
#include "Schema.h"
#include "StockRecords.h"
#include "StoredValueService.h"
#include "SupplierService.h"
#include "TestKit.h"
#include "WareService.h"
#include "frmQNDisplayCase.h"
#include <QStandardPaths>

Q_DECLARE_METATYPE(QList<ListColumnDef>)

namespace {
ListColumnDef col(const QString& name, const QString& title, int width = 1000, bool show = true,
                  const QString& rule = {}) {
    return {name, title, width, 0, show, rule, {}};
}

Rows members() {
    return DB().query(u"select MemberCode, MemberName, State, chongzhi, AddDate, MemberValue from Member "
                      "order by MemberCode desc"_s);
}

QStringList headers(const QTreeWidget& l) {
    QStringList out;
    for (int i = 0; i < l.columnCount(); ++i)
        out << l.headerItem()->text(i);
    return out;
}
QStringList row(const QTreeWidget& l, int r) {
    QStringList out;
    for (int i = 0; i < l.columnCount(); ++i)
        out << l.topLevelItem(r)->text(i);
    return out;
}
QStringList column(const QTreeWidget& l, int c) {
    QStringList out;
    for (int i = 0; i < l.topLevelItemCount(); ++i)
        out << l.topLevelItem(i)->text(c);
    return out;
}
QList<int> widths(const QTreeWidget& l) {
    QList<int> out;
    for (int i = 0; i < l.columnCount(); ++i)
        out << l.header()->sectionSize(i);
    return out;
}

// Each seeded list with the rows its window fills it from, by the window's own service.
using Fill = std::function<Rows()>;
const QList<std::pair<const char*, Fill>>& seededLists() {
    static const QDateTime day(QDate(2026, 11, 21), QTime(0, 0));
    static const QList<std::pair<const char*, Fill>> l = {
        {"lvwPayAfter", [] { return CheckoutService().deferredBills({}); }},
        {"frmMemberList.lvwThis", [] { return MemberService().search({}, {}); }},
        {"frmMemberList.lvwChongzhi", [] { return MemberService().chongzhiRecords(u"x"_s); }},
        {"frmMemberList.lvwExpense", [] { return MemberService().chongzhiExpenses(u"x"_s); }},
        {"frmChongzhiList.lvwThis", [] { return StoredValueService().search(day, day).rows; }},
        {"frmEmployeeList.lvwThis", [] { return EmployeeService().list(); }},
        {"frmSupplierList.lvwThis", [] { return SupplierService().list(); }},
        {"frmWareInList.lvwThis",
         [] { return StockRecordsService(ReceiptRecords()).documents(day, day, {}); }},
        {"frmWareInList.lvwWareinList",
         [] { return StockRecordsService(ReceiptRecords()).lines(day, day, {}); }},
        {"frmWareInList.lvwList", [] { return StockRecordsService(ReceiptRecords()).linesOf({}); }},
        {"frmWareLossList.lvwThis",
         [] { return StockRecordsService(LossRecords()).documents(day, day, {}); }},
        {"frmWareLossList.lvwWareinList",
         [] { return StockRecordsService(LossRecords()).lines(day, day, {}); }},
        {"frmWareLossList.lvwList", [] { return StockRecordsService(LossRecords()).linesOf({}); }},
        {"frmFind.lvwExpense", [] { return FindService().bills(day, day, {}); }},
        {"frmFind.lvwDetail", [] { return FindService().billLines({}, true); }},
        {"frmFind.lvwOutSale", [] { return FindService().sales(day, day); }},
        {"frmFind.lvwOutSaleDetail", [] { return FindService().saleLines({}); }},
        {"frmFindIncome.lvwExpense", [] { return IncomeService().bills(day, day, {}); }},
        {"frmFindIncome.lvwOutSale", [] { return IncomeService().sales(day, day); }},
        {"frmBusReorder.lvwWare", [] { return ReorderService().goods(day, day, RankBy::Goods); }},
        {"frmBusReorder.lvwWareType", [] { return ReorderService().goods(day, day, RankBy::GoodsType); }},
        {"frmBusReorder.lvwSteward", [] { return ReorderService().steward(day, day, {}); }},
        {"frmChart.lvwExpense", [] { return ChartService().rows(day, day, ChartLine::Day, true, true); }},
        {"frmCheckForm.lvwThis", [] { return ReconcileService().bills({}); }},
        {"frmCheckForm.lvwOutSale", [] { return ReconcileService().sales({}); }},
        {"frmShouyinInfo.lvwExpense", [] { return ReconcileService().records(day, day, {}); }},
        {"frmLog.lvwThis",
         [] { return LogService().list(LogQuery{.start = day, .end = day, .search = {}}); }},
        {"frmOption.lvwWare", [] { return WareService().goodsList({}); }},
    };
    return l;
}
} // namespace

class TestLists : public QObject {
    Q_OBJECT
    std::unique_ptr<TestVenue> m_venue;

  private Q_SLOTS:
    // Each test starts on a fresh venue with two members.
    void init() {
        m_venue = std::make_unique<TestVenue>();
        OPEN_VENUE(*m_venue);
        const QString sql =
            u"insert into Member (MemberCode, MemberName, State, chongzhi, AddDate, MemberValue) "
            "values (?, ?, ?, ?, ?, ?)"_s;
        DB().exec(sql, {u"M01"_s, u"张三"_s, 0, qint64(0), u"2025-12-31 09:30"_s, 9.0});
        DB().exec(sql, {u"M02"_s, u"O'Neil"_s, 1, qint64(1234500), u"2026-01-05 10:00"_s, 10.0});
    }
    void cleanup() { m_venue.reset(); }
    void formatShowValue_data() { // clang-format off
        columns<QString, QVariant, QString>("rule", "value", "shown");
        const QString state = u"1,0可用|1停用"_s;
        const QVariant at(u"2026-11-21 20:05"_s);
        QTest::newRow("no rule") << "" << QVariant(u"O'Neil"_s) << "O'Neil";
        QTest::newRow("list, first item") << state << QVariant(0) << "可用";
        QTest::newRow("list, later item") << state << QVariant(1) << "停用";
        QTest::newRow("list, no item") << state << QVariant(2) << "";
        QTest::newRow("list, fraction") << state << QVariant(1.5) << "";
        QTest::newRow("list, null reads as 0") << state << QVariant() << "可用";
        QTest::newRow("list, empty text item") << "1,0|1赠送" << QVariant(0) << "";
        QTest::newRow("date A") << "2,A" << at << "2026年11月21日";
        QTest::newRow("date H") << "2,H" << at << "2026年11月21日 20:05";
        QTest::newRow("date J") << "2,J" << at << "21日 20:05";
        QTest::newRow("date letter upper-cased") << "2,j" << at << "21日 20:05";
        QTest::newRow("date without time") << "2,H" << QVariant(u"2026-11-21"_s) << "2026年11月21日 00:00";
        QTest::newRow("not a date") << "2,A" << QVariant(u"明天"_s) << "明天";
        QTest::newRow("money") << "3,0.00" << QVariant(qint64(123456)) << "12.35";
        QTest::newRow("money, thousands, negative") << "3,￥#,##0" << QVariant(qint64(-12345670000)) << "￥-1,234,567";
        QTest::newRow("money, a sum as double") << "3,0.00" << QVariant(123456.0) << "12.35";
        QTest::newRow("money, no format") << "3," << QVariant(qint64(5000)) << "0.50";
        QTest::newRow("money, null") << "3,0.00" << QVariant() << "0.00"; // clang-format on
    }
    void formatShowValue() {
        auto [rule, value, shown] = fetch<QString, QVariant, QString>("rule", "value", "shown");
        QCOMPARE(FormatShowValue(rule, value), shown);
    }

    void showList_data() { // clang-format off
        columns<QString, QList<ListColumnDef>, bool, QStringList, QList<int>, QStringList, QString>("name", "stored", "keyed", "heads", "pixels", "first", "key");
        const QString name = u"frm'Test.lvwThis"_s;
        QTest::newRow("configured, quote and trailing blank in the name") << name + u"  "_s
            << QList<ListColumnDef>{col(u"MemberName"_s, u"姓名"_s, 1500), col(u"State"_s, u"状态"_s, 900, true, u"1,0可用|1停用"_s), col(u"chongzhi"_s, u"余额"_s, 1200, true, u"3,0.00"_s), col(u"MemberCode"_s, u"编号"_s, 1000, false)}
            << true << QStringList{u"姓名"_s, u"状态"_s, u"余额"_s} << QList<int>{100, 60, 80}
            << QStringList{u"O'Neil"_s, u"停用"_s, u"123.45"_s} << "kO'Neil";
        QTest::newRow("key column of width 0, date rule") << name
            << QList<ListColumnDef>{col(u"MemberCode"_s, u"编号"_s, 0), col(u"AddDate"_s, u"登记日期"_s, 1700, true, u"2,A"_s)}
            << true << QStringList{u"编号"_s, u"登记日期"_s} << QList<int>{0, 113}
            << QStringList{u"M01"_s, u"2025年12月31日"_s} << "kM01";
        QTest::newRow("field the record set lacks") << name
            << QList<ListColumnDef>{col(u"MemberCode"_s, u"编号"_s), col(u"phone"_s, u"电话"_s, 1200, true, u"1,0无"_s)}
            << false << QStringList{u"编号"_s, u"电话"_s} << QList<int>{67, 80}
            << QStringList{u"M01"_s, QString()} << "";
        QTest::newRow("all hidden") << name
            << QList<ListColumnDef>{col(u"MemberCode"_s, u"编号"_s, 1000, false), col(u"MemberName"_s, u"姓名"_s, 1000, false)}
            << true << QStringList() << QList<int>() << QStringList() << ""; // clang-format on
    }
    void showList() {
        auto [name, stored, keyed, heads, pixels, first, key] =
            fetch<QString, QList<ListColumnDef>, bool, QStringList, QList<int>, QStringList, QString>(
                "name", "stored", "keyed", "heads", "pixels", "first", "key");
        QVERIFY(!SaveListColumns(u"frm'Test.lvwThis"_s, stored));
        QTreeWidget list;
        list.setColumnCount(7); // a list filled before keeps nothing of it
        new QTreeWidgetItem(&list, {u"old"_s});
        ShowList(&list, name, members(), keyed);
        QCOMPARE(headers(list), heads);
        QCOMPARE(widths(list), pixels);
        QCOMPARE(list.topLevelItemCount(), heads.isEmpty() ? 0 : 2);
        QCOMPARE(
            count(u"select count(*) from FD_FormControl where FormControlName=?"_s, {u"frm'Test.lvwThis"_s}),
            int(stored.size()));
        if (heads.isEmpty()) return;
        QCOMPARE(row(list, 0), first);
        QCOMPARE(list.topLevelItem(0)->data(0, Qt::UserRole).toString(), key);
        QVERIFY(list.header()->isSortIndicatorShown());
    }

    void newListTakesTheFieldsOfItsRecordSet() {
        const QString name = u"frmNew.lvw'This"_s;
        const Rows rows = DB().query(u"select MemberCode, MemberName, State, MemberCode from Member"_s);
        QTreeWidget list;
        ShowList(&list, name, rows, false);
        QCOMPARE(headers(list), (QStringList{u"membercode"_s, u"membername"_s, u"state"_s}));
        QCOMPARE(widths(list), (QList<int>{67, 67, 67}));
        QCOMPARE(dump(u"select colname, coltitle, ColWidth, ColOrder, IsShow from FD_FormControl where "
                      "FormControlName=? order by ColOrder"_s,
                      {name}),
                 u"membercode|membercode|1000|1|Y\nmembername|membername|1000|2|Y\nstate|state|1000|3|Y"_s);
    }

    void sortList_data() { // clang-format off
        columns<QList<int>, QStringList, int, bool>("clicks", "codes", "section", "descending");
        QTest::newRow("first column again turns round") << QList<int>{0} << L({"M03", "M02", "M01"}) << 0 << true;
        QTest::newRow("another column ascending, as text") << QList<int>{1} << L({"M02", "M03", "M01"}) << 1 << false;
        QTest::newRow("twice descending") << QList<int>{1, 1} << L({"M01", "M03", "M02"}) << 1 << true;
        QTest::newRow("back to the first ascending") << QList<int>{1, 0} << L({"M01", "M02", "M03"}) << 0 << false;
        QTest::newRow("outside the columns") << QList<int>{5} << L({"M01", "M02", "M03"}) << 0 << false; // clang-format on
    }
    void sortList() {
        auto [clicks, codes, section, descending] =
            fetch<QList<int>, QStringList, int, bool>("clicks", "codes", "section", "descending");
        DB().exec(u"insert into Member (MemberCode, MemberValue) values ('M03', 100)"_s);
        QVERIFY(!SaveListColumns(u"points"_s,
                                 {col(u"MemberCode"_s, u"编号"_s), col(u"MemberValue"_s, u"积分"_s)}));
        QTreeWidget list;
        ShowList(&list, u"points"_s, members(), false);
        // Points 9, 10 and 100 compare as text: "10" < "100" < "9".
        for (int c : clicks)
            SortList(&list, c);
        QCOMPARE(column(list, 0), codes);
        QCOMPARE(list.header()->sortIndicatorSection(), section);
        QCOMPARE(list.header()->sortIndicatorOrder() == Qt::DescendingOrder, descending);
    }

    void headerClicksSort() {
        QTreeWidget list;
        ShowList(&list, u"clicks"_s, members(), false);
        SortListOnHeaderClick(&list);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        QHeaderView* h = list.header();
        const QPoint second(h->sectionViewportPosition(1) + 5, h->height() / 2);
        // Query order is O'Neil first: the second click turns it round.
        QTest::mouseClick(h->viewport(), Qt::LeftButton, {}, second);
        QTest::mouseClick(h->viewport(), Qt::LeftButton, {}, second);
        QCOMPARE(column(list, 1), (QStringList{u"张三"_s, u"O'Neil"_s}));
    }

    // The column dialog as a list's menu opens it: moved, hidden, shown, resized and renamed
    // columns are stored on OK, nothing on Cancel.
    void columnDialogRoundTrip() {
        const QString name = u"frm'Test.lvwThis"_s;
        QList<ListColumnDef> start{col(u"MemberCode"_s, u"编号"_s), col(u"MemberName"_s, u"姓名"_s, 1500),
                                   col(u"State"_s, u"状态"_s, 900, true, u"1,0可用|1停用"_s),
                                   col(u"chongzhi"_s, u"余额"_s, 1200, false)};
        start[3].displayCase = u"x'"_s;
        QVERIFY(!SaveListColumns(name, start));

        onModal(u"frmQNDisplayCase"_s, [](QDialog* dlg) {
            look(*dlg, u"frmQNDisplayCase"_s);
            auto* lvw = child<QTreeWidget>(dlg, "lvwThis");
            auto* width = child<QLineEdit>(dlg, "txtWidth");
            auto* rule = child<QLineEdit>(dlg, "txtShowValue");
            auto click = [&](const char* button) {
                QTest::mouseClick(child<QPushButton>(dlg, button), Qt::LeftButton);
            };
            QCOMPARE(column(*lvw, 0), (L({"编号", "姓名", "状态", "余额"})));
            QCOMPARE(lvw->topLevelItem(3)->checkState(0), Qt::Unchecked);

            lvw->setCurrentItem(lvw->topLevelItem(2));
            QCOMPARE(width->text() + u'/' + rule->text(), u"900/1,0可用|1停用"_s);
            click("cmdUp");
            click("cmdUp");
            click("cmdUp");                            // already first
            lvw->setCurrentItem(lvw->topLevelItem(2)); // 姓名
            click("cmdHide");
            click("cmdDown");
            lvw->setCurrentItem(lvw->topLevelItem(2)); // 余额
            click("cmdShow");
            width->selectAll();
            QTest::keyClicks(width, u"0"_s);
            rule->clear();
            rule->insert(u"3,￥0.00"_s); // typed as an input method would
            lvw->topLevelItem(2)->setText(0, u"储值'余额"_s);
            click("OKButton");
        });
        QVERIFY(frmQNDisplayCase::ShowSetup(name + u' '));
        QCOMPARE(messages(), QStringList());
        const auto stored = [&] {
            QStringList out;
            for (const ListColumnDef& c : LoadListColumns(name))
                out << u"%1 %2 %3 %4 %5 %6 %7"_s.arg(c.colname, c.coltitle, QString::number(c.colOrder),
                                                     QString::number(c.colWidth), c.isShow ? u"Y"_s : u"N"_s,
                                                     c.showValue, c.displayCase);
            return out;
        };
        const QStringList saved = stored();
        QCOMPARE(saved, (L({"State 状态 1 900 Y 1,0可用|1停用 ", "MemberCode 编号 2 1000 Y  ",
                            "chongzhi 储值'余额 3 0 Y 3,￥0.00 x'", "MemberName 姓名 4 1500 N  "})));

        onModal(u"frmQNDisplayCase"_s, [](QDialog* d) {
            auto* lvw = child<QTreeWidget>(d, "lvwThis");
            lvw->setCurrentItem(lvw->topLevelItem(0));
            QTest::mouseClick(child<QPushButton>(d, "cmdDown"), Qt::LeftButton);
            QTest::mouseClick(child<QPushButton>(d, "CancelButton"), Qt::LeftButton);
        });
        QVERIFY(!frmQNDisplayCase::ShowSetup(name));
        QCOMPARE(stored(), saved);
    }

    void savingFailsWhole() {
        const QList<ListColumnDef> two{col(u"a"_s, u"甲"_s), col(u"b"_s, u"乙"_s)};
        QVERIFY(!SaveListColumns(u"l"_s, two));
        // A column twice breaks the unique index halfway: nothing changes.
        const Refused r = SaveListColumns(u"l"_s, {col(u"c"_s, u"丙"_s), col(u"c"_s, u"丙"_s)});
        QVERIFY(r);
        QVERIFY(r->message.startsWith(u"Error "_s));
        QVERIFY(r->message.endsWith(u" in procedure SaveData of Form frmMember"_s));
        QCOMPARE(LoadListColumns(u"l"_s).size(), 2);
        QVERIFY(!DB().inTransaction());

        // The dialog shows the failure and stays open.
        frmQNDisplayCase dlg;
        QVERIFY(dlg.load(u"l"_s));
        dlg.show();
        DB().exec(u"drop table FD_FormControl"_s);
        dlg.OKButton_Click();
        const QStringList shown = messages();
        QCOMPARE(shown.size(), 1);
        QVERIFY(shown[0].endsWith(u" in procedure SaveData of Form frmMember"_s));
        QVERIFY(!dlg.saved());
        QVERIFY(dlg.isVisible());
    }

    void exports_data() { // clang-format off
        columns<bool, bool>("excel", "opened");
        QTest::newRow("text, no editor") << false << false;
        QTest::newRow("excel") << true << true; // clang-format on
    }
    void exports() {
        auto [excel, opened] = fetch<bool, bool>("excel", "opened");
        DB().exec(u"update Member set MemberName=? where MemberCode='M01'"_s, {u"张\t三\n"_s});
        QVERIFY(!SaveListColumns(u"export"_s,
                                 {col(u"MemberCode"_s, u"编号"_s, 0), col(u"MemberName"_s, u"姓名"_s, 1500),
                                  col(u"State"_s, u"状态"_s, 900, true, u"1,0可用|1停用"_s),
                                  col(u"chongzhi"_s, u"余额"_s, 1200, true, u"3,0.00"_s)}));
        QTreeWidget list;
        ShowList(&list, u"export"_s, members(), true);
        list.setColumnHidden(2, true);
        QList<std::pair<Desktop::Program, QString>> started;
        Desktop::setLauncher([&](Desktop::Program p, const QString& f) {
            started.append({p, f});
            return opened;
        });
        const QString old = QDir(ExportFolder()).filePath(u"Temp.txt"_s);
        QFile stale(old);
        QVERIFY(stale.open(QIODevice::WriteOnly));
        stale.write(QByteArray(500, 'x'));
        stale.close();

        const QString path = excel ? ExportExcel(&list) : ExportText(&list);
        Desktop::setLauncher({});
        QCOMPARE(QFileInfo(path).absolutePath(),
                 QFileInfo(m_venue->home() + u"/Export"_s).absoluteFilePath());
        QCOMPARE(started.size(), 1);
        QCOMPARE(started[0].first, excel ? Desktop::Program::DefaultApp : Desktop::Program::TextEditor);
        QCOMPARE(started[0].second, path);
        QCOMPARE(messages(), opened ? QStringList()
                                    : QStringList{u"没有找到可用的文本编辑器程序！\n导出的文件已保存在："_s +
                                                  QDir::toNativeSeparators(path)});
        QFile f(path);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray bytes = f.readAll();
        if (!excel) {
            QCOMPARE(QFileInfo(path).fileName(), u"Temp.txt"_s);
            QCOMPARE(QString::fromUtf8(bytes),
                     u"编号\t姓名\t余额\nM01\t张 三 \t0.00\nM02\tO'Neil\t123.45\n"_s);
            return;
        }
        QCOMPARE(QFileInfo(path).fileName(), u"Export_20261121_200000.xlsx"_s);
        QVERIFY(bytes.startsWith("PK\x03\x04"));
        // A second export in the same second gets a name of its own.
        Desktop::setLauncher([](Desktop::Program, const QString&) { return true; });
        QCOMPARE(QFileInfo(ExportExcel(&list)).fileName(), u"Export_20261121_200000_2.xlsx"_s);
        Desktop::setLauncher({});
        if (QStandardPaths::findExecutable(u"unzip"_s).isEmpty()) return;
        auto part = [&](const char* name) {
            QProcess unzip;
            unzip.start(u"unzip"_s, {u"-p"_s, path, QLatin1String(name)});
            unzip.waitForFinished();
            return QString::fromUtf8(unzip.readAllStandardOutput());
        };
        const QString sheet = part("xl/worksheets/sheet1.xml");
        const QString strings = part("xl/sharedStrings.xml");
        QVERIFY2(sheet.contains(u"<col min=\"1\" max=\"1\" width=\"0\""_s), qPrintable(sheet));
        QVERIFY2(sheet.contains(u"<col min=\"2\" max=\"2\" width=\"15.7109375\""_s), qPrintable(sheet));
        QVERIFY2(sheet.contains(u"<c r=\"C3\"><v>123.45</v></c>"_s), qPrintable(sheet));
        QVERIFY(sheet.contains(u"<c r=\"A1\" s=\"1\" t=\"s\">"_s));
        QVERIFY(part("xl/styles.xml").contains(u"<b/>"_s));
        for (const char* s : {"编号", "姓名", "余额", "O'Neil", "张\t三"})
            QVERIFY2(strings.contains(QString::fromUtf8(s)), qPrintable(strings));
        QVERIFY(!strings.contains(u"状态"_s));
        QVERIFY(!strings.contains(u"停用"_s));
    }

    void autoInput() {
        const QString type = u"DetailDescription"_s;
        for (const QString& value : {u"少冰"_s, u"it's hot"_s, u"少冰"_s, u"  "_s, u"it's hot"_s})
            SaveAutoInput(type, value);
        SaveAutoInput(u"other"_s, u"少冰"_s);
        QCOMPARE(count(u"select count(*) from sys_AutoInput"_s), 3);
        QComboBox combo;
        combo.setEditable(true);
        combo.addItem(u"old"_s);
        combo.setEditText(u"typing"_s);
        LoadAutoInput(type, &combo);
        QCOMPARE(combo.count(), 2);
        QCOMPARE(combo.itemText(0), u"it's hot"_s);
        QCOMPARE(combo.itemText(1), u"少冰"_s);
        QCOMPARE(combo.currentText(), u"typing"_s);

        QVERIFY(DeleteAutoInput(type, u"it's hot"_s));
        LoadAutoInput(type, &combo);
        QCOMPARE(combo.count(), 1);
        QCOMPARE(count(u"select count(*) from sys_AutoInput where thisValue='少冰'"_s), 2);
        QCOMPARE(messages(), QStringList());
        DB().exec(u"drop table sys_AutoInput"_s);
        QVERIFY(!DeleteAutoInput(type, u"少冰"_s));
        QCOMPARE(messages(), QStringList{u"删除失败，请稍候再试！"_s});
    }

    void seededList_data() {
        QTest::addColumn<int>("seeded");
        for (int i = 0; i < seededLists().size(); ++i)
            QTest::newRow(seededLists()[i].first) << i;
    }
    void seededList() {
        QFETCH(int, seeded);
        const QString name = QString::fromUtf8(seededLists()[seeded].first);
        const Rows rows = seededLists()[seeded].second();
        QStringList fields = rows.columns();
        fields.removeDuplicates();
        const QList<ListColumnDef> columns = LoadListColumns(name);
        QStringList names, shownTitles;
        for (const ListColumnDef& c : columns) {
            if (c.isShow || fields.contains(c.colname.toLower())) names << c.colname.toLower();
            QVERIFY2(!c.coltitle.trimmed().isEmpty(), qPrintable(c.colname));
            QVERIFY2(c.coltitle.compare(c.colname, Qt::CaseInsensitive) != 0, qPrintable(c.colname));
            QVERIFY2(c.showValue.isEmpty() || u"1234"_s.contains(c.showValue.left(1)), qPrintable(c.colname));
            if (c.isShow) shownTitles << c.coltitle;
        }
        // Every field of the query has its column, and no shown column names a field it lacks
        // (the member list keeps hidden columns for the password and photo it never reads).
        names.sort();
        fields.sort();
        QCOMPARE(names, fields);
        QVERIFY(!shownTitles.isEmpty());
        QTreeWidget list;
        ShowList(&list, name, rows, true);
        QCOMPARE(headers(list), shownTitles);
    }

    void upgradeKeepsWhatTheVenueHas() {
        // A database of version 1, beside the test's own.
        DbConfig config = m_venue->config();
        if (TestVenue::isPg()) {
            config.schema += u"v1"_s;
            DB().exec(u"DROP SCHEMA IF EXISTS "_s + config.schema + u" CASCADE"_s);
        } else {
            config.file = QDir(m_venue->home()).filePath(u"v1.db"_s);
        }
        Db old;
        old.open(config);
        old.write([&] {
            for (const char* script : {":/sql/001_schema.sql", ":/sql/001_seed.sql"}) {
                QFile f{QString::fromLatin1(script)};
                QVERIFY(f.open(QIODevice::ReadOnly));
                old.execScript(old.dialect().expand(QString::fromUtf8(f.readAll())));
            }
            old.exec(u"delete from pSetup where setupname='dbver'"_s);
            old.exec(u"insert into pSetup (setupname, setupvalue) values ('dbver', '1')"_s);
            // A column of the venue's own making and a remembered input twice.
            old.exec(u"insert into FD_FormControl (FormControlName, colname, coltitle, ColOrder) "
                     "values ('lvwPayAfter', 'oughtMoney', '欠款', 1)"_s);
            old.exec(u"insert into sys_AutoInput values ('1', 't', 'v'), ('2', 't', 'v'), ('3', 't', 'w')"_s);
        });
        QCOMPARE(Schema::migrate(old), Schema::latestVersion() - 1);
        QCOMPARE(Schema::currentVersion(old), Schema::latestVersion());
        // Every list the upgrade seeds is one the seeded-list test checks.
        QStringList stored, checked;
        for (const Row r : old.query(u"select distinct FormControlName from FD_FormControl"_s))
            stored << r.text(u"FormControlName"_s);
        for (const auto& l : seededLists())
            checked << QString::fromUtf8(l.first);
        stored.sort();
        checked.sort();
        QCOMPARE(stored, checked);
        QCOMPARE(old.scalar(u"select coltitle from FD_FormControl where FormControlName='lvwPayAfter' "
                            "and colname='oughtMoney'"_s)
                     .toString(),
                 u"欠款"_s);
        QCOMPARE(old.scalar(u"select count(*) from sys_AutoInput"_s).toInt(), 2);
        old.close();
        if (TestVenue::isPg()) DB().exec(u"DROP SCHEMA IF EXISTS "_s + config.schema + u" CASCADE"_s);
    }
};

QTEST_MAIN(TestLists)
#include "test_lists.moc"
