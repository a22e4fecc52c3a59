// Data that stays what it was: goods on lines, codes whatever their case, states and list
// texts as the windows give them, tickets only to a printer named for them.
#include "MemberService.h"
#include "OptionPrintPage.h"
#include "RoomService.h"
#include "RoomUse.h"
#include "SignIn.h"
#include "Slips.h"
#include "StoredValueService.h"
#include "TestKit.h"
#include "WareService.h"
#include "frmCloseHouse.h"
#include "frmEmployee.h"
#include "frmEmployeeList.h"
#include "frmOption.h"

namespace {
// A01 and C03 in use with their bills, B02 free.
void seedRooms() {
    addRoomType(u"t1"_s, u"小包"_s);
    addRoom(u"r1"_s, u"A01"_s, u"t1"_s, 1);
    addRoom(u"r2"_s, u"B02"_s, u"t1"_s);
    addRoom(u"r3"_s, u"C03"_s, u"t1"_s, 1);
    DB().exec(u"update The set ExpenseID='e'||substr(TheID, 2) where State=1"_s);
    DB().exec(u"insert into Expense (ExpenseID, TheID, OpenTime, State) values "
              "('e1', 'r1', '2026-11-21 19:00', 1), ('e3', 'r3', '2026-11-21 19:10', 1)"_s);
}
} // namespace

class TestKeptData : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void goodsOnLinesStay_data() {
        columns<QString, bool>("line", "kept");
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
        const auto [line, kept] = fetch<QString, bool>("line", "kept");
        NEW_VENUE(v);
        DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('w', '酒水'), ('x', '空')"_s);
        DB().exec(u"insert into Ware (WareID, WareTypeID, WareName) values ('beer', 'w', '啤酒')"_s);
        if (!line.isEmpty()) DB().exec(line);
        QCOMPARE(WareService().deleteWare(u"beer"_s).value_or(Refusal{}).message,
                 kept ? WareText::inUse() : QString());
        // A type with goods stays; an empty one goes.
        QCOMPARE(WareService().deleteWareType(u"w"_s).has_value(), kept);
        QVERIFY(!WareService().deleteWareType(u"x"_s));
        QCOMPARE(dump(u"select (select count(*) from Ware), (select count(*) from WareType)"_s),
                 kept ? u"1|1"_s : u"0|0"_s);
    }

    void codesWhateverTheirCase() {
        NEW_VENUE(v);
        seedRooms();
        QCOMPARE(SignIn(u"ADMIN"_s, QString()), SignInOutcome::Ok);
        // A second room whose code differs only in case is refused, by the form and the store.
        QCOMPARE(RoomService().saveRoom({{}, u"a01"_s, u"t1"_s, {}}).refusal.value_or(Refusal{}).message,
                 RoomText::duplicateCode());
        QVERIFY_THROWS_EXCEPTION(
            DbError, DB().exec(u"insert into The (TheID, TheCode, AssortID) values ('r9', 'c03', 't1')"_s));
        // Changing to "b02" takes room B02; merging "c03" into "b02" finds both.
        QVERIFY(!RoomUseService().change({u"e1"_s, u"A01"_s, u"b02"_s, {}}));
        QCOMPARE(count(u"select count(*) from Expense where ExpenseID='e1' and TheID='r2'"_s), 1);
        QVERIFY(!RoomUseService().merge(u"c03"_s, u"b02"_s));
        QCOMPARE(count(u"select count(*) from The where State=1"_s), 1);
    }

    void listsAsTheirWindowsShowThem() {
        NEW_VENUE(v);
        DB().exec(u"insert into MemberSetup (SetupID, SetupName, discount) values ('s1', '金卡', 0.9)"_s);
        DB().exec(
            u"insert into Member (MemberCode, MemberName, SetupID, State, birthday, MemberValue, chongzhi) "
            "values "
            "('m1', '张三', 's1', 2, '2001-02-03', 12.6, 0), ('m2', '李四', 's1', 0, null, 3, 0)"_s);
        QTreeWidget members;
        ShowList(&members, u"frmMemberList.lvwThis"_s, MemberService().search({}, {}), true);
        QCOMPARE(column(&members, u"State"_s).join(u'|'), u"停用|可用"_s);
        QCOMPARE(column(&members, u"birthday"_s).join(u'|'), u"2001-02-03|"_s);
        QCOMPARE(column(&members, u"MemberValue"_s).join(u'|'), u"13|3"_s);
        QCOMPARE(column(&members, u"discount"_s).join(u'|'), u"0.90|0.90"_s);

        // Top-ups newest first with the time as "MM-dd HH:mm", across a year's end.
        DB().exec(
            u"insert into chongzhi (chongzhiid, MemberCode, thismemoney, factpay, OperatorTime) values "
            "('c1', 'm1', 1005000, 1000000, '2025-12-31 23:00'), ('c2', 'm1', 20000, 20000, '2026-01-01 "
            "08:05')"_s);
        QTreeWidget topUps;
        const QDateTime from(QDate(2025, 12, 1), QTime(0, 0)), to(QDate(2026, 2, 1), QTime(0, 0));
        ShowListInQueryOrder(&topUps, u"frmChongzhiList.lvwThis"_s,
                             StoredValueService().search(from, to).rows, true);
        QCOMPARE(column(&topUps, u"OperatorTime"_s).join(u'|'), u"01-01 08:05|12-31 23:00"_s);
        QCOMPARE(column(&topUps, u"thismemoney"_s).join(u'|'), u"2|101"_s);

        // Deferred bills by their opening time, as read, not by their hidden key.
        DB().exec(u"insert into Expense (ExpenseID, OpenTime, State, VoucherState, jzr) values "
                  "('a', '2026-11-21 20:00', 0, 2, '王'), ('b', '2026-11-20 19:00', 0, 2, '王')"_s);
        frmCloseHouse w;
        w.cmdFindjzrinfo_Click();
        QCOMPARE(keys(child<QTreeWidget>(w, "lvwPayAfter")), L({"kb", "ka"}));

        // The employee list in the order of its query, by name, not by its hidden key; a state
        // the form has no entry for is kept on save.
        DB().exec(u"insert into Employee (EmployeeID, Employeecode, EmployeeName, State) values "
                  "('1', 'E1', '王五', 2), ('2', 'E2', '丁一', 0), ('3', 'E3', '赵六', 1)"_s);
        frmEmployeeList list;
        list.LoadData();
        QCOMPARE(keys(child<QTreeWidget>(list, "lvwThis")).join(u'|'),
                 dump(u"select 'k'||EmployeeID from Employee order by EmployeeName"_s).replace(u'\n', u'|'));

        frmEmployee form;
        QVERIFY(form.startEdit(u"1"_s));
        form.cmdOK_Click();
        QCOMPARE(count(u"select State from Employee where EmployeeID='1'"_s), 2);
    }

    void ticketsOnlyToANamedPrinter_data() {
        columns<QString, bool>("printer", "ticket");
        QTest::newRow("none named") << "" << false;
        QTest::newRow("blank") << "  " << false;
        QTest::newRow("named") << "PDF:kitchen" << true;
    }
    void ticketsOnlyToANamedPrinter() {
        const auto [printer, ticket] = fetch<QString, bool>("printer", "ticket");
        NEW_VENUE(v);
        seedRooms();
        DB().exec(
            u"insert into WareType (WareTypeID, wareTypeName, isHC, isBT) values ('w', '小吃', 1, 1)"_s);
        DB().exec(u"insert into Ware (WareID, WareTypeID, WareName) values ('nuts', 'w', '花生')"_s);
        DB().exec(u"insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, ThisCode) values "
                  "('d1', 'e1', 'nuts', 1, 'c1')"_s);
        for (const auto& [key, value] : {std::pair{u"IsHC"_s, u"1"_s},
                                         {u"IsBT"_s, u"1"_s},
                                         {u"PrinterHC"_s, printer},
                                         {u"PrinterBT"_s, printer}})
            SetSetup(key, value);
        const ThisSlips s = ThisTicketSlips(u"c1"_s, false, u"A01"_s, u"10"_s);
        QCOMPARE(QList<bool>({s.kitchen.has_value(), s.bar.has_value()}), QList<bool>(2, ticket));
    }

    // The goods and room lists of the options export to text as to a spreadsheet; the
    // company settings write the first CompanyInfo row only.
    void optionsExportAndCompany() {
        NEW_VENUE(v);
        seedRooms();
        QStringList started;
        Desktop::setLauncher([&](Desktop::Program, const QString& f) {
            started << f;
            return true;
        });
        {
            frmOption w;
            child<QAction>(child<QMenu>(w, "mnuExportHouse"), "mnuExportTxt")->trigger();
        }
        Desktop::setLauncher({});
        QCOMPARE(started.size(), 1);
        QFile text(started.first());
        QVERIFY(text.open(QIODevice::ReadOnly));
        QVERIFY(QString::fromUtf8(text.readAll()).contains(u"B02"_s));

        DB().exec(u"delete from CompanyInfo"_s);
        for (const QString& name : {u"总店"_s, u"分店"_s})
            DB().exec(u"insert into CompanyInfo (CompanyName) values (?)"_s, {name});
        OptionPrintPage page;
        page.load();
        child<QLineEdit>(page, "txtCompanyName")->setText(u"星澜总店"_s);
        QVERIFY(page.cmdSave_Click());
        QCOMPARE(dump(u"select CompanyName from CompanyInfo order by CompanyName"_s), u"分店\n星澜总店"_s);
    }
};

QTEST_MAIN(TestKeptData)
#include "test_kept_data.moc"
