// Room charge: the engine alone over a long stay, and the board's refresh of every open
// bill on the embedded database.
#include "ChargeEngine.h"
#include "Clock.h"
#include "Db.h"
#include "Format.h"
#include "TestVenue.h"
#include "fExpense.h"
#include <QCoreApplication>
#include <benchmark/benchmark.h>

namespace {
constexpr int Bills = 300;
constexpr int LinesPerBill = 20;

PeriodGrid nightTariff() {
    PeriodGrid g;
    const double periods[3][6] = {
        {0, 12, 60, 0, 3, 150}, {12, 18, 80, 0, 3, 200}, {18, 24, 120, 300, 3, 300}};
    for (int p = 0; p < 3; ++p)
        for (int c = 0; c < PeriodGrid::Columns; ++c)
            g.set(p, c, periods[p][c]);
    return g;
}

void BM_CalcRoomMoney_30h_1min(benchmark::State& state) {
    const PeriodGrid g = nightTariff();
    const QDateTime open(QDate(2026, 11, 20), QTime(14, 7));
    const QDateTime close = open.addSecs(30 * 3600 + 17);
    for (auto _ : state) {
        Money m = CalcRoomMoney(open, close, 1, 1, 2, 10, 5, Money(), Money(), g, true, 1);
        benchmark::DoNotOptimize(m);
    }
}
BENCHMARK(BM_CalcRoomMoney_30h_1min)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(15)
    ->ReportAggregatesOnly(true);

// Opens `Bills` rooms on the seeded tariff, each with `LinesPerBill` goods lines.
QStringList seedOpenBills() {
    QStringList ids;
    Transaction t;
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) "
                             "values ('B1', '基准', '00000000000000001')"));
    const QDateTime now = Now();
    for (int i = 0; i < Bills; ++i) {
        const QString room = QStringLiteral("R%1").arg(i, 3, 10, QLatin1Char('0'));
        const QString bill = QStringLiteral("E%1").arg(i, 3, 10, QLatin1Char('0'));
        DB().exec(
            QStringLiteral(
                "insert into The (TheID, TheCode, AssortID, State, ExpenseID) values (?, ?, 'B1', 1, ?)"),
            {room, room, bill});
        DB().exec(
            QStringLiteral("insert into Expense (ExpenseID, TheID, PayLevelID, payLevelType, IsUseMinMoney, "
                           "OpenTime, State) values (?, ?, '00000000000000001', ?, 1, ?, 1)"),
            {bill, room, i % 5 == 0 ? 0 : 1, TimeText(now.addSecs(-60 * (20 + (i * 7) % 400)))});
        for (int l = 0; l < LinesPerBill; ++l)
            DB().exec(
                QStringLiteral("insert into ExpenseDetail (DetailID, ExpenseID, num, oughtMoney, isdel) "
                               "values (?, ?, 1, ?, ?)"),
                {bill + QLatin1Char('-') + QString::number(l), bill, Money::yuan(5 + l), l == 7 ? 1 : 0});
        ids << bill;
    }
    t.commit();
    return ids;
}

void BM_GetByIDCurrency_300OpenBills(benchmark::State& state) {
    TestVenue venue;
    if (!venue.open()) {
        state.SkipWithError("no database");
        return;
    }
    const QStringList ids = seedOpenBills();
    const QDateTime now = Now().addSecs(23);
    for (auto _ : state) {
        Money all;
        for (const QString& id : ids) {
            Money goods, room;
            fExpense().GetByIDCurrency(id, now, goods, room);
            all += goods + room;
        }
        benchmark::DoNotOptimize(all);
    }
    state.counters["bills"] = Bills;
}
BENCHMARK(BM_GetByIDCurrency_300OpenBills)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(15)
    ->ReportAggregatesOnly(true);
} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
