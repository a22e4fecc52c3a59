#include "AppState.h"
#include "BoardService.h"
#include "Clock.h"
#include "Db.h"
#include "Format.h"
#include "RoomService.h"
#include "RoomUse.h"
#include "TestVenue.h"
#include "fExpense.h"
#include <QtTest>
#include <atomic>
#include <thread>

namespace {
const QString Tariff = QStringLiteral("00000000000000001"); // the starting tariff of a new venue

void addType(const QString& id, const QString& name, const QString& tariff = Tariff) {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values (?, ?, ?)"),
              {id, name, tariff});
}
void addRoom(const QString& id, const QString& code, const QString& type, int state = 0,
             const QString& other1 = {}) {
    DB().exec(
        QStringLiteral("insert into The (TheID, TheCode, AssortID, State, Other1) values (?, ?, ?, ?, ?)"),
        {id, code, type, state, other1});
}
// A second, dearer fixed tariff: 100 an hour, counted by the hour.
void addDearTariff() {
    DB().exec(QStringLiteral(
        "insert into PayLevel (PayLevelID, PayLevelName, payType, Unit, NotOne, PrivilegeTime, "
        "start1, end1, Price1, MinMoney1, PriceA1) values ('dear', '豪华', 0, 60, 0, 0, 0, 24, 100, "
        "0, 100)"));
}
OpenHouseInput input(const QString& theID) {
    return {theID,
            QStringLiteral("生日会"),
            QStringLiteral("6"),
            QStringLiteral(" 0815 "),
            QStringLiteral("20"),
            true,
            1};
}
QString openRoom(const QString& theID) {
    const Opened o = RoomUseService().open(input(theID));
    return o.expenseID;
}
void addLine(const QString& id, const QString& bill, double money, int isdel = 0) {
    DB().exec(QStringLiteral(
                  "insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, oughtMoney, isdel, "
                  "ExpenseTime) values (?, ?, 'w', 1, ?, ?, ?, '2026-11-21 20:00')"),
              {id, bill, Money::fromDouble(money), Money::fromDouble(money), isdel});
}
Row room(const QString& theID) {
    return DB().query(QStringLiteral("select * from The where TheID=?"), {theID}).first();
}
qint64 count(const QString& sql, const Params& p = {}) {
    return DB().scalar(sql, p).toLongLong();
}
void setNow(const QDateTime& t) {
    Clock::install(std::make_unique<FixedClock>(t));
}
} // namespace

class TestRoomUse : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void open_validates_data();
    void open_validates();
    void open_writes_the_bill_and_the_room();
    void open_follows_the_stored_state_data();
    void open_follows_the_stored_state();
    void open_race_gives_one_bill();
    void change_validates_data();
    void change_validates();
    void change_moves_the_bill();
    void merge_folds_lines_into_the_target();
    void merge_refuses_data();
    void merge_refuses();
    void isHigh2Low_data();
    void isHigh2Low();
    void board_lists_and_panel();
};

void TestRoomUse::open_validates_data() {
    QTest::addColumn<QString>("num");
    QTest::addColumn<QString>("startMoney");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("field");
    QTest::newRow("guests not a number") << "六"
                                         << "0"
                                         << "请输入顾客人数！"
                                         << "txtNum";
    QTest::newRow("guests empty") << ""
                                  << "0"
                                  << "请输入顾客人数！"
                                  << "txtNum";
    QTest::newRow("door money not a number") << "2"
                                             << "abc"
                                             << "请输入门票金额！"
                                             << "txtStartMoney";
    QTest::newRow("both wrong: guests first") << "x"
                                              << "y"
                                              << "请输入顾客人数！"
                                              << "txtNum";
    QTest::newRow("zero guests and no door money are fine") << "0"
                                                            << "0"
                                                            << ""
                                                            << "";
}

void TestRoomUse::open_validates() {
    QFETCH(QString, num);
    QFETCH(QString, startMoney);
    QFETCH(QString, message);
    QFETCH(QString, field);
    TestVenue v;
    OPEN_VENUE(v);
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addRoom(QStringLiteral("r1"), QStringLiteral("101"), QStringLiteral("a"));
    OpenHouseInput in = input(QStringLiteral("r1"));
    in.customerNum = num;
    in.startMoney = startMoney;
    const Opened o = RoomUseService().open(in);
    QCOMPARE(o.refusal ? o.refusal->message : QString(), message);
    QCOMPARE(o.refusal ? o.refusal->field : QString(), field);
    QCOMPARE(count(QStringLiteral("select count(*) from Expense")), message.isEmpty() ? 1 : 0);
}

void TestRoomUse::open_writes_the_bill_and_the_room() {
    TestVenue v;
    OPEN_VENUE(v);
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addRoom(QStringLiteral("r1"), QStringLiteral("101"), QStringLiteral("a"));
    // Seconds are cut: the stay starts on the minute.
    setNow(QDateTime(QDate(2026, 11, 21), QTime(21, 7, 59)));
    OpenHouseInput in = input(QStringLiteral("r1"));
    in.useMinMoney = false;
    in.payLevelType = 0;
    in.description = QStringLiteral("王'先生\"预订");
    const Opened o = RoomUseService().open(in);
    QVERIFY(o.ok());
    const Row b =
        DB().query(QStringLiteral("select * from Expense where ExpenseID=?"), {o.expenseID}).first();
    QCOMPARE(b.text(QStringLiteral("OpenTime")), QStringLiteral("2026-11-21 21:07"));
    QCOMPARE(b.integer(QStringLiteral("State")), 1);
    QCOMPARE(b.text(QStringLiteral("TheID")), QStringLiteral("r1"));
    QCOMPARE(b.text(QStringLiteral("Description")), QStringLiteral("王'先生\"预订"));
    QCOMPARE(b.text(QStringLiteral("openOperator")), QStringLiteral("系统管理员"));
    QCOMPARE(b.integer(QStringLiteral("CustomerNum")), 6);
    QCOMPARE(b.text(QStringLiteral("markerCode")), QStringLiteral("0815"));
    QCOMPARE(b.money(QStringLiteral("StartMoney")), Money::yuan(20));
    QCOMPARE(b.integer(QStringLiteral("IsUseMinMoney")), 0);
    QCOMPARE(b.text(QStringLiteral("PayLevelID")), Tariff);
    QCOMPARE(b.integer(QStringLiteral("payLevelType")), 0);
    const Row r = room(QStringLiteral("r1"));
    QCOMPARE(r.integer(QStringLiteral("State")), 1);
    QCOMPARE(r.text(QStringLiteral("ExpenseID")), o.expenseID);
    // A bill closed at 21:13:00 has run six minutes.
    QCOMPARE(MinutesBetween(ParseTime(b.text(QStringLiteral("OpenTime"))),
                            QDateTime(QDate(2026, 11, 21), QTime(21, 13))),
             6);
}

void TestRoomUse::open_follows_the_stored_state_data() {
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("other1");
    QTest::addColumn<bool>("opens");
    QTest::newRow("free") << 0 << "" << true;
    QTest::newRow("reserved") << 3 << "" << true;
    QTest::newRow("lock run out") << 4 << "2026-11-21 19:59" << true;
    QTest::newRow("lock with a damaged end") << 4 << "soon" << true;
    QTest::newRow("lock still running") << 4 << "2026-11-21 20:00" << false;
    QTest::newRow("stopped") << 2 << "" << false;
    QTest::newRow("in use") << 1 << "" << false;
}

void TestRoomUse::open_follows_the_stored_state() {
    QFETCH(int, state);
    QFETCH(QString, other1);
    QFETCH(bool, opens);
    TestVenue v;
    OPEN_VENUE(v);
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addRoom(QStringLiteral("r1"), QStringLiteral("101"), QStringLiteral("a"), state, other1);
    DB().exec(
        QStringLiteral("insert into Reservation (ReservationID, HouseID, state) values ('res', 'r1', 0)"));
    const Opened o = RoomUseService().open(input(QStringLiteral("r1")));
    QCOMPARE(o.ok(), opens);
    QCOMPARE(count(QStringLiteral("select count(*) from Expense")), opens ? 1 : 0);
    QCOMPARE(room(QStringLiteral("r1")).integer(QStringLiteral("State")), opens ? 1 : state);
    if (!opens) QCOMPARE(o.refusal->message, RoomText::stateChanged());
    // Opening leaves a reservation as it was.
    QCOMPARE(count(QStringLiteral("select count(*) from Reservation where ReservationID='res' and state=0")),
             1);
}

void TestRoomUse::open_race_gives_one_bill() {
    TestVenue v;
    OPEN_VENUE(v);
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addRoom(QStringLiteral("r1"), QStringLiteral("101"), QStringLiteral("a"));
    constexpr int Rounds = 10;
    for (int round = 0; round < Rounds; ++round) {
        DB().exec(QStringLiteral("update The set State=0, ExpenseID='' where TheID='r1'"));
        DB().exec(QStringLiteral("delete from Expense"));
        std::atomic<int> ready{0}, opened{0}, refused{0};
        auto cashier = [&](int n) {
            Db db(QStringLiteral("cashier%1").arg(n));
            db.open(v.config());
            ++ready;
            while (ready < 2)
                std::this_thread::yield();
            const Opened o = RoomUseService(db).open(input(QStringLiteral("r1")));
            (o.ok() ? opened : refused)++;
            db.close();
        };
        std::thread a(cashier, 1), b(cashier, 2);
        a.join();
        b.join();
        QCOMPARE(opened.load(), 1);
        QCOMPARE(refused.load(), 1);
        QCOMPARE(count(QStringLiteral("select count(*) from Expense where TheID='r1' and State=1")), 1);
        QCOMPARE(room(QStringLiteral("r1")).text(QStringLiteral("ExpenseID")),
                 DB().scalar(QStringLiteral("select ExpenseID from Expense where TheID='r1'")).toString());
    }
}

void TestRoomUse::change_validates_data() {
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("message");
    QTest::newRow("empty") << "  "
                           << "请输入更换的房间编号！";
    QTest::newRow("no such room") << "999"
                                  << "对不起，您要更换的包厢不存在！";
    QTest::newRow("its own room") << "101"
                                  << "您要更换的包厢已被占用或暂停使用，请重新输入！";
    QTest::newRow("stopped") << "103"
                             << "您要更换的包厢已被占用或暂停使用，请重新输入！";
    QTest::newRow("lock run out still counts") << "104"
                                               << "您要更换的包厢已被占用或暂停使用，请重新输入！";
    QTest::newRow("quote is ordinary text") << "1'0"
                                            << "对不起，您要更换的包厢不存在！";
}

void TestRoomUse::change_validates() {
    QFETCH(QString, code);
    QFETCH(QString, message);
    TestVenue v;
    OPEN_VENUE(v);
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addRoom(QStringLiteral("r1"), QStringLiteral("101"), QStringLiteral("a"));
    addRoom(QStringLiteral("r3"), QStringLiteral("103"), QStringLiteral("a"), 2);
    addRoom(QStringLiteral("r4"), QStringLiteral("104"), QStringLiteral("a"), 4,
            QStringLiteral("2026-11-21 10:00"));
    const QString bill = openRoom(QStringLiteral("r1"));
    const Refused r = RoomUseService().change({bill, QStringLiteral("101"), code, {}});
    QVERIFY(r);
    QCOMPARE(r->message, message);
    QCOMPARE(r->field, QStringLiteral("txtNewHouseCode"));
    QCOMPARE(room(QStringLiteral("r1")).text(QStringLiteral("ExpenseID")), bill);
    QCOMPARE(count(QStringLiteral("select count(*) from s_log where theDoName='更换包厢'")), 0);
}

void TestRoomUse::change_moves_the_bill() {
    TestVenue v;
    OPEN_VENUE(v);
    addDearTariff();
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addType(QStringLiteral("b"), QStringLiteral("豪华包"), QStringLiteral("dear"));
    addRoom(QStringLiteral("r1"), QStringLiteral("101"), QStringLiteral("a"));
    addRoom(QStringLiteral("r2"), QStringLiteral("V01"), QStringLiteral("b"));
    setNow(QDateTime(QDate(2026, 11, 21), QTime(18, 0)));
    const QString bill = openRoom(QStringLiteral("r1"));
    App().CurrentOperatorName = QStringLiteral("收银员乙");
    setNow(QDateTime(QDate(2026, 11, 21), QTime(18, 5)));
    QVERIFY(!RoomUseService().change(
        {bill, QStringLiteral("101"), QStringLiteral("V01"), QStringLiteral("嫌吵")}));

    const Row b = DB().query(QStringLiteral("select * from Expense where ExpenseID=?"), {bill}).first();
    QCOMPARE(b.text(QStringLiteral("TheID")), QStringLiteral("r2"));
    QCOMPARE(b.text(QStringLiteral("PayLevelID")), QStringLiteral("dear"));
    QCOMPARE(b.text(QStringLiteral("OpenTime")), QStringLiteral("2026-11-21 18:00"));
    QCOMPARE(b.text(QStringLiteral("openOperator")), QStringLiteral("收银员乙"));
    QCOMPARE(b.text(QStringLiteral("Description")), QStringLiteral("生日会\r\n嫌吵"));
    QCOMPARE(room(QStringLiteral("r1")).integer(QStringLiteral("State")), 0);
    QCOMPARE(room(QStringLiteral("r1")).text(QStringLiteral("ExpenseID")), QString());
    QCOMPARE(room(QStringLiteral("r2")).integer(QStringLiteral("State")), 1);
    QCOMPARE(room(QStringLiteral("r2")).text(QStringLiteral("ExpenseID")), bill);
    QCOMPARE(
        DB().scalar(QStringLiteral("select theContent from s_log where theDoName='更换包厢'")).toString(),
        QStringLiteral("消费单(") + bill + QStringLiteral(")由包厢101换台为V01"));
    // The whole stay is now priced at the dearer tariff: two hours at 100.
    Money goods, roomMoney;
    fExpense().GetByIDCurrency(bill, QDateTime(QDate(2026, 11, 21), QTime(20, 0)), goods, roomMoney);
    QCOMPARE(roomMoney, Money::yuan(200));

    // Moving on with an empty remark keeps the remark.
    addRoom(QStringLiteral("r5"), QStringLiteral("V05"), QStringLiteral("b"));
    QVERIFY(
        !RoomUseService().change({bill, QStringLiteral("V01"), QStringLiteral("V05"), QStringLiteral("  ")}));
    QCOMPARE(
        DB().scalar(QStringLiteral("select Description from Expense where ExpenseID=?"), {bill}).toString(),
        QStringLiteral("生日会\r\n嫌吵"));

    // A bill closed meanwhile elsewhere is not moved, and the target room stays free.
    DB().exec(QStringLiteral("update Expense set State=0 where ExpenseID=?"), {bill});
    const Refused closed = RoomUseService().change({bill, QStringLiteral("V05"), QStringLiteral("101"), {}});
    QVERIFY(closed);
    QCOMPARE(closed->message, RoomUseText::billClosed());
    QCOMPARE(room(QStringLiteral("r1")).integer(QStringLiteral("State")), 0);
    QCOMPARE(room(QStringLiteral("r5")).integer(QStringLiteral("State")), 1);
}

void TestRoomUse::merge_folds_lines_into_the_target() {
    TestVenue v;
    OPEN_VENUE(v);
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addRoom(QStringLiteral("r1"), QStringLiteral("101"), QStringLiteral("a"));
    addRoom(QStringLiteral("r2"), QStringLiteral("102"), QStringLiteral("a"));
    setNow(QDateTime(QDate(2026, 11, 21), QTime(18, 0)));
    const QString into = openRoom(QStringLiteral("r2"));
    setNow(QDateTime(QDate(2026, 11, 21), QTime(19, 0)));
    const QString from = openRoom(QStringLiteral("r1"));
    addLine(QStringLiteral("d1"), from, 30);
    addLine(QStringLiteral("d2"), from, 12.5, 1);
    addLine(QStringLiteral("d3"), into, 8);
    Money goodsBefore, roomBefore;
    const QDateTime close(QDate(2026, 11, 21), QTime(22, 0));
    fExpense().GetByIDCurrency(into, close, goodsBefore, roomBefore);

    QVERIFY(!RoomUseService().merge(QStringLiteral("101"), QStringLiteral("102")));
    QCOMPARE(count(QStringLiteral("select count(*) from Expense where ExpenseID=?"), {from}), 0);
    QCOMPARE(count(QStringLiteral("select count(*) from ExpenseDetail where ExpenseID=?"), {into}), 3);
    QCOMPARE(count(QStringLiteral("select isdel from ExpenseDetail where DetailID='d2'")), 1);
    QCOMPARE(room(QStringLiteral("r1")).integer(QStringLiteral("State")), 0);
    QCOMPARE(room(QStringLiteral("r1")).text(QStringLiteral("ExpenseID")), QString());
    QCOMPARE(room(QStringLiteral("r2")).text(QStringLiteral("ExpenseID")), into);
    // Goods move; the target's own time is priced as before.
    Money goods, roomMoney;
    fExpense().GetByIDCurrency(into, close, goods, roomMoney);
    QCOMPARE(goods, goodsBefore + Money::yuan(30));
    QCOMPARE(roomMoney, roomBefore);
}

void TestRoomUse::merge_refuses_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("into");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("field");
    const QString fromWrong = RoomUseText::mergeFromWrong(), intoWrong = RoomUseText::mergeIntoWrong();
    QTest::newRow("free room to fold in") << "103"
                                          << "102" << fromWrong << "txt1";
    QTest::newRow("unknown room") << "9'9"
                                  << "102" << fromWrong << "txt1";
    QTest::newRow("same room twice") << "101"
                                     << "101" << intoWrong << "txt2";
    QTest::newRow("stopped room to fold into") << "101"
                                               << "104" << intoWrong << "txt2";
    QTest::newRow("empty target") << "101"
                                  << "" << intoWrong << "txt2";
}

void TestRoomUse::merge_refuses() {
    QFETCH(QString, from);
    QFETCH(QString, into);
    QFETCH(QString, message);
    QFETCH(QString, field);
    TestVenue v;
    OPEN_VENUE(v);
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addRoom(QStringLiteral("r1"), QStringLiteral("101"), QStringLiteral("a"));
    addRoom(QStringLiteral("r2"), QStringLiteral("102"), QStringLiteral("a"));
    addRoom(QStringLiteral("r3"), QStringLiteral("103"), QStringLiteral("a"));
    addRoom(QStringLiteral("r4"), QStringLiteral("104"), QStringLiteral("a"), 2);
    const QString b1 = openRoom(QStringLiteral("r1"));
    const QString b2 = openRoom(QStringLiteral("r2"));
    addLine(QStringLiteral("d1"), b1, 30);
    const Refused r = RoomUseService().merge(from, into);
    QVERIFY(r);
    QCOMPARE(r->message, message);
    QCOMPARE(r->field, field);
    QCOMPARE(r->title, QStringLiteral("错误的包厢号"));
    // Nothing changed: the freed room came back with the rollback.
    QCOMPARE(room(QStringLiteral("r1")).integer(QStringLiteral("State")), 1);
    QCOMPARE(room(QStringLiteral("r1")).text(QStringLiteral("ExpenseID")), b1);
    QCOMPARE(count(QStringLiteral("select count(*) from Expense where State=1")), 2);
    QCOMPARE(count(QStringLiteral("select count(*) from ExpenseDetail where ExpenseID=?"), {b1}), 1);
    Q_UNUSED(b2);
}

void TestRoomUse::isHigh2Low_data() {
    QTest::addColumn<QString>("code");
    QTest::addColumn<double>("oldPrice");
    QTest::addColumn<bool>("result");
    // The starting tariff is by time; "dear" is a fixed 100.
    QTest::newRow("dearer old price") << "V01" << 120.0 << true;
    QTest::newRow("same price") << "V01" << 100.0 << false;
    QTest::newRow("cheaper old price") << "V01" << 80.0 << false;
    QTest::newRow("by-time tariff") << "101" << 500.0 << false;
    QTest::newRow("no such room") << "nope" << 500.0 << false;
}

void TestRoomUse::isHigh2Low() {
    QFETCH(QString, code);
    QFETCH(double, oldPrice);
    QFETCH(bool, result);
    TestVenue v;
    OPEN_VENUE(v);
    addDearTariff();
    DB().exec(QStringLiteral("update PayLevel set payType=1 where PayLevelID=?"), {Tariff});
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addType(QStringLiteral("b"), QStringLiteral("豪华包"), QStringLiteral("dear"));
    addRoom(QStringLiteral("r1"), QStringLiteral("101"), QStringLiteral("a"));
    addRoom(QStringLiteral("r2"), QStringLiteral("V01"), QStringLiteral("b"));
    QCOMPARE(RoomUseService().isHigh2Low(code, Money::fromDouble(oldPrice)), result);
}

void TestRoomUse::board_lists_and_panel() {
    TestVenue v;
    OPEN_VENUE(v);
    addDearTariff();
    addType(QStringLiteral("b"), QStringLiteral("豪华包"), QStringLiteral("dear"));
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addRoom(QStringLiteral("r1"), QStringLiteral("V01"), QStringLiteral("b"));
    addRoom(QStringLiteral("r2"), QStringLiteral("V02"), QStringLiteral("b"), 4,
            QStringLiteral("2026-11-21 20:30"));
    addRoom(QStringLiteral("r3"), QStringLiteral("V03"), QStringLiteral("b"), 4,
            QStringLiteral("2026-11-21 19:59"));
    addRoom(QStringLiteral("r4"), QStringLiteral("V04"), QStringLiteral("b"), 2);
    setNow(QDateTime(QDate(2026, 11, 21), QTime(17, 58, 40)));
    const QString bill = openRoom(QStringLiteral("r1"));
    addLine(QStringLiteral("d1"), bill, 30);
    addLine(QStringLiteral("d2"), bill, 99, 1);
    const QDateTime now(QDate(2026, 11, 21), QTime(20, 0));

    BoardService s;
    const QList<BoardTab> tabs = s.tabs();
    QCOMPARE(tabs.size(), 2);
    auto keys = [&](ShowMode m) {
        QStringList out;
        for (const BoardRoom& r : s.rooms(QStringLiteral("b"), m, now))
            out << r.theCode + QLatin1Char(':') + r.status.key;
        return out.join(QLatin1Char(' '));
    };
    QCOMPARE(keys(ShowMode::All), QStringLiteral("V01:Use V02:Lock V03:Common V04:Stop"));
    QCOMPARE(keys(ShowMode::Use), QStringLiteral("V01:Use"));
    QCOMPARE(keys(ShowMode::NoUse), QStringLiteral("V02:Lock V03:Common V04:Stop"));
    // The lock of V02 runs out without a write.
    QCOMPARE(s.rooms(QStringLiteral("b"), ShowMode::All, QDateTime(QDate(2026, 11, 21), QTime(20, 31)))[1]
                 .status.key,
             QStringLiteral("Common"));

    const BoardPanel p = s.panel(QStringLiteral("r1"), QStringLiteral("Use"), bill, now);
    QCOMPARE(p.house, QStringLiteral("豪华包 V01"));
    QCOMPARE(p.payLevelName, QStringLiteral("豪华"));
    QCOMPARE(p.openTime, QStringLiteral("2026年11月21日 17:58"));
    QCOMPARE(p.expendTime, QStringLiteral("2小时2分钟"));
    QCOMPARE(p.expenseMoney, QStringLiteral("￥30.00"));
    Money goods, roomMoney;
    fExpense().GetByIDCurrency(bill, now, goods, roomMoney);
    QVERIFY(roomMoney >= Money::yuan(200));
    QCOMPARE(p.houseMoney, roomMoney.toYuan());
    QCOMPARE(p.oughtMoney, (roomMoney + Money::yuan(30)).toYuan());
    QCOMPARE(p.customerNum, QStringLiteral("6"));
    QCOMPARE(p.isUseMinMoney, QStringLiteral("使用"));
    QCOMPARE(p.payLevelType, QStringLiteral("按时间计费"));
    const BoardPanel free = s.panel(QStringLiteral("r3"), QStringLiteral("Common"), {}, now);
    QCOMPARE(free.house, QStringLiteral("豪华包 V03"));
    QCOMPARE(free.oughtMoney, QStringLiteral("￥0.00"));
    QCOMPARE(free.openTime, QString());
}

QTEST_GUILESS_MAIN(TestRoomUse)
#include "test_room_use.moc"
