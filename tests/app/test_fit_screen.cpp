// The till's windows on a 1366x768 screen at the scaling of the run (QT_SCALE_FACTOR 1, 1.25,
// 1.5): each within the available screen, its amounts and its commit button in sight.
#include "FocusStyle.h"
#include "RoomUse.h"
#include "ScreenFit.h"
#include "StockRecords.h"
#include "TestKit.h"
#include "frmBusReorder.h"
#include "frmChart.h"
#include "frmCheckForm.h"
#include "frmChongzhi.h"
#include "frmCloseHouse.h"
#include "frmDataImport.h"
#include "frmEditReservation.h"
#include "frmEmployee.h"
#include "frmExpenseAmalgamate.h"
#include "frmExpenseDetail.h"
#include "frmFind.h"
#include "frmFindIncome.h"
#include "frmHouseChange.h"
#include "frmMain.h"
#include "frmMember.h"
#include "frmMemberList.h"
#include "frmOpenHouse.h"
#include "frmOption.h"
#include "frmOutSale.h"
#include "frmPayLevel.h"
#include "frmReservation.h"
#include "frmSetup.h"
#include "frmShouyinInfo.h"
#include "frmSupplier.h"
#include "frmSupplierList.h"
#include "frmUpdate.h"
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
// A dialog made ready by `prepare`, which cannot fail; by nothing at all without one.
template <class W> Make ready(std::function<void(W*)> prepare = {}) {
    return dialog<W>([prepare](W* d, const QString&) {
        if (prepare) prepare(d);
        return true;
    });
}
} // namespace

class TestFitScreen : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // The windows: the controls that must be in sight, and how the till makes the window ready
    // (nothing for the main window).
    void windows_fit_data() {
        columns<QString, Make>("inSight", "make");
        const auto row = [](const char* name, const char* inSight, const Make& make) {
            QTest::newRow(name) << QString::fromLatin1(inSight) << make;
        };
        // clang-format off
        row("main", "lvwThisIcons lblOughtMoney", Make());
        row("checkout", "OKButton txtExpenseMoney txtOughtMoney txtFactPay txtTemp",
            dialog<frmCloseHouse>([](auto* d, auto& b) { d->prepare(b, false); return true; }));
        row("deferred bills", "OKButton txtjzrInfo",
            ready<frmCloseHouse>([](auto* d) { d->prepare({}, true); }));
        row("order entry", "cmdAdd txtInput lblThisSum",
            dialog<frmExpenseDetail>([](auto* d, auto& b) { d->Init(b); return true; }));
        row("retail sale", "OKButton cmdAdd txtInput txtOughtMoney txtFactPay txtTemp",
            ready<frmOutSale>([](auto* d) { d->Init(); }));
        row("open", "OKButton", dialog<frmOpenHouse>([](auto* d, auto&) { return d->prepare(u"r2"_s); }));
        row("change", "OKButton", dialog<frmHouseChange>([](auto* d, auto& b) { return d->prepare(b); }));
        row("merge", "OKButton", ready<frmExpenseAmalgamate>([](auto* d) { d->prepare(); }));
        row("top-up", "OKButton", ready<frmChongzhi>([](auto* d) { d->prepare(u"M1"_s); }));
        row("member", "OKButton", ready<frmMember>([](auto* d) { d->startAdd(); }));
        row("members", "cmdClose", ready<frmMemberList>([](auto* d) { d->prepare(false); }));
        // The manager's windows as well.
        row("options", "cmdClose", ready<frmOption>());
        row("tariff", "cmdOK", ready<frmPayLevel>([](auto* d) { d->prepare(StandardTariff); }));
        row("goods", "cmdOK", ready<frmWare>([](auto* d) { d->startAdd(); }));
        row("employee", "cmdOK", ready<frmEmployee>([](auto* d) { d->startAdd(); }));
        row("reservations", "cmdClose", ready<frmReservation>([](auto* d) { d->LoadReservation(); }));
        row("reservation", "OKButton",
            ready<frmEditReservation>([](auto* d) { d->prepare(ReservationMode::Add, u"r2"_s, {}, true); }));
        row("suppliers", "cmdExit", ready<frmSupplierList>([](auto* d) { d->prepare(false); }));
        row("supplier", "OKButton", dialog<frmSupplier>([](auto* d, auto&) { return d->prepare({}); }));
        row("stock", "OKButton", ready<frmWarehouseNum>([](auto* d) { d->LoadData(); }));
        row("receipt", "OKButton cmdWareOut", ready<frmWareIn>([](auto* d) { d->prepare(); }));
        row("adjustment", "OKButton", ready<frmWareLoss>([](auto* d) { d->prepare(); }));
        row("receipts", "cmdClose cmdFind", ready<frmWareInList>([](auto* d) { d->prepare(0); }));
        row("reconciliation", "OKButton", ready<frmCheckForm>([](auto* d) { d->LoadData(); }));
        row("hand-overs", "cmdClose cmdFind", ready<frmShouyinInfo>());
        row("bill query", "cmdFind cmdFindPrintOK cmdClose lblSumMoney lblSumFreePay", ready<frmFind>());
        row("income", "cmdFind cmdClose lblThisSumIncome lblSumIncome", ready<frmFindIncome>());
        row("ranking", "cmdFind cmdClose txtSumOughtMoney txtSumTiChengMoney", ready<frmBusReorder>());
        row("chart", "cmdFind cmdClose C1Tab1", ready<frmChart>());
        row("data management", "cmdClose cmdBackup cmdResume cmdClearAllData", ready<frmSetup>());
        row("upgrade", "cmdCancel cmdUpdate cmdSQL Command1", ready<frmUpdate>());
        row("goods import", "cmdClose cmdShowData cmdDo", ready<frmDataImport>());
        // clang-format on
    }
    void windows_fit() {
        auto [inSight, make] = fetch<QString, Make>("inSight", "make");
        NEW_VENUE(v);
        const QString bill = addVenue();
        frmMain main;
        std::unique_ptr<QWidget> w;
        if (!make) {
            main.Init();
            main.showMaximized();
        } else {
            main.resize(600, 400);
            main.show();
            w.reset(make(&main, bill));
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
};

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
