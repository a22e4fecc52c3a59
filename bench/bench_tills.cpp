// Several tills on one venue: how soon a change made at one till shows on the boards of the
// others, and what each change costs them.
//
//   bench_tills [--pg "host=... port=... user=... dbname=..."] [--tills 8] [--seconds 20]
//
// The parent fills a venue (300 rooms, 200 of them in use) and starts the tills as separate
// processes. Each till shows the board on the same room type, with no refresh timer, and once
// a second orders a line into the open bill of "its" room on that tab. Each till prints when
// its write committed and when another till's tile changed on its board; the parent pairs
// them: latency = tile updated − write started (the write itself included), over every
// (change, other till). It also counts the
// statements each till ran for the changes it was told of, and whether any board was rebuilt
// as a whole (it must not be: only the tiles concerned are read again).
#include "AppInit.h"
#include "AppState.h"
#include "BenchVenue.h"
#include "ChangeFeed.h"
#include "Clock.h"
#include "Db.h"
#include "MessageBox.h"
#include "OrderService.h"
#include "RoomBoard.h"
#include "Venue.h"
#include "VenueGenerator.h"
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>

namespace {
qint64 nowUs() {
    return std::chrono::duration_cast<std::chrono::microseconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

DbConfig pgConfig(const QString& conn) {
    DbConfig c = DbConfig::fromPgString(conn);
    c.schema = QStringLiteral("bench_tills");
    return c;
}

// The room type with the most rooms in use, and its rooms in use by code.
std::pair<QString, QStringList> busiestTab() {
    const QString type =
        DB().scalar(QStringLiteral("select AssortID from The where State=1 group by AssortID "
                                   "order by count(*) desc, AssortID limit 1"))
            .toString();
    QStringList rooms;
    for (const Row r : DB().query(
             QStringLiteral("select TheID from The where State=1 and AssortID=? order by TheCode"), {type}))
        rooms << r.text(QStringLiteral("TheID"));
    return {type, rooms};
}

int till(int n, const DbConfig& config, int seconds) {
    App().CurrentOperatorName = QStringLiteral("收银%1").arg(n);
    Msg::installRecorder();
    DB().open(config);
    const auto [type, rooms] = busiestTab();
    const QString myRoom = rooms.value(n - 1);
    const QString bill =
        DB().scalar(QStringLiteral("select ExpenseID from The where TheID=?"), {myRoom}).toString();
    const QString ware = DB().scalar(QStringLiteral("select min(WareID) from Ware")).toString();

    RoomBoard board;
    board.resize(1280, 700);
    board.show();
    board.LoadRoomTabs();
    auto* tabs = board.findChild<QTabBar*>(QStringLiteral("ctabThis"));
    for (int i = 0; i < tabs->count(); ++i)
        if (tabs->tabData(i).toString() == QStringLiteral("K") + type) tabs->setCurrentIndex(i);
    board.selectRoom(myRoom);

    int rebuilds = 0;
    QObject::connect(board.model(), &QAbstractItemModel::rowsRemoved, [&] { ++rebuilds; });
    QObject::connect(board.model(), &QAbstractItemModel::dataChanged, [&](const QModelIndex& tl) {
        if (tl.column() != 0) return;
        const QString theID = board.model()->item(tl.row(), 0)->data(RoomBoard::KeyRole).toString().mid(1);
        std::printf("S %d %s %lld\n", n, qPrintable(theID), static_cast<long long>(nowUs()));
    });
    int notices = 0;
    qint64 before = 0, spent = 0;
    QObject::connect(&ChangeFeed::main(), &ChangeFeed::changed, [&](const QStringList& keys) {
        if (qEnvironmentVariableIsSet("TILLS_DEBUG"))
            std::printf("N %d %s %lld\n", n, qPrintable(keys.join(u',')), static_cast<long long>(nowUs()));
        ++notices;
        before = DB().statements();
    });
    // Slots run in the order they were connected: the count is taken once the board's own
    // handler (connected last) has run and the event loop comes back.
    ChangeFeed::main().start();
    QObject::connect(&ChangeFeed::main(), &ChangeFeed::changed, [&] {
        QTimer::singleShot(0, [&] { spent += DB().statements() - before; });
    });
    QObject::connect(&ChangeFeed::main(), &ChangeFeed::changed, &board, &RoomBoard::applyChanges);

    // Once a second on average, at moments of its own: cashiers do not press keys in step.
    QTimer write;
    write.setSingleShot(true);
    write.setTimerType(Qt::PreciseTimer);
    const auto next = [&] { write.start(500 + int(QRandomGenerator::global()->bounded(1000))); };
    QObject::connect(&write, &QTimer::timeout, [&] {
        OrderLineInput in{bill, {}, ware, QStringLiteral("1.00"), QStringLiteral("0"), QStringLiteral("1"), {}, false};
        // Stamped as the write starts: another till may see the change before this process
        // gets back from the commit, so the time measured includes the write itself.
        const qint64 started = nowUs();
        const LineSaved s = OrderService().SaveLine(in);
        if (s.refusal) std::fprintf(stderr, "till %d: %s\n", n, qPrintable(s.refusal->message));
        std::printf("W %d %s %lld\n", n, qPrintable(myRoom), static_cast<long long>(started));
        std::fflush(stdout);
        next();
    });
    QTimer::singleShot(1000, next);
    QTimer::singleShot(1000 + seconds * 1000 + 1500, qApp, &QCoreApplication::quit);
    qApp->exec();
    std::printf("T %d notices %d statements %lld rebuilds %d\n", n, notices, static_cast<long long>(spent),
                rebuilds);
    std::fflush(stdout);
    return 0;
}

double percentile(std::vector<double> v, double p) {
    if (v.empty()) return 0;
    std::sort(v.begin(), v.end());
    return v[std::min(v.size() - 1, size_t(p * double(v.size() - 1) + 0.5))];
}
} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    InitResources();
    QCommandLineParser cli;
    cli.addOptions({{QStringLiteral("pg"), QStringLiteral("PostgreSQL connection"), QStringLiteral("conn")},
                    {QStringLiteral("sqlite"), QStringLiteral("venue folder (tills only)"), QStringLiteral("dir")},
                    {QStringLiteral("tills"), QStringLiteral("tills"), QStringLiteral("n"), QStringLiteral("8")},
                    {QStringLiteral("seconds"), QStringLiteral("seconds"), QStringLiteral("s"), QStringLiteral("20")},
                    {QStringLiteral("till"), QStringLiteral("run as till n"), QStringLiteral("n")}});
    cli.process(app);
    const int seconds = cli.value(QStringLiteral("seconds")).toInt();
    const int tills = cli.value(QStringLiteral("tills")).toInt();
    const QString pg = cli.value(QStringLiteral("pg"));

    if (cli.isSet(QStringLiteral("till"))) {
        AppInit(cli.value(QStringLiteral("sqlite")).isEmpty() ? QDir::tempPath() : cli.value(QStringLiteral("sqlite")));
        const DbConfig config =
            pg.isEmpty() ? Venue::connection(cli.value(QStringLiteral("sqlite"))) : pgConfig(pg);
        return till(cli.value(QStringLiteral("till")).toInt(), config, seconds);
    }

    // The venue: 300 rooms, 200 in use with 20 lines each, a month of settled bills.
    QTemporaryDir dir;
    Venue::prepare(dir.path());
    AppInit(dir.path());
    DbConfig config = Venue::connection(dir.path());
    if (!pg.isEmpty()) {
        config = pgConfig(pg);
        Db admin(QStringLiteral("admin"));
        DbConfig plain = config;
        plain.schema.clear();
        admin.open(plain);
        admin.exec(QStringLiteral("DROP SCHEMA IF EXISTS bench_tills CASCADE"));
        admin.close();
    }
    Venue::openAndUpgrade(DB(), config);
    VenueSize size;
    size.openBills = 200;
    size.days = 30;
    GenerateVenue(DB(), size);
    const auto [type, rooms] = busiestTab();
    if (rooms.size() < tills) {
        std::fprintf(stderr, "only %d rooms in use on one tab\n", int(rooms.size()));
        return 1;
    }
    DB().close();

    std::printf("%s, %d tills, %d s, one change a second at each, %d rooms in use on the tab shown\n",
                pg.isEmpty() ? "SQLite (several programs on one file)" : "PostgreSQL", tills, seconds,
                int(rooms.size()));
    std::vector<std::unique_ptr<QProcess>> procs;
    for (int n = 1; n <= tills; ++n) {
        auto p = std::make_unique<QProcess>();
        QStringList args{QStringLiteral("--till"), QString::number(n), QStringLiteral("--seconds"),
                         QString::number(seconds)};
        if (pg.isEmpty())
            args << QStringLiteral("--sqlite") << dir.path();
        else
            args << QStringLiteral("--pg") << pg;
        p->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        p->start(QCoreApplication::applicationFilePath(), args);
        procs.push_back(std::move(p));
    }
    // Every event of every till, in time order.
    struct Event {
        qint64 at;
        char kind;
        int till;
        QString room;
    };
    std::vector<Event> events;
    qint64 notices = 0, statements = 0, rebuilds = 0;
    for (auto& p : procs) {
        p->waitForFinished(-1);
        for (const QByteArray& line : p->readAllStandardOutput().split('\n')) {
            if (qEnvironmentVariableIsSet("TILLS_DEBUG")) std::printf("%s\n", line.constData());
            const QList<QByteArray> f = line.split(' ');
            if (f.size() >= 4 && (f[0] == "W" || f[0] == "S"))
                events.push_back({f[3].toLongLong(), f[0][0], f[1].toInt(), QString::fromUtf8(f[2])});
            else if (f.size() >= 8 && f[0] == "T") {
                notices += f[3].toLongLong();
                statements += f[5].toLongLong();
                rebuilds += f[7].toLongLong();
            }
        }
    }
    std::sort(events.begin(), events.end(), [](const Event& a, const Event& b) { return a.at < b.at; });
    // Each tile update of another till's room pairs with the latest commit on that room.
    std::map<QString, std::pair<qint64, int>> lastWrite; // room -> (commit time, writer)
    std::vector<double> latencyMs;
    int writes = 0;
    for (const Event& e : events) {
        if (e.kind == 'W') {
            lastWrite[e.room] = {e.at, e.till};
            ++writes;
        } else if (auto it = lastWrite.find(e.room); it != lastWrite.end() && it->second.second != e.till &&
                                                       it->second.first > 0) {
            latencyMs.push_back(double(e.at - it->second.first) / 1000.0);
        }
    }
    std::printf("changes committed           %d\n", writes);
    std::printf("tile updates at other tills %zu (expected about %d)\n", latencyMs.size(), writes * (tills - 1));
    std::printf("write -> other till's tile: median %.1f ms, p95 %.1f ms, max %.1f ms\n",
                percentile(latencyMs, 0.5), percentile(latencyMs, 0.95), percentile(latencyMs, 1.0));
    std::printf("statements per notice per till %.2f (%lld notices)\n",
                notices ? double(statements) / double(notices) : 0.0, static_cast<long long>(notices));
    std::printf("whole-board rebuilds          %lld\n", static_cast<long long>(rebuilds));
    return 0;
}
