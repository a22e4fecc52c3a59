// The till's windows on a 1366x768 screen at the scaling of the run (QT_SCALE_FACTOR 1, 1.25,
// 1.5): each within the available screen, its amounts and its commit button in sight.
#include "FocusStyle.h"
#include "FormProbe.h"
#include "MessageBox.h"
#include "Password.h"
#include "RoomBoard.h"
#include "RoomUse.h"
#include "ScreenFit.h"
#include "Seed.h"
#include "TestVenue.h"
#include "frmChongzhi.h"
#include "frmCloseHouse.h"
#include "frmEditReservation.h"
#include "frmEmployee.h"
#include "frmReservation.h"
#include "frmSupplier.h"
#include "frmSupplierList.h"
#include "frmWarehouseNum.h"
#include "StockRecords.h"
#include "frmCheckForm.h"
#include "frmShouyinInfo.h"
#include "frmWareIn.h"
#include "frmWareLoss.h"
#include "frmExpenseAmalgamate.h"
#include "frmExpenseDetail.h"
#include "frmOutSale.h"
#include "frmHouseChange.h"
#include "frmMain.h"
#include "frmMember.h"
#include "frmMemberList.h"
#include "frmOpenHouse.h"
#include "frmOption.h"
#include "frmPayLevel.h"
#include "frmWare.h"
#include "frmDataImport.h"
#include "frmSetup.h"
#include "frmUpdate.h"
#include <QApplication>
#include <QFontDatabase>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
// A room in use with its bill, a free one, a member with stored value; gives the bill.
QString addVenue() {
    addRoomType(u"a"_s, u"豪华大包厢"_s);
    addRoom(u"r1"_s, u"A01"_s, u"a"_s);
    addRoom(u"r2"_s, u"A02"_s, u"a"_s);
    DB().exec(u"insert into MemberSetup (SetupID, SetupName, InitValue, StepValue, discount) "
              "values ('s1', '金卡', 0, 10, 0.9)"_s);
    DB().exec(u"insert into Member (MemberCode, MemberName, SetupID, chongzhi, State, pw, "
              "MemberValue, sumValue) values ('M1', '张三', 's1', ?, 0, ?, 0, 0)"_s,
              {Money::yuan(50), Password::hash(u"8888"_s)});
    return RoomUseService().open({u"r1"_s, u"生日聚会"_s, u"6"_s, {}, u"0"_s, true, 1}).expenseID;
}

// Wholly in sight: shown, not clipped by a scroll area or the window's edge.
bool inSight(QWidget* w) {
    if (!w->isVisible()) return false;
    const QRect inWindow(w->mapTo(w->window(), QPoint(0, 0)), w->size());
    return w->window()->rect().contains(inWindow) && w->visibleRegion().boundingRect().size() == w->size();
}

// Each dialog made ready as the till shows it, on the bill given; null when it would not open.
using Make = std::function<QWidget*(QWidget* parent, const QString& bill)>;
template <class W, class F> Make dialog(F prepare) {
    return [prepare](QWidget* parent, const QString& bill) -> QWidget* {
        auto* d = new W(parent);
        return prepare(d, bill) ? d : nullptr;
    };
}
} // namespace

class TestFitScreen : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void windows_fit_data();
    void windows_fit();
};

void TestFitScreen::windows_fit_data() {
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("inSight");
    QTest::newRow("main") << "frmMain"
                          << "lvwThisIcons lblOughtMoney";
    QTest::newRow("checkout") << "frmCloseHouse"
                              << "OKButton txtExpenseMoney txtOughtMoney txtFactPay txtTemp";
    QTest::newRow("deferred bills") << "frmCloseHouse-deferred"
                                    << "OKButton txtjzrInfo";
    QTest::newRow("order entry") << "frmExpenseDetail"
                                 << "cmdAdd txtInput lblThisSum";
    QTest::newRow("retail sale") << "frmOutSale"
                                 << "OKButton cmdAdd txtInput txtOughtMoney txtFactPay txtTemp";
    QTest::newRow("open") << "frmOpenHouse"
                          << "OKButton";
    QTest::newRow("change") << "frmHouseChange"
                            << "OKButton";
    QTest::newRow("merge") << "frmExpenseAmalgamate"
                           << "OKButton";
    QTest::newRow("top-up") << "frmChongzhi"
                            << "OKButton";
    QTest::newRow("member") << "frmMember"
                            << "OKButton";
    QTest::newRow("members") << "frmMemberList"
                             << "cmdClose";
    // The manager's windows as well.
    QTest::newRow("options") << "frmOption"
                             << "cmdClose";
    QTest::newRow("tariff") << "frmPayLevel"
                            << "cmdOK";
    QTest::newRow("goods") << "frmWare"
                           << "cmdOK";
    QTest::newRow("employee") << "frmEmployee"
                              << "cmdOK";
    QTest::newRow("reservations") << "frmReservation"
                                  << "cmdClose";
    QTest::newRow("reservation") << "frmEditReservation"
                                 << "OKButton";
    QTest::newRow("suppliers") << "frmSupplierList"
                               << "cmdExit";
    QTest::newRow("supplier") << "frmSupplier"
                              << "OKButton";
    QTest::newRow("stock") << "frmWarehouseNum"
                           << "OKButton";
    QTest::newRow("receipt") << "frmWareIn"
                             << "OKButton cmdWareOut";
    QTest::newRow("adjustment") << "frmWareLoss"
                                << "OKButton";
    QTest::newRow("receipts") << "frmWareInList"
                              << "cmdClose cmdFind";
    QTest::newRow("reconciliation") << "frmCheckForm"
                                    << "OKButton";
    QTest::newRow("hand-overs") << "frmShouyinInfo"
                                << "cmdClose cmdFind";
    QTest::newRow("data management") << "frmSetup"
                                     << "cmdClose cmdBackup cmdResume cmdClearAllData";
    QTest::newRow("upgrade") << "frmUpdate"
                             << "cmdCancel cmdUpdate cmdSQL Command1";
    QTest::newRow("goods import") << "frmDataImport"
                                  << "cmdClose cmdShowData cmdDo";
}

void TestFitScreen::windows_fit() {
    QFETCH(QString, window);
    QFETCH(QString, inSight);
    NEW_VENUE(v);
    const QString bill = addVenue();
    // clang-format off
    const std::map<QString, Make> make = {
        {u"frmCloseHouse"_s, dialog<frmCloseHouse>([](auto* d, auto& b) { d->prepare(b, false); return true; })},
        {u"frmCloseHouse-deferred"_s, dialog<frmCloseHouse>([](auto* d, auto&) { d->prepare({}, true); return true; })},
        {u"frmExpenseDetail"_s, dialog<frmExpenseDetail>([](auto* d, auto& b) { d->Init(b); return true; })},
        {u"frmOutSale"_s, dialog<frmOutSale>([](auto* d, auto&) { d->Init(); return true; })},
        {u"frmOpenHouse"_s, dialog<frmOpenHouse>([](auto* d, auto&) { return d->prepare(u"r2"_s); })},
        {u"frmHouseChange"_s, dialog<frmHouseChange>([](auto* d, auto& b) { return d->prepare(b); })},
        {u"frmExpenseAmalgamate"_s, dialog<frmExpenseAmalgamate>([](auto* d, auto&) { d->prepare(); return true; })},
        {u"frmChongzhi"_s, dialog<frmChongzhi>([](auto* d, auto&) { d->prepare(u"M1"_s); return true; })},
        {u"frmMember"_s, dialog<frmMember>([](auto* d, auto&) { d->startAdd(); return true; })},
        {u"frmMemberList"_s, dialog<frmMemberList>([](auto* d, auto&) { d->prepare(false); return true; })},
        {u"frmOption"_s, dialog<frmOption>([](auto*, auto&) { return true; })},
        {u"frmPayLevel"_s, dialog<frmPayLevel>([](auto* d, auto&) { d->prepare(u"00000000000000001"_s); return true; })},
        {u"frmWare"_s, dialog<frmWare>([](auto* d, auto&) { d->startAdd(); return true; })},
        {u"frmEmployee"_s, dialog<frmEmployee>([](auto* d, auto&) { d->startAdd(); return true; })},
        {u"frmSupplierList"_s, dialog<frmSupplierList>([](auto* d, auto&) { d->prepare(false); return true; })},
        {u"frmSupplier"_s, dialog<frmSupplier>([](auto* d, auto&) { return d->prepare({}); })},
        {u"frmCheckForm"_s, dialog<frmCheckForm>([](auto* d, auto&) { d->LoadData(); return true; })},
        {u"frmShouyinInfo"_s, dialog<frmShouyinInfo>([](auto*, auto&) { return true; })},
        {u"frmWareIn"_s, dialog<frmWareIn>([](auto* d, auto&) { d->prepare(); return true; })},
        {u"frmWareLoss"_s, dialog<frmWareLoss>([](auto* d, auto&) { d->prepare(); return true; })},
        {u"frmWareInList"_s, dialog<frmWareInList>([](auto* d, auto&) { d->prepare(0); return true; })},
        {u"frmWarehouseNum"_s, dialog<frmWarehouseNum>([](auto* d, auto&) { d->LoadData(); return true; })},
        {u"frmSetup"_s, dialog<frmSetup>([](auto*, auto&) { return true; })},
        {u"frmUpdate"_s, dialog<frmUpdate>([](auto*, auto&) { return true; })},
        {u"frmDataImport"_s, dialog<frmDataImport>([](auto*, auto&) { return true; })},
        {u"frmReservation"_s, dialog<frmReservation>([](auto* d, auto&) { d->LoadReservation(); return true; })},
        {u"frmEditReservation"_s, dialog<frmEditReservation>([](auto* d, auto&) { d->prepare(ReservationMode::Add, u"r2"_s, {}, true); return true; })},
    };
    // clang-format on
    frmMain main;
    std::unique_ptr<QWidget> w;
    if (window == u"frmMain"_s) {
        main.Init();
        main.showMaximized();
    } else {
        main.resize(600, 400);
        main.show();
        w.reset(make.at(window)(&main, bill));
        QVERIFY(w);
        w->show();
    }
    QWidget* shown = w ? w.get() : &main;
    QVERIFY(QTest::qWaitForWindowExposed(shown));
    QApplication::processEvents();
    Msg::taken();

    // A maximized window may round a scaled screen up by a pixel.
    const QRect avail = shown->screen()->availableGeometry().adjusted(-1, -1, 1, 1);
    QString where;
    QDebug(&where) << shown->frameGeometry() << "on" << avail;
    QVERIFY2(avail.contains(shown->frameGeometry()), qPrintable(where));
    for (const QString& name : inSight.split(u' ')) {
        auto* c = shown->findChild<QWidget*>(name);
        QVERIFY2(c && ::inSight(c), qPrintable(name + u" out of sight"_s));
    }
}

int main(int argc, char** argv) {
    // A 1366x768 screen; the run's QT_SCALE_FACTOR makes it smaller in logical pixels.
    QTemporaryDir dir;
    QFile config(dir.filePath(u"screen.json"_s));
    if (!config.open(QIODevice::WriteOnly)) return 1;
    config.write(R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": true,
        "screens": [{"name": "till", "x": 0, "y": 0, "width": 1366, "height": 768,
                     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    config.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + config.fileName().toLocal8Bit());
    QApplication app(argc, argv);
    // The program's own font, taller than the platform's plain one.
    if (QFontDatabase::hasFamily(u"Noto Sans CJK SC"_s))
        QApplication::setFont(QFont(u"Noto Sans CJK SC"_s, 10));
    InstallFocusStyle();
    ScreenFit::installForAllWindows();
    TestFitScreen test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_fit_screen.moc"
