#include "CheckoutModel.h"
#include "TestKit.h"

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
    return CheckoutMember{u"M1"_s, u"张三"_s, state, u"s1"_s, u"金卡"_s, discount, yuan(balance)};
}

const QDateTime Opened(QDate(2026, 11, 21), QTime(20, 0));
const auto PasswordOk = [] { return true; };
} // namespace

class TestCheckoutModel : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void receivable_by_setting_data() { // clang-format off
        columns<double, double, int, QString>("goods", "room", "format", "receivable");
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
        QTest::newRow("no 16-bit limit") << 40000.5 << 0.0 << 2 << "40000"; // clang-format on
    }
    void receivable_by_setting() {
        auto [goods, room, format, receivable] =
            fetch<double, double, int, QString>("goods", "room", "format", "receivable");
        CheckoutModel m;
        m.payMoneyFormat = format;
        m.showAmounts(yuan(goods), yuan(room));
        QCOMPARE(QStringList({m.expenseMoney, m.oughtMoney}), QStringList({receivable, receivable}));
        QCOMPARE(QStringList({m.noMoney, m.factPay, m.chongzhiD, m.freePay}), QStringList(4, u"0"_s));
    }
    void settlement_recomputes_the_boxes_data() { // clang-format off
        columns<double, QString, QString, QString, QString>("receivable", "settlement", "noMoney", "discount", "temp");
        QTest::newRow("nothing owed, no division") << 0.0 << "0" << "0" << "10" << "0.00";
        QTest::newRow("unformatted reduction") << 119.75 << "107.78" << "11.97" << "9.00" << "-107.78";
        QTest::newRow("raised above the receivable") << 100.0 << "120" << "-20" << "12.00" << "-120.00";
        QTest::newRow("letters settle at 0") << 100.0 << "abc" << "100" << "0.00" << "0.00"; // clang-format on
    }
    void settlement_recomputes_the_boxes() {
        auto [receivable, settlement] = fetch<double, QString>("receivable", "settlement");
        CheckoutModel m = shown(receivable);
        m.setFactPay(u"500"_s);
        m.setOughtMoney(settlement);
        QTEST(m.noMoney, "noMoney");
        QTEST(m.discount, "discount");
        // Typing the settlement discards the payment entered before.
        QCOMPARE(m.factPay, u"0"_s);
        QTEST(m.temp, "temp");
        QCOMPARE(m.tempRed, m.temp.startsWith(u'-'));
    }
    void member_discount_data() { // clang-format off
        columns<double, double, float, int, QString, QString>("receivable", "excluded", "discount", "format", "settlement", "label");
        QTest::newRow("discount 1 settles the receivable") << 100.0 << 0.0 << 1.0f << 0 << "100.00" << "1.00";
        QTest::newRow("cents kept") << 119.75 << 0.0 << 0.9f << 0 << "107.78" << "0.90";
        QTest::newRow("cut to whole") << 119.75 << 0.0 << 0.9f << 1 << "107" << "0.90";
        QTest::newRow("class shown in cents") << 100.0 << 0.0 << 0.875f << 0 << "87.50" << "0.88";
        // A member without a class has a factor of 0: all but the excluded goods go free.
        QTest::newRow("no class") << 100.0 << 30.0 << 0.0f << 0 << "30.00" << "0.00"; // clang-format on
    }
    void member_discount() {
        auto [receivable, excluded, discount, format] =
            fetch<double, double, float, int>("receivable", "excluded", "discount", "format");
        CheckoutModel m = shown(receivable, format);
        m.setFactPay(u"50"_s);
        QCOMPARE(m.applyMember(memberWith(discount, 30), yuan(excluded)), QString());
        QTEST(m.oughtMoney, "settlement");
        QTEST(m.memberDiscount, "label");
        QCOMPARE(QStringList({m.memberName, m.setupName, m.chongzhi, m.factPay}),
                 QStringList({u"张三"_s, u"金卡"_s, u"30"_s, u"0"_s}));
        QVERIFY(m.memberFound);

        // Leaving the member field again puts the settlement back to the receivable.
        m.clearMember();
        QCOMPARE(m.oughtMoney, m.expenseMoney);
        QVERIFY(m.memberName.isEmpty() && m.memberDiscount.isEmpty() && m.chongzhi.isEmpty());
    }
    void member_lookup_refusals() {
        CheckoutModel m = shown(100);
        QCOMPARE(m.applyMember(std::nullopt, Money()), u"没找到这个会员！请检查您输入的编号是否正确！"_s);
        QVERIFY(!m.memberFound);
        QCOMPARE(m.oughtMoney, u"100"_s);

        // A stopped member gets no discount and shows nothing, yet stays the member found.
        QCOMPARE(m.applyMember(memberWith(0.8f, 50, 1), Money()),
                 u"您不能使用此会员的服务，因为此会员的状态为停用！"_s);
        QVERIFY(m.memberFound && m.memberName.isEmpty());
        QCOMPARE(m.oughtMoney, u"100"_s);
    }
    // A balance below the settlement is shown through the window; one above pays the settlement.
    void stored_value_pays_what_it_can() {
        CheckoutModel rich = shown(100);
        rich.applyMember(memberWith(0.9f, 500), Money());
        rich.fillStoredValue();
        QCOMPARE(rich.chongzhiD + u' ' + rich.temp, u"90.00 0.00"_s);
    }
    void operator_discount_limit_data() { // clang-format off
        QTest::addColumn<float>("memberDiscount"); // 0: no member
        columns<QString, bool>("settlement", "exceeds");
        QTest::newRow("a cent beyond") << 0.0f << "89.99" << true;
        QTest::newRow("raised settlement passes") << 0.0f << "150" << false;
        QTest::newRow("letters are 0") << 0.0f << "x" << true;
        QTest::newRow("on top of the class") << 0.9f << "80" << false;
        QTest::newRow("beyond the class") << 0.9f << "79" << true; // clang-format on
    }
    void operator_discount_limit() {
        auto [memberDiscount, settlement] = fetch<float, QString>("memberDiscount", "settlement");
        CheckoutModel m = shown(100);
        if (memberDiscount != 0) m.applyMember(memberWith(memberDiscount, 0), Money());
        m.setOughtMoney(settlement);
        QTEST(m.exceedsDiscountLimit(10.0), "exceeds");
    }
    void checks_in_their_order_data() { // clang-format off
        columns<int, QString, bool, bool, QString, QString, QString, QString, QString>("mode", "jzr", "member", "passwordOk", "fact", "card", "voucher", "message", "field");
        QTest::newRow("deferred needs a name first") << 2 << " " << true << false << "x" << "x" << "0" << "挂帐时需输入结帐人！" << "txtjzr";
        QTest::newRow("deferred skips the payment checks") << 2 << "老王" << true << false << "x" << "x" << "0" << "" << "";
        QTest::newRow("cash not a number") << 0 << "" << true << false << "10元" << "x" << "0" << "您输入的顾客支付金额有误，请重新输入！" << "txtFactPay";
        QTest::newRow("member must give the password") << 0 << "" << true << false << "100" << "0" << "0" << "您输入的会员密码不对，请重新输入！" << "txtpw";
        QTest::newRow("card not a number") << 0 << "" << true << true << "100" << "x" << "0" << "您输入的储值卡消费金额金额有误，请重新输入！" << "txtChongzhiD";
        QTest::newRow("card above the balance") << 0 << "" << true << true << "0" << "30.01" << "0" << "您输入的储值卡消费金额大于储值卡剩余金额，请重新输入！" << "txtChongzhiD";
        QTest::newRow("short payment") << 0 << "" << true << true << "60" << "30" << "9.99" << "实收金额加储卡支付金额不能小于结算金额，请检查输入是否正确！" << "txtFactPay";
        QTest::newRow("voucher completes the payment") << 0 << "" << true << true << "60" << "30" << "10" << "" << "";
        QTest::newRow("no member, cash only") << 0 << "" << false << false << "100" << "0" << "0" << "" << ""; // clang-format on
    }
    void checks_in_their_order() {
        auto [mode, jzr, member, passwordOk, message] =
            fetch<int, QString, bool, bool, QString>("mode", "jzr", "member", "passwordOk", "message");
        CheckoutModel m = shown(100);
        if (member) m.applyMember(memberWith(1.0f, 30), Money());
        auto [fact, card, voucher] = fetch<QString, QString, QString>("fact", "card", "voucher");
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
            if (!r) QCOMPARE(QStringList({m.factPay, m.chongzhiD, m.freePay}), QStringList(3, u"0"_s));
        }
    }
    void close_time_limit_data() { // clang-format off
        QTest::addColumn<int>("minutesMoved"); // negative: earlier
        columns<double, bool>("limit", "refused");
        QTest::newRow("within the limit") << -30 << 30.0 << false;
        QTest::newRow("beyond the limit") << -31 << 30.0 << true;
        QTest::newRow("later always passes") << 600 << 0.0 << false; // clang-format on
    }
    void close_time_limit() {
        auto [minutesMoved, limit] = fetch<int, double>("minutesMoved", "limit");
        CheckoutModel m = shown(100);
        m.setFactPay(u"100"_s);
        const Refused r =
            m.check(CloseMode::Paid, {}, PasswordOk, Opened.addSecs(60 * minutesMoved), Opened, limit);
        QTEST(bool(r), "refused");
        if (r) QCOMPARE(r->field, u"dtpCloseTime"_s);
    }
    void amounts_written_data() { // clang-format off
        columns<int, QString, QString, QString>("mode", "fact", "card", "voucher");
        // factpay, CashPay, Income, chongzhipay, SumPay
        QTest::addColumn<QList<double>>("expected");
        // Settlement 100 (receivable 120), goods cost 25.
        QTest::newRow("cash with change") << 0 << "150" << "0" << "0" << QList<double>{100, 100, 75, 0, 100};
        QTest::newRow("voucher") << 0 << "100" << "0" << "20" << QList<double>{100, 80, 55, 0, 100};
        QTest::newRow("free") << 1 << "100" << "30" << "20" << QList<double>{0, 0, -25, 0, 0};
        QTest::newRow("deferred") << 2 << "100" << "30" << "20" << QList<double>{0, 0, 75, 0, 0}; // clang-format on
    }
    void amounts_written() {
        auto [mode, fact, card, voucher, expected] = fetch<int, QString, QString, QString, QList<double>>(
            "mode", "fact", "card", "voucher", "expected");
        CheckoutModel m = shown(120);
        m.applyMember(memberWith(1.0f, 30), Money());
        m.setOughtMoney(u"100"_s);
        m.setFactPay(fact);
        m.setChongzhiD(card);
        m.setFreePay(voucher);
        QVERIFY(!m.check(CloseMode(mode), u"老王"_s, PasswordOk, Opened, Opened, 0));
        const CheckoutAmounts a = m.amounts(CloseMode(mode), yuan(25));
        QCOMPARE(a.voucherState, mode);
        QCOMPARE((QList<double>{a.expenseMoney.toDouble(), a.noMoney.toDouble(), a.factPay.toDouble(),
                                a.cashPay.toDouble(), a.income.toDouble(), a.chongzhiPay.toDouble(),
                                a.sumPay.toDouble(), a.freePay.toDouble()}),
                 QList<double>({120, 20}) + expected + QList<double>{mode == 0 ? Val(voucher) : 0});
    }
};

QTEST_GUILESS_MAIN(TestCheckoutModel)
#include "test_checkout_model.moc"
