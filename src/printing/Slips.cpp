#include "Slips.h"
#include "AppState.h"
#include "ChargeEngine.h"
#include "Clock.h"
#include "Format.h"
#include "Ini.h"
#include "Settings.h"
#include "Val.h"
#include "fExpense.h"
#include "fThe.h"
#include <algorithm>

QString MoneyText(double value) {
    return FormatNumber(value, QStringLiteral("0.00"));
}

QString GroupedWhole(double value) {
    QString digits = FormatNumber(value, QStringLiteral("0"));
    const bool negative = digits.startsWith(QLatin1Char('-'));
    if (negative) digits.remove(0, 1);
    for (qsizetype i = digits.size() - 3; i > 0; i -= 3)
        digits.insert(i, QLatin1Char(','));
    return negative ? QLatin1Char('-') + digits : digits;
}

QString QuantityText(double value) {
    QString s = FormatNumber(value, QStringLiteral("0.0000"));
    while (s.endsWith(QLatin1Char('0')))
        s.chop(1);
    if (s.endsWith(QLatin1Char('.'))) s.chop(1);
    return s == QLatin1String("-0") ? QStringLiteral("0") : s;
}

QString ShortTime(const QString& stored) {
    const QDateTime t = ParseTime(stored);
    return t.isValid() ? FormatDate(t, QStringLiteral("MM-dd hh:mm")) : QString();
}

namespace {
CompanyHead company() {
    return {App().CompanyName, App().CompanyAddress, App().CompanyPhone};
}

QString money(const Row& r, const QString& column) {
    return r.money(column).toString2();
}

// "AssortName-TheCode" of a room, empty when the room is gone.
QString roomText(const QString& theID, Db& db) {
    const Rows room = fThe(db).GetLinkByID(theID);
    if (room.isEmpty()) return {};
    return room.first().text(QStringLiteral("AssortName")) + QLatin1Char('-') +
           room.first().text(QStringLiteral("TheCode"));
}

QList<QStringList> billLines(const QString& expenseID, Db& db) {
    const Rows rows = db.query(
        QStringLiteral(
            "select ExpenseDetail.WareID, Ware.WareCode, Ware.WareName, sum(ExpenseDetail.num) as num, "
            "sum(ExpenseDetail.ExpenseMoney) as ExpenseMoney, sum(ExpenseDetail.oughtMoney) as oughtMoney "
            "from ExpenseDetail left join Ware on ExpenseDetail.WareID=Ware.WareID "
            "where ExpenseDetail.ExpenseID=? and ExpenseDetail.isdel<>1 "
            "group by ExpenseDetail.WareID, Ware.WareCode, Ware.WareName "
            "order by coalesce(Ware.WareCode, ''), ExpenseDetail.WareID"),
        {expenseID});
    QList<QStringList> out;
    for (const Row r : rows)
        out << QStringList{r.text(QStringLiteral("WareName")), QuantityText(r.num(QStringLiteral("num"))),
                           money(r, QStringLiteral("oughtMoney"))};
    return out;
}

// The lines of one round of ordering; `only` adds the kitchen or bar filter of its type.
Rows roundLines(const QString& thisCode, const QString& flag, const QString& only, Db& db) {
    return db.query(
        QStringLiteral("select ExpenseDetail.*, Ware.WareCode, Ware.WareName, WareType.") + flag +
            QStringLiteral(" from (ExpenseDetail left join Ware on ExpenseDetail.WareID=Ware.WareID) "
                           "left join WareType on Ware.WareTypeID=WareType.WareTypeID "
                           "where ExpenseDetail.ThisCode=? and ExpenseDetail.isdel<>1") +
            only + QStringLiteral(" order by ExpenseDetail.ExpenseTime, ExpenseDetail.DetailID"),
        {thisCode});
}

ThisTicketData ticketData(const Rows& rows, const QString& theCode, const QString& sum, bool notes) {
    ThisTicketData d;
    d.companyName = App().CompanyName;
    d.theCode = theCode;
    d.expenseID = rows.first().text(QStringLiteral("ExpenseID"));
    d.operatorName = rows.first().text(QStringLiteral("operatorname"));
    d.thisSum = sum;
    for (const Row r : rows)
        d.lines << QStringList{r.text(QStringLiteral("WareName")), QuantityText(r.num(QStringLiteral("num"))),
                               notes ? r.text(QStringLiteral("Description"))
                                     : money(r, QStringLiteral("oughtMoney"))};
    return d;
}

int copiesOf(const QString& text) {
    return int(std::clamp(Val(text), 0.0, 99.0));
}
} // namespace

int EndBillCopies(Db& db) {
    return std::max(1, int(std::clamp(Val(GetSetup(QStringLiteral("EndBillNum"), db)), 0.0, 99.0)));
}

std::optional<Receipt> BillSlip(const QString& expenseID, bool isEnd, Db& db) {
    const Rows bill = db.query(QStringLiteral("select * from Expense where ExpenseID=?"), {expenseID});
    if (bill.isEmpty()) return std::nullopt;
    const Row e = bill.first();
    const QDateTime now = Now();
    const QDateTime open = ParseTime(e.text(QStringLiteral("OpenTime")));
    const QDateTime closed = ParseTime(e.text(QStringLiteral("CloseTime")));

    Money goods, room;
    fExpense(db).GetByIDCurrency(expenseID, isEnd && closed.isValid() ? closed : now, goods, room);
    const bool roomCharge = !room.isZero();
    const BillStyle style =
        Val(GetSetup(QStringLiteral("IndustryCategory"), db)) == 0 ? BillStyle::Detailed : BillStyle::Brief;
    BillData d;
    d.company = company();
    d.ym = GetSetup(QStringLiteral("PrinterYM"), db);
    d.theCode = roomText(e.text(QStringLiteral("TheID")), db);
    if (isEnd) {
        d.noMoney = money(e, QStringLiteral("NoMoney"));
        if (style == BillStyle::Detailed) d.expendTime = GetExpendTimeText(open, closed);
        d.closeOperator = e.text(QStringLiteral("CloseOperator"));
        d.closeTime = ShortTime(e.text(QStringLiteral("CloseTime")));
        d.oughtMoney = money(e, QStringLiteral("oughtMoney"));
        d.factPay = money(e, QStringLiteral("factpay"));
        // A settled room charge of 0 leaves the label at its design-time caption.
        if (!e.money(QStringLiteral("theMoney")).isZero()) d.payLevel = money(e, QStringLiteral("theMoney"));
    } else {
        if (style == BillStyle::Detailed) d.expendTime = GetExpendTimeText(open, now);
        d.noMoney = d.factPay = d.closeOperator = QStringLiteral("无");
        d.closeTime = FormatDate(now, QStringLiteral("MM-dd hh:mm"));
        d.oughtMoney = (goods + room).toString2();
        if (roomCharge) d.payLevel = room.toString2();
    }
    d.expenseID = expenseID;
    if (style == BillStyle::Detailed) d.openTime = ShortTime(e.text(QStringLiteral("OpenTime")));
    d.lines = billLines(expenseID, db);
    return DesignBill(d, roomCharge, style);
}

std::optional<Receipt> StartTicketSlip(const QString& expenseID, Db& db) {
    const Rows bill = fExpense(db).GetLinkByID(expenseID);
    if (bill.isEmpty()) return std::nullopt;
    const Row e = bill.first();
    StartTicketData d;
    d.company = company();
    d.id = expenseID;
    const QDateTime open = ParseTime(e.text(QStringLiteral("OpenTime")));
    d.openTime = open.isValid() ? FormatDate(open, QStringLiteral("MM-dd  hh:mm")) : QString();
    d.openOperator = e.text(QStringLiteral("openOperator"));
    d.theCode = e.text(QStringLiteral("TheCode"));
    d.startMoney = money(e, QStringLiteral("StartMoney"));
    return DesignStartExpense(d);
}

std::optional<Receipt> OutSaleSlip(const QString& outsaleID, Db& db) {
    const Rows sale = db.query(QStringLiteral("select * from Outsale where ExpenseID=?"), {outsaleID});
    if (sale.isEmpty()) return std::nullopt;
    const Row s = sale.first();
    OutSaleData d;
    d.companyName = App().CompanyName;
    d.id = outsaleID;
    d.closeOperator = s.text(QStringLiteral("CloseOperator"));
    d.closeTime = ShortTime(s.text(QStringLiteral("CloseTime")));
    d.factPay = money(s, QStringLiteral("factpay"));
    // The price shown is the article's list price of today, not the price of the sale.
    const Rows rows = db.query(
        QStringLiteral(
            "select OutSaleDetail.WareID, Ware.WareCode, Ware.WareName, Ware.Price, Ware.ProcurePrice, "
            "sum(OutSaleDetail.num) as num, sum(OutSaleDetail.ExpenseMoney) as ExpenseMoney, "
            "sum(OutSaleDetail.oughtMoney) as oughtMoney "
            "from OutSaleDetail left join Ware on OutSaleDetail.WareID=Ware.WareID "
            "where OutSaleDetail.ExpenseID=? and OutSaleDetail.isdel<>1 "
            "group by OutSaleDetail.WareID, Ware.WareCode, Ware.WareName, Ware.Price, Ware.ProcurePrice "
            "order by coalesce(Ware.WareCode, ''), OutSaleDetail.WareID"),
        {outsaleID});
    for (const Row r : rows)
        d.lines << QStringList{r.text(QStringLiteral("WareName")), money(r, QStringLiteral("Price")),
                               QuantityText(r.num(QStringLiteral("num"))),
                               money(r, QStringLiteral("oughtMoney"))};
    return DesignOutSale(d);
}

std::optional<Receipt> ChongzhiSlip(const QString& chongzhiID, Db& db) {
    const Rows rows =
        db.query(QStringLiteral("select chongzhi.*, Member.MemberName, Member.chongzhi as Balance "
                                "from chongzhi left join Member on chongzhi.MemberCode=Member.MemberCode "
                                "where chongzhi.chongzhiid=?"),
                 {chongzhiID});
    if (rows.isEmpty()) return std::nullopt;
    const Row c = rows.first();
    ChongzhiData d;
    d.company = company();
    const QDateTime at = ParseTime(c.text(QStringLiteral("OperatorTime")));
    d.operatorTime = at.isValid() ? FormatDate(at, QStringLiteral("yyyy-MM-dd  hh:mm")) : QString();
    d.operatorName = c.text(QStringLiteral("operatorname"));
    d.factPay = GroupedWhole(c.money(QStringLiteral("factpay")).toDouble());
    d.thisMemoney = GroupedWhole(c.money(QStringLiteral("thismemoney")).toDouble());
    d.chongzhi = GroupedWhole(c.money(QStringLiteral("Balance")).toDouble());
    d.memberName = c.text(QStringLiteral("MemberName"));
    d.memberCode = c.text(QStringLiteral("MemberCode"));
    return DesignChongzhi(d);
}

ThisSlips ThisTicketSlips(const QString& thisCode, bool printSlip, const QString& theCode,
                          const QString& thisSum, Db& db) {
    ThisSlips out;
    if (thisCode.isEmpty()) return out;
    const double sum = Val(thisSum);
    if (printSlip) {
        const Rows rows = roundLines(thisCode, QStringLiteral("isHC"), QString(), db);
        if (!rows.isEmpty())
            out.slip =
                DesignExpenseThis(ticketData(rows, theCode, FormatNumber(sum, QStringLiteral("0.00")), false),
                                  QStringLiteral("消费帐单 ") + theCode);
    }
    // A kitchen or bar ticket goes out only to a printer named for it.
    if (IsFlagOn(GetSetup(QStringLiteral("IsHC"), db)) &&
        !GetSetup(QStringLiteral("PrinterHC"), db).trimmed().isEmpty()) {
        const Rows rows =
            roundLines(thisCode, QStringLiteral("isHC"), QStringLiteral(" and WareType.isHC=1"), db);
        out.kitchenCopies = copiesOf(GetSetup(QStringLiteral("HCNum"), db));
        if (!rows.isEmpty()) out.kitchen = DesignExpenseThisHC(ticketData(rows, theCode, QString(), true));
    }
    if (IsFlagOn(GetSetup(QStringLiteral("IsBT"), db)) &&
        !GetSetup(QStringLiteral("PrinterBT"), db).trimmed().isEmpty()) {
        const Rows rows =
            roundLines(thisCode, QStringLiteral("isBT"), QStringLiteral(" and WareType.isBT=1"), db);
        // Per workstation: the bar copies are read from this one's config.ini.
        out.barCopies = copiesOf(GetIni(QStringLiteral("BTNum")));
        if (!rows.isEmpty())
            out.bar = DesignExpenseThis(
                ticketData(rows, theCode, FormatNumber(sum, QStringLiteral("￥0.00")), false),
                QStringLiteral("吧台单 ") + theCode);
    }
    return out;
}
