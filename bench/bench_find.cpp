// The bill query on a busy year: each of its reads for a month and for the whole year, timed
// as the program runs it (Qt SQL into the rows the lists are filled from) against the same
// statement stepped bare through sqlite3 on the same file, and the month as the manager sees
// it: the read off the window's thread and the lists filled.
#include "AppState.h"
#include "Clock.h"
#include "FindService.h"
#include "Format.h"
#include "RowsList.h"
#include "MessageBox.h"
#include "ReportQuery.h"
#include "YearVenue.h"
#include "frmFind.h"
#include <QApplication>
#include <QDateTimeEdit>
#include <QTreeView>

namespace {
struct Read {
    const char* name;
    std::function<Rows(Db&)> run;
};
} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    InitResources();
    const QString dir = OpenYearVenue();
    const VenueSize size = YearVenueSize();
    Clock::install(std::make_unique<FixedClock>(size.end));
    Msg::installRecorder();
    const QDateTime monthStart(QDate(2026, 10, 1), QTime(0, 0)), monthEnd(QDate(2026, 11, 1), QTime(0, 0));
    const QDateTime yearStart = size.end.addDays(-size.days - 1), yearEnd = size.end.addDays(1);
    const QString someBill = DB().scalar(QStringLiteral("select max(ExpenseID) from Expense where State=0")).toString();
    const QString someSale = DB().scalar(QStringLiteral("select max(ExpenseID) from Outsale")).toString();

    sqlite3* raw = nullptr;
    if (sqlite3_open_v2(qPrintable(DB().config().file), &raw, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        std::fprintf(stderr, "cannot open %s\n", qPrintable(DB().config().file));
        return 1;
    }
    const QList<Read> reads = {
        {"bills, a month", [&](Db& db) { return FindService(db).bills(monthStart, monthEnd, {}); }},
        {"bills, the year", [&](Db& db) { return FindService(db).bills(yearStart, yearEnd, {}); }},
        {"paid bills, a month", [&](Db& db) { return FindService(db).bills(monthStart, monthEnd, {true, false, false}); }},
        {"counter sales, a month", [&](Db& db) { return FindService(db).sales(monthStart, monthEnd); }},
        {"counter sales, the year", [&](Db& db) { return FindService(db).sales(yearStart, yearEnd); }},
        {"a bill's lines", [&](Db& db) { return FindService(db).billLines(someBill, true); }},
        {"a sale's lines", [&](Db& db) { return FindService(db).saleLines(someSale); }},
    };
    std::printf("%-26s %8s %12s %12s %7s\n", "read", "rows", "program ms", "sqlite3 ms", "ratio");
    bool ok = true;
    for (const Read& r : reads) {
        const bool year = QByteArray(r.name).contains("year");
        const int runs = year ? 5 : 15;
        int rows = 0;
        const double program = MedianMs(runs, [&] { rows = r.run(DB()).count(); });
        const QString sql = DB().lastStatement();
        // The values the program bound, in the program's text.
        QStringList params;
        if (QByteArray(r.name).contains("lines"))
            params << (QByteArray(r.name).contains("bill") ? someBill : someSale);
        else if (year)
            params << TimeText(yearStart) << TimeText(yearEnd);
        else
            params << TimeText(monthStart) << TimeText(monthEnd);
        int bareRows = 0;
        const double plain = MedianMs(runs, [&] { bareRows = BareRows(raw, sql, params); });
        if (bareRows != rows) {
            std::fprintf(stderr, "%s: %d rows bare, %d in the program\n", r.name, bareRows, rows);
            ok = false;
        }
        std::printf("%-26s %8d %12.1f %12.1f %7.2f\n", r.name, rows, program, plain, program / plain);
    }
    sqlite3_close(raw);

    // Filling the list of a month's bills, apart from reading them.
    {
        const Rows month = FindService().bills(monthStart, monthEnd, {});
        QTreeView list;
        const double fill = MedianMs(5, [&] { ShowRows(&list, QStringLiteral("frmFind.lvwExpense"), month, true); });
        std::printf("%-26s %8d %12.1f\n", "month list filled, sorted", month.count(), fill);
    }
    // The month as the window shows it: read off the window's thread, lists filled.
    frmFind w;
    w.resize(1366, 768);
    w.show();
    auto* start = w.findChild<QDateTimeEdit*>(QStringLiteral("dtpStart"));
    auto* end = w.findChild<QDateTimeEdit*>(QStringLiteral("dtpEnd"));
    start->setDateTime(monthStart);
    end->setDateTime(monthEnd);
    int shown = 0;
    const double view = MedianMs(9, [&] {
        w.cmdFind_Click();
        w.query().wait();
        shown = w.findChild<QTreeView*>(QStringLiteral("lvwExpense"))->model()->rowCount();
    });
    std::printf("%-26s %8d %12.1f\n", "month view (window)", shown, view);
    std::printf("venue: %s\n", qPrintable(dir));
    return ok ? 0 : 1;
}
