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
#include <sqlite3.h>

namespace {
// Every row of `sql` with its values bound, each column read as the type it holds.
int bare(sqlite3* db, const QString& sql, const QStringList& params) {
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &st, nullptr) != SQLITE_OK) {
        std::fprintf(stderr, "%s\n", sqlite3_errmsg(db));
        return -1;
    }
    QList<QByteArray> texts;
    for (const QString& p : params)
        texts << p.toUtf8();
    for (int i = 0; i < texts.size(); ++i)
        sqlite3_bind_text(st, i + 1, texts[i].constData(), int(texts[i].size()), SQLITE_STATIC);
    int rows = 0;
    qint64 sink = 0;
    const int cols = sqlite3_column_count(st);
    while (sqlite3_step(st) == SQLITE_ROW) {
        for (int c = 0; c < cols; ++c) {
            switch (sqlite3_column_type(st, c)) {
            case SQLITE_INTEGER: sink += sqlite3_column_int64(st, c); break;
            case SQLITE_FLOAT: sink += qint64(sqlite3_column_double(st, c)); break;
            case SQLITE_TEXT:
                sqlite3_column_text(st, c);
                sink += sqlite3_column_bytes(st, c);
                break;
            default: break;
            }
        }
        ++rows;
    }
    sqlite3_finalize(st);
    return sink < 0 ? -1 : rows;
}

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
        const double plain = MedianMs(runs, [&] { bareRows = bare(raw, sql, params); });
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
