#include "CheckoutService.h"
#include "StoredValueService.h"
#include "TestKit.h"
#include "Together.h"
#include <atomic>

namespace {
Money yuan(double v) {
    return Money::fromDouble(v);
}

// Rooms A01 and A02 on the starting tariff; drinks, and cigarettes that take no member
// discount; the gold class (0.9, a point per 10 yuan) and its member M1 with 200 stored.
void addVenue() {
    addRoomType(u"a"_s, u"小包"_s);
    addRoom(u"r1"_s, u"A01"_s, u"a"_s);
    addRoom(u"r2"_s, u"A02"_s, u"a"_s);
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName, isNomember) values "
              "('01', '酒水', 0), ('02', '香烟', 1)"_s);
    DB().exec(u"insert into Ware (WareID, WareTypeID, WareCode, WareName, Price) values "
              "('beer', '01', 'A1', '啤酒', 100000), ('cig', '02', 'B1', '香烟', 200000)"_s);
    DB().exec(u"insert into MemberSetup (SetupID, SetupName, InitValue, StepValue, discount) "
              "values ('s1', '金卡', 0, 10, 0.9)"_s);
    DB().exec(u"insert into Member (MemberCode, MemberName, SetupID, chongzhi, State, pw, "
              "MemberValue, sumValue) values ('M1', '张三', 's1', ?, 0, '', 5, ?)"_s,
              {yuan(200), yuan(1000)});
}

// An open bill in the room since 18:00 with its lines (ware, money, cost, voided).
QString openBill(const QString& id, const QString& theID,
                 const QList<std::tuple<QString, double, double, bool>>& lines) {
    DB().exec(u"insert into Expense (ExpenseID, TheID, PayLevelID, payLevelType, OpenTime, State, "
              "CustomerNum, openOperator) values (?, ?, '00000000000000001', 1, "
              "'2026-11-21 18:00', 1, 4, 'admin')"_s,
              {id, theID});
    DB().exec(u"update The set State=1, ExpenseID=? where TheID=?"_s, {id, theID});
    int n = 0;
    for (const auto& [ware, money, cost, voided] : lines)
        DB().exec(
            u"insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, oughtMoney, "
            "Income, isdel, ExpenseTime) values (?, ?, ?, 1, ?, ?, ?, ?, '2026-11-21 18:30')"_s,
            {id + QString::number(++n), id, ware, yuan(money), yuan(money), yuan(money - cost), voided});
    return id;
}

Row bill(const QString& id) {
    return DB().query(u"select * from Expense where ExpenseID=?"_s, {id}).first();
}
// State, bill and lock end of a room, as "1|e1|".
QString room(const QString& id) {
    return dump(u"select State, ExpenseID, Other1 from The where TheID=?"_s, {id});
}
Money balance() {
    return DB().query(u"select chongzhi from Member where MemberCode='M1'"_s).first().money(u"chongzhi"_s);
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
            mode, u"老王"_s, [] { return true; }, TestVenue::fixedNow(), TestVenue::fixedNow(), 0))
        qFatal("refused: %s", qPrintable(r->message));
    CheckoutInput in;
    in.expenseID = id;
    in.deferredBill = deferredBill;
    in.closeTime = TestVenue::fixedNow();
    in.customerCode = memberCode;
    in.jzr = u" 老王 "_s;
    in.closeDesc = u"好"_s;
    in.theMoney = b.room;
    in.amounts = m.amounts(mode, b.cost);
    if (m.memberFound) in.memberCode = m.member.code;
    return in;
}

const QList<std::tuple<QString, double, double, bool>> Lines{
    {u"beer"_s, 60, 20, false}, {u"cig"_s, 20, 15, false}, {u"beer"_s, 500, 100, true}};
} // namespace

class TestCheckout : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void init() { App().LockTime = 0; }
    // The window shows the room and the amounts; here what it cannot: voided lines, the cost
    // and a bill that is gone.
    void load_prices_the_bill() {
        NEW_VENUE(v);
        addVenue();
        openBill(u"e1"_s, u"r1"_s, Lines);
        const std::optional<CheckoutBill> b = CheckoutService().load(u"e1"_s, TestVenue::fixedNow(), false);
        QCOMPARE(b->goods, yuan(80)); // the voided line does not count
        QCOMPARE(b->cost, yuan(35));
        QVERIFY(!CheckoutService().load(u"nope"_s, TestVenue::fixedNow(), false));
    }
    void paid_with_member_writes_bill_room_and_member_data() {
        QTest::addColumn<int>("mode");
        QTest::newRow("paid") << 0;
        QTest::newRow("free") << 1;
        QTest::newRow("deferred") << 2;
    }
    // The rows a checkout leaves: the bill's closing fields, the room, the member. The checkout
    // window shows a room locked after its bill.
    void paid_with_member_writes_bill_room_and_member() {
        QFETCH(int, mode);
        NEW_VENUE(v);
        addVenue();
        App().CurrentOperatorName = u"收银甲"_s;
        openBill(u"e1"_s, u"r1"_s, Lines);
        const CheckoutInput in = input(u"e1"_s, CloseMode(mode), u"M1"_s, u"30"_s, u"500"_s);
        const Money receivable = in.amounts.expenseMoney;
        // Room and beer at 0.9, cigarettes at full price, rounded to the cent for the window.
        const Money settled = Money::fromText(FormatNumber(
            (Money::fromDouble((receivable - yuan(20)).toDouble() * double(0.9f)) + yuan(20)).toDouble(),
            u"0.00"_s));
        const CheckoutDone done = CheckoutService().close(in);
        QVERIFY(done.saved);
        QCOMPARE(done.theID, u"r1"_s);

        const Row e = bill(u"e1"_s);
        QCOMPARE(dump(u"select State, VoucherState, CloseTime, CustomerCode, CloseOperator, jzr, CloseDesc "
                      "from Expense where ExpenseID='e1'"_s),
                 u"0|%1|2026-11-21 20:00|M1|收银甲|老王|好"_s.arg(mode));
        QCOMPARE(e.money(u"theMoney"_s), in.theMoney);
        QCOMPARE(e.money(u"ExpenseMoney"_s), receivable);
        QCOMPARE(e.money(u"oughtMoney"_s), receivable);
        QCOMPARE(e.money(u"NoMoney"_s), receivable - settled);
        const bool paid = mode == 0;
        QCOMPARE(e.money(u"factpay"_s), paid ? settled : Money());
        QCOMPARE(e.money(u"CashPay"_s), paid ? settled - yuan(30) : Money());
        QCOMPARE(e.money(u"Income"_s), mode == 1 ? -yuan(35) : settled - yuan(35));
        QCOMPARE(e.money(u"chongzhipay"_s), paid ? yuan(30) : Money());
        QCOMPARE(e.text(u"chongzhiIDCare"_s), paid ? u"M1"_s : QString());

        QCOMPARE(room(u"r1"_s), u"0||"_s);

        // Points, spending and balance move only for money paid now.
        const Row m = DB().query(u"select * from Member where MemberCode='M1'"_s).first();
        QCOMPARE(m.num(u"MemberValue"_s), paid ? 5 + double(RoundEven(settled.toDouble() / 10)) : 5.0);
        QCOMPARE(m.money(u"sumValue"_s), paid ? yuan(1000) + settled : yuan(1000));
        QCOMPARE(m.money(u"chongzhi"_s), paid ? yuan(170) : yuan(200));
    }
    void card_fields_kept_without_stored_value() {
        NEW_VENUE(v);
        addVenue();
        openBill(u"e1"_s, u"r1"_s, Lines);
        DB().exec(u"update Expense set chongzhipay=?, chongzhiIDCare='OLD' where ExpenseID='e1'"_s,
                  {yuan(7)});
        QVERIFY(CheckoutService().close(input(u"e1"_s, CloseMode::Paid, u"M1"_s, u"0"_s, u"500"_s)).saved);
        QCOMPARE(dump(u"select chongzhipay, chongzhiIDCare from Expense"_s), u"70000|OLD"_s);
        QCOMPARE(balance(), yuan(200));
    }
    // A second close of one bill (another workstation, or a double press) writes nothing.
    void bill_closed_only_once() {
        NEW_VENUE(v);
        addVenue();
        openBill(u"e1"_s, u"r1"_s, Lines);
        const CheckoutInput in = input(u"e1"_s, CloseMode::Paid, u"M1"_s, u"30"_s, u"500"_s);
        QVERIFY(CheckoutService().close(in).saved);
        // The room has new guests meanwhile.
        openBill(u"e2"_s, u"r1"_s, {});
        const CheckoutDone again = CheckoutService().close(in);
        QVERIFY(!again.saved && again.billChanged);
        QCOMPARE(again.refusal->message, CheckoutText::billChanged());
        // Settled again as if it were deferred: refused too, it was paid.
        CheckoutInput asDeferred = in;
        asDeferred.deferredBill = true;
        QVERIFY(CheckoutService().close(asDeferred).billChanged);
        QCOMPARE(balance(), yuan(170));
        QCOMPARE(room(u"r1"_s), u"1|e2|"_s);
    }
    void member_gone_writes_nothing() {
        NEW_VENUE(v);
        addVenue();
        openBill(u"e1"_s, u"r1"_s, Lines);
        const CheckoutInput in = input(u"e1"_s, CloseMode::Paid, u"M1"_s, u"30"_s, u"500"_s);
        DB().exec(u"delete from Member where MemberCode='M1'"_s);
        const CheckoutDone done = CheckoutService().close(in);
        QVERIFY(!done.saved);
        QCOMPARE(done.refusal->message, u"结帐数据没有保存成功，请重试！"_s);
        QCOMPARE(bill(u"e1"_s).integer(u"State"_s), 1);
        QCOMPARE(room(u"r1"_s), u"1|e1|"_s);
    }
    void deferred_search_data() { // clang-format off
        columns<QString, QStringList>("text", "found");
        QTest::newRow("blank lists all, oldest opening first") << " " << u"d1,d2,d3"_s.split(u',');
        QTest::newRow("substring") << "王" << u"d1,d3"_s.split(u',');
        QTest::newRow("no match") << "赵" << QStringList{};
        QTest::newRow("a quote is ordinary text") << "O'" << QStringList{u"d2"_s}; // clang-format on
    }
    void deferred_search() {
        auto [text, found] = fetch<QString, QStringList>("text", "found");
        NEW_VENUE(v);
        addVenue();
        // The paid bill of 王五 is no longer owed.
        for (const QString& b : {u"d3|小王|2026-11-20 10:00|2"_s, u"d1|老王|2026-11-18 10:00|2"_s,
                                 u"d2|O'Neil|2026-11-19 10:00|2"_s, u"p1|王五|2026-11-17 10:00|0"_s}) {
            const QStringList f = b.split(u'|');
            DB().exec(u"insert into Expense (ExpenseID, TheID, OpenTime, State, VoucherState, jzr) "
                      "values (?, 'r1', ?, 0, ?, ?)"_s,
                      {f[0], f[2], f[3].toInt(), f[1]});
        }
        QStringList got;
        for (const Row r : CheckoutService().deferredBills(text))
            got << r.text(u"ExpenseID"_s);
        QCOMPARE(got, found);
    }
    // Top-ups on one workstation while another settles bills with the card: every top-up and
    // every payment counts.
    void topup_during_checkout_is_kept() {
        NEW_VENUE(v);
        addVenue();
        constexpr int Bills = 10;
        QList<CheckoutInput> inputs;
        for (int i = 0; i < Bills; ++i) {
            const QString id = u"e%1"_s.arg(i), theID = u"t%1"_s.arg(i);
            addRoom(theID, u"B%1"_s.arg(i), u"a"_s);
            openBill(id, theID, Lines);
            inputs << input(id, CloseMode::Paid, u"M1"_s, u"3"_s, u"500"_s);
        }
        std::atomic<int> closed{0}, toppedUp{0};
        together(v.config(), 2, [&](Db& db, int n) {
            for (int i = 0; i < Bills; ++i)
                if (n == 1 ? CheckoutService(db).close(inputs[i]).saved
                           : StoredValueService(db).save({u"M1"_s, u"7"_s, u"7"_s, {}}).ok())
                    ++(n == 1 ? closed : toppedUp);
        });
        QCOMPARE(closed.load(), Bills);
        QCOMPARE(toppedUp.load(), Bills);
        QCOMPARE(balance(), yuan(200 + 7 * Bills - 3 * Bills));
    }
};

QTEST_GUILESS_MAIN(TestCheckout)
#include "test_checkout.moc"
