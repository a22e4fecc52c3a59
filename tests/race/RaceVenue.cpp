#include "RaceVenue.h"
#include "CheckoutService.h"
#include "OrderService.h"
#include "RoomUse.h"
#include "StoredValueService.h"
#include <QRandomGenerator>
#include <QThread>

namespace Race {
namespace {
const QString Ware = QStringLiteral("W-race");

QString roomID(const QString& code) {
    return QStringLiteral("R-") + code;
}
QString billID(const QString& code) {
    return QStringLiteral("E-") + code;
}
QString code(const QString& head, int round, int worker = -1, const QString& tail = {}) {
    QString c = head + QString::number(round);
    if (worker >= 0) c += QLatin1Char('-') + QString::number(worker);
    return c + tail;
}

void room(Db& db, const QString& c) {
    db.exec(
        QStringLiteral(
            "insert into The (TheID, TheCode, AssortID, State, ExpenseID) values (?, ?, 'A-race', 0, '')"),
        {roomID(c), c});
}

// A room in use by its open bill, with one line of 100.
void runningRoom(Db& db, const QString& c) {
    db.exec(QStringLiteral(
                "insert into The (TheID, TheCode, AssortID, State, ExpenseID) values (?, ?, 'A-race', 1, ?)"),
            {roomID(c), c, billID(c)});
    db.exec(QStringLiteral(
                "insert into Expense (ExpenseID, TheID, PayLevelID, payLevelType, OpenTime, State, "
                "CustomerNum, StartMoney) select ?, ?, PayLevelID, 1, '2026-11-21 19:00', 1, 2, 0 from "
                "TheAssort where AssortID='A-race'"),
            {billID(c), roomID(c)});
    db.exec(
        QStringLiteral("insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, ExpenseMoney, "
                       "oughtMoney, isdel, ThisCode) values (?, ?, ?, 1, ?, ?, ?, 0, ?)"),
        {QStringLiteral("D-") + c, billID(c), Ware, Money::yuan(100), Money::yuan(100), Money::yuan(100),
         QStringLiteral("D-") + c});
}

// A card whose balance came from one top-up, so that balances can be checked against history.
void card(Db& db, const QString& c, Money balance) {
    db.exec(
        QStringLiteral("insert into Member (MemberCode, MemberName, State, chongzhi, sumValue, MemberValue) "
                       "values (?, ?, 0, ?, 0, 0)"),
        {c, c, balance});
    db.exec(
        QStringLiteral("insert into chongzhi (chongzhiid, MemberCode, thismemoney, factpay, OperatorTime) "
                       "values (?, ?, ?, ?, '2026-11-21 18:00')"),
        {QStringLiteral("C-") + c, c, balance, balance});
}

void basics(Db& db) {
    db.exec(
        QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) select 'A-race', '竞争', "
                       "min(PayLevelID) from PayLevel"));
    db.exec(
        QStringLiteral("insert into Ware (WareID, WareName, Price, ProcurePrice) values (?, '啤酒', ?, ?)"),
        {Ware, Money::yuan(100), Money::yuan(40)});
}

CheckoutAmounts paid(Money total, Money card) {
    CheckoutAmounts a;
    a.expenseMoney = total;
    a.factPay = total;
    a.chongzhiPay = card;
    a.cashPay = total - card;
    a.income = total;
    a.sumPay = total;
    return a;
}

// Checks out a bill as the window would: loaded first, committed with what was seen.
QString checkout(const QString& expenseID, const QString& member, std::optional<Money> card, int pauseMs = 0) {
    CheckoutService s;
    const QDateTime now = QDateTime::currentDateTime();
    const std::optional<CheckoutBill> b = s.load(expenseID, now, false);
    if (!b) return QStringLiteral("bill gone");
    if (pauseMs > 0) QThread::msleep(unsigned(pauseMs));
    CheckoutInput in;
    in.expenseID = expenseID;
    in.closeTime = now;
    in.customerCode = member;
    in.memberCode = member;
    in.theMoney = b->room;
    const Money total = b->goods + b->room;
    in.amounts = paid(total, member.isEmpty() ? Money() : card.value_or(total));
    in.seen = b->seen;
    in.print = true;
    const CheckoutDone d = s.close(in);
    return d.saved ? QStringLiteral("OK") : d.refusal->message;
}

QString orderLine(const QString& expenseID) {
    OrderLineInput in;
    in.expenseID = expenseID;
    in.wareID = Ware;
    in.price = QStringLiteral("100.00");
    in.num = QStringLiteral("1");
    const LineSaved s = OrderService().SaveLine(in);
    return s.refusal ? s.refusal->message : QStringLiteral("OK");
}

QString open(const QString& c) {
    OpenHouseInput in;
    in.theID = roomID(c);
    in.customerNum = QStringLiteral("2");
    in.startMoney = QStringLiteral("0");
    const Opened o = RoomUseService().open(in);
    return o.ok() ? QStringLiteral("OK") : o.refusal->message;
}

QString change(const QString& expenseID, const QString& from, const QString& to) {
    const Refused r = RoomUseService().change({expenseID, from, to, QString()});
    return r ? r->message : QStringLiteral("OK");
}

QString topUp(const QString& member, int yuan) {
    const QString amount = QString::number(yuan);
    const ChongzhiSaved s = StoredValueService().save({member, amount, amount, QString()});
    if (s.refusal) return s.refusal->message;
    return s.warning ? s.warning->message : QStringLiteral("OK");
}

QString one(const QString& sql, const Params& params = {}) {
    const Rows r = DB().query(sql, params);
    if (r.isEmpty()) return {};
    return r[int(QRandomGenerator::global()->bounded(r.count()))].text(r.columns().first());
}
} // namespace

QStringList scenarios() {
    return {QStringLiteral("open"),  QStringLiteral("close"),  QStringLiteral("overdraft"),
            QStringLiteral("stale"), QStringLiteral("change"), QStringLiteral("topup"),
            QStringLiteral("lines"), QStringLiteral("merge"),  QStringLiteral("rekey")};
}

int expectedWins(const QString& s, int workers) {
    if (s == QLatin1String("stale")) return -1;
    if (s == QLatin1String("topup") || s == QLatin1String("lines") || s == QLatin1String("rekey"))
        return workers;
    return 1;
}

void prepare(Db& db, const QString& s, int rounds, int workers) {
    db.write([&] {
        basics(db);
        if (s == QLatin1String("topup")) card(db, QStringLiteral("T"), Money());
        if (s == QLatin1String("lines")) runningRoom(db, QStringLiteral("L"));
        for (int r = 0; r < rounds; ++r) {
            if (s == QLatin1String("open")) room(db, code(QStringLiteral("O"), r));
            if (s == QLatin1String("close")) runningRoom(db, code(QStringLiteral("C"), r));
            if (s == QLatin1String("stale")) runningRoom(db, code(QStringLiteral("S"), r));
            if (s == QLatin1String("overdraft")) {
                card(db, code(QStringLiteral("V"), r), Money::yuan(100));
                for (int w = 0; w < workers; ++w)
                    runningRoom(db, code(QStringLiteral("V"), r, w));
            }
            if (s == QLatin1String("change")) {
                runningRoom(db, code(QStringLiteral("H"), r));
                for (int w = 0; w < workers; ++w)
                    room(db, code(QStringLiteral("H"), r, w));
            }
            if (s == QLatin1String("merge")) {
                runningRoom(db, code(QStringLiteral("X"), r, -1, QStringLiteral("a")));
                runningRoom(db, code(QStringLiteral("X"), r, -1, QStringLiteral("b")));
            }
            if (s == QLatin1String("rekey"))
                for (int w = 0; w < workers; ++w) {
                    runningRoom(db, code(QStringLiteral("K"), r, w));
                    room(db, code(QStringLiteral("K"), r, w, QStringLiteral("n")));
                }
        }
    });
}

QString play(const QString& s, int r, int w, int workers) {
    Q_UNUSED(workers);
    if (s == QLatin1String("open")) return open(code(QStringLiteral("O"), r));
    if (s == QLatin1String("close")) return checkout(billID(code(QStringLiteral("C"), r)), {}, std::nullopt);
    if (s == QLatin1String("overdraft"))
        return checkout(billID(code(QStringLiteral("V"), r, w)), code(QStringLiteral("V"), r), Money::yuan(100));
    if (s == QLatin1String("stale")) {
        const QString bill = billID(code(QStringLiteral("S"), r));
        return w % 2 == 0 ? orderLine(bill) : checkout(bill, {}, std::nullopt, 20);
    }
    if (s == QLatin1String("change"))
        return change(billID(code(QStringLiteral("H"), r)), code(QStringLiteral("H"), r),
                      code(QStringLiteral("H"), r, w));
    if (s == QLatin1String("topup")) return topUp(QStringLiteral("T"), 10);
    if (s == QLatin1String("lines")) return orderLine(billID(QStringLiteral("L")));
    if (s == QLatin1String("merge")) {
        const QString a = code(QStringLiteral("X"), r, -1, QStringLiteral("a"));
        const QString b = code(QStringLiteral("X"), r, -1, QStringLiteral("b"));
        const Refused x = w % 2 == 0 ? RoomUseService().merge(a, b) : RoomUseService().merge(b, a);
        return x ? x->message : QStringLiteral("OK");
    }
    if (s == QLatin1String("rekey"))
        return change(billID(code(QStringLiteral("K"), r, w)), code(QStringLiteral("K"), r, w),
                      code(QStringLiteral("K"), r, w, QStringLiteral("n")));
    return QStringLiteral("unknown scenario");
}

void prepareMixed(Db& db) {
    db.write([&] {
        basics(db);
        for (int i = 1; i <= 12; ++i)
            room(db, QStringLiteral("M%1").arg(i, 2, 10, QLatin1Char('0')));
        for (int i = 1; i <= 3; ++i)
            card(db, QStringLiteral("MM%1").arg(i), Money::yuan(300));
    });
}

QString playMixed(quint32 seed) {
    QRandomGenerator g(seed);
    const QString free = QStringLiteral("select TheCode from The where State=0 and TheCode like 'M%'");
    const QString running = QStringLiteral("select ExpenseID from Expense where State=1");
    switch (g.bounded(5)) {
    case 0: {
        const QString c = one(free);
        return c.isEmpty() ? QStringLiteral("OK") : open(c);
    }
    case 1: {
        const QString b = one(running);
        return b.isEmpty() ? QStringLiteral("OK") : orderLine(b);
    }
    case 2: {
        const QString b = one(running);
        if (b.isEmpty()) return QStringLiteral("OK");
        const QString member = g.bounded(2) ? QStringLiteral("MM%1").arg(g.bounded(1, 4)) : QString();
        return checkout(b, member, std::nullopt);
    }
    case 3:
        return topUp(QStringLiteral("MM%1").arg(g.bounded(1, 4)), 50);
    default: {
        const QString b = one(running);
        const QString to = one(free);
        if (b.isEmpty() || to.isEmpty()) return QStringLiteral("OK");
        const QString from =
            DB().scalar(QStringLiteral(
                            "select The.TheCode from Expense join The on Expense.TheID=The.TheID where "
                            "Expense.ExpenseID=?"),
                        {b})
                .toString();
        return change(b, from, to);
    }
    }
}

QStringList brokenInvariants(Db& db) {
    const QList<std::pair<QString, QString>> checks{
        {QStringLiteral("negative balance"),
         QStringLiteral("select MemberCode from Member where chongzhi<0")},
        {QStringLiteral("balance off its history"),
         QStringLiteral(
             "select m.MemberCode from Member m where m.chongzhi <> (select coalesce(sum(c.thismemoney),0) "
             "from chongzhi c where c.MemberCode=m.MemberCode) - (select coalesce(sum(e.chongzhipay),0) "
             "from Expense e where e.chongzhiIDCare=m.MemberCode and e.State=0)")},
        {QStringLiteral("unpaid line on a closed bill"),
         QStringLiteral(
             "select e.ExpenseID from Expense e where e.State=0 and coalesce(e.ExpenseMoney,0)-"
             "coalesce(e.theMoney,0) <> (select coalesce(sum(d.oughtMoney),0) from ExpenseDetail d "
             "where d.ExpenseID=e.ExpenseID and d.isdel<>1)")},
        {QStringLiteral("room in use without its open bill"),
         QStringLiteral(
             "select t.TheCode from The t where t.State=1 and not exists (select 1 from Expense e where "
             "e.ExpenseID=t.ExpenseID and e.State=1 and e.TheID=t.TheID)")},
        {QStringLiteral("open bill without its room"),
         QStringLiteral(
             "select e.ExpenseID from Expense e where e.State=1 and not exists (select 1 from The t "
             "where t.TheID=e.TheID and t.State=1 and t.ExpenseID=e.ExpenseID)")},
        {QStringLiteral("lines of no bill"),
         QStringLiteral(
             "select d.DetailID from ExpenseDetail d where not exists (select 1 from Expense e where "
             "e.ExpenseID=d.ExpenseID)")},
        {QStringLiteral("closed bill without its slip"),
         QStringLiteral(
             "select e.ExpenseID from Expense e where e.State=0 and not exists (select 1 from PrintJob p "
             "where p.SourceID=e.ExpenseID)")},
    };
    QStringList out;
    for (const auto& [name, sql] : checks) {
        const Rows r = db.query(sql);
        if (!r.isEmpty())
            out << name + QStringLiteral(": ") + r.first().text(r.columns().first()) +
                       QStringLiteral(" (%1)").arg(r.count());
    }
    return out;
}

bool isRawError(const QString& text) {
    static const QStringList raw{
        QStringLiteral("Error "),    QStringLiteral("UNIQUE"),           QStringLiteral("constraint"),
        QStringLiteral("duplicate"), QStringLiteral("deadlock"),         QStringLiteral("locked"),
        QStringLiteral("SQL"),       QStringLiteral("unknown scenario"), QStringLiteral("bill gone")};
    return std::any_of(raw.begin(), raw.end(),
                       [&](const QString& r) { return text.contains(r, Qt::CaseInsensitive); });
}

} // namespace Race
