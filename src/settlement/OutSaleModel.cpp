#include "OutSaleModel.h"
#include "Format.h"
#include "NewID.h"
#include "Val.h"
#include <cmath>

namespace {
const QString ZeroMoney = QStringLiteral("0.00");
// The program's own ranges of money and quantities: every product and sum stays far inside
// 64 bits.
constexpr double MaxYuan = Range::Money.highest;

bool inRange(const QString& text) { return ValFits(text, Range::Money); }
Money amountOf(const QString& text) {
    return inRange(text) ? Money::fromDouble(Val(text)) : Money();
}
} // namespace

Money OutSaleLine::margin() const {
    return hasWare ? (price - procurePrice).times(double(num)) : Money();
}

OutSaleModel::OutSaleModel() {
    clear();
}

Refused OutSaleModel::addLine(const QString& wareID, const QString& wareName, const QString& priceText,
                              bool hasWare, Money procurePrice, const QString& numText, bool isFree) {
    const QString num = QStringLiteral("txtNum");
    if (numText.trimmed().isEmpty()) return Refusal(OutSaleText::numEmpty(), num);
    const double typed = Val(numText);
    if (typed == 0) return Refusal(OutSaleText::numZero(), num);
    const Money price = Money::fromText(priceText);
    // A quantity or an amount no till could hold is refused before it reaches the sums.
    if (!ValFits(numText, Range::Quantity) ||
        std::fabs(price.toDouble() * double(RoundEven(typed))) > MaxYuan ||
        std::fabs(m_sum.toDouble() + price.toDouble() * double(RoundEven(typed))) > MaxYuan)
        return Refusal(OutSaleText::badNum(numText), num);

    OutSaleLine l;
    l.key = QStringLiteral("K") + NewID();
    l.wareID = wareID;
    l.wareName = wareName;
    l.num = RoundEven(typed); // 0.4 passes the check and becomes 0
    l.price = price;
    l.isFree = isFree;
    l.amount = isFree ? Money() : price.times(double(l.num));
    l.hasWare = hasWare;
    l.procurePrice = procurePrice;
    m_lines << l;
    m_sum += l.amount;
    m_margin += l.margin();
    showSum();
    return std::nullopt;
}

bool OutSaleModel::deleteLine(const QString& key) {
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        if (m_lines[i].key != key) continue;
        m_sum -= m_lines[i].amount;
        m_margin -= m_lines[i].margin();
        m_lines.removeAt(i);
        showSum();
        return true;
    }
    return false;
}

QString OutSaleModel::thisSumCaption() const {
    return m_sumShown ? QStringLiteral("本次消费: ") + m_sum.toString2() : QString();
}

// The receivable follows the lines, and a new receivable discards a typed settlement.
void OutSaleModel::showSum() {
    m_sumShown = true;
    m_boxes.expenseMoney = m_sum.toString2();
    setOughtMoney(m_boxes.expenseMoney);
}

void OutSaleModel::setOughtMoney(const QString& text) {
    m_boxes.setOughtMoney(text);
    m_boxes.setFactPay(ZeroMoney);
    m_boxes.setChongzhiD(ZeroMoney);
}

bool OutSaleModel::exceedsDiscountLimit(double discountLimit) const {
    return Val(m_boxes.expenseMoney) - Val(m_boxes.oughtMoney) > discountLimit;
}

Refused OutSaleModel::CheckForm() const {
    const QString factPay = QStringLiteral("txtFactPay");
    if (!IsNumeric(m_boxes.factPay) || !inRange(m_boxes.factPay))
        return Refusal(OutSaleText::badPay(), factPay);
    if (!inRange(m_boxes.chongzhiD)) return Refusal(OutSaleText::badPay(), QStringLiteral("txtChongzhiD"));
    if (!inRange(m_boxes.oughtMoney))
        return Refusal(CheckoutText::discountLimit(), QStringLiteral("txtOughtMoney"));
    if (Val(m_boxes.factPay) + Val(m_boxes.chongzhiD) < Val(m_boxes.oughtMoney))
        return Refusal(OutSaleText::payShort(), factPay);
    return std::nullopt;
}

Money OutSaleModel::expenseAmount() const {
    return amountOf(m_boxes.expenseMoney);
}
Money OutSaleModel::noMoneyAmount() const {
    return amountOf(m_boxes.noMoney);
}
Money OutSaleModel::factPayAmount() const {
    return amountOf(m_boxes.oughtMoney);
}
Money OutSaleModel::cashPayAmount() const {
    return Money::fromDouble(Val(m_boxes.factPay) - Val(m_boxes.temp));
}
Money OutSaleModel::incomeAmount() const {
    return factPayAmount() - m_margin;
}

void OutSaleModel::clear() {
    m_lines.clear();
    m_sum = m_margin = Money();
    m_sumShown = false;
    m_boxes.clearAmounts();
    m_boxes.expenseMoney = ZeroMoney;
    setOughtMoney(ZeroMoney);
    m_boxes.discount = QStringLiteral("10.00");
}
