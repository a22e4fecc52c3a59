#pragma once
#include "Db.h"
#include "Money.h"
#include "Refusal.h"
#include <QDateTime>

// What a cashier hands over: the money of the settled bills and retail sales he has not yet
// reconciled.
struct ReconcileTotals {
    Money factPay, cashPay, freePay;
};

class ReconcileService {
  public:
    explicit ReconcileService(Db& db = DB()) : m_db(db) {}

    // The cashier's unreconciled bills and retail sales, by closing time.
    Rows bills(const QString& cashier) const;
    Rows sales(const QString& cashier) const;
    static ReconcileTotals totals(const Rows& bills, const Rows& sales);
    // Stamps exactly the listed bills and sales as reconciled and records the hand-over, in
    // one transaction. A bill closed meanwhile at another till is not stamped: it waits for
    // the next shift. Refused, writing nothing, when the listed bills were all reconciled
    // meanwhile.
    Refused reconcile(const QString& cashier, const QStringList& billIDs, const QStringList& saleIDs,
                      Money total);
    // The hand-overs of [start, end) (that moment when equal), by cashiers whose name holds `name`.
    Rows records(const QDateTime& start, const QDateTime& end, const QString& name) const;

  private:
    Db& m_db;
};
