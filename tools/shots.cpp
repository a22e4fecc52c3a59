// Renders the program's windows to PNG files for a look: shots --home DIR --out DIR
#include "AppInit.h"
#include "AppState.h"
#include "Db.h"
#include "Demo.h"
#include "MessageBox.h"
#include "Venue.h"
#include "frmAbout.h"
#include "frmDbLink.h"
#include "frmLogin.h"
#include "frmMain.h"
#include "frmOption.h"
#include "frmPayLevel.h"
#include <QTabWidget>
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFontDatabase>
#include <QLineEdit>
#include <QTimer>
#include <cstdio>

namespace {
QString g_out;
void save(QWidget* w, const QString& name) {
    w->show();
    QApplication::processEvents();
    const QString path = QDir(g_out).filePath(name + QStringLiteral(".png"));
    w->grab().save(path);
    std::printf("%s\n", qPrintable(path));
}
} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    InitResources();
    QCommandLineParser cli;
    QCommandLineOption home(QStringLiteral("home"), QStringLiteral("venue"), QStringLiteral("DIR"));
    QCommandLineOption out(QStringLiteral("out"), QStringLiteral("output"), QStringLiteral("DIR"));
    cli.addOptions({home, out});
    cli.process(app);
    g_out = cli.value(out);
    QDir().mkpath(g_out);
    if (QFontDatabase::hasFamily(QStringLiteral("Noto Sans CJK SC"))) QApplication::setFont(QFont(QStringLiteral("Noto Sans CJK SC"), 10));
    const QString dir = Venue::resolveHome(cli.value(home));
    Venue::prepare(dir);
    AppInit(dir);
    Msg::installRecorder();

    frmLogin login;
    save(&login, QStringLiteral("frmLogin"));
    login.findChild<QLineEdit*>(QStringLiteral("txtUserName"))->setText(QStringLiteral("admin"));
    login.cmdOK_Click();
    AddDemoVenue(DB());
    frmDbLink link(dir);
    save(&link, QStringLiteral("frmDbLink"));
    frmAbout about;
    save(&about, QStringLiteral("frmAbout"));
    frmMain main;
    main.resize(1366, 768);
    main.Init();
    save(&main, QStringLiteral("frmMain"));
    frmOption option;
    auto* tabs = option.findChild<QTabWidget*>(QStringLiteral("ctbThis"));
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        save(&option, QStringLiteral("frmOption-%1").arg(i));
    }
    frmPayLevel tariff;
    tariff.prepare(QStringLiteral("00000000000000001"));
    save(&tariff, QStringLiteral("frmPayLevel-time"));
    tariff.findChild<QTabWidget*>(QStringLiteral("ctbThis"))->setCurrentIndex(0);
    save(&tariff, QStringLiteral("frmPayLevel-fixed"));
    DB().close();
    return 0;
}
