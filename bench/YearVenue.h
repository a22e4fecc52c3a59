#pragma once
#include "AppInit.h"
#include "Db.h"
#include "Venue.h"
#include "VenueGenerator.h"
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <sqlite3.h>
#include <vector>

// The busy year the report benchmarks read: about 400,000 bills with 4 million lines, counter
// sales and a reconciliation a day. Made once (a few minutes) into a folder kept between runs,
// SINGBOX_BENCH_YEAR or the temporary folder's singbox-bench-year, then opened as it is.
inline VenueSize YearVenueSize() {
    VenueSize size;
    size.billsPerDay = 1100;
    size.linesPerBill = 10;
    size.salesPerDay = 120;
    size.mixedSettlements = true;
    size.employees = 20;
    size.reconcileDaily = true;
    return size;
}

inline QString OpenYearVenue() {
    QString dir = qEnvironmentVariable("SINGBOX_BENCH_YEAR");
    if (dir.isEmpty()) dir = QDir::tempPath() + QStringLiteral("/singbox-bench-year-1");
    const QString done = dir + QStringLiteral("/generated");
    Venue::prepare(dir);
    AppInit(dir);
    if (!QFile::exists(done)) {
        QFile::remove(dir + QStringLiteral("/Data/dat.db"));
        std::printf("making the year venue in %s (once)...\n", qPrintable(dir));
        std::fflush(stdout);
        Venue::openAndUpgrade(DB(), Venue::connection(dir));
        const GeneratedVenue v = GenerateVenue(DB(), YearVenueSize());
        DB().exec(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        std::printf("%d bills, %d lines, %d counter sales\n", v.settledBills, v.lines, v.sales);
        QFile f(done);
        if (!f.open(QIODevice::WriteOnly)) std::fprintf(stderr, "cannot mark %s\n", qPrintable(done));
    } else {
        Venue::openAndUpgrade(DB(), Venue::connection(dir));
    }
    return dir;
}

// The median of `runs` timings of `work`, in milliseconds.
inline double MedianMs(int runs, const std::function<void()>& work) {
    std::vector<double> ms;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        work();
        ms.push_back(double(t.nsecsElapsed()) / 1e6);
    }
    std::sort(ms.begin(), ms.end());
    return ms[ms.size() / 2];
}

// Every row of `sql` with its values bound as text, each column read as the type it holds:
// the same statement without Qt, as a baseline. The number of rows, or -1 on an error.
inline int BareRows(sqlite3* db, const QString& sql, const QStringList& params) {
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
