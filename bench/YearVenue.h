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
