// The till's windows on a 1366x768 screen at the scaling of the run (QT_SCALE_FACTOR 1, 1.25,
// 1.5): each within the available screen, its amounts and its commit button in sight.
#include "FocusStyle.h"
#include "RoomBoard.h"
#include "RoomUse.h"
#include "ScreenFit.h"
#include "StockRecords.h"
#include "TestKit.h"
#include "frmCheckForm.h"
#include "frmDataImport.h"
#include "frmSetup.h"
#include "frmUpdate.h"
#include "frmBusReorder.h"
#include "frmChart.h"
#include "frmFind.h"
#include "frmFindIncome.h"
#include "frmChongzhi.h"
#include "frmCloseHouse.h"
#include "frmEditReservation.h"
#include "frmEmployee.h"
#include "frmExpenseAmalgamate.h"
#include "frmExpenseDetail.h"
#include "frmHouseChange.h"
#include "frmMain.h"
#include "frmMember.h"
#include "frmMemberList.h"
#include "frmOpenHouse.h"
#include "frmOption.h"
#include "frmOutSale.h"
#include "frmPayLevel.h"
#include "frmReservation.h"
#include "frmShouyinInfo.h"
#include "frmSupplier.h"
#include "frmSupplierList.h"
#include "frmWare.h"
#include "frmWareIn.h"
#include "frmWareLoss.h"
#include "frmWarehouseNum.h"
#include <QFontDatabase>
#include <QScreen>

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
// The windows: a row name, the controls that must be in sight, and how the till makes the
// window ready (nothing for the main window).
struct Window {
    const char* row;
    const char* inSight;
    Make make;
};
const QList<Window>& windows() {
    // clang-format off
    static const QList<Window> all = {
        {"main", "lvwThisIcons lblOughtMoney", nullptr},
        {"checkout", "OKButton txtExpenseMoney txtOughtMoney txtFactPay txtTemp",
         dialog<frmCloseHouse>([](auto* d, auto& b) { d->prepare(b, false); return true; })},
        {"deferred bills", "OKButton txtjzrInfo",
         dialog<frmCloseHouse>([](auto* d, auto&) { d->prepare({}, true); return true; })},
        {"order entry", "cmdAdd txtInput lblThisSum",
         dialog<frmExpenseDetail>([](auto* d, auto& b) { d->Init(b); return true; })},
        {"retail sale", "OKButton cmdAdd txtInput txtOughtMoney txtFactPay txtTemp",
         dialog<frmOutSale>([](auto* d, auto&) { d->Init(); return true; })},
        {"open", "OKButton",
         dialog<frmOpenHouse>([](auto* d, auto&) { return d->prepare(u"r2"_s); })},
        {"change", "OKButton",
         dialog<frmHouseChange>([](auto* d, auto& b) { return d->prepare(b); })},
        {"merge", "OKButton",
         dialog<frmExpenseAmalgamate>([](auto* d, auto&) { d->prepare(); return true; })},
        {"top-up", "OKButton",
         dialog<frmChongzhi>([](auto* d, auto&) { d->prepare(u"M1"_s); return true; })},
        {"member", "OKButton",
         dialog<frmMember>([](auto* d, auto&) { d->startAdd(); return true; })},
        {"members", "cmdClose",
         dialog<frmMemberList>([](auto* d, auto&) { d->prepare(false); return true; })},
        // The manager's windows as well.
        {"options", "cmdClose",
         dialog<frmOption>([](auto*, auto&) { return true; })},
        {"tariff", "cmdOK",
         dialog<frmPayLevel>([](auto* d, auto&) { d->prepare(u"00000000000000001"_s); return true; })},
        {"goods", "cmdOK",
         dialog<frmWare>([](auto* d, auto&) { d->startAdd(); return true; })},
        {"employee", "cmdOK",
         dialog<frmEmployee>([](auto* d, auto&) { d->startAdd(); return true; })},
        {"reservations", "cmdClose",
         dialog<frmReservation>([](auto* d, auto&) { d->LoadReservation(); return true; })},
        {"reservation", "OKButton",
         dialog<frmEditReservation>([](auto* d, auto&) { d->prepare(ReservationMode::Add, u"r2"_s, {}, true); return true; })},
        {"suppliers", "cmdExit",
         dialog<frmSupplierList>([](auto* d, auto&) { d->prepare(false); return true; })},
        {"supplier", "OKButton",
         dialog<frmSupplier>([](auto* d, auto&) { return d->prepare({}); })},
        {"stock", "OKButton",
         dialog<frmWarehouseNum>([](auto* d, auto&) { d->LoadData(); return true; })},
        {"receipt", "OKButton cmdWareOut",
         dialog<frmWareIn>([](auto* d, auto&) { d->prepare(); return true; })},
        {"adjustment", "OKButton",
         dialog<frmWareLoss>([](auto* d, auto&) { d->prepare(); return true; })},
        {"receipts", "cmdClose cmdFind",
         dialog<frmWareInList>([](auto* d, auto&) { d->prepare(0); return true; })},
        {"reconciliation", "OKButton",
         dialog<frmCheckForm>([](auto* d, auto&) { d->LoadData(); return true; })},
        {"hand-overs", "cmdClose cmdFind",
         dialog<frmShouyinInfo>([](auto*, auto&) { return true; })},
        {"bill query", "cmdFind cmdFindPrintOK cmdClose lblSumMoney lblSumFreePay",
         dialog<frmFind>([](auto*, auto&) { return true; })},
        {"income", "cmdFind cmdClose lblThisSumIncome lblSumIncome",
         dialog<frmFindIncome>([](auto*, auto&) { return true; })},
        {"ranking", "cmdFind cmdClose txtSumOughtMoney txtSumTiChengMoney",
         dialog<frmBusReorder>([](auto*, auto&) { return true; })},
        {"chart", "cmdFind cmdClose C1Tab1",
         dialog<frmChart>([](auto*, auto&) { return true; })},
        {"data management", "cmdClose cmdBackup cmdResume cmdClearAllData",
         dialog<frmSetup>([](auto*, auto&) { return true; })},
        {"upgrade", "cmdCancel cmdUpdate cmdSQL Command1",
         dialog<frmUpdate>([](auto*, auto&) { return true; })},
        {"goods import", "cmdClose cmdShowData cmdDo",
         dialog<frmDataImport>([](auto*, auto&) { return true; })},
    };
    // clang-format on
    return all;
}
} // namespace

class TestFitScreen : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void windows_fit_data();
    void windows_fit();
};

void TestFitScreen::windows_fit_data() {
    QTest::addColumn<int>("window");
    for (int i = 0; i < windows().size(); ++i)
        QTest::newRow(windows()[i].row) << i;
}

void TestFitScreen::windows_fit() {
    QFETCH(int, window);
    const Window& win = windows()[window];
    NEW_VENUE(v);
    const QString bill = addVenue();
    frmMain main;
    std::unique_ptr<QWidget> w;
    if (!win.make) {
        main.Init();
        main.showMaximized();
    } else {
        main.resize(600, 400);
        main.show();
        w.reset(win.make(&main, bill));
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
    for (const QString& name : QString::fromLatin1(win.inSight).split(u' ')) {
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
