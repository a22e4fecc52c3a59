#include "Reconcile.h"
#include "Clock.h"
#include "Format.h"
#include "Gateway.h"
#include "NewID.h"

Rows ReconcileService::bills(const QString& cashier) const {
    return m_db.query(QStringLiteral("select *  from Expense where (checkForm='' or checkForm is null) and "
                                     "CloseOperator=? order by Closetime"),
                      {cashier});
}

Rows ReconcileService::sales(const QString& cashier) const {
    return m_db.query(QStringLiteral("select *  from OutSale where (checkForm='' or checkForm is null) and "
                                     "CloseOperator=? order by Closetime"),
                      {cashier});
}

ReconcileTotals ReconcileService::totals(const Rows& bills, const Rows& sales) {
    ReconcileTotals t;
    for (const Row r : bills) {
        t.factPay += r.money(QStringLiteral("factpay"));
        t.cashPay += r.money(QStringLiteral("CashPay"));
        t.freePay += r.money(QStringLiteral("freepay"));
    }
    for (const Row r : sales) {
        t.factPay += r.money(QStringLiteral("factpay"));
        t.cashPay += r.money(QStringLiteral("CashPay"));
    }
    return t;
}

Refused ReconcileService::reconcile(const QString& cashier, const QStringList& billIDs, const QStringList& saleIDs,
                                    Money total) {
    const auto stamp = [&](const QString& table, const QStringList& ids) {
        int n = 0;
        for (const QString& id : ids)
            n += m_db.exec(QStringLiteral("update %1 set CheckForm='Y' where ExpenseID=? and "
                                          "(checkForm='' or checkForm is null)")
                               .arg(table),
                           {id});
        return n;
    };
    try {
        return m_db.write([&]() -> Refused {
            if (!billIDs.isEmpty() && stamp(QStringLiteral("Expense"), billIDs) == 0)
                return m_db.discard(Refused(Refusal(QStringLiteral("没找到相关数据，请重新打开本窗口再试！"))));
            stamp(QStringLiteral("Outsale"), saleIDs);
            m_db.exec(QStringLiteral("insert into Shouyininfo (theid, theDate, ShouyinName, theMoney) values (?, ?, ?, ?)"),
                      {FreshKey(QStringLiteral("Shouyininfo"), QStringLiteral("theid"), m_db), TimeText(Now()), cashier,
                       total});
            return Refused();
        });
    } catch (const DbError& e) {
        return Refusal(e.message(QStringLiteral("SaveData"), QStringLiteral("frmCheckForm")), {}, Msg::Icon::None);
    }
}

Rows ReconcileService::records(const QDateTime& start, const QDateTime& end, const QString& name) const {
    const QString from = TimeText(start), to = TimeText(end);
    QString sql = QStringLiteral("select * from shouyinInfo where ");
    Params p;
    if (from != to) {
        sql += QStringLiteral("(theDate>=? and theDate<?)");
        p << from << to;
    } else {
        sql += QStringLiteral("(theDate=?)");
        p << from;
    }
    if (!name.isEmpty()) {
        sql += QStringLiteral(" and shouyinName like ?");
        p << QString(QLatin1Char('%') + name + QLatin1Char('%'));
    }
    return m_db.query(sql, p);
}
