#include "CheckoutModel.h"
#include "Format.h"
#include "Val.h"

namespace {
const QString Zero = QStringLiteral("0");

QString wholeText(qint64 v) {
    return QString::number(v);
}
} // namespace

QString PayMoneyText(Money amount, int payMoneyFormat) {
    switch (payMoneyFormat) {
    case 1: {
        // The largest whole yuan not above the amount.
        const qint64 raw = amount.raw();
        qint64 whole = raw / Money::Scale;
        if (raw % Money::Scale != 0 && raw < 0) --whole;
        return wholeText(whole);
    }
    case 2:
        return wholeText(RoundEven(amount.toDouble()));
    default:
        return amount.toPlain();
    }
}

Money MemberOught(Money total, Money excluded, float discount) {
    return Money::fromDouble((total - excluded).toDouble() * double(discount)) + excluded;
}

QString PlainNumberText(double value) {
    if (value == 0) return Zero; // no "-0"
    return QString::number(value, 'g', 15);
}

void CheckoutModel::showAmounts(Money goods, Money room) {
    // The sum is cut to cents first, then shaped by the setting.
    const Money amount = Money::fromText(FormatNumber((goods + room).toDouble(), QStringLiteral("0.00")));
    expenseMoney = PayMoneyText(amount, payMoneyFormat);
    setOughtMoney(expenseMoney);
    setPayBox(factPay, Zero);
    setPayBox(chongzhiD, Zero);
    setPayBox(freePay, Zero);
}

void CheckoutModel::clearAmounts() {
    expenseMoney.clear();
    oughtMoney.clear();
    noMoney.clear();
    discount.clear();
    factPay.clear();
    chongzhiD.clear();
    freePay.clear();
    temp.clear();
    tempRed = false;
}

void CheckoutModel::setOughtMoney(const QString& text) {
    oughtMoney = text;
    const double receivable = Val(expenseMoney);
    noMoney = PlainNumberText(receivable - Val(oughtMoney));
    if (receivable == 0)
        discount = QStringLiteral("10");
    else
        discount = FormatNumber((1 - Val(noMoney) / receivable) * 10, QStringLiteral("0.00"));
    // A new settlement discards what was entered as payment.
    setPayBox(factPay, Zero);
    setPayBox(chongzhiD, Zero);
    setPayBox(freePay, Zero);
    recomputeTemp();
}

void CheckoutModel::setFactPay(const QString& text) {
    setPayBox(factPay, text);
}
void CheckoutModel::setChongzhiD(const QString& text) {
    setPayBox(chongzhiD, text);
}
void CheckoutModel::setFreePay(const QString& text) {
    setPayBox(freePay, text);
}

void CheckoutModel::setPayBox(QString& box, const QString& text) {
    box = text;
    recomputeTemp();
}

void CheckoutModel::recomputeTemp() {
    temp =
        FormatNumber(Val(chongzhiD) + Val(factPay) + Val(freePay) - Val(oughtMoney), QStringLiteral("0.00"));
    tempRed = Val(temp) < 0;
}

void CheckoutModel::clearMember() {
    memberDiscount.clear();
    memberName.clear();
    setupName.clear();
    setupID.clear();
    chongzhi.clear();
    setOughtMoney(expenseMoney);
}

QString CheckoutModel::applyMember(const std::optional<CheckoutMember>& found, Money excluded) {
    memberFound = found.has_value();
    member = found.value_or(CheckoutMember{});
    if (!found) return CheckoutText::memberNotFound();
    if (found->state == 1) return CheckoutText::memberStopped();
    memberDiscount = FormatNumber(double(found->discount), QStringLiteral("0.00"));
    memberName = found->name;
    setupName = found->setupName;
    setupID = found->setupID;
    chongzhi = found->chongzhi.toPlain();
    const Money result = MemberOught(Money::fromText(expenseMoney), excluded, found->discount);
    // Mode 0 keeps the result in cents; the other modes shape the result itself.
    QString text = FormatNumber(result.toDouble(), QStringLiteral("0.00"));
    if (payMoneyFormat == 1 || payMoneyFormat == 2) text = PayMoneyText(result, payMoneyFormat);
    setOughtMoney(text);
    return {};
}

void CheckoutModel::fillStoredValue() {
    setChongzhiD(Val(oughtMoney) >= Val(chongzhi) ? chongzhi : oughtMoney);
}

bool CheckoutModel::exceedsDiscountLimit(double discountLimit) const {
    const double shown = Val(memberDiscount);
    const float factor = shown != 0 ? float(shown) : 1.0f;
    const float given = float(Val(expenseMoney) * double(factor) - Val(oughtMoney));
    return double(given) > discountLimit;
}

Refused CheckoutModel::check(CloseMode mode, const QString& jzr, const std::function<bool()>& passwordOk,
                             const QDateTime& closeTime, const QDateTime& openedCloseTime,
                             double closeTimeLimit) {
    if (mode == CloseMode::Deferred && jzr.trimmed().isEmpty())
        return Refusal(QStringLiteral("挂帐时需输入结帐人！"), QStringLiteral("txtjzr"), Msg::Icon::Critical);
    // The settlement reads as Val, but never as a number a bill cannot hold.
    if (!ValFits(oughtMoney, Range::Money))
        return Refusal(QStringLiteral("您输入的结算金额有误，请重新输入！"), QStringLiteral("txtOughtMoney"));
    if (mode != CloseMode::Paid) {
        // Nothing is paid now: no cash, no stored value, no voucher.
        setPayBox(factPay, Zero);
        setPayBox(chongzhiD, Zero);
        setPayBox(freePay, Zero);
    } else {
        if (!ReadNumber(factPay, Range::Money))
            return Refusal(QStringLiteral("您输入的顾客支付金额有误，请重新输入！"),
                           QStringLiteral("txtFactPay"));
        // A member recognised on the window is always confirmed by password.
        if (!memberName.isEmpty() && !passwordOk())
            return Refusal(QStringLiteral("您输入的会员密码不对，请重新输入！"), QStringLiteral("txtpw"),
                           Msg::Icon::Critical);
        if (!ReadNumber(chongzhiD, Range::Money))
            return Refusal(QStringLiteral("您输入的储值卡消费金额金额有误，请重新输入！"),
                           QStringLiteral("txtChongzhiD"));
        if (!ValFits(freePay, Range::Money))
            return Refusal(QStringLiteral("您输入的赠券金额有误，请重新输入！"),
                           QStringLiteral("txtFreePay"));
        if (Val(chongzhi) < Val(chongzhiD))
            return Refusal(QStringLiteral("您输入的储值卡消费金额大于储值卡剩余金额，请重新输入！"),
                           QStringLiteral("txtChongzhiD"));
        if (Val(factPay) + Val(chongzhiD) + Val(freePay) < Val(oughtMoney))
            return Refusal(QStringLiteral("实收金额加储卡支付金额不能小于结算金额，请检查输入是否正确！"),
                           QStringLiteral("txtFactPay"));
    }
    // Only an earlier closing time lowers the room charge, and only that is limited.
    if (double(MinutesBetween(closeTime, openedCloseTime)) > closeTimeLimit)
        return Refusal(CheckoutText::closeTimeLimit(), QStringLiteral("dtpCloseTime"));
    return std::nullopt;
}

CheckoutAmounts CheckoutModel::amounts(CloseMode mode, Money cost) const {
    CheckoutAmounts a;
    const double settled = Val(oughtMoney);
    a.voucherState = int(mode);
    a.expenseMoney = Money::fromText(expenseMoney);
    a.noMoney = Money::fromText(noMoney);
    a.freePay = Money::fromText(freePay);
    switch (mode) {
    case CloseMode::Paid:
        a.factPay = Money::fromDouble(settled);
        a.cashPay = Money::fromDouble(Val(factPay) - Val(temp));
        a.income = Money::fromDouble(settled - cost.toDouble() - Val(freePay));
        a.sumPay = Money::fromDouble(settled);
        break;
    case CloseMode::Free:
        a.income = Money::fromDouble(0 - cost.toDouble());
        break;
    case CloseMode::Deferred:
        a.income = Money::fromDouble(settled - cost.toDouble());
        break;
    }
    a.chongzhiPay = Money::fromText(chongzhiD);
    return a;
}
