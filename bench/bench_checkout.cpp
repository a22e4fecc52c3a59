// Closing a bill at the till on a large venue: the commit of a member's checkout, paid
// partly from the stored value and the rest in cash, with the room locked afterwards. The
// input is built as the checkout window builds it; only the commit is timed.
#include "AppInit.h"
#include "AppState.h"
#include "BenchVenue.h"
#include "CheckoutModel.h"
#include "CheckoutService.h"
#include "Clock.h"
#include "Db.h"
#include "Format.h"
#include "MessageBox.h"
#include "Settings.h"
#include "Val.h"
#include "VenueGenerator.h"
#include <QCoreApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cmath>

namespace {
QTemporaryDir* g_dir = nullptr;
QStringList g_bills;   // open bills not closed yet, in the order they are taken
QStringList g_members; // members whose class gives a discount and who hold stored value
qsizetype g_nextBill = 0;
qsizetype g_nextMember = 0;
QString g_durability; // empty when the database runs as the program runs it

// 300 rooms, 200 of them in use with 20 lines each, 2,000 members and a year of settled
// bills behind them. The "服务" goods take no member discount, as at most venues.
void prepareVenue() {
    if (g_dir) return;
    g_dir = new QTemporaryDir;
    VenueSize size;
    size.openBills = 200;
    size.openLines = 20;
    const GeneratedVenue v = OpenGeneratedVenue(*g_dir, size);
    g_bills = v.openBillIds;
    DB().write([] {
        DB().exec(QStringLiteral("update WareType set isNomember=1 where wareTypeName like '服务%'"));
    });
    // Every commit waits for the disk, as at the till.
    const QString sync = DB().scalar(QStringLiteral("PRAGMA synchronous")).toString();
    const QString journal = DB().scalar(QStringLiteral("PRAGMA journal_mode")).toString();
    if (sync != QLatin1String("2") || journal.compare(QLatin1String("wal"), Qt::CaseInsensitive) != 0)
        g_durability = QStringLiteral("synchronous=%1 journal_mode=%2").arg(sync, journal);
    const Rows members = DB().query(
        QStringLiteral("select Member.MemberCode from Member join MemberSetup on "
                       "Member.SetupID=MemberSetup.SetupID where Member.State=0 and "
                       "MemberSetup.discount>0 and MemberSetup.discount<1 and Member.chongzhi>=100 "
                       "order by Member.MemberCode"));
    for (const Row& r : members)
        g_members << r.text(QStringLiteral("MemberCode"));
    App().CurrentOperatorName = QStringLiteral("基准");
    App().LockTime = 10;
    Clock::install(std::make_unique<FixedClock>(size.end.addSecs(30 * 60)));
    Msg::installRecorder();
}

struct Prepared {
    CheckoutInput in;
    Money storedBefore;
};

// The checkout of `bill` for `memberCode` as the cashier does it: the bill loaded, the
// member typed and found, the password accepted so the stored value pays what it can, the
// rest typed as cash in whole yuan. Nothing when the member's stored value would pay the
// whole bill (then it is not a part payment); `why` says what went wrong otherwise.
std::optional<Prepared> prepareCheckout(const QString& bill, const QString& memberCode, QString& why) {
    CheckoutService service;
    const QDateTime closeTime = ToMinute(Now());
    const std::optional<CheckoutBill> b = service.load(bill, closeTime, false);
    if (!b) {
        why = QStringLiteral("bill %1 not found").arg(bill);
        return std::nullopt;
    }
    CheckoutModel model;
    model.payMoneyFormat = int(Val(GetSetup(QStringLiteral("PayMoneyFormat"))));
    model.showAmounts(b->goods, b->room);
    const std::optional<CheckoutMember> found = service.member(memberCode);
    const QString refused = model.applyMember(found, found ? service.excludedGoods(bill) : Money());
    if (!refused.isEmpty()) {
        why = QStringLiteral("member %1: %2").arg(memberCode, refused);
        return std::nullopt;
    }
    if (!service.CheckMemberPassword(memberCode, QString())) {
        why = QStringLiteral("member %1: password refused").arg(memberCode);
        return std::nullopt;
    }
    model.fillStoredValue();
    const double rest = Val(model.oughtMoney) - Val(model.chongzhiD);
    if (Val(model.chongzhiD) <= 0 || rest <= 0) return std::nullopt;
    model.setFactPay(QString::number(qint64(std::ceil(rest))));
    const Refused r = model.check(
        CloseMode::Paid, b->jzr, [&] { return service.CheckMemberPassword(memberCode, QString()); },
        closeTime, closeTime, App().CurrentCloseTimeLimit);
    if (r) {
        why = QStringLiteral("bill %1 refused: %2").arg(bill, r->message);
        return std::nullopt;
    }
    Prepared p;
    p.in.expenseID = bill;
    p.in.closeTime = closeTime;
    p.in.customerCode = memberCode;
    p.in.jzr = b->jzr;
    p.in.theMoney = b->room;
    // The window keeps the cost as shown text, in cents.
    p.in.amounts = model.amounts(CloseMode::Paid, Money::fromText(b->cost.toString2()));
    if (model.memberFound) p.in.memberCode = model.member.code;
    p.storedBefore = found->chongzhi;
    return p;
}

// What the commit should have left behind: the bill closed with the stored value used,
// the member's stored value lowered by it, the room locked.
QString checkWritten(const Prepared& p, const CheckoutDone& done) {
    if (!done.saved)
        return QStringLiteral("not saved: ") + (done.refusal ? done.refusal->message : QString());
    if (done.roomState != 4) return QStringLiteral("room state %1, not locked").arg(done.roomState);
    const Row bill =
        DB().query(QStringLiteral("select State, VoucherState, chongzhipay, factpay, CustomerCode "
                                  "from Expense where ExpenseID=?"),
                   {p.in.expenseID})
            .first();
    if (bill.integer(QStringLiteral("State")) != 0 || bill.integer(QStringLiteral("VoucherState")) != 0)
        return QStringLiteral("bill %1 not closed as paid").arg(p.in.expenseID);
    if (bill.money(QStringLiteral("chongzhipay")) != p.in.amounts.chongzhiPay ||
        bill.money(QStringLiteral("factpay")) != p.in.amounts.factPay)
        return QStringLiteral("bill %1 amounts differ").arg(p.in.expenseID);
    const Money stored =
        DB().query(QStringLiteral("select chongzhi from Member where MemberCode=?"), {p.in.memberCode})
            .first()
            .money(QStringLiteral("chongzhi"));
    if (stored != p.storedBefore - p.in.amounts.chongzhiPay)
        return QStringLiteral("member %1 stored value %2, expected %3")
            .arg(p.in.memberCode, stored.toPlain(), (p.storedBefore - p.in.amounts.chongzhiPay).toPlain());
    const qint64 room =
        DB().scalar(QStringLiteral("select State from The where TheID=?"), {done.theID}).toLongLong();
    if (room != 4) return QStringLiteral("room %1 in state %2").arg(done.theID).arg(room);
    return {};
}

// The next open bill with the next member whose stored value pays a part of it.
std::optional<Prepared> nextCheckout(QString& why) {
    if (g_nextBill >= g_bills.size()) {
        why = QStringLiteral("no open bill left");
        return std::nullopt;
    }
    const QString bill = g_bills[g_nextBill++];
    for (qsizetype tried = 0; tried < g_members.size(); ++tried) {
        const QString member = g_members[g_nextMember++ % g_members.size()];
        std::optional<Prepared> p = prepareCheckout(bill, member, why);
        if (p || !why.isEmpty()) return p;
    }
    why = QStringLiteral("no member pays a part of bill %1").arg(bill);
    return std::nullopt;
}

void BM_CheckoutCommit(benchmark::State& state) {
    prepareVenue();
    if (!g_durability.isEmpty()) {
        state.SkipWithError(qPrintable(QStringLiteral("not the program's durability: ") + g_durability));
        return;
    }
    if (g_bills.size() - g_nextBill < qsizetype(state.max_iterations)) {
        state.SkipWithError("not enough open bills for the iterations");
        return;
    }
    CheckoutService service;
    Money cardPaid;
    for (auto _ : state) {
        state.PauseTiming();
        QString why;
        const std::optional<Prepared> p = nextCheckout(why);
        if (!p) {
            state.SkipWithError(qPrintable(why));
            break;
        }
        state.ResumeTiming();
        const CheckoutDone done = service.close(p->in);
        state.PauseTiming();
        const QString wrong = checkWritten(*p, done);
        if (!wrong.isEmpty()) {
            state.SkipWithError(qPrintable(wrong));
            break;
        }
        cardPaid += p->in.amounts.chongzhiPay;
        state.ResumeTiming();
    }
    if (!Msg::taken().isEmpty()) state.SkipWithError("the checkout said something");
    state.counters["storedValuePaid"] = cardPaid.toDouble();
}
BENCHMARK(BM_CheckoutCommit)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true);
} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    InitResources();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
