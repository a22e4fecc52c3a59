// Renders the report windows on a venue with a history (the benchmarks' year venue does):
// report_shots --home DIR --out DIR [--scale-note TEXT]
#include "AppInit.h"
#include "AppState.h"
#include "Clock.h"
#include "Db.h"
#include "MessageBox.h"
#include "ReportQuery.h"
#include "Venue.h"
#include "frmFind.h"
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeView>
#include <cstdio>

namespace {
QString g_out;
void save(QWidget* w, const QString& name) {
    w->show();
    QApplication::processEvents();
    const QString path = QDir(g_out).filePath(name + QStringLiteral(".png"));
    w->grab().save(path);
    std::printf("%s %dx%d\n", qPrintable(path), w->width(), w->height());
}
template <class W> void search(W& w) {
    w.cmdFind_Click();
    w.query().wait();
    QApplication::processEvents();
}
} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    InitResources();
    QCommandLineParser cli;
    QCommandLineOption home(QStringLiteral("home"), QStringLiteral("venue"), QStringLiteral("DIR"));
    QCommandLineOption out(QStringLiteral("out"), QStringLiteral("folder"), QStringLiteral("DIR"));
    cli.addOptions({home, out});
    cli.process(app);
    g_out = cli.value(out);
    QDir().mkpath(g_out);
    const QString dir = cli.value(home);
    AppInit(dir);
    Venue::openAndUpgrade(DB(), Venue::connection(dir));
    const QString last = DB().scalar(QStringLiteral("select max(CloseTime) from Expense")).toString();
    Clock::install(std::make_unique<FixedClock>(QDateTime::fromString(last, QStringLiteral("yyyy-MM-dd HH:mm"))));
    App().CurrentOperatorName = QStringLiteral("系统管理员");
    Msg::installRecorder();

    frmFind find;
    find.findChild<QRadioButton*>(QStringLiteral("optDay1"))->click();
    search(find);
    auto* bills = find.findChild<QTreeView*>(QStringLiteral("lvwExpense"));
    bills->setCurrentIndex(bills->model()->index(0, 0));
    save(&find, QStringLiteral("frmFind"));
    find.findChild<QTabWidget*>(QStringLiteral("ctbThis"))->setCurrentIndex(1);
    auto* sales = find.findChild<QTreeView*>(QStringLiteral("lvwOutSale"));
    sales->setCurrentIndex(sales->model()->index(0, 0));
    save(&find, QStringLiteral("frmFind-sales"));
    DB().close();
    return 0;
}
