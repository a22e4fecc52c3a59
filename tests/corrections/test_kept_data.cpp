// Data that stays what it was: goods on lines, codes whatever their case, states and list
// texts as the windows give them, tickets only to a printer named for them.
#include "CheckoutService.h"
#include "Desktop.h"
#include "FormProbe.h"
#include "ListColumns.h"
#include "MemberService.h"
#include "OptionPrintPage.h"
#include "RoomService.h"
#include "RoomUse.h"
#include "Settings.h"
#include "SignIn.h"
#include "Slips.h"
#include "StoredValueService.h"
#include "TestVenue.h"
#include "WareService.h"
#include "frmCloseHouse.h"
#include "frmEmployee.h"
#include "frmEmployeeList.h"
#include "frmOption.h"
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTreeWidget>

namespace {
int count(const QString& sql, const Params& p = {}) {
    return DB().scalar(sql, p).toInt();
}

void seedRooms() {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values "
                             "('t1', '小包', '00000000000000001')"));
    DB().exec(QStringLiteral("insert into The (TheID, TheCode, AssortID, State, ExpenseID) values "
                             "('r1', 'A01', 't1', 1, 'e1'), ('r2', 'B02', 't1', 0, ''), "
                             "('r3', 'C03', 't1', 1, 'e3')"));
    DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, OpenTime, State) values "
                             "('e1', 'r1', '2026-11-21 19:00', 1), ('e3', 'r3', '2026-11-21 19:10', 1)"));
}

QStringList column(const QTreeWidget* list, const QString& field) {
    QStringList out;
    const int c = ListColumn(list, field);
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->text(c);
    return out;
}
} // namespace

class TestKeptData : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void goodsOnLinesStay_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("kept");
        QTest::newRow("no line") << "" << false;
        QTest::newRow("bill line")
            << "insert into ExpenseDetail (DetailID, ExpenseID, WareID) values ('d', 'e', 'beer')" << true;
        QTest::newRow("voided bill line")
            << "insert into ExpenseDetail (DetailID, ExpenseID, WareID, isdel) values ('d', 'e', 'beer', 1)"
            << true;
        QTest::newRow("sale line")
            << "insert into OutsaleDetail (DetailID, ExpenseID, WareID) values ('d', 'o', 'beer')" << true;
        QTest::newRow("receipt line")
            << "insert into WareInList (WareInListID, wareInID, WareID) values ('d', 'i', 'beer')" << true;
        QTest::newRow("loss line")
            << "insert into WareLossList (WareLossListID, WareLossID, WareID) values ('d', 'l', 'beer')"
            << true;
    }
    void goodsOnLinesStay() {
        QFETCH(QString, line);
        QFETCH(bool, kept);
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(QStringLiteral(
            "insert into WareType (WareTypeID, wareTypeName) values ('w', '酒水'), ('x', '空')"));
        DB().exec(
            QStringLiteral("insert into Ware (WareID, WareTypeID, WareName) values ('beer', 'w', '啤酒')"));
        if (!line.isEmpty()) DB().exec(line);
        const Refused r = WareService().deleteWare(QStringLiteral("beer"));
        QCOMPARE(r.has_value(), kept);
        if (kept) QCOMPARE(r->message, WareText::inUse());
        QCOMPARE(count(QStringLiteral("select count(*) from Ware")), kept ? 1 : 0);
        // A type with goods stays; an empty one goes.
        const Refused type = WareService().deleteWareType(QStringLiteral("w"));
        QCOMPARE(type.has_value(), kept);
        QVERIFY(!WareService().deleteWareType(QStringLiteral("x")));
        QCOMPARE(count(QStringLiteral("select count(*) from WareType")), kept ? 1 : 0);
    }

    void codesWhateverTheirCase() {
        TestVenue v;
        OPEN_VENUE(v);
        seedRooms();
        QCOMPARE(SignIn(QStringLiteral("ADMIN"), QString()), SignInOutcome::Ok);
        // A second room whose code differs only in case is refused, by the form and the store.
        const Saved s = RoomService().saveRoom({{}, QStringLiteral("a01"), QStringLiteral("t1"), {}});
        QVERIFY(s.refusal.has_value());
        QCOMPARE(s.refusal->message, RoomText::duplicateCode());
        QVERIFY_THROWS_EXCEPTION(
            DbError, DB().exec(QStringLiteral(
                         "insert into The (TheID, TheCode, AssortID) values ('r9', 'c03', 't1')")));
        // Changing to "b02" takes room B02; merging "c03" into "b02" finds both.
        QVERIFY(!RoomUseService().change(
            {QStringLiteral("e1"), QStringLiteral("A01"), QStringLiteral("b02"), {}}));
        QCOMPARE(count(QStringLiteral("select count(*) from Expense where ExpenseID='e1' and TheID='r2'")),
                 1);
        QVERIFY(!RoomUseService().merge(QStringLiteral("c03"), QStringLiteral("b02")));
        QCOMPARE(count(QStringLiteral("select count(*) from The where State=1")), 1);
    }

    void listsAsTheirWindowsShowThem() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(QStringLiteral(
            "insert into MemberSetup (SetupID, SetupName, discount) values ('s1', '金卡', 0.9)"));
        DB().exec(QStringLiteral(
            "insert into Member (MemberCode, MemberName, SetupID, State, birthday, MemberValue, chongzhi) "
            "values "
            "('m1', '张三', 's1', 2, '2001-02-03', 12.6, 0), ('m2', '李四', 's1', 0, null, 3, 0)"));
        QTreeWidget members;
        ShowList(&members, QStringLiteral("frmMemberList.lvwThis"), MemberService().search({}, {}), true);
        QCOMPARE(column(&members, QStringLiteral("State")),
                 (QStringList{QStringLiteral("停用"), QStringLiteral("可用")}));
        QCOMPARE(column(&members, QStringLiteral("birthday")),
                 (QStringList{QStringLiteral("2001-02-03"), QStringLiteral("")}));
        QCOMPARE(column(&members, QStringLiteral("MemberValue")),
                 (QStringList{QStringLiteral("13"), QStringLiteral("3")}));
        QCOMPARE(column(&members, QStringLiteral("discount")),
                 (QStringList{QStringLiteral("0.90"), QStringLiteral("0.90")}));

        // Top-ups newest first with the time as "MM-dd HH:mm", across a year's end.
        DB().exec(QStringLiteral(
            "insert into chongzhi (chongzhiid, MemberCode, thismemoney, factpay, OperatorTime) values "
            "('c1', 'm1', 1005000, 1000000, '2025-12-31 23:00'), ('c2', 'm1', 20000, 20000, '2026-01-01 "
            "08:05')"));
        QTreeWidget topUps;
        const QDateTime from(QDate(2025, 12, 1), QTime(0, 0)), to(QDate(2026, 2, 1), QTime(0, 0));
        ShowListInQueryOrder(&topUps, QStringLiteral("frmChongzhiList.lvwThis"),
                             StoredValueService().search(from, to).rows, true);
        QCOMPARE(column(&topUps, QStringLiteral("OperatorTime")),
                 (QStringList{QStringLiteral("01-01 08:05"), QStringLiteral("12-31 23:00")}));
        QCOMPARE(column(&topUps, QStringLiteral("thismemoney")),
                 (QStringList{QStringLiteral("2"), QStringLiteral("101")}));
    }

    // Deferred bills by their opening time, as read, not by their hidden key.
    void deferredBillsByOpeningTime() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(
            QStringLiteral("insert into Expense (ExpenseID, OpenTime, State, VoucherState, jzr) values "
                           "('a', '2026-11-21 20:00', 0, 2, '王'), ('b', '2026-11-20 19:00', 0, 2, '王')"));
        frmCloseHouse w;
        w.cmdFindjzrinfo_Click();
        const auto* list = child<QTreeWidget>(w, "lvwPayAfter");
        QCOMPARE(list->topLevelItemCount(), 2);
        QCOMPARE(list->topLevelItem(0)->data(0, Qt::UserRole).toString(), QStringLiteral("kb"));
    }

    // The employee list in the order of its query, by name, not by its hidden key; a state
    // the form has no entry for is kept on save.
    void employeesByNameAndStateKept() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(
            QStringLiteral("insert into Employee (EmployeeID, Employeecode, EmployeeName, State) values "
                           "('1', 'E1', '王五', 2), ('2', 'E2', '丁一', 0), ('3', 'E3', '赵六', 1)"));
        frmEmployeeList list;
        list.LoadData();
        const auto* lvw = child<QTreeWidget>(list, "lvwThis");
        QStringList keys;
        for (int i = 0; i < lvw->topLevelItemCount(); ++i)
            keys << lvw->topLevelItem(i)->data(0, Qt::UserRole).toString();
        QStringList expected;
        for (const Row r :
             DB().query(QStringLiteral("select EmployeeID from Employee order by EmployeeName")))
            expected << QStringLiteral("k") + r.text(QStringLiteral("EmployeeID"));
        QCOMPARE(keys, expected);

        frmEmployee form;
        QVERIFY(form.startEdit(QStringLiteral("1")));
        form.cmdOK_Click();
        QCOMPARE(count(QStringLiteral("select State from Employee where EmployeeID='1'")), 2);
    }

    void ticketsOnlyToANamedPrinter_data() {
        QTest::addColumn<QString>("printer");
        QTest::addColumn<bool>("ticket");
        QTest::newRow("none named") << "" << false;
        QTest::newRow("blank") << "  " << false;
        QTest::newRow("named") << "PDF:kitchen" << true;
    }
    void ticketsOnlyToANamedPrinter() {
        QFETCH(QString, printer);
        QFETCH(bool, ticket);
        TestVenue v;
        OPEN_VENUE(v);
        seedRooms();
        DB().exec(QStringLiteral(
            "insert into WareType (WareTypeID, wareTypeName, isHC, isBT) values ('w', '小吃', 1, 1)"));
        DB().exec(
            QStringLiteral("insert into Ware (WareID, WareTypeID, WareName) values ('nuts', 'w', '花生')"));
        DB().exec(
            QStringLiteral("insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, ThisCode) values "
                           "('d1', 'e1', 'nuts', 1, 'c1')"));
        for (const char* flag : {"IsHC", "IsBT"})
            SetSetup(QString::fromLatin1(flag), QStringLiteral("1"));
        SetSetup(QStringLiteral("PrinterHC"), printer);
        SetSetup(QStringLiteral("PrinterBT"), printer);
        const ThisSlips s =
            ThisTicketSlips(QStringLiteral("c1"), false, QStringLiteral("A01"), QStringLiteral("10"));
        QCOMPARE(s.kitchen.has_value(), ticket);
        QCOMPARE(s.bar.has_value(), ticket);
    }

    // The goods and room lists of the options export to text as to a spreadsheet; the
    // company settings write the first CompanyInfo row only.
    void optionsExportAndCompany() {
        TestVenue v;
        OPEN_VENUE(v);
        seedRooms();
        QStringList started;
        Desktop::setLauncher([&](Desktop::Program, const QString& f) {
            started << f;
            return true;
        });
        {
            frmOption w;
            auto* houses = w.findChild<QMenu*>(QStringLiteral("mnuExportHouse"));
            QVERIFY(houses);
            houses->findChild<QAction*>(QStringLiteral("mnuExportTxt"))->trigger();
        }
        Desktop::setLauncher({});
        QCOMPARE(started.size(), 1);
        QFile text(started.first());
        QVERIFY(text.open(QIODevice::ReadOnly));
        QVERIFY(QString::fromUtf8(text.readAll()).contains(QStringLiteral("B02")));

        DB().exec(QStringLiteral("delete from CompanyInfo"));
        DB().exec(QStringLiteral("insert into CompanyInfo (CompanyName) values ('总店')"));
        DB().exec(QStringLiteral("insert into CompanyInfo (CompanyName) values ('分店')"));
        OptionPrintPage page;
        page.load();
        child<QLineEdit>(page, "txtCompanyName")->setText(QStringLiteral("星澜总店"));
        QVERIFY(page.cmdSave_Click());
        QStringList names;
        for (const Row r :
             DB().query(QStringLiteral("select CompanyName from CompanyInfo order by CompanyName")))
            names << r.text(QStringLiteral("CompanyName"));
        QCOMPARE(names, (QStringList{QStringLiteral("分店"), QStringLiteral("星澜总店")}));
    }

    // The kitchen and bar lists hold printers that can be named, so "no printer" is caught.
    void kitchenPrinterMustBeChosen() {
        TestVenue v;
        OPEN_VENUE(v);
        SetSetup(QStringLiteral("IsHC"), QStringLiteral("1"));
        SetSetup(QStringLiteral("PrinterHC"), QString());
        OptionPrintPage page;
        page.load();
        auto* hc = child<QComboBox>(page, "cmbHC");
        QCOMPARE(hc->findData(QString()), -1);
        QVERIFY(child<QComboBox>(page, "cmbPrinter")->findData(QString()) >= 0); // bills may use the default
        child<QCheckBox>(page, "chkhc")->setChecked(true);
        hc->setEditText(QString());
        QVERIFY(!page.cmdSave_Click());
        QCOMPARE(messages(), QStringList{QStringLiteral("请选择后厨打印机！")});
    }
};

QTEST_MAIN(TestKeptData)
#include "test_kept_data.moc"
