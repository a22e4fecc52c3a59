#pragma once
#include "Db.h"
#include "Money.h"
#include "Refusal.h"
#include <QString>
#include <optional>

// One order as the order window has it: the goods chosen with the price and commission the
// goods list shows, and the boxes as typed.
struct OrderLineInput {
    QString expenseID;
    QString thisCode; // the batch's code so far; empty before its first line
    QString wareID;
    QString price;   // decided price as shown ("0.00"; empty when none was decided)
    QString tiCheng; // commission per unit as shown
    QString num;     // txtNum
    QString steward; // cmbSteward: the employee credited, empty for nobody
    bool isFree = false;
};

// A bill line as it was written.
struct OrderedLine {
    QString detailID, expenseID, wareID, thisCode;
    double num = 0;
    Money price, thePrice, expenseMoney, oughtMoney, income, tiChengMoney;
    QString other1; // the employee credited
    bool isFree = false;
    QString operatorName, expenseTime;
};

struct LineSaved {
    std::optional<OrderedLine> line;
    Refused refusal;
    bool ok() const { return line.has_value(); }
};

// The writes of the order window. Each runs in one transaction that first holds the bill
// and goes on only while it is still open, so a bill settled or merged on another
// workstation takes no more lines and no stock moves for it. Stock moves only while stock
// management is on, by relative updates beside the line they belong to.
class OrderService {
  public:
    explicit OrderService(Db& db = DB()) : m_db(db) {}

    // The quantity box: not empty and not 0. Negative is a return.
    static Refused CheckForm(const QString& num);

    // Lines of a bill whose goods list was printed stay once the venue says so: with
    // PrintExpenseEndBill "1" and the bill's Other2 "1", refused. Voids and returns ask it.
    Refused CheckCanDelete(const QString& expenseID);

    // Writes one line (and takes its quantity off the stock). The first line of a batch
    // gets its own key as the batch code, which the result carries for the next lines.
    LineSaved SaveLine(const OrderLineInput& in);

    // Voids a live line of the bill and puts the quantity the list shows (whole units) back on the stock.
    Refused DeleteDetail(const QString& expenseID, const QString& detailID);

    // Replaces the note of a line and remembers it as a suggestion.
    Refused SaveNote(const QString& detailID, const QString& note);

    // The room code of a bill, none when the bill is not there.
    std::optional<QString> theCodeOf(const QString& expenseID);

  private:
    Refused holdOpenBill(const QString& expenseID);
    Db& m_db;
};

namespace OrderText {
inline QString billGone() {
    return QStringLiteral(
        "此消费单号没找到，请检查此单据是否被其它用户删除！建议关闭本窗口，刷新主窗口中的数据后再"
        "试！");
}
inline QString billClosed() {
    return QStringLiteral(
        "这张消费单已被其它收银台结帐，不能再增加或删除消费项目！请关闭本窗口，刷新主窗口中的数据"
        "后再试！");
}
inline QString lineGone() {
    return QStringLiteral("未找到此消费项目，可能已被其他人删除！");
}
inline QString giftQuestion() {
    return QStringLiteral("请确认是否赠送商品？");
}
inline QString deleteQuestion() {
    return QStringLiteral("您真要删除这个数据吗？");
}
inline QString chooseLine() {
    return QStringLiteral("请先选择消费项目！");
}
} // namespace OrderText
