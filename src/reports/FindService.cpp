#include "FindService.h"
#include "Format.h"
#include "ListColumns.h"
#include "fExpense.h"

QString VoucherFilter(const VoucherChoice& c) {
    // Keyed by 现结, 挂帐, 免费.
    const int k = (c.paid ? 4 : 0) | (c.deferred ? 2 : 0) | (c.free ? 1 : 0);
    switch (k) {
    case 0b100: return QStringLiteral(" And VoucherState=0 ");
    case 0b101: return QStringLiteral(" And VoucherState<>2 ");
    case 0b110: return QStringLiteral(" And VoucherState<>1 ");
    case 0b001: return QStringLiteral(" And VoucherState=1 ");
    case 0b011: return QStringLiteral(" And VoucherState<>0 ");
    case 0b010: return QStringLiteral(" And VoucherState=2 ");
    default: return {};
    }
}

QString PeriodCondition(const QString& column, const QDateTime& start, const QDateTime& end, Params& params) {
    const QString from = TimeText(start), to = TimeText(end);
    if (from == to) {
        params << from;
        return QStringLiteral("(") + column + QStringLiteral("=?)");
    }
    params << from << to;
    return QStringLiteral("(") + column + QStringLiteral(">=? and ") + column + QStringLiteral("<?)");
}

Rows FindService::bills(const QDateTime& start, const QDateTime& end, const VoucherChoice& choice) const {
    Params p;
    const QString cond = PeriodCondition(QStringLiteral("Expense.CloseTime"), start, end, p) + VoucherFilter(choice);
    return fExpense(m_db).GetLinkAll(cond, p);
}

Rows FindService::sales(const QDateTime& start, const QDateTime& end) const {
    Params p;
    const QString cond = PeriodCondition(QStringLiteral("OutSale.OpenTime"), start, end, p);
    return m_db.query(QStringLiteral("select * from Outsale where ") + cond, p);
}

Rows FindService::billLines(const QString& expenseID, bool showAll) const {
    return m_db.query(QStringLiteral("select ExpenseDetail.*,ware.WareCode,Ware.WareName from ExpenseDetail Left join "
                                     "Ware on ExpenseDetail.WareID=Ware.WareID where ExpenseID=?") +
                          (showAll ? QString() : QStringLiteral(" and expenseDetail.isdel<>1")) +
                          QStringLiteral(" Order by ExpenseDetail.ExpenseTime"),
                      {expenseID});
}

Rows FindService::saleLines(const QString& outsaleID) const {
    return m_db.query(QStringLiteral("select OutsaleDetail.*,ware.WareCode,Ware.WareName from OutsaleDetail Left "
                                     "join Ware on OutsaleDetail.WareID=Ware.WareID where ExpenseID=? Order by "
                                     "Ware.WareName"),
                      {outsaleID});
}

Money SumMoney(const Rows& rows, const QString& column) {
    if (rows.isEmpty()) return {};
    const int c = rows.column(column);
    Money sum;
    for (int r = 0; r < rows.count(); ++r)
        sum += rows.money(r, c);
    return sum;
}

qint64 SumInteger(const Rows& rows, const QString& column) {
    if (rows.isEmpty()) return 0;
    const int c = rows.column(column);
    qint64 sum = 0;
    for (int r = 0; r < rows.count(); ++r)
        sum += rows.integer(r, c);
    return sum;
}

FindTotals FindService::totals(const Rows& bills, const Rows& sales) {
    FindTotals t;
    t.bills = bills.count();
    t.sales = sales.count();
    t.customers = SumInteger(bills, QStringLiteral("CustomerNum"));
    t.startMoney = SumMoney(bills, QStringLiteral("StartMoney"));
    t.oughtMoney = SumMoney(bills, QStringLiteral("oughtMoney"));
    t.factPay = SumMoney(bills, QStringLiteral("factpay"));
    t.cashPay = SumMoney(bills, QStringLiteral("CashPay"));
    t.chongzhiPay = SumMoney(bills, QStringLiteral("chongzhipay"));
    t.freePay = SumMoney(bills, QStringLiteral("freepay"));
    t.income = SumMoney(bills, QStringLiteral("Income"));
    t.saleOught = SumMoney(sales, QStringLiteral("oughtMoney"));
    t.saleFact = SumMoney(sales, QStringLiteral("factpay"));
    t.saleIncome = SumMoney(sales, QStringLiteral("Income"));
    return t;
}

QString PrintPeriodText(const QDateTime& start, const QDateTime& end, bool lineBreaks) {
    const QString f = QStringLiteral("yy-MM-dd HH:mm");
    if (lineBreaks)
        return QStringLiteral("起止时间：\n") + start.toString(f) + QLatin1Char('\n') + end.toString(f);
    return QStringLiteral("起止时间：") + start.toString(f) + QStringLiteral(" 至 ") + end.toString(f);
}

CloseHouseData CloseHouseFromBills(const QString& company, const QString& time, const Rows& bills,
                                   const QString& sumNum, const QString& sumMoney) {
    CloseHouseData d{company, time, {}, sumNum, sumMoney};
    const QString shown = QStringLiteral("MM-dd HH:mm");
    for (const Row r : bills) {
        const QString close = r.text(QStringLiteral("CloseTime"));
        d.rows << QStringList{r.text(QStringLiteral("ExpenseID")),
                              r.text(QStringLiteral("TheCode")),
                              FormatDate(ParseTime(r.text(QStringLiteral("OpenTime"))), shown),
                              r.text(QStringLiteral("OpenOperator")),
                              close.isEmpty() ? QString() : FormatDate(ParseTime(close), shown),
                              r.text(QStringLiteral("CloseOperator")),
                              QString::number(r.integer(QStringLiteral("CustomerNum"))),
                              FormatShowValue(QStringLiteral("3,#,##0.00"), r.money(QStringLiteral("FactPay")).raw())};
    }
    return d;
}
