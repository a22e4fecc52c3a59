// The room board: a full rebuild (tabs, the current tab's rooms, the panel of the selected
// room with its running bill and lines) on a large venue, as the refresh timer runs it.
#include "AppInit.h"
#include "AppState.h"
#include "Clock.h"
#include "Db.h"
#include "MessageBox.h"
#include "RoomBoard.h"
#include "Venue.h"
#include "BenchVenue.h"
#include "VenueGenerator.h"
#include <QApplication>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {
QTemporaryDir* g_dir = nullptr;
QString g_openRoom;

// 300 rooms in 12 types, 200 of them in use with 20 lines each, and a year of settled bills.
void prepareVenue() {
    if (g_dir) return;
    g_dir = new QTemporaryDir;
    VenueSize size;
    size.openBills = 200;
    size.openLines = 20;
    const GeneratedVenue v = OpenGeneratedVenue(*g_dir, size);
    g_openRoom = v.roomIds.first();
    App().CurrentOperatorName = QStringLiteral("基准");
    Clock::install(std::make_unique<FixedClock>(size.end.addSecs(30 * 60)));
    Msg::installRecorder();
}

// The board on the tab of a room in use, with that room selected.
void showOpenRoom(RoomBoard& board) {
    board.LoadRoomTabs();
    const QString type =
        DB().scalar(QStringLiteral("select AssortID from The where TheID=?"), {g_openRoom}).toString();
    auto* tabs = board.findChild<QTabBar*>(QStringLiteral("ctabThis"));
    for (int i = 0; i < tabs->count(); ++i)
        if (tabs->tabData(i).toString() == QStringLiteral("K") + type) tabs->setCurrentIndex(i);
    board.selectRoom(g_openRoom);
}

void BM_BoardRebuild(benchmark::State& state) {
    prepareVenue();
    RoomBoard board;
    board.resize(1280, 700);
    board.show();
    showOpenRoom(board);
    if (board.selectedStatus() != QLatin1String("Use")) state.SkipWithError("selected room is not in use");
    for (auto _ : state) {
        board.LoadRoomTabs();
        benchmark::DoNotOptimize(board.model()->rowCount());
    }
    state.counters["rooms"] = board.model()->rowCount();
}
BENCHMARK(BM_BoardRebuild)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly(true);

// The same, and the board painted as the cashier sees it.
void BM_BoardRebuildAndPaint(benchmark::State& state) {
    prepareVenue();
    RoomBoard board;
    board.resize(1280, 700);
    board.show();
    showOpenRoom(board);
    for (auto _ : state) {
        board.LoadRoomTabs();
        QPixmap shot = board.grab();
        benchmark::DoNotOptimize(shot);
    }
}
BENCHMARK(BM_BoardRebuildAndPaint)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly(true);
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
