// Fills a venue folder with a large data set: singbox-generate --home DIR [--open N]
#include "AppInit.h"
#include "Db.h"
#include "VenueGenerator.h"
#include "Venue.h"
#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    InitResources();
    QCommandLineParser cli;
    cli.addHelpOption();
    QCommandLineOption home(QStringLiteral("home"), QStringLiteral("venue folder"), QStringLiteral("DIR"));
    QCommandLineOption open(QStringLiteral("open"), QStringLiteral("rooms left in use"), QStringLiteral("N"), QStringLiteral("0"));
    cli.addOptions({home, open});
    cli.process(app);
    const QString dir = Venue::resolveHome(cli.value(home));
    Venue::prepare(dir);
    AppInit(dir);
    try {
        Venue::openAndUpgrade(DB(), Venue::connection(dir));
        VenueSize size;
        size.openBills = cli.value(open).toInt();
        const GeneratedVenue v = GenerateVenue(DB(), size);
        std::printf("%d rooms, %d goods, %d members, %d settled bills with %d lines, %d open bills\n",
                    int(v.roomIds.size()), int(v.wareIds.size()), int(v.memberCodes.size()), v.settledBills, v.lines,
                    int(v.openBillIds.size()));
        DB().close();
        return 0;
    } catch (const DbError& e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.description));
        return 1;
    }
}
