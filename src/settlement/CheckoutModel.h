#pragma once
#include "Money.h"
#include "Refusal.h"
#include <QDateTime>
#include <QString>
#include <functional>

// How a bill is closed; stored as the bill's VoucherState.
enum class CloseMode { Paid = 0, Free = 1, Deferred = 2 };

// The receivable as the setting PayMoneyFormat shows it: 1 cuts to the whole yuan below,
// 2 rounds to the nearest whole yuan (a half to the even one), anything else keeps the
// amount as plain decimal text ("119.75", "120").
QString PayMoneyText(Money amount, int payMoneyFormat);

// What a member pays on `total` with the class's discount factor: the goods of types that
// take no member discount (`excluded`) at full price, the rest times the factor.
Money MemberOught(Money total, Money excluded, float discount);

// A double as the program's plain number text: up to 15 significant digits, no trailing
// zeros ("11.97" for 119.75 - 107.78).
QString PlainNumberText(double value);

// The member the cashier typed, as the checkout holds it from the lookup to the commit.
struct CheckoutMember {
    QString code;
    QString name;
    qint64 state = 0;
    QString setupID, setupName;
    float discount = 0;
    Money chongzhi;
};

// What the commit writes for the amounts of a bill, from the boxes as shown.
struct CheckoutAmounts {
    int voucherState = 0;
    Money expenseMoney; // the receivable, also stored as oughtMoney
    Money noMoney;
    Money freePay;
    Money factPay;
    Money cashPay;
    Money income;
    Money chongzhiPay; // zero: the bill's stored-value fields are left as they are
    Money sumPay;      // what counts for the member's points and spending
};

// The money boxes of the checkout window and the rules by which they follow one another.
// Every box is text, and every rule reads the boxes back through Val, so what a box shows
// is what counts. The window binds its boxes to this model and nothing else.
class CheckoutModel {
  public:
    int payMoneyFormat = 0;

    // The boxes as shown.
    QString expenseMoney, oughtMoney, noMoney, discount, factPay, chongzhiD, freePay, temp;
    // True when the change box is drawn red (money still owed), else blue.
    bool tempRed = false;

    // The member labels; memberFound stays true from a lookup that found the member (even
    // a stopped one) until the next lookup, as the commit credits that member.
    QString memberDiscount, memberName, setupName, setupID, chongzhi;
    CheckoutMember member;
    bool memberFound = false;

    // Fills the amounts for goods and room of a bill.
    void showAmounts(Money goods, Money room);
    // Empties every money box (no bill chosen).
    void clearAmounts();

    // A change of the settlement box, typed or set.
    void setOughtMoney(const QString& text);
    // A change of one of the payment boxes.
    void setFactPay(const QString& text);
    void setChongzhiD(const QString& text);
    void setFreePay(const QString& text);

    // The member labels emptied, the settlement back to the receivable, payments to 0.
    void clearMember();
    // The result of a member lookup. A found member in service shows its class and
    // settles at its discount; `excluded` is the bill's goods that take no discount.
    // Returns the message for a member not found or stopped, empty when it was shown.
    QString applyMember(const std::optional<CheckoutMember>& found, Money excluded);
    // After the member's password was accepted: the stored value pays as much as it can.
    void fillStoredValue();

    // True when the reduction exceeds what the operator may give beyond the member's class.
    bool exceedsDiscountLimit(double discountLimit) const;

    // The checks before a commit, in their order. `passwordOk` is asked for a member shown
    // on the window. `closeTime` and `openedCloseTime` are the box and its opening value.
    // Free and deferred closings zero the payment boxes. The refusal names the box to focus.
    Refused check(CloseMode mode, const QString& jzr, const std::function<bool()>& passwordOk,
                  const QDateTime& closeTime, const QDateTime& openedCloseTime, double closeTimeLimit);

    // The amounts the commit writes, `cost` being the goods cost of the bill.
    CheckoutAmounts amounts(CloseMode mode, Money cost) const;

  private:
    void setPayBox(QString& box, const QString& text);
    void recomputeTemp();
};

namespace CheckoutText {
inline QString discountLimit() {
    return QStringLiteral("对不起，您优惠的金额超过了您的权限！请重新输入结算金额。");
}
inline QString memberNotFound() {
    return QStringLiteral("没找到这个会员！请检查您输入的编号是否正确！");
}
inline QString memberStopped() {
    return QStringLiteral("您不能使用此会员的服务，因为此会员的状态为停用！");
}
inline QString codeOrPasswordWrong() {
    return QStringLiteral("您输入的会员编号或密码不对，请重新输入！");
}
inline QString notSaved() {
    return QStringLiteral("结帐数据没有保存成功，请重试！");
}
inline QString billAltered() {
    return QStringLiteral("这张单据在打开结帐窗口后有了变动（加单、退单或换台），本次结帐没有保存！\n"
                          "窗口已按最新的单据重新计算，请核对后再结帐。");
}
inline QString balanceShort() {
    return QStringLiteral("您输入的储值卡消费金额大于储值卡剩余金额，请重新输入！");
}
inline QString roomGone() {
    return QStringLiteral("没有找到这包厢，请检查这个包厢是否已被删除！");
}
inline QString closeTimeLimit() {
    return QStringLiteral("对不起，您输入的结账时间超出您的权力，系统将自动修改结账时间为原时间！");
}
} // namespace CheckoutText
