#include "BusinessQueries.h"
#include "Dialect.h"

Rows IncomeService::bills(const QDateTime& start, const QDateTime& end, const VoucherChoice& choice) const {
    return FindService(m_db).bills(start, end, choice);
}

Rows IncomeService::sales(const QDateTime& start, const QDateTime& end) const {
    Params p;
    const QString cond = PeriodCondition(QStringLiteral("Outsale.CloseTime"), start, end, p);
    return m_db.query(QStringLiteral("select Outsale.* from Outsale where ") + cond, p);
}

Rows ReorderService::goods(const QDateTime& start, const QDateTime& end, RankBy by) const {
    Params p;
    const QString cond = PeriodCondition(QStringLiteral("ExpenseDetail.ExpenseTime"), start, end, p);
    const QString where = QStringLiteral(" Where ") + cond + QStringLiteral("  and ExpenseDetail.isdel<>1 ");
    const QString order =
        QStringLiteral("ORDER BY Sum(ExpenseDetail.Num) DESC ,sum(ExpenseDetail.OughtMoney) Desc");
    if (by == RankBy::Goods)
        return m_db.query(QStringLiteral("SELECT ExpenseDetail.WareID, Sum(ExpenseDetail.Num) AS Num, Ware.WareName,"
                                         "sum(ExpenseDetail.OughtMoney) as OughtMoney FROM ExpenseDetail LEFT JOIN Ware "
                                         "ON ExpenseDetail.WareID = Ware.WareID") +
                              where + QStringLiteral("GROUP BY ExpenseDetail.WareID, Ware.WareName ") + order +
                              QStringLiteral(", ExpenseDetail.WareID"),
                          p);
    return m_db.query(QStringLiteral("Select WareType.WareTypeID, Sum(ExpenseDetail.Num) AS Num, WareType.WareTypeName,"
                                     "sum(ExpenseDetail.OughtMoney) as OughtMoney FROM (ExpenseDetail LEFT JOIN Ware ON "
                                     "ExpenseDetail.WareID = Ware.WareID) LEFT JOIN WareType On ware.waretypeID = "
                                     "waretype.waretypeid") +
                          where + QStringLiteral("GROUP BY wareType.WareTypeID, WareType.WareTypeName ") + order +
                          QStringLiteral(", WareType.WareTypeID"),
                      p);
}

Rows ReorderService::steward(const QDateTime& start, const QDateTime& end, const QString& employee) const {
    Params p;
    QString where = QStringLiteral(" Where ") + PeriodCondition(QStringLiteral("Expense.CloseTime"), start, end, p) +
                    QStringLiteral("  and ExpenseDetail.isdel<>1 ");
    if (!employee.isEmpty()) {
        where += QStringLiteral("And ExpenseDetail.Other1 =? ");
        p << employee;
    }
    return m_db.query(
        QStringLiteral("SELECT ExpenseDetail.WareID, Sum(ExpenseDetail.Num) AS Num, Ware.WareName,"
                       "sum(ExpenseDetail.OughtMoney) as OughtMoney,sum(ExpenseDetail.TiChengMoney) as TiChengMoney,"
                       "ExpenseDetail.Other1 FROM (ExpenseDetail LEFT JOIN Ware ON ExpenseDetail.WareID = Ware.WareID) "
                       "left join Expense on ExpenseDetail.ExpenseID= Expense.ExpenseID") +
            where +
            QStringLiteral("GROUP BY ExpenseDetail.WareID, Ware.WareName,ExpenseDetail.Other1 ORDER BY "
                           "Sum(ExpenseDetail.Num) DESC ,sum(ExpenseDetail.OughtMoney) Desc, ExpenseDetail.WareID, "
                           "ExpenseDetail.Other1"),
        p);
}

QString ChartVoucherFilter(bool paid, bool free) {
    if (paid && free) return {};
    // As the venue's chart always chose: the second line, or none, keeps state 1.
    return paid ? QStringLiteral(" And VoucherState=0 ") : QStringLiteral(" And VoucherState=1 ");
}

Rows ChartService::rows(const QDateTime& start, const QDateTime& end, ChartLine line, bool paid, bool free) const {
    QString bucket;
    switch (line) {
    case ChartLine::Day: bucket = QStringLiteral("substr(Expense.CloseTime,1,10)"); break;
    case ChartLine::Week: bucket = m_db.dialect().weekOfYear(QStringLiteral("Expense.CloseTime")); break;
    case ChartLine::Month: bucket = QStringLiteral("cast(substr(Expense.CloseTime,6,2) as integer)"); break;
    }
    Params p;
    const QString cond = PeriodCondition(QStringLiteral("Expense.CloseTime"), start, end, p) +
                         ChartVoucherFilter(paid, free);
    return m_db.query(QStringLiteral("SELECT ") + bucket +
                          QStringLiteral(" as CloseTime,sum(expenseMoney) as ExpenseMoney,sum(factpay) as FactPay,"
                                         "sum(Income) as Income From Expense where ") +
                          cond + QStringLiteral(" GROUP BY ") + bucket + QStringLiteral(" order by ") + bucket,
                      p);
}
