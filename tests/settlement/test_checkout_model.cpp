#include "CheckoutModel.h"
#include "MoneyCompare.h"
#include "Val.h"
#include <QTest>

namespace {
Money yuan(double v) {
    return Money::fromDouble(v);
}

// A bill of `receivable` on the window, as the amounts show it in keep-decimals mode.
CheckoutModel shown(double receivable, int payMoneyFormat = 0) {
    CheckoutModel m;
    m.payMoneyFormat = payMoneyFormat;
    m.showAmounts(yuan(receivable), Money());
    return m;
}

CheckoutMember memberWith(float discount, double balance, qint64 state = 0) {
    return CheckoutMember{QStringLiteral("M1"), QStringLiteral("张三"), state,
                          QStringLiteral("s1"), QStringLiteral("金卡"), discount,
                          yuan(balance)};
}

const QDateTime Opened(QDate(2026, 11, 21), QTime(20, 0));
const auto PasswordOk = [] { return true; };
} // namespace

class TestCheckoutModel : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void receivable_by_setting_data();
    void receivable_by_setting();
    void settlement_recomputes_the_boxes_data();
    void settlement_recomputes_the_boxes();
    void member_discount_data();
    void member_discount();
    void member_lookup_refusals();
    void stored_value_pays_what_it_can();
    void operator_discount_limit_data();
    void operator_discount_limit();
    void checks_in_their_order_data();
    void checks_in_their_order();
    void close_time_limit_data();
    void close_time_limit();
    void amounts_written_data();
    void amounts_written();
};

void TestCheckoutModel::receivable_by_setting_data() {
    QTest::addColumn<double>("goods");
    QTest::addColumn<double>("room");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("receivable");
    QTest::newRow("keep decimals") << 31.25 << 88.50 << 0 << "119.75";
    QTest::newRow("cut to whole") << 31.25 << 88.50 << 1 << "119";
    QTest::newRow("round") << 31.25 << 88.50 << 2 << "120";
    QTest::newRow("round half to even down") << 18.5 << 100.0 << 2 << "118";
    QTest::newRow("round half to even up") << 19.5 << 100.0 << 2 << "120";
    QTest::newRow("whole keeps no point") << 20.0 << 100.0 << 0 << "120";
    QTest::newRow("unknown setting keeps decimals") << 1.5 << 0.0 << 7 << "1.5";
    // The sum is cut to cents before the setting applies.
    QTest::newRow("cents first") << 0.005 << 0.0 << 0 << "0.01";
    QTest::newRow("cents first then rounded") << 118.495 << 0.0 << 2 << "118";
    QTest::newRow("no 16-bit limit") << 40000.5 << 0.0 << 2 << "40000";
    QTest::newRow("large cut") << 99999.99 << 0.0 << 1 << "99999";
}

void TestCheckoutModel::receivable_by_setting() {
    QFETCH(double, goods);
    QFETCH(double, room);
    QFETCH(int, format);
    QFETCH(QString, receivable);
    CheckoutModel m;
    m.payMoneyFormat = format;
    m.showAmounts(yuan(goods), yuan(room));
    QCOMPARE(m.expenseMoney, receivable);
    QCOMPARE(m.oughtMoney, receivable);
    QCOMPARE(m.noMoney, QStringLiteral("0"));
    QCOMPARE(m.factPay, QStringLiteral("0"));
    QCOMPARE(m.chongzhiD, QStringLiteral("0"));
    QCOMPARE(m.freePay, QStringLiteral("0"));
}

void TestCheckoutModel::settlement_recomputes_the_boxes_data() {
    QTest::addColumn<double>("receivable");
    QTest::addColumn<QString>("settlement");
    QTest::addColumn<QString>("noMoney");
    QTest::addColumn<QString>("discount");
    QTest::addColumn<QString>("temp");
    QTest::newRow("nothing owed, no division") << 0.0 << "0"
                                               << "0"
                                               << "10"
                                               << "0.00";
    QTest::newRow("15 per cent off") << 100.0 << "85"
                                     << "15"
                                     << "8.50"
                                     << "-85.00";
    QTest::newRow("unformatted reduction") << 119.75 << "107.78"
                                           << "11.97"
                                           << "9.00"
                                           << "-107.78";
    QTest::newRow("raised above the receivable") << 100.0 << "120"
                                                 << "-20"
                                                 << "12.00"
                                                 << "-120.00";
    QTest::newRow("letters settle at 0") << 100.0 << "abc"
                                         << "100"
                                         << "0.00"
                                         << "0.00";
}

void TestCheckoutModel::settlement_recomputes_the_boxes() {
    QFETCH(double, receivable);
    QFETCH(QString, settlement);
    CheckoutModel m = shown(receivable);
    m.setFactPay(QStringLiteral("500"));
    m.setOughtMoney(settlement);
    QTEST(m.noMoney, "noMoney");
    QTEST(m.discount, "discount");
    // Typing the settlement discards the payment entered before.
    QCOMPARE(m.factPay, QStringLiteral("0"));
    QTEST(m.temp, "temp");
    QCOMPARE(m.tempRed, m.temp.startsWith(QLatin1Char('-')));
}

void TestCheckoutModel::member_discount_data() {
    QTest::addColumn<double>("receivable");
    QTest::addColumn<double>("excluded");
    QTest::addColumn<float>("discount");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("settlement");
    QTest::addColumn<QString>("label");
    QTest::newRow("discount 1 settles the receivable") << 100.0 << 0.0 << 1.0f << 0 << "100.00"
                                                       << "1.00";
    QTest::newRow("excluded goods at full price") << 100.0 << 20.0 << 0.9f << 0 << "92.00"
                                                  << "0.90";
    QTest::newRow("cents kept") << 119.75 << 0.0 << 0.9f << 0 << "107.78"
                                << "0.90";
    QTest::newRow("cut to whole") << 119.75 << 0.0 << 0.9f << 1 << "107"
                                  << "0.90";
    QTest::newRow("rounded") << 119.75 << 0.0 << 0.9f << 2 << "108"
                             << "0.90";
    QTest::newRow("class shown in cents") << 100.0 << 0.0 << 0.875f << 0 << "87.50"
                                          << "0.88";
    // A member without a class has a factor of 0: all but the excluded goods go free.
    QTest::newRow("no class") << 100.0 << 30.0 << 0.0f << 0 << "30.00"
                              << "0.00";
}

void TestCheckoutModel::member_discount() {
    QFETCH(double, receivable);
    QFETCH(double, excluded);
    QFETCH(float, discount);
    QFETCH(int, format);
    CheckoutModel m = shown(receivable, format);
    m.setFactPay(QStringLiteral("50"));
    QCOMPARE(m.applyMember(memberWith(discount, 30), yuan(excluded)), QString());
    QTEST(m.oughtMoney, "settlement");
    QTEST(m.memberDiscount, "label");
    QCOMPARE(m.memberName, QStringLiteral("张三"));
    QCOMPARE(m.setupName, QStringLiteral("金卡"));
    QCOMPARE(m.chongzhi, QStringLiteral("30"));
    QCOMPARE(m.factPay, QStringLiteral("0"));
    QVERIFY(m.memberFound);

    // Leaving the member field again puts the settlement back to the receivable.
    m.clearMember();
    QCOMPARE(m.oughtMoney, m.expenseMoney);
    QVERIFY(m.memberName.isEmpty() && m.memberDiscount.isEmpty() && m.chongzhi.isEmpty());
}

void TestCheckoutModel::member_lookup_refusals() {
    CheckoutModel m = shown(100);
    QCOMPARE(m.applyMember(std::nullopt, Money()),
             QStringLiteral("没找到这个会员！请检查您输入的编号是否正确！"));
    QVERIFY(!m.memberFound);
    QCOMPARE(m.oughtMoney, QStringLiteral("100"));

    // A stopped member gets no discount and shows nothing, yet stays the member found.
    QCOMPARE(m.applyMember(memberWith(0.8f, 50, 1), Money()),
             QStringLiteral("您不能使用此会员的服务，因为此会员的状态为停用！"));
    QVERIFY(m.memberFound);
    QVERIFY(m.memberName.isEmpty());
    QCOMPARE(m.oughtMoney, QStringLiteral("100"));
}

void TestCheckoutModel::stored_value_pays_what_it_can() {
    CheckoutModel m = shown(100);
    m.applyMember(memberWith(1.0f, 30), Money());
    m.fillStoredValue();
    QCOMPARE(m.chongzhiD, QStringLiteral("30"));
    QCOMPARE(m.temp, QStringLiteral("-70.00"));
    QVERIFY(m.tempRed);
    m.setFactPay(QStringLiteral("70"));
    QCOMPARE(m.temp, QStringLiteral("0.00"));
    QVERIFY(!m.tempRed);

    // A balance above the settlement pays the settlement.
    CheckoutModel rich = shown(100);
    rich.applyMember(memberWith(0.9f, 500), Money());
    rich.fillStoredValue();
    QCOMPARE(rich.chongzhiD, QStringLiteral("90.00"));
    QCOMPARE(rich.temp, QStringLiteral("0.00"));
}

void TestCheckoutModel::operator_discount_limit_data() {
    QTest::addColumn<float>("memberDiscount"); // 0: no member
    QTest::addColumn<QString>("settlement");
    QTest::addColumn<bool>("exceeds");
    QTest::newRow("equal to the limit passes") << 0.0f << "90" << false;
    QTest::newRow("a cent beyond") << 0.0f << "89.99" << true;
    QTest::newRow("raised settlement passes") << 0.0f << "150" << false;
    QTest::newRow("letters are 0") << 0.0f << "x" << true;
    QTest::newRow("on top of the class") << 0.9f << "80" << false;
    QTest::newRow("beyond the class") << 0.9f << "79" << true;
}

void TestCheckoutModel::operator_discount_limit() {
    QFETCH(float, memberDiscount);
    QFETCH(QString, settlement);
    CheckoutModel m = shown(100);
    if (memberDiscount != 0) m.applyMember(memberWith(memberDiscount, 0), Money());
    m.setOughtMoney(settlement);
    QTEST(m.exceedsDiscountLimit(10.0), "exceeds");
}

void TestCheckoutModel::checks_in_their_order_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("jzr");
    QTest::addColumn<bool>("member");
    QTest::addColumn<bool>("passwordOk");
    QTest::addColumn<QString>("fact");
    QTest::addColumn<QString>("card");
    QTest::addColumn<QString>("voucher");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("field");
    QTest::newRow("deferred needs a name first") << 2 << " " << true << false << "x"
                                                 << "x"
                                                 << "0"
                                                 << "挂帐时需输入结帐人！"
                                                 << "txtjzr";
    QTest::newRow("deferred skips the payment checks") << 2 << "老王" << true << false << "x"
                                                       << "x"
                                                       << "0"
                                                       << ""
                                                       << "";
    QTest::newRow("free skips the payment checks") << 1 << "" << true << false << "x"
                                                   << "x"
                                                   << "0"
                                                   << ""
                                                   << "";
    QTest::newRow("cash not a number") << 0 << "" << true << false << "10元"
                                       << "x"
                                       << "0"
                                       << "您输入的顾客支付金额有误，请重新输入！"
                                       << "txtFactPay";
    QTest::newRow("member must give the password") << 0 << "" << true << false << "100"
                                                   << "0"
                                                   << "0"
                                                   << "您输入的会员密码不对，请重新输入！"
                                                   << "txtpw";
    QTest::newRow("card not a number") << 0 << "" << true << true << "100"
                                       << "x"
                                       << "0"
                                       << "您输入的储值卡消费金额金额有误，请重新输入！"
                                       << "txtChongzhiD";
    QTest::newRow("card above the balance") << 0 << "" << true << true << "0"
                                            << "30.01"
                                            << "0"
                                            << "您输入的储值卡消费金额大于储值卡剩余金额，请重新输入！"
                                            << "txtChongzhiD";
    QTest::newRow("card without a member") << 0 << "" << false << false << "0"
                                           << "1"
                                           << "0"
                                           << "您输入的储值卡消费金额大于储值卡剩余金额，请重新输入！"
                                           << "txtChongzhiD";
    QTest::newRow("short payment") << 0 << "" << true << true << "60"
                                   << "30"
                                   << "9.99"
                                   << "实收金额加储卡支付金额不能小于结算金额，请检查输入是否正确！"
                                   << "txtFactPay";
    QTest::newRow("voucher completes the payment") << 0 << "" << true << true << "60"
                                                   << "30"
                                                   << "10"
                                                   << ""
                                                   << "";
    QTest::newRow("no member, cash only") << 0 << "" << false << false << "100"
                                          << "0"
                                          << "0"
                                          << ""
                                          << "";
}

void TestCheckoutModel::checks_in_their_order() {
    QFETCH(int, mode);
    QFETCH(QString, jzr);
    QFETCH(bool, member);
    QFETCH(bool, passwordOk);
    QFETCH(QString, message);
    CheckoutModel m = shown(100);
    if (member) m.applyMember(memberWith(1.0f, 30), Money());
    QFETCH(QString, fact);
    QFETCH(QString, card);
    QFETCH(QString, voucher);
    m.setFactPay(fact);
    m.setChongzhiD(card);
    m.setFreePay(voucher);
    bool asked = false;
    const Refused r = m.check(
        CloseMode(mode), jzr,
        [&] {
            asked = true;
            return passwordOk;
        },
        Opened, Opened, 0);
    QCOMPARE(r ? r->message : QString(), message);
    QTEST(r ? r->field : QString(), "field");
    if (mode != 0) {
        // Nothing is asked and nothing is paid when nothing is paid now.
        QVERIFY(!asked);
        if (!r)
            QCOMPARE(QStringList({m.factPay, m.chongzhiD, m.freePay}), QStringList(3, QStringLiteral("0")));
    }
}

void TestCheckoutModel::close_time_limit_data() {
    QTest::addColumn<int>("minutesMoved"); // negative: earlier
    QTest::addColumn<double>("limit");
    QTest::addColumn<bool>("refused");
    QTest::newRow("within the limit") << -30 << 30.0 << false;
    QTest::newRow("beyond the limit") << -31 << 30.0 << true;
    QTest::newRow("later always passes") << 600 << 0.0 << false;
    QTest::newRow("unmoved without a limit") << 0 << 0.0 << false;
}

void TestCheckoutModel::close_time_limit() {
    QFETCH(int, minutesMoved);
    QFETCH(double, limit);
    CheckoutModel m = shown(100);
    m.setFactPay(QStringLiteral("100"));
    const Refused r =
        m.check(CloseMode::Paid, {}, PasswordOk, Opened.addSecs(60 * minutesMoved), Opened, limit);
    QTEST(bool(r), "refused");
    if (r) QCOMPARE(r->field, QStringLiteral("dtpCloseTime"));
}

void TestCheckoutModel::amounts_written_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("fact");
    QTest::addColumn<QString>("card");
    QTest::addColumn<QString>("voucher");
    // factpay, CashPay, Income, chongzhipay, SumPay
    QTest::addColumn<QList<double>>("expected");
    // Settlement 100 (receivable 120), goods cost 25.
    QTest::newRow("cash with change") << 0 << "150"
                                      << "0"
                                      << "0" << QList<double>{100, 100, 75, 0, 100};
    QTest::newRow("stored value and cash") << 0 << "100"
                                           << "30"
                                           << "0" << QList<double>{100, 70, 75, 30, 100};
    QTest::newRow("voucher") << 0 << "100"
                             << "0"
                             << "20" << QList<double>{100, 80, 55, 0, 100};
    QTest::newRow("free") << 1 << "100"
                          << "30"
                          << "20" << QList<double>{0, 0, -25, 0, 0};
    QTest::newRow("deferred") << 2 << "100"
                              << "30"
                              << "20" << QList<double>{0, 0, 75, 0, 0};
}

void TestCheckoutModel::amounts_written() {
    QFETCH(int, mode);
    QFETCH(QString, fact);
    QFETCH(QString, card);
    QFETCH(QString, voucher);
    QFETCH(QList<double>, expected);
    CheckoutModel m = shown(120);
    m.applyMember(memberWith(1.0f, 30), Money());
    m.setOughtMoney(QStringLiteral("100"));
    m.setFactPay(fact);
    m.setChongzhiD(card);
    m.setFreePay(voucher);
    QVERIFY(!m.check(CloseMode(mode), QStringLiteral("老王"), PasswordOk, Opened, Opened, 0));
    const CheckoutAmounts a = m.amounts(CloseMode(mode), yuan(25));
    QCOMPARE(a.voucherState, mode);
    QCOMPARE(a.expenseMoney, yuan(120));
    QCOMPARE(a.noMoney, yuan(20));
    QCOMPARE(a.factPay, yuan(expected[0]));
    QCOMPARE(a.cashPay, yuan(expected[1]));
    QCOMPARE(a.income, yuan(expected[2]));
    QCOMPARE(a.chongzhiPay, yuan(expected[3]));
    QCOMPARE(a.sumPay, yuan(expected[4]));
    QCOMPARE(a.freePay, yuan(mode == 0 ? Val(voucher) : 0));
}

QTEST_GUILESS_MAIN(TestCheckoutModel)
#include "test_checkout_model.moc"
