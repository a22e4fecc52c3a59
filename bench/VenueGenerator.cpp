#include "VenueGenerator.h"
#include "Db.h"
#include "Format.h"
#include "Money.h"
#include <QRandomGenerator>

namespace {
class Keys {
public:
    explicit Keys(QString prefix) : m_prefix(std::move(prefix)) {}
    QString next() { return m_prefix + QStringLiteral("%1").arg(++m_n, 9, 10, QLatin1Char('0')); }

private:
    QString m_prefix;
    qint64 m_n = 0;
};

const char* const kTypeNames[] = {"啤酒", "洋酒", "红酒", "白酒", "饮料", "果汁", "茶水", "咖啡", "小吃", "果盘",
                                  "炸物", "烧烤", "甜品", "坚果", "卤味", "主食", "香烟", "服务", "套餐", "其它"};
const char* const kRoomTypes[] = {"迷你包", "小包", "中包", "大包", "豪华包", "总统包", "主题包", "情侣包",
                                  "派对包", "商务包", "卡座", "吧台"};
const char* const kSurnames[] = {"张", "王", "李", "赵", "刘", "陈", "杨", "黄", "周", "吴", "徐", "孙"};
const char* const kGiven[] = {"伟", "芳", "娜", "敏", "静", "磊", "洋", "勇", "艳", "杰", "涛", "明"};
} // namespace

GeneratedVenue GenerateVenue(Db& db, const VenueSize& size) {
    GeneratedVenue out;
    QRandomGenerator rng(size.seed);
    Keys keys(QStringLiteral("G"));
    // Room types share a few tariffs.
    const QString tariff = QStringLiteral("00000000000000001");
    QList<Money> prices, costs;
    db.write([&] {
        QStringList types;
        for (int i = 0; i < size.roomTypes; ++i) {
            types << keys.next();
            db.exec(QStringLiteral("INSERT INTO TheAssort (AssortID, AssortName, PayLevelID) VALUES (?,?,?)"),
                    {types.last(), QString::fromUtf8(kRoomTypes[i % 12]) + (i >= 12 ? QString::number(i) : QString()),
                     tariff});
        }
        for (int i = 0; i < size.rooms; ++i) {
            out.roomIds << keys.next();
            db.exec(QStringLiteral("INSERT INTO The (TheID, TheCode, AssortID, theDesc, State, ExpenseID, Other1) "
                                   "VALUES (?,?,?,?,0,'','')"),
                    {out.roomIds.last(), QStringLiteral("%1").arg(101 + i), types[i % types.size()], QString()});
        }
        for (int i = 0; i < size.wareTypes; ++i)
            db.exec(QStringLiteral("INSERT INTO WareType (WareTypeID, wareTypeName, isDoDiscount, isNomember, isHC, isBT) "
                                   "VALUES (?,?,?,?,?,?)"),
                    {QStringLiteral("%1").arg(i + 1, 2, 10, QLatin1Char('0')),
                     QString::fromUtf8(kTypeNames[i % 20]) + QString::number(i / 20 + 1), 1, 0, i % 3 == 0 ? 1 : 0,
                     i % 3 == 1 ? 1 : 0});
        for (int i = 0; i < size.wares; ++i) {
            out.wareIds << keys.next();
            const Money price = Money::yuan(5 + rng.bounded(300));
            const Money cost = Money::fromRaw(price.raw() * (30 + rng.bounded(40)) / 100);
            prices << price;
            costs << cost;
            db.exec(QStringLiteral("INSERT INTO Ware (WareID, WareTypeID, WareCode, WareName, Mnemonics, wareUnit, Price, "
                                   "ProcurePrice, nownum, minnum, tiCheng) VALUES (?,?,?,?,?,?,?,?,?,?,?)"),
                    {out.wareIds.last(), QStringLiteral("%1").arg(i % size.wareTypes + 1, 2, 10, QLatin1Char('0')),
                     QStringLiteral("W%1").arg(i + 1, 5, 10, QLatin1Char('0')),
                     QString::fromUtf8(kTypeNames[i % 20]) + QStringLiteral("%1号").arg(i + 1),
                     QStringLiteral("sp%1").arg(i + 1), QStringLiteral("份"), price, cost, double(rng.bounded(500)),
                     10.0, Money::yuan(i % 10 == 0 ? 5 : 0)});
        }
        const QString cls = keys.next();
        db.exec(QStringLiteral("INSERT INTO MemberSetup (SetupID, SetupName, InitValue, StepValue, discount) VALUES "
                               "(?,?,0,10,0.9)"),
                {cls, QStringLiteral("普通会员")});
        for (int i = 0; i < size.members; ++i) {
            out.memberCodes << QStringLiteral("M%1").arg(i + 1, 6, 10, QLatin1Char('0'));
            db.exec(QStringLiteral("INSERT INTO Member (MemberCode, MemberName, Sex, movephone, pw, AddDate, SetupID, "
                                   "State, MemberValue, chongzhi, sumValue) VALUES (?,?,?,?,'',?,?,0,?,?,?)"),
                    {out.memberCodes.last(),
                     QString::fromUtf8(kSurnames[i % 12]) + QString::fromUtf8(kGiven[(i / 12) % 12]),
                     i % 2 ? QStringLiteral("女") : QStringLiteral("男"), QStringLiteral("139%1").arg(i, 8, 10, QLatin1Char('0')),
                     TimeText(size.end.addDays(-rng.bounded(size.days + 1))), cls, double(rng.bounded(1000)),
                     Money::yuan(rng.bounded(2000)), Money::yuan(rng.bounded(20000))});
        }
    });
    // A year of settled bills, top-ups and stock receipts, a day at a time.
    const QDateTime start = size.end.addDays(-size.days);
    for (int d = 0; d < size.days; ++d) {
        db.write([&] {
            const QDateTime day = start.addDays(d);
            for (int b = 0; b < size.billsPerDay; ++b) {
                const QString bill = keys.next();
                const QDateTime open = day.addSecs(60 * (12 * 60 + rng.bounded(10 * 60)));
                const QDateTime close = open.addSecs(60 * (60 + rng.bounded(240)));
                Money goods, income;
                for (int l = 0; l < size.linesPerBill; ++l) {
                    const int w = int(rng.bounded(out.wareIds.size()));
                    const double num = 1 + rng.bounded(4);
                    const Money money = prices[w].times(num);
                    const Money profit = (prices[w] - costs[w]).times(num);
                    goods += money;
                    income += profit;
                    const QString staff = size.employees > 0 && l % 2 == 0
                                              ? QStringLiteral("员工%1").arg(rng.bounded(size.employees) + 1)
                                              : QString();
                    db.exec(QStringLiteral("INSERT INTO ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, thePrice, "
                                           "ExpenseMoney, oughtMoney, Income, TiChengMoney, isFree, isdel, operatorname, "
                                           "ExpenseTime, ThisCode, Other1) VALUES (?,?,?,?,?,?,?,?,?,?,0,?,?,?,?,?)"),
                            {keys.next(), bill, out.wareIds[w], num, prices[w], prices[w], money, money, profit,
                             staff.isEmpty() ? Money() : Money::yuan(1).times(num), size.mixedSettlements && l == 7 ? 1 : 0,
                             QStringLiteral("收银员"), TimeText(open.addSecs(600 + 60 * l)), bill, staff});
                    ++out.lines;
                }
                const Money room = Money::yuan(60 + rng.bounded(400));
                const Money total = goods + room;
                const bool member = rng.bounded(5) == 0;
                const int voucher = !size.mixedSettlements ? 0 : b % 20 == 19 ? 1 : b % 15 == 14 ? 2 : 0;
                const Money paid = voucher == 1 ? Money() : total;
                db.exec(QStringLiteral("INSERT INTO Expense (ExpenseID, TheID, PayLevelID, payLevelType, IsUseMinMoney, "
                                       "oldMoney, OpenTime, CloseTime, State, VoucherState, openOperator, CloseOperator, "
                                       "CustomerNum, CustomerCode, theMoney, ExpenseMoney, oughtMoney, NoMoney, freepay, "
                                       "factpay, CashPay, chongzhipay, Income, CheckForm) VALUES (?,?,?,1,0,0,?,?,0,?,?,?,?,"
                                       "?,?,?,?,0,0,?,?,0,?,?)"),
                        {bill, out.roomIds[int(rng.bounded(out.roomIds.size()))], tariff, TimeText(open), TimeText(close),
                         voucher, QStringLiteral("收银员"), QStringLiteral("收银员"), int(2 + rng.bounded(10)),
                         member ? out.memberCodes[int(rng.bounded(out.memberCodes.size()))] : QString(), room, total,
                         total, paid, paid, voucher == 1 ? income + room - total : income + room,
                         size.reconcileDaily ? QStringLiteral("Y") : QString()});
                ++out.settledBills;
            }
            for (int t = 0; t < 3; ++t)
                db.exec(QStringLiteral("INSERT INTO chongzhi (chongzhiid, MemberCode, operatorname, thismemoney, factpay, "
                                       "OperatorTime) VALUES (?,?,?,?,?,?)"),
                        {keys.next(), out.memberCodes[int(rng.bounded(out.memberCodes.size()))], QStringLiteral("收银员"),
                         Money::yuan(500), Money::yuan(450), TimeText(day.addSecs(3600 * 15))});
            Money takings;
            for (int t = 0; t < size.salesPerDay; ++t) {
                const QString sale = keys.next();
                const QDateTime at = day.addSecs(60 * (12 * 60 + rng.bounded(11 * 60)));
                Money sum, income;
                for (int l = 0; l < 3; ++l) {
                    const int w = int(rng.bounded(out.wareIds.size()));
                    sum += prices[w];
                    income += prices[w] - costs[w];
                    db.exec(QStringLiteral("INSERT INTO OutsaleDetail (DetailID, ExpenseID, WareID, num, Price, thePrice, "
                                           "ExpenseMoney, oughtMoney, Income, isFree, isdel) VALUES (?,?,?,1,?,?,?,?,?,0,0)"),
                            {keys.next(), sale, out.wareIds[w], prices[w], prices[w], prices[w], prices[w],
                             prices[w] - costs[w]});
                }
                db.exec(QStringLiteral("INSERT INTO Outsale (ExpenseID, OpenTime, CloseTime, State, VoucherState, "
                                       "openOperator, CloseOperator, ExpenseMoney, oughtMoney, factpay, CashPay, Income, "
                                       "CheckForm) VALUES (?,?,?,0,0,?,?,?,?,?,?,?,?)"),
                        {sale, TimeText(at), TimeText(at), QStringLiteral("收银员"), QStringLiteral("收银员"), sum, sum,
                         sum, sum, income, size.reconcileDaily ? QStringLiteral("Y") : QString()});
                takings += sum;
                ++out.sales;
            }
            if (size.reconcileDaily)
                db.exec(QStringLiteral("INSERT INTO Shouyininfo (theid, theDate, ShouyinName, theMoney) VALUES (?,?,?,?)"),
                        {keys.next(), TimeText(day.addSecs(23 * 3600 + 50 * 60)), QStringLiteral("收银员"), takings});
            if (d % 7 == 0) {
                const QString in = keys.next();
                db.exec(QStringLiteral("INSERT INTO WareIn (wareInID, InTime, thejb, createname, TheCode) VALUES (?,?,?,?,?)"),
                        {in, day.toString(QLatin1String(DayFormat)), QStringLiteral("库管"), QStringLiteral("库管"),
                         QStringLiteral("RK%1").arg(d)});
                for (int l = 0; l < 20; ++l) {
                    const int w = int(rng.bounded(out.wareIds.size()));
                    db.exec(QStringLiteral("INSERT INTO WareInList (WareInListID, wareInID, WareID, num, Price, theMoney) "
                                           "VALUES (?,?,?,?,?,?)"),
                            {keys.next(), in, out.wareIds[w], 24.0, costs[w], costs[w].times(24)});
                }
            }
        });
    }
    db.write([&] {
        // Rooms in use now.
        for (int i = 0; i < size.openBills && i < out.roomIds.size(); ++i) {
            const QString bill = keys.next();
            const QDateTime open = size.end.addSecs(-60 * (30 + rng.bounded(300)));
            db.exec(QStringLiteral("INSERT INTO Expense (ExpenseID, TheID, PayLevelID, payLevelType, IsUseMinMoney, "
                                   "OpenTime, State, VoucherState, openOperator, CustomerNum) VALUES (?,?,?,1,1,?,1,0,?,6)"),
                    {bill, out.roomIds[i], tariff, TimeText(open), QStringLiteral("收银员")});
            db.exec(QStringLiteral("UPDATE The SET State=1, ExpenseID=? WHERE TheID=?"), {bill, out.roomIds[i]});
            for (int l = 0; l < size.openLines; ++l) {
                const int w = int(rng.bounded(out.wareIds.size()));
                db.exec(QStringLiteral("INSERT INTO ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, thePrice, "
                                       "ExpenseMoney, oughtMoney, Income, isFree, isdel, operatorname, ExpenseTime, "
                                       "ThisCode) VALUES (?,?,?,1,?,?,?,?,?,0,?,?,?,?)"),
                        {keys.next(), bill, out.wareIds[w], prices[w], prices[w], prices[w], prices[w],
                         prices[w] - costs[w], l % 10 == 9 ? 1 : 0, QStringLiteral("收银员"), TimeText(open), bill});
            }
            out.openBillIds << bill;
        }
    });
    return out;
}
