#include "OrderService.h"
#include "AppState.h"
#include "AutoInput.h"
#include "Clock.h"
#include "Dialect.h"
#include "Format.h"
#include "Gateway.h"
#include "Settings.h"
#include "Val.h"
#include "fExpense.h"
#include <cmath>

namespace {
Refusal failed(const DbError& e, const char* procedure) {
    return Refusal::error(e.message(QLatin1String(procedure), QStringLiteral("frmExpenseDetail")));
}

// Throws DbError; the callers report it as their own.
Refused canDelete(Db& db, const QString& expenseID) {
    if (GetSetup(QStringLiteral("PrintExpenseEndBill"), db) != QLatin1String("1")) return std::nullopt;
    const Rows r = db.query(QStringLiteral("select Other2 from Expense where ExpenseID=?"), {expenseID});
    if (r.isEmpty() || r.first().text(QStringLiteral("Other2")) != QLatin1String("1")) return std::nullopt;
    return Refusal{
        QStringLiteral(
            "此单已打印过消费明细，系统不允许删除！\n如果需要进行删除，请在“营业设置”中进行设置！"),
        {},
        Msg::Icon::Exclamation};
}
} // namespace

Refused OrderService::CheckForm(const QString& num) {
    const QString field = QStringLiteral("txtNum");
    if (num.trimmed().isEmpty()) return Refusal{QStringLiteral("请输入消费数量！"), field};
    if (!ValFits(num, Range::Quantity))
        return Refusal{QStringLiteral("您输入") + num + QStringLiteral("数量有误，请重新输入！"), field};
    if (Val(num) == 0) return Refusal{QStringLiteral("消费数量不能输入0，请重新输入！"), field};
    return std::nullopt;
}

Refused OrderService::CheckCanDelete(const QString& expenseID) {
    try {
        return canDelete(m_db, expenseID);
    } catch (const DbError& e) {
        return failed(e, "CheckCanDelete");
    }
}

// Touching the bill row holds it until the commit, so a checkout elsewhere either sees this
// change or waits for it.
Refused OrderService::holdOpenBill(const QString& expenseID) {
    if (m_db.exec(QStringLiteral("update Expense set State=1 where ExpenseID=? and State=1"), {expenseID}) >
        0) {
        m_db.announceBill(expenseID);
        return std::nullopt;
    }
    const bool exists =
        m_db.scalar(QStringLiteral("select count(*) from Expense where ExpenseID=?"), {expenseID})
            .toLongLong() > 0;
    return Refusal::warning(exists ? OrderText::billClosed() : OrderText::billGone());
}

LineSaved OrderService::SaveLine(const OrderLineInput& in) {
    if (Refused r = CheckForm(in.num)) return {std::nullopt, r};
    // The line's amount and commission must stay money a bill can hold.
    for (const QString& each : {in.price, in.tiCheng})
        if (std::fabs(Val(each) * Val(in.num)) > Range::Money.highest)
            return {std::nullopt,
                    Refusal{QStringLiteral("您输入") + in.num + QStringLiteral("数量有误，请重新输入！"),
                            QStringLiteral("txtNum")}};
    OrderedLine l;
    l.expenseID = in.expenseID;
    l.wareID = in.wareID;
    l.num = Val(in.num);
    l.price = Money::fromText(in.price);
    l.expenseMoney = l.price.times(l.num);
    l.oughtMoney = in.isFree ? Money() : l.expenseMoney;
    l.isFree = in.isFree;
    // Commission only with someone to credit; per unit as shown, rounded after the product.
    if (!in.steward.isEmpty()) {
        l.other1 = in.steward;
        l.tiChengMoney = Money::fromDouble(Val(in.tiCheng) * l.num);
    }
    l.operatorName = App().CurrentOperatorName;

    try {
        return m_db.write([&]() -> LineSaved {
            if (Refused r = holdOpenBill(in.expenseID)) return m_db.discard(LineSaved{std::nullopt, r});
            // A return takes back what a printed bill shows, like a void.
            if (l.num < 0)
                if (Refused r = canDelete(m_db, in.expenseID))
                    return m_db.discard(LineSaved{std::nullopt, r});

            l.detailID = FreshKey(QStringLiteral("ExpenseDetail"), QStringLiteral("DetailID"), m_db);
            l.thisCode = in.thisCode.isEmpty() ? l.detailID : in.thisCode;
            l.expenseTime = TimeText(Now());
            QStringList columns = {
                QStringLiteral("DetailID"),     QStringLiteral("Price"),       QStringLiteral("ExpenseID"),
                QStringLiteral("WareID"),       QStringLiteral("num"),         QStringLiteral("TiChengMoney"),
                QStringLiteral("isFree"),       QStringLiteral("oughtMoney"),  QStringLiteral("ExpenseMoney"),
                QStringLiteral("operatorname"), QStringLiteral("ExpenseTime"), QStringLiteral("ThisCode")};
            Params values = {l.detailID,     l.price,        l.expenseID,   l.wareID,
                             l.num,          l.tiChengMoney, l.isFree,      l.oughtMoney,
                             l.expenseMoney, l.operatorName, l.expenseTime, l.thisCode};
            if (!l.other1.isEmpty()) {
                columns << QStringLiteral("Other1");
                values << l.other1;
            }
            // The catalogue price and the profit come from the article as stored now; an
            // article deleted meanwhile leaves both at their defaults. A gift's profit is
            // reckoned on the full price too.
            const Rows ware = m_db.query(
                QStringLiteral("select Price, ProcurePrice from Ware where WareID=?"), {in.wareID});
            l.thePrice = Money();
            l.income = Money();
            if (!ware.isEmpty()) {
                l.thePrice = ware.first().money(QStringLiteral("Price"));
                l.income = (l.price - ware.first().money(QStringLiteral("ProcurePrice"))).times(l.num);
                columns << QStringLiteral("thePrice") << QStringLiteral("Income");
                values << l.thePrice << l.income;
            }
            QStringList marks;
            for (qsizetype i = 0; i < columns.size(); ++i)
                marks << QStringLiteral("?");
            m_db.exec(QStringLiteral("insert into ExpenseDetail (") + columns.join(QLatin1Char(',')) +
                          QStringLiteral(") values (") + marks.join(QLatin1Char(',')) + QLatin1Char(')'),
                      values);
            // No floor: stock may go below 0. A return adds to it by the same statement.
            if (App().IsUseWareHouse == 1)
                m_db.exec(QStringLiteral("update Ware set nownum=coalesce(nownum,0)-? where WareID=?"),
                          {l.num, in.wareID});
            return LineSaved{l, std::nullopt};
        });
    } catch (const DbError& e) {
        return {std::nullopt, failed(e, "SaveData")};
    }
}

Refused OrderService::DeleteDetail(const QString& expenseID, const QString& detailID) {
    try {
        return m_db.write([&]() -> Refused {
            if (Refused r = holdOpenBill(expenseID)) return m_db.discard(r);
            if (Refused r = canDelete(m_db, expenseID)) return m_db.discard(r);
            const Rows line = m_db.query(
                QStringLiteral("select WareID, num from ExpenseDetail where DetailID=? and ExpenseID=?"),
                {detailID, expenseID});
            // Voided elsewhere already: its stock went back there.
            if (line.isEmpty() ||
                m_db.exec(
                    QStringLiteral("update ExpenseDetail set isdel=1 where DetailID=? and ExpenseID=? and "
                                   "coalesce(isdel,0)<>1"),
                    {detailID, expenseID}) == 0)
                return m_db.discard(Refused(Refusal::warning(OrderText::lineGone())));
            // The quantity as the list shows it (1.5 shown as 2 gives back 2), gifts too.
            if (App().IsUseWareHouse == 1)
                m_db.exec(QStringLiteral("update Ware set nownum=coalesce(nownum,0)+? where WareID=?"),
                          {Val(FormatNumber(line.first().num(QStringLiteral("num")), QStringLiteral("0"))),
                           line.first().text(QStringLiteral("WareID"))});
            return Refused();
        });
    } catch (const DbError& e) {
        return failed(e, "DeleteDetail");
    }
}

Refused OrderService::SaveNote(const QString& detailID, const QString& note) {
    try {
        return m_db.write([&]() -> Refused {
            if (m_db.exec(QStringLiteral("update ExpenseDetail set Description=? where DetailID=?"),
                          {note, detailID}) == 0)
                return m_db.discard(Refused(Refusal::warning(OrderText::lineGone())));
            SaveAutoInput(QStringLiteral("DetailDescription"), note, m_db);
            return Refused();
        });
    } catch (const DbError& e) {
        return Refusal{
            QStringLiteral("保存备注信息失败！\n错误信息： ") + e.description, {}, Msg::Icon::Critical};
    }
}

std::optional<QString> OrderService::theCodeOf(const QString& expenseID) {
    const Rows r = fExpense(m_db).GetLinkByID(expenseID);
    if (r.isEmpty()) return std::nullopt;
    return r.first().text(QStringLiteral("TheCode"));
}
