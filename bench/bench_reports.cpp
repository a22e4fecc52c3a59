// The income query, the sales ranking and the charts on a busy year: each read for the
// whole year timed as the program runs it against the same statement stepped bare through
// sqlite3, and the longest the window's event loop waits while a year-long search runs.
#include "AppState.h"
#include "BusinessQueries.h"
#include "Clock.h"
#include "Format.h"
#include "MessageBox.h"
#include "ReportQuery.h"
#include "YearVenue.h"
#include "frmBusReorder.h"
#include "frmChart.h"
#include "frmFind.h"
#include "frmFindIncome.h"
#include <QApplication>
#include <QDateTimeEdit>
#include <QElapsedTimer>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>

namespace {
struct Read {
    const char* name;
    std::function<Rows(Db&)> run;
};

// The longest pause between two turns of the event loop while `search` runs on `w`.
template <class W> double longestGap(W& w, void (W::*search)()) {
    QElapsedTimer clock;
    qint64 last = 0, worst = 0;
    QTimer tick;
    tick.setInterval(2);
    QObject::connect(&tick, &QTimer::timeout, &w, [&] {
        const qint64 now = clock.nsecsElapsed();
        worst = std::max(worst, now - last);
        last = now;
    });
    clock.start();
    tick.start();
    (w.*search)();
    w.query().wait();
    // The turns after the results came in, the lists and the chart being drawn.
    QElapsedTimer settle;
    settle.start();
    while (settle.elapsed() < 100)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    tick.stop();
    return double(worst) / 1e6;
}

template <class W> void wholeYear(W& w, const QDateTime& start, const QDateTime& end) {
    w.resize(1366, 768);
    w.show();
    w.template findChild<QDateTimeEdit*>(QStringLiteral("dtpStart"))->setDateTime(start);
    w.template findChild<QDateTimeEdit*>(QStringLiteral("dtpEnd"))->setDateTime(end);
}
} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    InitResources();
    OpenYearVenue();
    const VenueSize size = YearVenueSize();
    Clock::install(std::make_unique<FixedClock>(size.end));
    Msg::installRecorder();
    const QDateTime start = size.end.addDays(-size.days - 1), end = size.end.addDays(1);
    const QStringList ends{TimeText(start), TimeText(end)};

    sqlite3* raw = nullptr;
    if (sqlite3_open_v2(qPrintable(DB().config().file), &raw, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) return 1;
    const QList<Read> reads = {
        {"income: bills", [&](Db& db) { return IncomeService(db).bills(start, end, {}); }},
        {"income: counter sales", [&](Db& db) { return IncomeService(db).sales(start, end); }},
        {"ranking: goods", [&](Db& db) { return ReorderService(db).goods(start, end, RankBy::Goods); }},
        {"ranking: goods types", [&](Db& db) { return ReorderService(db).goods(start, end, RankBy::GoodsType); }},
        {"ranking: employees", [&](Db& db) { return ReorderService(db).steward(start, end, {}); }},
        {"chart: days", [&](Db& db) { return ChartService(db).rows(start, end, ChartLine::Day, true, true); }},
        {"chart: weeks", [&](Db& db) { return ChartService(db).rows(start, end, ChartLine::Week, true, true); }},
        {"chart: months", [&](Db& db) { return ChartService(db).rows(start, end, ChartLine::Month, true, true); }},
    };
    std::printf("%-24s %8s %12s %12s %7s\n", "read, the whole year", "rows", "program ms", "sqlite3 ms", "ratio");
    bool ok = true;
    for (const Read& r : reads) {
        int rows = 0, bareRows = 0;
        const double program = MedianMs(5, [&] { rows = r.run(DB()).count(); });
        const QString sql = DB().lastStatement();
        const double plain = MedianMs(5, [&] { bareRows = BareRows(raw, sql, ends); });
        if (rows != bareRows) {
            std::fprintf(stderr, "%s: %d rows bare, %d in the program\n", r.name, bareRows, rows);
            ok = false;
        }
        std::printf("%-24s %8d %12.1f %12.1f %7.2f\n", r.name, rows, program, plain, program / plain);
    }
    sqlite3_close(raw);

    std::printf("\n%-36s %10s\n", "window, a year-long search", "gap ms");
    {
        frmBusReorder w;
        wholeYear(w, start, end);
        std::printf("%-36s %10.1f\n", "ranking by goods", longestGap(w, &frmBusReorder::cmdFind_Click));
        w.findChild<QTabWidget*>(QStringLiteral("ctabThis"))->setCurrentIndex(1);
        std::printf("%-36s %10.1f\n", "ranking by employee", longestGap(w, &frmBusReorder::cmdFind_Click));
    }
    {
        frmChart w;
        wholeYear(w, start, end);
        std::printf("%-36s %10.1f\n", "chart by day", longestGap(w, &frmChart::LoadExpense));
        w.findChild<QRadioButton*>(QStringLiteral("optType1"))->setChecked(true);
        std::printf("%-36s %10.1f\n", "chart by week", longestGap(w, &frmChart::LoadExpense));
    }
    {
        frmFindIncome w;
        wholeYear(w, start, end);
        std::printf("%-36s %10.1f\n", "income (401,500 bills)", longestGap(w, &frmFindIncome::cmdFind_Click));
    }
    {
        frmFind w;
        wholeYear(w, start, end);
        std::printf("%-36s %10.1f\n", "bill query (401,500 bills)", longestGap(w, &frmFind::cmdFind_Click));
    }
    return ok ? 0 : 1;
}
