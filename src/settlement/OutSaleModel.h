#pragma once
#include "CheckoutModel.h"
#include "Money.h"
#include "Refusal.h"
#include <QList>
#include <QString>

// One line of a counter sale while it lives only in the window.
struct OutSaleLine {
    QString key; // "K" + a new key
    QString wareID, wareName;
    qint64 num = 0;
    Money price;  // the decided price, as the goods list showed it
    Money amount; // price x num, 0 for a gift
    bool isFree = false;
    bool hasWare = false; // the goods row was there: the line counts in the margin
    Money procurePrice;

    // The margin of the line: on the full price, for a gift as well.
    Money margin() const;
};

// The counter till without its widgets: the lines of the sale, their running total and
// margin, and the settlement boxes. The settlement follows the checkout's rules (the same
// model underneath), except that nothing is rounded to whole money and the payment boxes
// start at "0.00".
class OutSaleModel {
  public:
    OutSaleModel();

    // The goods the cashier picked, with the quantity box and the gift tick as shown. The
    // quantity is whole: the typed value rounded, a half to the even number. Refused with
    // the quantity box to focus; nothing changes then.
    Refused addLine(const QString& wareID, const QString& wareName, const QString& priceText, bool hasWare,
                    Money procurePrice, const QString& numText, bool isFree);
    // Takes a line off; false when there is no such line.
    bool deleteLine(const QString& key);
    const QList<OutSaleLine>& lines() const { return m_lines; }

    Money thisSum() const { return m_sum; }
    Money margin() const { return m_margin; }
    // "本次消费: 0.00", empty while the sale is new.
    QString thisSumCaption() const;

    // The boxes as shown.
    const QString& expenseMoney() const { return m_boxes.expenseMoney; }
    const QString& oughtMoney() const { return m_boxes.oughtMoney; }
    const QString& noMoney() const { return m_boxes.noMoney; }
    const QString& discount() const { return m_boxes.discount; }
    const QString& factPay() const { return m_boxes.factPay; }
    const QString& chongzhiD() const { return m_boxes.chongzhiD; }
    const QString& temp() const { return m_boxes.temp; }
    bool tempRed() const { return m_boxes.tempRed; }

    // A change of the settlement box: the reduction, the rate, payments back to "0.00".
    void setOughtMoney(const QString& text);
    void setFactPay(const QString& text) { m_boxes.setFactPay(text); }
    void setChongzhiD(const QString& text) { m_boxes.setChongzhiD(text); }

    // True when the reduction is beyond what the operator may give (strictly above).
    bool exceedsDiscountLimit(double discountLimit) const;
    // The payment check before the sale is stored, with the box to focus.
    Refused CheckForm() const;

    // The sale's amounts as stored.
    Money expenseAmount() const;
    Money noMoneyAmount() const;
    Money factPayAmount() const;
    Money cashPayAmount() const;
    Money incomeAmount() const;

    // Empty again for the next sale.
    void clear();

  private:
    void showSum();

    QList<OutSaleLine> m_lines;
    Money m_sum, m_margin;
    bool m_sumShown = false;
    CheckoutModel m_boxes;
};

namespace OutSaleText {
inline QString numEmpty() {
    return QStringLiteral("请输入消费数量！");
}
inline QString numZero() {
    return QStringLiteral("消费数量不能输入0，请重新输入！");
}
inline QString badNum(const QString& typed) {
    return QStringLiteral("您输入") + typed + QStringLiteral("数量有误，请重新输入！");
}
inline QString badPay() {
    return QStringLiteral("您输入的顾客支付金额有误，请重新输入！");
}
inline QString payShort() {
    return QStringLiteral("实收金额不能小于结算金额，请检查输入是否正确！");
}
} // namespace OutSaleText
