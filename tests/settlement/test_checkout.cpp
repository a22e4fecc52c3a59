#include "AppState.h"
#include "CheckoutService.h"
#include "Format.h"
#include "MoneyCompare.h"
#include "StoredValueService.h"
#include "TestVenue.h"
#include "Val.h"
#include <QTest>
#include <atomic>
#include <thread>

namespace {
Money yuan(double v) {
    return Money::fromDouble(v);
}

// Rooms A01 and A02 on the starting tariff; drinks, and cigarettes that take no member
// discount; the gold class (0.9, a point per 10 yuan) and its member M1 with 200 stored.
void addVenue() {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values "
                             "('a', '小包', '00000000000000001')"));
    DB().exec(QStringLiteral("insert into The (TheID, TheCode, AssortID, State) values "
                             "('r1', 'A01', 'a', 0), ('r2', 'A02', 'a', 0)"));
    DB().exec(QStringLiteral("insert into WareType (WareTypeID, wareTypeName, isNomember) values "
                             "('01', '酒水', 0), ('02', '香烟', 1)"));
    DB().exec(QStringLiteral("insert into Ware (WareID, WareTypeID, WareCode, WareName, Price) values "
                             "('beer', '01', 'A1', '啤酒', 100000), ('cig', '02', 'B1', '香烟', 200000)"));
    DB().exec(QStringLiteral("insert into MemberSetup (SetupID, SetupName, InitValue, StepValue, discount) "
                             "values ('s1', '金卡', 0, 10, 0.9)"));
    DB().exec(QStringLiteral("insert into Member (MemberCode, MemberName, SetupID, chongzhi, State, pw, "
                             "MemberValue, sumValue) values ('M1', '张三', 's1', ?, 0, '', 5, ?)"),
              {yuan(200), yuan(1000)});
}

// An open bill in the room since 18:00 with its lines (ware, money, cost, voided).
QString openBill(const QString& id, const QString& theID,
                 const QList<std::tuple<QString, double, double, bool>>& lines) {
    DB().exec(
        QStringLiteral("insert into Expense (ExpenseID, TheID, PayLevelID, payLevelType, OpenTime, State, "
                       "CustomerNum, openOperator) values (?, ?, '00000000000000001', 1, "
                       "'2026-11-21 18:00', 1, 4, 'admin')"),
        {id, theID});
    DB().exec(QStringLiteral("update The set State=1, ExpenseID=? where TheID=?"), {id, theID});
    int n = 0;
    for (const auto& [ware, money, cost, voided] : lines)
        DB().exec(
            QStringLiteral("insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, oughtMoney, "
                           "Income, isdel, ExpenseTime) values (?, ?, ?, 1, ?, ?, ?, ?, '2026-11-21 18:30')"),
            {id + QString::number(++n), id, ware, yuan(money), yuan(money), yuan(money - cost), voided});
    return id;
}

Row row(const QString& sql, const Params& params = {}) {
    const Rows r = DB().query(sql, params);
    if (r.isEmpty()) qFatal("no row for %s", qPrintable(sql));
    return r.first();
}
Row bill(const QString& id) {
    return row(QStringLiteral("select * from Expense where ExpenseID=?"), {id});
}
Row room(const QString& id) {
    return row(QStringLiteral("select * from The where TheID=?"), {id});
}
Row member(const QString& code = QStringLiteral("M1")) {
    return row(QStringLiteral("select * from Member where MemberCode=?"), {code});
}

// The window's way from a loaded bill to the commit input: the member applied, the stored
// value typed, cash for the rest.
CheckoutInput input(const QString& id, CloseMode mode, const QString& memberCode, const QString& card,
                    const QString& cash, bool deferredBill = false) {
    CheckoutService s;
    const CheckoutBill b = *s.load(id, TestVenue::fixedNow(), deferredBill);
    CheckoutModel m;
    m.showAmounts(b.goods, b.room);
    if (!memberCode.isEmpty()) m.applyMember(s.member(memberCode), s.excludedGoods(id));
    m.setChongzhiD(card);
    m.setFactPay(cash);
    if (const Refused r = m.check(
            mode, QStringLiteral("老王"), [] { return true; }, TestVenue::fixedNow(), TestVenue::fixedNow(),
            0))
        qFatal("refused: %s", qPrintable(r->message));
    CheckoutInput in;
    in.expenseID = id;
    in.deferredBill = deferredBill;
    in.closeTime = TestVenue::fixedNow();
    in.customerCode = memberCode;
    in.jzr = QStringLiteral(" 老王 ");
    in.closeDesc = QStringLiteral("好");
    in.theMoney = b.room;
    in.amounts = m.amounts(mode, b.cost);
    if (m.memberFound) in.memberCode = m.member.code;
    return in;
}

const QList<std::tuple<QString, double, double, bool>> Lines{{QStringLiteral("beer"), 60, 20, false},
                                                             {QStringLiteral("cig"), 20, 15, false},
                                                             {QStringLiteral("beer"), 500, 100, true}};
} // namespace

class TestCheckout : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void init() { App().LockTime = 0; }
    void load_prices_the_bill();
    void paid_with_member_writes_bill_room_and_member_data();
    void paid_with_member_writes_bill_room_and_member();
    void points_round_half_to_even_data();
    void points_round_half_to_even();
    void card_fields_kept_without_stored_value();
    void bill_closed_only_once();
    void member_gone_writes_nothing();
    void deferred_bill_settled_later();
    void deferred_search_data();
    void deferred_search();
    void race_of_two_checkouts();
    void topup_during_checkout_is_kept();
};

void TestCheckout::load_prices_the_bill() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    openBill(QStringLiteral("e1"), QStringLiteral("r1"), Lines);
    const std::optional<CheckoutBill> b =
        CheckoutService().load(QStringLiteral("e1"), TestVenue::fixedNow(), false);
    QVERIFY(b);
    QCOMPARE(b->theCode, QStringLiteral("A01"));
    QCOMPARE(b->assortName, QStringLiteral("小包"));
    QCOMPARE(b->customerNum, qint64(4));
    QCOMPARE(b->goods, yuan(80)); // the voided line does not count
    QCOMPARE(b->cost, yuan(35));
    QVERIFY(b->room > Money()); // two hours on the starting tariff
    QCOMPARE(CheckoutService().excludedGoods(QStringLiteral("e1")), yuan(20));
    QVERIFY(!CheckoutService().load(QStringLiteral("nope"), TestVenue::fixedNow(), false));

    // A deferred bill keeps the room charge fixed when it was deferred.
    DB().exec(QStringLiteral("update Expense set State=0, VoucherState=2, theMoney=? where ExpenseID='e1'"),
              {yuan(33.5)});
    QCOMPARE(CheckoutService().load(QStringLiteral("e1"), TestVenue::fixedNow(), true)->room, yuan(33.5));
}

void TestCheckout::paid_with_member_writes_bill_room_and_member_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("lockTime");
    QTest::addColumn<QString>("card");
    QTest::newRow("paid, room free") << 0 << 0 << "30";
    QTest::newRow("paid, room locked") << 0 << 10 << "30";
    QTest::newRow("free") << 1 << 0 << "30";
    QTest::newRow("deferred") << 2 << 0 << "30";
}

// The rows a checkout leaves: the bill's closing fields, the room, the member.
void TestCheckout::paid_with_member_writes_bill_room_and_member() {
    QFETCH(int, mode);
    QFETCH(int, lockTime);
    QFETCH(QString, card);
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    App().LockTime = lockTime;
    App().CurrentOperatorName = QStringLiteral("收银甲");
    openBill(QStringLiteral("e1"), QStringLiteral("r1"), Lines);
    const CheckoutInput in =
        input(QStringLiteral("e1"), CloseMode(mode), QStringLiteral("M1"), card, QStringLiteral("500"));
    const Money receivable = in.amounts.expenseMoney;
    // Room and beer at 0.9, cigarettes at full price, rounded to the cent for the window.
    const Money settled = Money::fromText(FormatNumber(
        (Money::fromDouble((receivable - yuan(20)).toDouble() * double(0.9f)) + yuan(20)).toDouble(),
        QStringLiteral("0.00")));
    const CheckoutDone done = CheckoutService().close(in);
    QVERIFY(done.saved);
    QCOMPARE(done.theID, QStringLiteral("r1"));

    const Row e = bill(QStringLiteral("e1"));
    QCOMPARE(e.integer(QStringLiteral("State")), 0);
    QCOMPARE(e.integer(QStringLiteral("VoucherState")), mode);
    QCOMPARE(e.text(QStringLiteral("CloseTime")), QStringLiteral("2026-11-21 20:00"));
    QCOMPARE(e.text(QStringLiteral("CustomerCode")), QStringLiteral("M1"));
    QCOMPARE(e.text(QStringLiteral("CloseOperator")), QStringLiteral("收银甲"));
    QCOMPARE(e.text(QStringLiteral("jzr")), QStringLiteral("老王"));
    QCOMPARE(e.text(QStringLiteral("CloseDesc")), QStringLiteral("好"));
    QCOMPARE(e.money(QStringLiteral("theMoney")), in.theMoney);
    QCOMPARE(e.money(QStringLiteral("ExpenseMoney")), receivable);
    QCOMPARE(e.money(QStringLiteral("oughtMoney")), receivable);
    QCOMPARE(e.money(QStringLiteral("NoMoney")), receivable - settled);
    const bool paid = mode == 0;
    QCOMPARE(e.money(QStringLiteral("factpay")), paid ? settled : Money());
    QCOMPARE(e.money(QStringLiteral("CashPay")), paid ? settled - yuan(30) : Money());
    QCOMPARE(e.money(QStringLiteral("Income")), mode == 1 ? -yuan(35) : settled - yuan(35));
    QCOMPARE(e.money(QStringLiteral("chongzhipay")), paid ? yuan(30) : Money());
    QCOMPARE(e.text(QStringLiteral("chongzhiIDCare")), paid ? QStringLiteral("M1") : QString());

    const Row r = room(QStringLiteral("r1"));
    QCOMPARE(r.integer(QStringLiteral("State")), lockTime > 0 ? 4 : 0);
    QCOMPARE(r.text(QStringLiteral("Other1")), lockTime > 0 ? QStringLiteral("2026-11-21 20:10") : QString());
    QCOMPARE(r.text(QStringLiteral("ExpenseID")), QString());
    QCOMPARE(done.roomState, lockTime > 0 ? 4 : 0);

    // Points, spending and balance move only for money paid now.
    const Row m = member();
    QCOMPARE(m.num(QStringLiteral("MemberValue")),
             paid ? 5 + double(RoundEven(settled.toDouble() / 10)) : 5.0);
    QCOMPARE(m.money(QStringLiteral("sumValue")), paid ? yuan(1000) + settled : yuan(1000));
    QCOMPARE(m.money(QStringLiteral("chongzhi")), paid ? yuan(170) : yuan(200));
}

void TestCheckout::points_round_half_to_even_data() {
    QTest::addColumn<QString>("cash");
    QTest::addColumn<double>("points");
    QTest::newRow("9.5 gives 10") << "95" << 10.0;
    QTest::newRow("8.5 gives 8") << "85" << 8.0;
    QTest::newRow("no 16-bit limit") << "400000" << 40000.0;
}

void TestCheckout::points_round_half_to_even() {
    QFETCH(QString, cash);
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    DB().exec(QStringLiteral("update MemberSetup set discount=1"));
    DB().exec(QStringLiteral("update Member set MemberValue=0"));
    openBill(QStringLiteral("e1"), QStringLiteral("r1"), {});
    CheckoutInput in = input(QStringLiteral("e1"), CloseMode::Paid, QStringLiteral("M1"), QStringLiteral("0"),
                             QStringLiteral("999999"));
    in.amounts.sumPay = Money::fromText(cash);
    QVERIFY(CheckoutService().close(in).saved);
    QTEST(member().num(QStringLiteral("MemberValue")), "points");
}

void TestCheckout::card_fields_kept_without_stored_value() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    openBill(QStringLiteral("e1"), QStringLiteral("r1"), Lines);
    DB().exec(QStringLiteral("update Expense set chongzhipay=?, chongzhiIDCare='OLD' where ExpenseID='e1'"),
              {yuan(7)});
    QVERIFY(CheckoutService()
                .close(input(QStringLiteral("e1"), CloseMode::Paid, QStringLiteral("M1"), QStringLiteral("0"),
                             QStringLiteral("500")))
                .saved);
    QCOMPARE(bill(QStringLiteral("e1")).money(QStringLiteral("chongzhipay")), yuan(7));
    QCOMPARE(bill(QStringLiteral("e1")).text(QStringLiteral("chongzhiIDCare")), QStringLiteral("OLD"));
    QCOMPARE(member().money(QStringLiteral("chongzhi")), yuan(200));
}

// A second close of one bill (another workstation, or a double press) writes nothing.
void TestCheckout::bill_closed_only_once() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    openBill(QStringLiteral("e1"), QStringLiteral("r1"), Lines);
    const CheckoutInput in = input(QStringLiteral("e1"), CloseMode::Paid, QStringLiteral("M1"),
                                   QStringLiteral("30"), QStringLiteral("500"));
    QVERIFY(CheckoutService().close(in).saved);
    // The room has new guests meanwhile.
    openBill(QStringLiteral("e2"), QStringLiteral("r1"), {});
    const CheckoutDone again = CheckoutService().close(in);
    QVERIFY(!again.saved);
    QVERIFY(again.billChanged);
    QCOMPARE(again.refusal->message, CheckoutText::billChanged());
    QCOMPARE(member().money(QStringLiteral("chongzhi")), yuan(170));
    QCOMPARE(room(QStringLiteral("r1")).text(QStringLiteral("ExpenseID")), QStringLiteral("e2"));
    // A deferred-mode commit of an open bill is refused the same way.
    CheckoutInput asDeferred = in;
    asDeferred.expenseID = QStringLiteral("e2");
    asDeferred.deferredBill = true;
    QVERIFY(CheckoutService().close(asDeferred).billChanged);
    QCOMPARE(bill(QStringLiteral("e2")).integer(QStringLiteral("State")), 1);
}

void TestCheckout::member_gone_writes_nothing() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    openBill(QStringLiteral("e1"), QStringLiteral("r1"), Lines);
    const CheckoutInput in = input(QStringLiteral("e1"), CloseMode::Paid, QStringLiteral("M1"),
                                   QStringLiteral("30"), QStringLiteral("500"));
    DB().exec(QStringLiteral("delete from Member where MemberCode='M1'"));
    const CheckoutDone done = CheckoutService().close(in);
    QVERIFY(!done.saved);
    QCOMPARE(done.refusal->message, QStringLiteral("结帐数据没有保存成功，请重试！"));
    QCOMPARE(bill(QStringLiteral("e1")).integer(QStringLiteral("State")), 1);
    QCOMPARE(room(QStringLiteral("r1")).integer(QStringLiteral("State")), 1);
}

// Deferred, the room goes to new guests, and the bill is paid later: the new guests' room
// is left alone, the bill leaves the deferred list keeping its closing time.
void TestCheckout::deferred_bill_settled_later() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    openBill(QStringLiteral("e1"), QStringLiteral("r1"), Lines);
    CheckoutInput deferred = input(QStringLiteral("e1"), CloseMode::Deferred, QStringLiteral("M1"),
                                   QStringLiteral("0"), QStringLiteral("0"));
    deferred.closeTime = QDateTime(QDate(2026, 11, 20), QTime(23, 0));
    QVERIFY(CheckoutService().close(deferred).saved);
    QCOMPARE(CheckoutService().deferredBills(QString()).count(), 1);
    openBill(QStringLiteral("e2"), QStringLiteral("r1"), {});

    const CheckoutBill b = *CheckoutService().load(QStringLiteral("e1"), TestVenue::fixedNow(), true);
    QCOMPARE(b.closeTime, deferred.closeTime);
    QCOMPARE(b.room, deferred.theMoney);
    CheckoutInput pay = input(QStringLiteral("e1"), CloseMode::Paid, QString(), QStringLiteral("0"),
                              QStringLiteral("1000"), true);
    pay.closeTime = b.closeTime;
    const CheckoutDone done = CheckoutService().close(pay);
    QVERIFY(done.saved);
    QCOMPARE(done.roomState, -1);
    const Row e = bill(QStringLiteral("e1"));
    QCOMPARE(e.integer(QStringLiteral("VoucherState")), 0);
    QCOMPARE(e.text(QStringLiteral("CloseTime")), QStringLiteral("2026-11-20 23:00"));
    QCOMPARE(e.money(QStringLiteral("factpay")), pay.amounts.factPay);
    QVERIFY(CheckoutService().deferredBills(QString()).isEmpty());
    QCOMPARE(room(QStringLiteral("r1")).integer(QStringLiteral("State")), 1);
    QCOMPARE(room(QStringLiteral("r1")).text(QStringLiteral("ExpenseID")), QStringLiteral("e2"));
    // Paid is paid: a second settling finds nothing deferred.
    QVERIFY(CheckoutService().close(pay).billChanged);
}

void TestCheckout::deferred_search_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("found");
    QTest::newRow("blank lists all, oldest opening first") << " " << QStringLiteral("d1,d2,d3").split(u',');
    QTest::newRow("substring") << "王" << QStringLiteral("d1,d3").split(u',');
    QTest::newRow("no match") << "赵" << QStringList{};
    QTest::newRow("a quote is ordinary text") << "O'" << QStringList{QStringLiteral("d2")};
}

void TestCheckout::deferred_search() {
    QFETCH(QString, text);
    QFETCH(QStringList, found);
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    // The paid bill of 王五 is no longer owed.
    for (const QString& b :
         {QStringLiteral("d3|小王|2026-11-20 10:00|2"), QStringLiteral("d1|老王|2026-11-18 10:00|2"),
          QStringLiteral("d2|O'Neil|2026-11-19 10:00|2"), QStringLiteral("p1|王五|2026-11-17 10:00|0")}) {
        const QStringList f = b.split(u'|');
        DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, OpenTime, State, VoucherState, jzr) "
                                 "values (?, 'r1', ?, 0, ?, ?)"),
                  {f[0], f[2], f[3].toInt(), f[1]});
    }
    QStringList got;
    for (const Row r : CheckoutService().deferredBills(text))
        got << r.text(QStringLiteral("ExpenseID"));
    QCOMPARE(got, found);
}

// Two workstations press F4 on one bill at the same moment: one closes it, the other is
// told, and the member is charged once.
void TestCheckout::race_of_two_checkouts() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    constexpr int Rounds = 8;
    for (int round = 0; round < Rounds; ++round) {
        const QString id = QStringLiteral("e%1").arg(round);
        openBill(id, QStringLiteral("r1"), Lines);
        const Money before = member().money(QStringLiteral("chongzhi"));
        const CheckoutInput in =
            input(id, CloseMode::Paid, QStringLiteral("M1"), QStringLiteral("5"), QStringLiteral("500"));
        std::atomic<int> ready{0}, saved{0}, changed{0};
        auto cashier = [&](int n) {
            Db db(QStringLiteral("cashier%1").arg(n));
            db.open(v.config());
            ++ready;
            while (ready < 2)
                std::this_thread::yield();
            const CheckoutDone d = CheckoutService(db).close(in);
            if (d.saved) ++saved;
            if (d.billChanged) ++changed;
            db.close();
        };
        std::thread a(cashier, 1), b(cashier, 2);
        a.join();
        b.join();
        QCOMPARE(saved.load(), 1);
        QCOMPARE(changed.load(), 1);
        QCOMPARE(member().money(QStringLiteral("chongzhi")), before - yuan(5));
        QCOMPARE(room(QStringLiteral("r1")).integer(QStringLiteral("State")), 0);
    }
}

// Top-ups on one workstation while another settles bills with the card: every top-up and
// every payment counts.
void TestCheckout::topup_during_checkout_is_kept() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    constexpr int Bills = 10;
    QList<CheckoutInput> inputs;
    for (int i = 0; i < Bills; ++i) {
        const QString id = QStringLiteral("e%1").arg(i), theID = QStringLiteral("t%1").arg(i);
        DB().exec(QStringLiteral("insert into The (TheID, TheCode, AssortID, State) values (?, ?, 'a', 0)"),
                  {theID, QStringLiteral("B%1").arg(i)});
        openBill(id, theID, Lines);
        inputs << input(id, CloseMode::Paid, QStringLiteral("M1"), QStringLiteral("3"),
                        QStringLiteral("500"));
    }
    std::atomic<int> ready{0}, closed{0}, toppedUp{0};
    std::thread till([&] {
        Db db(QStringLiteral("till"));
        db.open(v.config());
        ++ready;
        while (ready < 2)
            std::this_thread::yield();
        for (const CheckoutInput& in : inputs)
            if (CheckoutService(db).close(in).saved) ++closed;
        db.close();
    });
    std::thread desk([&] {
        Db db(QStringLiteral("desk"));
        db.open(v.config());
        ++ready;
        while (ready < 2)
            std::this_thread::yield();
        for (int i = 0; i < Bills; ++i)
            if (StoredValueService(db)
                    .save({QStringLiteral("M1"), QStringLiteral("7"), QStringLiteral("7"), {}})
                    .ok())
                ++toppedUp;
        db.close();
    });
    till.join();
    desk.join();
    QCOMPARE(closed.load(), Bills);
    QCOMPARE(toppedUp.load(), Bills);
    QCOMPARE(member().money(QStringLiteral("chongzhi")), yuan(200 + 7 * Bills - 3 * Bills));
}

QTEST_GUILESS_MAIN(TestCheckout)
#include "test_checkout.moc"
