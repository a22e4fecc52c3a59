// One cashier PC of the race and crash runs: opens the venue's database and plays its part of
// a scenario in time slots shared with the other workers, or a random mixed load until killed.
//   race_worker DB SCHEMA SCENARIO WORKER WORKERS ROUNDS START_MS SLOT_MS
//   race_worker DB SCHEMA mixed SEED
// DB is "sqlite:FILE" or "pg:CONNECTION"; SCHEMA is the PostgreSQL schema or "-".
#include "AppState.h"
#include "RaceVenue.h"
#include <QCoreApplication>
#include <QDateTime>
#include <QThread>
#include <cstdio>

namespace {
void say(const QString& line) {
    std::fputs(line.toUtf8().constData(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}
} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    if (a.size() < 5) return 2;
    DbConfig c;
    const QString db = a[1];
    if (db.startsWith(QLatin1String("pg:"))) {
        c = DbConfig::fromPgString(db.mid(3));
        if (a[2] != QLatin1String("-")) c.schema = a[2];
    } else {
        c.file = db.mid(7);
    }
    App().CurrentOperatorName = QStringLiteral("收银") + a.value(4);
    try {
        DB().open(c);
    } catch (const DbError& e) {
        say(QStringLiteral("FAIL\t") + e.description);
        return 1;
    }
    if (a[3] == QLatin1String("mixed")) {
        quint32 seed = a[4].toUInt();
        for (;;) {
            QString r;
            try {
                r = Race::playMixed(seed++);
            } catch (const DbError& e) {
                r = QStringLiteral("Error ") + e.description;
            }
            if (Race::isRawError(r)) say(QStringLiteral("RAW\t") + r.simplified());
        }
    }
    if (a.size() < 9) return 2;
    const QString scenario = a[3];
    const int worker = a[4].toInt(), workers = a[5].toInt(), rounds = a[6].toInt();
    const qint64 start = a[7].toLongLong(), slot = a[8].toLongLong();
    for (int r = 0; r < rounds; ++r) {
        const qint64 wait = start + r * slot - QDateTime::currentMSecsSinceEpoch();
        if (wait > 0) QThread::msleep(quint64(wait));
        QString out;
        try {
            out = Race::play(scenario, r, worker, workers);
        } catch (const DbError& e) {
            out = QStringLiteral("Error ") + e.description;
        }
        say(QString::number(r) + QLatin1Char('\t') + out.simplified());
    }
    return 0;
}
