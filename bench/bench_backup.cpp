// Backup of a year-long venue with the program's connection open, against a plain copy of
// the same file.
//
//   bench_backup [--runs 15] [--days 365]
//
// Prints the median of each and their ratio. The copy is of the file after a checkpoint, the
// best a closed-file copy could do; the backup runs through the open connection, as the
// window does.
#include "AppState.h"
#include "BenchVenue.h"
#include "DataAdmin.h"
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <cstdio>

namespace {
double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.size() % 2 ? v[v.size() / 2] : (v[v.size() / 2 - 1] + v[v.size() / 2]) / 2;
}
} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCommandLineParser p;
    p.addOption(
        {QStringLiteral("runs"), QStringLiteral("Runs of each."), QStringLiteral("n"), QStringLiteral("15")});
    p.addOption({QStringLiteral("days"), QStringLiteral("Days of business."), QStringLiteral("n"),
                 QStringLiteral("365")});
    p.process(app);
    const int runs = std::max(1, p.value(QStringLiteral("runs")).toInt());
    QTemporaryDir dir;
    VenueSize size;
    size.days = p.value(QStringLiteral("days")).toInt();
    const GeneratedVenue g = OpenGeneratedVenue(dir, size);
    DB().exec(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
    const QString live = Venue::databaseFile(dir.path());
    const qint64 bytes = QFileInfo(live).size();
    std::printf("venue: %d settled bills, %d lines, %.1f MB\n", g.settledBills, g.lines, bytes / 1048576.0);

    std::vector<double> copy, backup;
    const QString target = dir.filePath(QStringLiteral("DBBackup/bench.db"));
    for (int i = 0; i < runs; ++i) {
        QFile::remove(target);
        QElapsedTimer t;
        t.start();
        if (!QFile::copy(live, target)) return 1;
        copy.push_back(t.nsecsElapsed() / 1e6);

        QFile::remove(target);
        t.restart();
        int steps = 0;
        const QString why = DataAdmin::BackupDatabase(target, false, DB(), [&](int, int) { ++steps; });
        backup.push_back(t.nsecsElapsed() / 1e6);
        if (!why.isEmpty()) {
            std::printf("backup failed: %s\n", qPrintable(why));
            return 1;
        }
        // The connection is still the program's: it reads on.
        DB().scalar(QStringLiteral("select count(*) from Expense"));
    }
    const double c = median(copy), b = median(backup);
    std::printf("copy of the file:   median %.1f ms over %d runs\n", c, runs);
    std::printf("online backup:      median %.1f ms over %d runs\n", b, runs);
    std::printf("ratio backup/copy:  %.2f (must stay within 1.5)\n", b / c);
    return b / c <= 1.5 ? 0 : 2;
}
