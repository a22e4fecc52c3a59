#include "fExpense.h"
#include "ChargeEngine.h"
#include "Format.h"
#include "MessageBox.h"
#include "Val.h"
#include <algorithm>

namespace {
QString where(const QString& condition) {
    return condition.isEmpty() ? QString() : QStringLiteral(" Where ") + condition;
}

// Tariff values are stored as floating numbers; the engine takes them as whole numbers.
int whole(double v) {
    return int(RoundEven(std::clamp(v, -2147483648.0, 2147483647.0)));
}

// The tariff fields of the period grid, column by column ("start1".."start4", "end1", ...).
const QStringList& gridFields() {
    static const QStringList fields = [] {
        QStringList f;
        for (const char* name : {"start", "end", "Price", "MinMoney", "PriceA", "MinMoneyA"})
            for (int i = 1; i <= 4; ++i)
                f << QLatin1String(name) + QString::number(i);
        return f;
    }();
    return fields;
}

// The bill's own fields and its tariff in one read. TariffID is null when the tariff is gone.
const QString& currencySql() {
    static const QString sql =
        QStringLiteral("SELECT Expense.OpenTime, Expense.oldMoney, Expense.IsUseMinMoney, "
                       "Expense.payLevelType, PayLevel.PayLevelID AS TariffID, "
                       "PayLevel.payType, PayLevel.Unit, PayLevel.NotOne, "
                       "PayLevel.PrivilegeTime, PayLevel.AfterTime, PayLevel.") +
        gridFields().join(QStringLiteral(", PayLevel.")) +
        QStringLiteral(" FROM Expense LEFT JOIN PayLevel ON PayLevel.PayLevelID = "
                       "Expense.PayLevelID WHERE Expense.ExpenseID = ?");
    return sql;
}

void loadGrid(const Row& r, PeriodGrid& g) {
    const QStringList& fields = gridFields();
    for (int c = 0; c < PeriodGrid::Columns; ++c)
        for (int p = 0; p < 4; ++p)
            g.set(p, c, r.num(fields[c * 4 + p]));
}
} // namespace

Rows fExpense::GetAll(const QString& condition, const Params& params) const {
    return m_db.query(QStringLiteral("SELECT Expense.* from Expense") + where(condition) +
                          QStringLiteral(" Order by Expense.OpenTime"),
                      params);
}

Rows fExpense::GetLinkAll(const QString& condition, const Params& params) const {
    return m_db.query(QStringLiteral("SELECT Expense.*,TheAssort.AssortName,PayLevel.PayLevelName,"
                                     "PayLevel.PayType as PayType,PayLevel.MinMoney,The.TheCode "
                                     "From ((Expense Left Join The On Expense.TheID=The.TheID) "
                                     "Left Join PayLevel ON Expense.PayLevelID=PayLevel.PayLevelID) "
                                     "Left Join TheAssort On The.AssortID=TheAssort.AssortID") +
                          where(condition),
                      params);
}

Rows fExpense::GetLinkByID(const QString& id) const {
    return GetLinkAll(QStringLiteral("Expense.ExpenseID=?"), {id});
}

Rows fExpense::GetLinkByTheID(const QString& theID) const {
    return GetLinkAll(QStringLiteral("Expense.TheID=? and Expense.State=1"), {theID});
}

QString fExpense::GetProcurePriceByID(const QString& id) const {
    const Rows r = m_db.query(QStringLiteral("select sum(OughtMoney-income) as Procure from ExpenseDetail "
                                             "where IsDel<>1 and ExpenseID=?"),
                              {id});
    return r.first().money(QStringLiteral("Procure")).toString2();
}

BillSnapshot fExpense::Snapshot(const QString& id) const {
    BillSnapshot s;
    const Rows bill =
        m_db.query(QStringLiteral("select TheID, PayLevelID from Expense where ExpenseID=?"), {id});
    if (bill.isEmpty()) return s;
    s.theID = bill.first().text(QStringLiteral("TheID"));
    s.payLevelID = bill.first().text(QStringLiteral("PayLevelID"));
    const Row lines =
        m_db.query(QStringLiteral("select count(*) as n, sum(case when isDel<>1 then 1 else 0 end) "
                                  "as live, sum(case when isDel<>1 then OughtMoney else 0 end) as "
                                  "owed from ExpenseDetail where ExpenseID=?"),
                   {id})
            .first();
    s.lines = lines.integer(QStringLiteral("n"));
    s.liveLines = lines.integer(QStringLiteral("live"));
    s.owed = lines.money(QStringLiteral("owed"));
    return s;
}

void fExpense::GetByIDCurrency(const QString& id, const QDateTime& closeTime, Money& goodsMoney,
                               Money& roomMoney, bool reportNoTariff) const {
    // An unknown bill is priced from the zero date with no tariff, and so costs nothing.
    QDateTime openTime(QDate(1899, 12, 30), QTime(0, 0));
    Money oldMoney;
    bool useMinMoney = true;
    int payLevelType = 0, payType = 0, unit = 0, notOne = 0, privilegeTime = 0, afterTime = 0;
    PeriodGrid periods;

    const Rows bill = m_db.query(currencySql(), {id});
    bool tariffFound = false;
    if (!bill.isEmpty()) {
        const Row r = bill.first();
        const QDateTime opened = ParseTime(r.date(QStringLiteral("OpenTime")));
        if (opened.isValid()) openTime = opened;
        oldMoney = r.money(QStringLiteral("oldMoney"));
        useMinMoney = r.num(QStringLiteral("IsUseMinMoney")) == 1.0;
        payLevelType = whole(r.num(QStringLiteral("payLevelType")));
        tariffFound = !r.isNull(QStringLiteral("TariffID"));
        if (tariffFound) {
            payType = whole(r.num(QStringLiteral("payType")));
            unit = whole(r.num(QStringLiteral("Unit")));
            notOne = whole(r.num(QStringLiteral("NotOne")));
            privilegeTime = whole(r.num(QStringLiteral("PrivilegeTime")));
            afterTime = whole(r.num(QStringLiteral("AfterTime")));
            loadGrid(r, periods);
        }
    }

    goodsMoney = m_db.query(QStringLiteral("Select sum(OughtMoney) as OughtMoney From ExpenseDetail "
                                           "Where ExpenseID=? and isDel<>1"),
                            {id})
                     .first()
                     .money(QStringLiteral("OughtMoney"));

    if (!tariffFound && reportNoTariff)
        Msg::warn(nullptr, QStringLiteral("没有找到相关的计费标准！请检查计费标准是否已被删除！"));

    roomMoney = CalcRoomMoney(openTime, closeTime, payType, unit, notOne, privilegeTime, afterTime, oldMoney,
                              goodsMoney, periods, useMinMoney, payLevelType);
}
