#include "AppInit.h"
#include "AppState.h"
#include "Db.h"
#include "Demo.h"
#include "FocusStyle.h"
#include "GuardedApplication.h"
#include "MessageBox.h"
#include "PrintUi.h"
#include "Schema.h"
#include "ScreenFit.h"
#include "Venue.h"
#include "frmLogin.h"
#include "frmMain.h"
#include <QApplication>
#include <QCommandLineParser>
#include <QFontDatabase>
#include <QIcon>
#include <QTimer>
#include <cstdio>

namespace {
int initVenue(const QString& home, bool demo) {
    Venue::prepare(home);
    AppInit(home);
    try {
        Venue::openAndUpgrade(DB(), Venue::connection(home));
        if (demo) AddDemoVenue(DB());
        std::printf("%s\n", qPrintable(QStringLiteral("venue ready: %1 (database version %2)")
                                           .arg(home)
                                           .arg(Schema::currentVersion(DB()))));
        DB().close();
        return 0;
    } catch (const DbError& e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.description));
        return 1;
    }
}

void chooseFont() {
    for (const char* family : {"Noto Sans CJK SC", "Microsoft YaHei", "WenQuanYi Micro Hei", "PingFang SC"}) {
        if (QFontDatabase::hasFamily(QString::fromLatin1(family))) {
            QFont f{QString::fromLatin1(family)};
            f.setPointSizeF(QApplication::font().pointSizeF() > 0 ? QApplication::font().pointSizeF() : 10);
            QApplication::setFont(f);
            return;
        }
    }
}

struct Options {
    QString home;
    bool init = false;
    bool demo = false;
};

Options parse(const QCoreApplication& app) {
    QCommandLineParser cli;
    cli.setApplicationDescription(QStringLiteral(
        "星澜KTV: rooms, orders, checkout and members of a karaoke venue.\n"
        "Without --home the venue folder is SINGBOX_HOME, else the program's own folder\n"
        "when writable (never for an installed program), else the user's application-data folder."));
    cli.addHelpOption();
    cli.addVersionOption();
    QCommandLineOption home(QStringLiteral("home"), QStringLiteral("venue folder"), QStringLiteral("DIR"));
    QCommandLineOption init(QStringLiteral("init"), QStringLiteral("create or upgrade the venue and exit"));
    QCommandLineOption demo(QStringLiteral("demo"), QStringLiteral("add a small demo venue"));
    cli.addOptions({home, init, demo});
    cli.process(app);
    return {Venue::resolveHome(cli.value(home)), cli.isSet(init), cli.isSet(demo)};
}

bool isHeadlessOption(const char* arg) {
    for (const char* o : {"--init", "-init", "--version", "-v", "--help", "-h", "-?", "--help-all"})
        if (qstrcmp(arg, o) == 0) return true;
    return false;
}
} // namespace

int main(int argc, char* argv[]) {
    // Setting up a venue, the version and the help need no screen: deployment scripts run them headless.
    bool headless = false;
    for (int i = 1; i < argc; ++i)
        if (isHeadlessOption(argv[i])) headless = true;
    if (headless) {
        QCoreApplication app(argc, argv);
        QCoreApplication::setApplicationName(QStringLiteral("singbox"));
        QCoreApplication::setApplicationVersion(QStringLiteral(SINGBOX_VERSION));
        InitResources();
        const Options o = parse(app);
        return initVenue(o.home, o.demo);
    }

    GuardedApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("singbox"));
    QApplication::setApplicationVersion(QStringLiteral(SINGBOX_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("cn.xinglan.singbox"));
    InitResources();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/app/images/singbox.svg")));
    const Options o = parse(app);
    const QString dir = o.home;
    if (o.demo && initVenue(dir, true) != 0) return 1;

    chooseFont();
    InstallFocusStyle();
    ScreenFit::installForAllWindows();
    try {
        Venue::prepare(dir);
        AppInit(dir);
        InstallPrinting();
    } catch (...) {
        Msg::ShowError(QStringLiteral("系统初始化错误！"));
        return 1;
    }
    QApplication::setApplicationDisplayName(App().AppTitle);

    frmLogin login;
    // For the start-up benchmark: leave as soon as the sign-in window is on screen.
    if (qEnvironmentVariableIsSet("SINGBOX_EXIT_WHEN_SHOWN"))
        QTimer::singleShot(0, &login, [&login] {
            if (login.isVisible()) login.reject();
        });
    if (login.exec() != QDialog::Accepted) return 0;
    frmMain main;
    app.setOnError([&main] { main.SaveMemo(); });
    main.showMaximized(); // the till takes the whole screen, whatever its size
    main.Init();
    main.refreshOperatorPanel();
    const int rc = QApplication::exec();
    DB().close();
    return rc;
}
