// The order window on a large venue: opening it with the goods list and tree built, and one
// order by quick entry written, taken off the stock and shown.
#include "AppInit.h"
#include "AppState.h"
#include "Clock.h"
#include "Db.h"
#include "MessageBox.h"
#include "Venue.h"
#include "BenchVenue.h"
#include "VenueGenerator.h"
#include "frmExpenseDetail.h"
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

namespace {
QTemporaryDir* g_dir = nullptr;
QString g_bill;

// 2,000 goods in 40 types, each type with its evening period; 200 rooms in use with 20 lines
// each, and a year of settled bills behind them. Stock management on.
void prepareVenue() {
    if (g_dir) return;
    g_dir = new QTemporaryDir;
    VenueSize size;
    size.openBills = 200;
    size.openLines = 20;
    const GeneratedVenue v = OpenGeneratedVenue(*g_dir, size);
    g_bill = v.openBillIds.first();
    DB().write([] {
        for (int i = 1; i <= 40; ++i)
            DB().exec(
                QStringLiteral("insert into WareLevel (WareLevelID, WareLevelName, start1, end1, Discount1, "
                               "start2, end2, Discount2) values (?, '晚场', 0, 18, 1, 18, 24, 0.9)"),
                {QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0'))});
    });
    App().CurrentOperatorName = QStringLiteral("基准");
    App().IsUseWareHouse = 1;
    Clock::install(std::make_unique<FixedClock>(size.end.addSecs(30 * 60)));
    Msg::installRecorder();
}

void BM_OrderWindowOpen(benchmark::State& state) {
    prepareVenue();
    qsizetype goods = 0;
    for (auto _ : state) {
        frmExpenseDetail d;
        d.Init(g_bill);
        goods = d.findChild<QTreeWidget*>(QStringLiteral("lvwWare"))->topLevelItemCount();
        benchmark::DoNotOptimize(goods);
    }
    if (!Msg::taken().isEmpty()) state.SkipWithError("the window said something");
    state.counters["goods"] = double(goods);
}
BENCHMARK(BM_OrderWindowOpen)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly(true);

// The same, and the window laid out and painted as the cashier sees it.
void BM_OrderWindowOpenAndPaint(benchmark::State& state) {
    prepareVenue();
    for (auto _ : state) {
        frmExpenseDetail d;
        d.Init(g_bill);
        d.resize(980, 660);
        QPixmap shot = d.grab();
        benchmark::DoNotOptimize(shot);
    }
}
BENCHMARK(BM_OrderWindowOpenAndPaint)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true);

// "sp1234 1" and Enter with adding at once: found, written with its stock change, listed.
void BM_QuickEntryLine(benchmark::State& state) {
    prepareVenue();
    frmExpenseDetail d;
    d.Init(g_bill);
    d.findChild<QCheckBox*>(QStringLiteral("chkAdd"))->setChecked(true);
    auto* input = d.findChild<QLineEdit*>(QStringLiteral("txtInput"));
    auto* lines = d.findChild<QTreeWidget*>(QStringLiteral("lvwDetail"));
    int n = 0;
    for (auto _ : state) {
        input->setText(QStringLiteral("sp%1 1").arg(1 + (n++ * 37) % 2000));
        d.txtInput_Enter();
    }
    if (!Msg::taken().isEmpty()) state.SkipWithError("an order was refused");
    state.counters["lines"] = lines->topLevelItemCount();
}
BENCHMARK(BM_QuickEntryLine)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly(true);
} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    InitResources();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
