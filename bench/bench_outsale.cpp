// A counter sale on a large venue: the commit of a sale of 20 lines (one a gift) with stock
// keeping on, paid in cash. The lines are added as the till adds them; only the commit is
// timed.
#include "AppInit.h"
#include "AppState.h"
#include "BenchVenue.h"
#include "Clock.h"
#include "Db.h"
#include "MessageBox.h"
#include "OutSaleService.h"
#include "VenueGenerator.h"
#include <QCoreApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {
QTemporaryDir* g_dir = nullptr;
QStringList g_wares;
qsizetype g_nextWare = 0;
QString g_durability; // empty when the database runs as the program runs it

void prepareVenue() {
    if (g_dir) return;
    g_dir = new QTemporaryDir;
    VenueSize size;
    size.openBills = 200;
    const GeneratedVenue v = OpenGeneratedVenue(*g_dir, size);
    g_wares = v.wareIds;
    const QString sync = DB().scalar(QStringLiteral("PRAGMA synchronous")).toString();
    const QString journal = DB().scalar(QStringLiteral("PRAGMA journal_mode")).toString();
    if (sync != QLatin1String("2") || journal.compare(QLatin1String("wal"), Qt::CaseInsensitive) != 0)
        g_durability = QStringLiteral("synchronous=%1 journal_mode=%2").arg(sync, journal);
    App().CurrentOperatorName = QStringLiteral("基准");
    App().IsUseWareHouse = 1;
    Clock::install(std::make_unique<FixedClock>(size.end.addSecs(30 * 60)));
    Msg::installRecorder();
}

// 20 lines of the next goods, the third a gift, paid with the next hundred.
OutSaleInput nextSale() {
    OutSaleModel m;
    for (int i = 0; i < 20; ++i) {
        const QString ware = g_wares[g_nextWare++ % g_wares.size()];
        const Row w =
            DB().query(QStringLiteral("select WareName, Price, ProcurePrice from Ware where WareID=?"),
                       {ware})
                .first();
        m.addLine(ware, w.text(QStringLiteral("WareName")), w.money(QStringLiteral("Price")).toString2(),
                  true, w.money(QStringLiteral("ProcurePrice")), QString::number(1 + i % 3), i == 2);
    }
    m.setFactPay(QString::number(qint64(m.thisSum().toDouble() / 100 + 1) * 100));
    return OutSaleService::fromModel(m, QString(), false);
}

void BM_OutSaleCommit(benchmark::State& state) {
    prepareVenue();
    if (!g_durability.isEmpty()) {
        state.SkipWithError(qPrintable(QStringLiteral("not the program's durability: ") + g_durability));
        return;
    }
    OutSaleService service;
    qint64 lines = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const OutSaleInput in = nextSale();
        const qint64 before = DB().scalar(QStringLiteral("select count(*) from OutsaleDetail")).toLongLong();
        state.ResumeTiming();
        const OutSaleDone done = service.SaveData(in);
        state.PauseTiming();
        const qint64 after = DB().scalar(QStringLiteral("select count(*) from OutsaleDetail")).toLongLong();
        if (!done.saved || after - before != 20) {
            state.SkipWithError("the sale was not stored whole");
            break;
        }
        lines += 20;
        state.ResumeTiming();
    }
    if (!Msg::taken().isEmpty()) state.SkipWithError("the sale said something");
    state.counters["lines"] = double(lines);
}
BENCHMARK(BM_OutSaleCommit)
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
