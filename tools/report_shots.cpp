// Renders the report windows on a venue with a history (the benchmarks' year venue does):
// report_shots --home DIR --out DIR [--scale-note TEXT]
#include "ShotSave.h"
#include "AppInit.h"
#include "AppState.h"
#include "Clock.h"
#include "Db.h"
#include "MessageBox.h"
#include "ReportQuery.h"
#include "Venue.h"
#include "frmFind.h"
#include "frmBusReorder.h"
#include "frmChart.h"
#include "frmFindIncome.h"
#include <QComboBox>
#include <QApplication>
#include <QDateTimeEdit>
#include <QDir>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeView>
#include <cstdio>

namespace {
QString g_out;
void save(QWidget* w, const QString& name) {
    SaveShot(w, g_out, name);
}
template <class W> void search(W& w) {
    if constexpr (requires { w.LoadExpense(); })
        w.LoadExpense();
    else
        w.cmdFind_Click();
    w.query().wait();
    QApplication::processEvents();
}
} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    InitResources();
    const ShotOptions opts = ParseShotOptions(app);
    g_out = opts.out;
    const QString dir = opts.home;
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

    frmFindIncome income;
    income.findChild<QRadioButton*>(QStringLiteral("optDay1"))->click();
    search(income);
    save(&income, QStringLiteral("frmFindIncome"));

    frmBusReorder reorder;
    reorder.findChild<QRadioButton*>(QStringLiteral("optDay2"))->click();
    search(reorder);
    save(&reorder, QStringLiteral("frmBusReorder"));
    reorder.findChild<QRadioButton*>(QStringLiteral("optType1"))->setChecked(true);
    search(reorder);
    save(&reorder, QStringLiteral("frmBusReorder-types"));
    reorder.findChild<QTabWidget*>(QStringLiteral("ctabThis"))->setCurrentIndex(1);
    search(reorder);
    save(&reorder, QStringLiteral("frmBusReorder-employees"));

    frmChart chart;
    chart.findChild<QRadioButton*>(QStringLiteral("optDay2"))->click();
    search(chart);
    save(&chart, QStringLiteral("frmChart-day"));
    const QDateTime now = Now();
    chart.findChild<QDateTimeEdit*>(QStringLiteral("dtpStart"))->setDateTime(QDateTime(QDate(now.date().year(), 1, 1), QTime(0, 0)));
    chart.findChild<QRadioButton*>(QStringLiteral("optType1"))->setChecked(true);
    search(chart);
    save(&chart, QStringLiteral("frmChart-week"));
    chart.findChild<QRadioButton*>(QStringLiteral("optType2"))->setChecked(true);
    search(chart);
    save(&chart, QStringLiteral("frmChart-month"));
    chart.findChild<QTabWidget*>(QStringLiteral("C1Tab1"))->setCurrentIndex(1);
    save(&chart, QStringLiteral("frmChart-list"));
    DB().close();
    return 0;
}
