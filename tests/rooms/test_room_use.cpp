#include "BoardService.h"
#include "RoomService.h"
#include "RoomUse.h"
#include "TestKit.h"
#include "fExpense.h"

namespace {
OpenHouseInput input(const QString& theID) {
    return {theID, u"生日会"_s, u"6"_s, u" 0815 "_s, u"20"_s, true, 1};
}
QString openRoom(const QString& theID) {
    return RoomUseService().open(input(theID)).expenseID;
}
void addLine(const QString& id, const QString& bill, double money, int isdel = 0) {
    DB().exec(u"insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, oughtMoney, isdel, "
              "ExpenseTime) values (?, ?, 'w', 1, ?, ?, ?, '2026-11-21 20:00')"_s,
              {id, bill, Money::fromDouble(money), Money::fromDouble(money), isdel});
}
// The state and bill of a room, as "1|e1".
QString room(const QString& theID) {
    return dump(u"select State, ExpenseID from The where TheID=?"_s, {theID});
}
void setNow(const QDateTime& t) {
    Clock::install(std::make_unique<FixedClock>(t));
}
} // namespace

class TestRoomUse : public QObject {
    Q_OBJECT
    std::unique_ptr<TestVenue> m_venue;

  private Q_SLOTS:
    // Each test starts on a fresh venue with the room types 小包 on the standard tariff and 豪华包
    // on a dearer fixed one: 100 an hour, counted by the hour.
    void init() {
        m_venue = std::make_unique<TestVenue>();
        OPEN_VENUE(*m_venue);
        DB().exec(
            u"insert into PayLevel (PayLevelID, PayLevelName, payType, Unit, NotOne, PrivilegeTime, "
            "start1, end1, Price1, MinMoney1, PriceA1) values ('dear', '豪华', 0, 60, 0, 0, 0, 24, 100, "
            "0, 100)"_s);
        addRoomType(u"b"_s, u"豪华包"_s, u"dear"_s);
        addRoomType(u"a"_s, u"小包"_s);
    }
    void cleanup() { m_venue.reset(); }
    // Guests and door money are checked first; then the room as stored, a lock that ran out
    // counting as free. A refused opening writes nothing, and a reservation stays as it was.
    void open_refusals_data() { // clang-format off
        columns<QString, QString, int, QString, QString, QString>("num", "startMoney", "state", "other1", "message", "field");
        const QString changed = RoomText::stateChanged(), noGuests = u"请输入顾客人数！"_s;
        QTest::newRow("guests empty") << "" << "0" << 0 << "" << noGuests << "txtNum";
        QTest::newRow("both wrong: guests first") << "x" << "y" << 0 << "" << noGuests << "txtNum";
        QTest::newRow("zero guests and no door money are fine") << "0" << "0" << 0 << "" << "" << "";
        QTest::newRow("reserved") << "6" << "20" << 3 << "" << "" << "";
        QTest::newRow("lock run out") << "6" << "20" << 4 << "2026-11-21 19:59" << "" << "";
        QTest::newRow("lock still running") << "6" << "20" << 4 << "2026-11-21 20:00" << changed << "";
        QTest::newRow("in use") << "6" << "20" << 1 << "" << changed << ""; // clang-format on
    }
    void open_refusals() {
        auto [num, startMoney, state, other1, message, field] =
            fetch<QString, QString, int, QString, QString, QString>("num", "startMoney", "state", "other1",
                                                                    "message", "field");
        addRoom(u"r1"_s, u"101"_s, u"a"_s, state, other1);
        DB().exec(u"insert into Reservation (ReservationID, HouseID, state) values ('res', 'r1', 0)"_s);
        OpenHouseInput in = input(u"r1"_s);
        in.customerNum = num;
        in.startMoney = startMoney;
        const Opened o = RoomUseService().open(in);
        QCOMPARE(refusal(o.refusal), refusal(message, field));
        QCOMPARE(count(u"select count(*) from Expense"_s), message.isEmpty() ? 1 : 0);
        QCOMPARE(room(u"r1"_s).section(u'|', 0, 0).toInt(), message.isEmpty() ? 1 : state);
        QCOMPARE(count(u"select count(*) from Reservation where ReservationID='res' and state=0"_s), 1);
    }
    void open_writes_the_bill_and_the_room() {
        addRoom(u"r1"_s, u"101"_s, u"a"_s);
        // Seconds are cut: the stay starts on the minute.
        setNow(QDateTime(QDate(2026, 11, 21), QTime(21, 7, 59)));
        OpenHouseInput in = input(u"r1"_s);
        in.useMinMoney = false;
        in.payLevelType = 0;
        in.description = u"王'先生\"预订"_s;
        const Opened o = RoomUseService().open(in);
        QCOMPARE(dump(u"select OpenTime, State, TheID, Description, openOperator, CustomerNum, markerCode, "
                      "StartMoney, IsUseMinMoney, PayLevelID, payLevelType from Expense where ExpenseID=?"_s,
                      {o.expenseID}),
                 u"2026-11-21 21:07|1|r1|王'先生\"预订|系统管理员|6|0815|200000|0|"_s + StandardTariff +
                     u"|0"_s);
        QCOMPARE(room(u"r1"_s), u"1|"_s + o.expenseID);
    }
    // 101 and 102 are in use, 101 with a line; 103 is free, 104 stopped, 105 locked until a
    // time gone by. A refused change or merge leaves all of it as it was.
    void refusals_data() { // clang-format off
        columns<bool, QString, QString, QString, QString>("merge", "from", "to", "message", "field");
        const QString taken = u"您要更换的包厢已被占用或暂停使用，请重新输入！"_s, missing = u"对不起，您要更换的包厢不存在！"_s;
        const QString fromWrong = RoomUseText::mergeFromWrong(), intoWrong = RoomUseText::mergeIntoWrong();
        QTest::newRow("change: empty") << false << "101" << "  " << "请输入更换的房间编号！" << "txtNewHouseCode";
        QTest::newRow("change: no such room") << false << "101" << "999" << missing << "txtNewHouseCode";
        QTest::newRow("change: a lock run out still counts") << false << "101" << "105" << taken << "txtNewHouseCode";
        QTest::newRow("merge: free room to fold in") << true << "103" << "102" << fromWrong << "txt1";
        QTest::newRow("merge: stopped room to fold into") << true << "101" << "104" << intoWrong << "txt2"; // clang-format on
    }
    void refusals() {
        auto [merge, from, to, message, field] =
            fetch<bool, QString, QString, QString, QString>("merge", "from", "to", "message", "field");
        addRoom(u"r1"_s, u"101"_s, u"a"_s);
        addRoom(u"r2"_s, u"102"_s, u"a"_s);
        addRoom(u"r3"_s, u"103"_s, u"a"_s);
        addRoom(u"r4"_s, u"104"_s, u"a"_s, 2);
        addRoom(u"r5"_s, u"105"_s, u"a"_s, 4, u"2026-11-21 10:00"_s);
        const QString b1 = openRoom(u"r1"_s);
        const QString b2 = openRoom(u"r2"_s);
        addLine(u"d1"_s, b1, 30);
        const Refused r =
            merge ? RoomUseService().merge(from, to) : RoomUseService().change({b1, from, to, {}});
        QCOMPARE(refusal(r), refusal(message, field));
        QCOMPARE(r->title, merge ? u"错误的包厢号"_s : QString());
        // Nothing changed: a room freed on the way came back with the rollback.
        QCOMPARE(dump(u"select TheID, ExpenseID from The where State=1 order by TheID"_s),
                 u"r1|%1\nr2|%2"_s.arg(b1, b2));
        QCOMPARE(count(u"select count(*) from Expense where State=1"_s), 2);
        QCOMPARE(count(u"select count(*) from ExpenseDetail where ExpenseID=?"_s, {b1}), 1);
        QCOMPARE(count(u"select count(*) from s_log where theDoName='更换包厢'"_s), 0);
    }
    void change_moves_the_bill() {
        addRoom(u"r1"_s, u"101"_s, u"a"_s);
        addRoom(u"r2"_s, u"V01"_s, u"b"_s);
        setNow(QDateTime(QDate(2026, 11, 21), QTime(18, 0)));
        const QString bill = openRoom(u"r1"_s);
        App().CurrentOperatorName = u"收银员乙"_s;
        setNow(QDateTime(QDate(2026, 11, 21), QTime(18, 5)));
        QVERIFY(!RoomUseService().change({bill, u"101"_s, u"V01"_s, u"嫌吵"_s}));

        const QString bills = u"select TheID, PayLevelID, OpenTime, openOperator, Description from Expense"_s;
        QCOMPARE(dump(bills), u"r2|dear|2026-11-21 18:00|收银员乙|生日会\r\n嫌吵"_s);
        QCOMPARE(room(u"r1"_s), u"0|"_s);
        QCOMPARE(room(u"r2"_s), u"1|"_s + bill);
        QCOMPARE(text(u"select theContent from s_log where theDoName='更换包厢'"_s),
                 u"消费单("_s + bill + u")由包厢101换台为V01"_s);
        // The whole stay is now priced at the dearer tariff: two hours at 100.
        Money goods, roomMoney;
        fExpense().GetByIDCurrency(bill, QDateTime(QDate(2026, 11, 21), QTime(20, 0)), goods, roomMoney);
        QCOMPARE(roomMoney, Money::yuan(200));

        // Moving on with an empty remark keeps the remark.
        addRoom(u"r5"_s, u"V05"_s, u"b"_s);
        QVERIFY(!RoomUseService().change({bill, u"V01"_s, u"V05"_s, u"  "_s}));
        QCOMPARE(dump(bills), u"r5|dear|2026-11-21 18:00|收银员乙|生日会\r\n嫌吵"_s);

        // A bill closed meanwhile elsewhere is not moved, and the target room stays free.
        DB().exec(u"update Expense set State=0 where ExpenseID=?"_s, {bill});
        const Refused closed = RoomUseService().change({bill, u"V05"_s, u"101"_s, {}});
        QCOMPARE(closed ? closed->message : QString(), RoomUseText::billClosed());
        QCOMPARE(room(u"r1"_s), u"0|"_s);
        QCOMPARE(room(u"r5"_s), u"1|"_s + bill);
    }
    void merge_folds_lines_into_the_target() {
        addRoom(u"r1"_s, u"101"_s, u"a"_s);
        addRoom(u"r2"_s, u"102"_s, u"a"_s);
        setNow(QDateTime(QDate(2026, 11, 21), QTime(18, 0)));
        const QString into = openRoom(u"r2"_s);
        setNow(QDateTime(QDate(2026, 11, 21), QTime(19, 0)));
        const QString from = openRoom(u"r1"_s);
        addLine(u"d1"_s, from, 30);
        addLine(u"d2"_s, from, 12.5, 1);
        addLine(u"d3"_s, into, 8);
        Money goodsBefore, roomBefore;
        const QDateTime close(QDate(2026, 11, 21), QTime(22, 0));
        fExpense().GetByIDCurrency(into, close, goodsBefore, roomBefore);

        QVERIFY(!RoomUseService().merge(u"101"_s, u"102"_s));
        QCOMPARE(dump(u"select ExpenseID from Expense"_s), into);
        QCOMPARE(dump(u"select DetailID, ExpenseID, isdel from ExpenseDetail order by DetailID"_s),
                 u"d1|%1|0\nd2|%1|1\nd3|%1|0"_s.arg(into));
        QCOMPARE(room(u"r1"_s), u"0|"_s);
        QCOMPARE(room(u"r2"_s), u"1|"_s + into);
        // Goods move; the target's own time is priced as before.
        Money goods, roomMoney;
        fExpense().GetByIDCurrency(into, close, goods, roomMoney);
        QCOMPARE(goods, goodsBefore + Money::yuan(30));
        QCOMPARE(roomMoney, roomBefore);
    }
    void isHigh2Low_data() { // clang-format off
        columns<QString, double, bool>("code", "oldPrice", "result");
        // The starting tariff is by time; "dear" is a fixed 100.
        QTest::newRow("dearer old price") << "V01" << 120.0 << true;
        QTest::newRow("same price") << "V01" << 100.0 << false;
        QTest::newRow("by-time tariff") << "101" << 500.0 << false;
        QTest::newRow("no such room") << "nope" << 500.0 << false; // clang-format on
    }
    void isHigh2Low() {
        auto [code, oldPrice, result] = fetch<QString, double, bool>("code", "oldPrice", "result");
        DB().exec(u"update PayLevel set payType=1 where PayLevelID=?"_s, {StandardTariff});
        addRoom(u"r1"_s, u"101"_s, u"a"_s);
        addRoom(u"r2"_s, u"V01"_s, u"b"_s);
        QCOMPARE(RoomUseService().isHigh2Low(code, Money::fromDouble(oldPrice)), result);
    }
    // The board's panel: the names and texts of the bill, its voided lines left out; a free
    // room shows its name only.
    void board_panel() {
        addRoom(u"r1"_s, u"V01"_s, u"b"_s);
        addRoom(u"r3"_s, u"V03"_s, u"b"_s);
        setNow(QDateTime(QDate(2026, 11, 21), QTime(17, 58, 40)));
        const QString bill = openRoom(u"r1"_s);
        addLine(u"d1"_s, bill, 30);
        addLine(u"d2"_s, bill, 99, 1);
        const QDateTime now(QDate(2026, 11, 21), QTime(20, 0));
        const BoardPanel p = BoardService().panel(u"r1"_s, u"Use"_s, bill, now);
        // Two whole hours at 100; the two minutes over cost nothing under rule 0.
        QCOMPARE((QStringList{p.house, p.payLevelName, p.openTime, p.expendTime, p.expenseMoney, p.houseMoney,
                              p.oughtMoney, p.customerNum, p.isUseMinMoney, p.payLevelType}),
                 L({"豪华包 V01", "豪华", "2026年11月21日 17:58", "2小时2分钟", "￥30.00", "￥200.00",
                    "￥230.00", "6", "使用", "按时间计费"}));
        const BoardPanel free = BoardService().panel(u"r3"_s, u"Common"_s, {}, now);
        QCOMPARE(free.house + u'|' + free.oughtMoney + u'|' + free.openTime, u"豪华包 V03|￥0.00|"_s);
    }
};

QTEST_GUILESS_MAIN(TestRoomUse)
#include "test_room_use.moc"
