#include "OutSaleService.h"
#include "AppState.h"
#include "Clock.h"
#include "Format.h"
#include "Gateway.h"
#include "Log.h"
#include "NextNo.h"
#include "Printing.h"
#include <map>

OutSaleInput OutSaleService::fromModel(const OutSaleModel& m, const QString& description, bool print) {
    OutSaleInput in;
    in.lines = m.lines();
    in.description = description;
    in.expenseMoney = m.expenseAmount();
    in.noMoney = m.noMoneyAmount();
    in.factPay = m.factPayAmount();
    in.cashPay = m.cashPayAmount();
    in.income = m.incomeAmount();
    in.oughtMoneyText = m.oughtMoney();
    in.print = print;
    return in;
}

OutSaleDone OutSaleService::SaveData(const OutSaleInput& in) {
    const QString now = TimeText(Now());
    const QString op = App().CurrentOperatorName;
    const bool stock = App().IsUseWareHouse == 1;
    return m_db.write([&] {
        OutSaleDone done;
        const QString id = GetNextNo(QStringLiteral("Out"), QStringLiteral("-"), m_db);
        m_db.exec(
            QStringLiteral("insert into Outsale (ExpenseID, OpenTime, CloseTime, Description, openOperator, "
                           "CloseOperator, State, VoucherState, ExpenseMoney, oughtMoney, NoMoney, factpay, "
                           "CashPay, Income) values (?, ?, ?, ?, ?, ?, 0, 0, ?, ?, ?, ?, ?, ?)"),
            {id, now, now, in.description, op, op, in.expenseMoney, in.expenseMoney, in.noMoney, in.factPay,
             in.cashPay, in.income});
        // Goods are locked last and in one order, so two tills never wait on each other.
        std::map<QString, qint64> taken;
        for (const OutSaleLine& l : in.lines) {
            const Rows ware =
                m_db.query(QStringLiteral("select Price, ProcurePrice from Ware where WareID=?"), {l.wareID});
            Params values{FreshKey(QStringLiteral("OutsaleDetail"), QStringLiteral("DetailID"), m_db),
                          id,
                          l.wareID,
                          double(l.num),
                          l.price,
                          l.amount,
                          l.isFree ? 1 : 0};
            if (ware.isEmpty()) {
                m_db.exec(
                    QStringLiteral("insert into OutsaleDetail (DetailID, ExpenseID, WareID, num, Price, "
                                   "oughtMoney, isFree) values (?, ?, ?, ?, ?, ?, ?)"),
                    values);
            } else {
                const Row w = ware.first();
                values << w.money(QStringLiteral("Price"))
                       << (l.price - w.money(QStringLiteral("ProcurePrice"))).times(double(l.num));
                m_db.exec(QStringLiteral(
                              "insert into OutsaleDetail (DetailID, ExpenseID, WareID, num, Price, "
                              "oughtMoney, isFree, thePrice, Income) values (?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                          values);
            }
            if (stock) taken[l.wareID] += l.num;
        }
        for (const auto& [wareID, num] : taken)
            m_db.exec(QStringLiteral("update Ware set nownum=coalesce(nownum,0)-? where WareID=?"),
                      {double(num), wareID});
        // A counter entry under the sale's own number, kept as the counter table always had it.
        GetNextNo(id, QStringLiteral("-"), m_db);
        WriteLog(Now(), op, QStringLiteral("外卖"), QStringLiteral("外卖"), 1, true,
                 QStringLiteral("单据编号：") + id + QStringLiteral(" 结算金额：") + in.oughtMoneyText, m_db);
        if (in.print) done.printJob = QueueOutSale(id, m_db);
        done.saved = true;
        done.expenseID = id;
        return done;
    });
}
