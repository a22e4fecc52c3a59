#pragma once
#include "Db.h"
#include "Designs.h"
#include "Money.h"
#include <QDateTime>

// The settled bills and counter sales of a period, as the bill query, the income query and
// the charts read them. A period's end is exclusive; equal ends mean that very minute.

// The three lines of the settlement choice: 现结, 免费, 挂帐.
struct VoucherChoice {
    bool paid = true, free = true, deferred = true;
};
// The filter the choice adds to the bill query, with a leading " And "; none for all or none.
QString VoucherFilter(const VoucherChoice& c);

// "(<column>>=? and <column><?)", or "(<column>=?)" when both ends are the same minute; the
// ends are appended to `params`.
QString PeriodCondition(const QString& column, const QDateTime& start, const QDateTime& end, Params& params);

// The sum of a column over a whole result; nothing for no rows.
Money SumMoney(const Rows& rows, const QString& column);
qint64 SumInteger(const Rows& rows, const QString& column);

// The sums of the bill query and of the income query, each over its list.
struct FindTotals {
    qint64 customers = 0;
    Money startMoney, oughtMoney, factPay, cashPay, chongzhiPay, freePay, income;
    Money saleOught, saleFact, saleIncome;
    int bills = 0, sales = 0;
};

class FindService {
  public:
    explicit FindService(Db& db = DB()) : m_db(db) {}

    // Settled bills closed in the period, with room, room type and tariff.
    Rows bills(const QDateTime& start, const QDateTime& end, const VoucherChoice& choice) const;
    // Counter sales opened in the period.
    Rows sales(const QDateTime& start, const QDateTime& end) const;
    // A bill's lines by order time, voided ones only with `showAll`.
    Rows billLines(const QString& expenseID, bool showAll) const;
    // A counter sale's lines by goods name.
    Rows saleLines(const QString& outsaleID) const;

    static FindTotals totals(const Rows& bills, const Rows& sales);

  private:
    Db& m_db;
};

// The two printed summaries from what the window shows: the list of bills with its sums,
// and the one-page takings of the period.
QString PrintPeriodText(const QDateTime& start, const QDateTime& end, bool lineBreaks);
CloseHouseData CloseHouseFromBills(const QString& company, const QString& time, const Rows& bills,
                                   const QString& sumNum, const QString& sumMoney);
