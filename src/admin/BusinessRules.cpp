#include "BusinessRules.h"
#include "AppState.h"
#include "Clock.h"
#include "Log.h"
#include "Settings.h"
#include "Val.h"

namespace BusinessRules {
Refused applyDiscount(const Discount& d) {
    if (!ReadNumber(d.rate, Range::Quantity))
        return Refusal{QStringLiteral("折扣比率只能输入数字，请输入正确的折扣比率！"), QStringLiteral("txtAllDiscount")};
    SetSetup(QStringLiteral("PayMoneyFormat"), QString::number(d.payMoneyFormat == 1 || d.payMoneyFormat == 2 ? d.payMoneyFormat : 0));
    const float rate = float(Val(d.rate));
    const QString text = d.on ? QStringLiteral("启用全场折扣为：") + QString::number(rate, 'g', 7) : QStringLiteral("取消全场折扣");
    if (!SetSetup(QStringLiteral("IsAllDiscount"), d.on ? QStringLiteral("1") : QStringLiteral("0")))
        return Refusal{QStringLiteral("全场折扣设置未能保存，请稍候再试！"), QString(), Msg::Icon::Critical};
    App().IsAllDiscount = d.on ? 1 : 0;
    if (!SetSetup(QStringLiteral("AllDiscount"), QString::number(rate, 'g', 7)))
        return Refusal{QStringLiteral("全场折扣设置未能保存，请稍候再试！"), QString(), Msg::Icon::Critical};
    App().AllDiscount = rate;
    WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("营业设置"), QStringLiteral("商品及服务设置"), 2, true, text);
    return std::nullopt;
}

void applyAllowHigh2Low(bool allow) {
    SetSetup(QStringLiteral("AllowHigh2Low"), allow ? QStringLiteral("1") : QStringLiteral("0"));
    WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("营业设置"), QStringLiteral("计费标准设置"), 2, true,
             allow ? QStringLiteral("设置允许顾客由高费率包厢换到低费率包厢。")
                   : QStringLiteral("设置不允许顾客由高费率包厢换到低费率包厢。"));
}

Refused saveCheckout(int closeFirst, const QString& lockMinutes) {
    if (!ValFits(lockMinutes, Range::Int32))
        return Refusal{QStringLiteral("锁定时间只能输入数字！"), QStringLiteral("txtLockTime")};
    SetSetup(QStringLiteral("HClose"), QString::number(closeFirst));
    const qint64 lock = qint64(Val(lockMinutes)); // the whole part of what was typed
    SetSetup(QStringLiteral("LockTime"), QString::number(lock));
    App().LockTime = int(lock);
    return std::nullopt;
}
} // namespace BusinessRules
