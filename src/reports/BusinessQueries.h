#pragma once
#include "Db.h"
#include "FindService.h"
#include "Money.h"
#include <QDateTime>

// The profit of bills and counter sales over a period: what settlement stored in Income.
class IncomeService {
  public:
    explicit IncomeService(Db& db = DB()) : m_db(db) {}
    // Settled bills closed in the period, as the bill query reads them.
    Rows bills(const QDateTime& start, const QDateTime& end, const VoucherChoice& choice) const;
    // Counter sales closed in the period.
    Rows sales(const QDateTime& start, const QDateTime& end) const;

  private:
    Db& m_db;
};

// What sold best: by number sold, then by amount, both descending; ties in the order of the
// key so a ranking reads the same every time.
enum class RankBy { Goods, GoodsType };

class ReorderService {
  public:
    explicit ReorderService(Db& db = DB()) : m_db(db) {}
    // Lines ordered in the period (open bills too), voided lines left out.
    Rows goods(const QDateTime& start, const QDateTime& end, RankBy by) const;
    // Lines of bills closed in the period, per article and employee credited, with the
    // commission; only `employee`'s when one is named.
    Rows steward(const QDateTime& start, const QDateTime& end, const QString& employee) const;

  private:
    Db& m_db;
};

// Takings by day, week of the year or month: rows of CloseTime (the day or the number),
// ExpenseMoney, FactPay and Income.
enum class ChartLine { Day, Week, Month };

// The chart's two lines of settlements: both add nothing, the first alone keeps paid bills,
// anything else keeps state 1.
QString ChartVoucherFilter(bool paid, bool free);

class ChartService {
  public:
    explicit ChartService(Db& db = DB()) : m_db(db) {}
    Rows rows(const QDateTime& start, const QDateTime& end, ChartLine line, bool paid, bool free) const;

  private:
    Db& m_db;
};
