// The till's windows on a 1366x768 screen at the scaling of the run (QT_SCALE_FACTOR 1, 1.25,
// 1.5): each within the available screen, its amounts and its commit button in sight.
#include "FocusStyle.h"
#include "FormProbe.h"
#include "MessageBox.h"
#include "Password.h"
#include "RoomBoard.h"
#include "RoomUse.h"
#include "ScreenFit.h"
#include "TestVenue.h"
#include "frmChongzhi.h"
#include "frmCloseHouse.h"
#include "frmEmployee.h"
#include "frmExpenseAmalgamate.h"
#include "frmExpenseDetail.h"
#include "frmHouseChange.h"
#include "frmMain.h"
#include "frmMember.h"
#include "frmMemberList.h"
#include "frmOpenHouse.h"
#include "frmOption.h"
#include "frmPayLevel.h"
#include "frmWare.h"
#include <QApplication>
#include <QFontDatabase>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

namespace {
QString g_bill;

void addVenue() {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values "
                             "('a', '豪华大包厢', '00000000000000001')"));
    DB().exec(QStringLiteral("insert into The (TheID, TheCode, AssortID, State) values "
                             "('r1', 'A01', 'a', 0), ('r2', 'A02', 'a', 0)"));
    DB().exec(QStringLiteral("insert into MemberSetup (SetupID, SetupName, InitValue, StepValue, discount) "
                             "values ('s1', '金卡', 0, 10, 0.9)"));
    DB().exec(QStringLiteral("insert into Member (MemberCode, MemberName, SetupID, chongzhi, State, pw, "
                             "MemberValue, sumValue) values ('M1', '张三', 's1', ?, 0, ?, 0, 0)"),
              {Money::yuan(50), Password::hash(QStringLiteral("8888"))});
    g_bill = RoomUseService()
                 .open({QStringLiteral("r1"),
                        QStringLiteral("生日聚会"),
                        QStringLiteral("6"),
                        {},
                        QStringLiteral("0"),
                        true,
                        1})
                 .expenseID;
}

// Wholly in sight: shown, not clipped by a scroll area or the window's edge.
bool inSight(QWidget* w) {
    if (!w->isVisible()) return false;
    const QRect inWindow(w->mapTo(w->window(), QPoint(0, 0)), w->size());
    return w->window()->rect().contains(inWindow) && w->visibleRegion().boundingRect().size() == w->size();
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
    QTest::addColumn<QStringList>("inSight");
    const QStringList ok{QStringLiteral("OKButton")};
    QTest::newRow("main") << "frmMain"
                          << QStringList{QStringLiteral("lvwThisIcons"), QStringLiteral("lblOughtMoney")};
    QTest::newRow("checkout") << "frmCloseHouse"
                              << QStringList{QStringLiteral("OKButton"), QStringLiteral("txtExpenseMoney"),
                                             QStringLiteral("txtOughtMoney"), QStringLiteral("txtFactPay"),
                                             QStringLiteral("txtTemp")};
    QTest::newRow("deferred bills") << "frmCloseHouse-deferred"
                                    << QStringList{QStringLiteral("OKButton"), QStringLiteral("txtjzrInfo")};
    QTest::newRow("order entry") << "frmExpenseDetail"
                                 << QStringList{QStringLiteral("cmdAdd"), QStringLiteral("txtInput"),
                                                QStringLiteral("lblThisSum")};
    QTest::newRow("open") << "frmOpenHouse" << ok;
    QTest::newRow("change") << "frmHouseChange" << ok;
    QTest::newRow("merge") << "frmExpenseAmalgamate" << ok;
    QTest::newRow("top-up") << "frmChongzhi" << ok;
    QTest::newRow("member") << "frmMember" << ok;
    QTest::newRow("members") << "frmMemberList" << QStringList{QStringLiteral("cmdClose")};
    // The manager's windows as well.
    const QStringList cmdOK{QStringLiteral("cmdOK")};
    QTest::newRow("options") << "frmOption" << QStringList{QStringLiteral("cmdClose")};
    QTest::newRow("tariff") << "frmPayLevel" << cmdOK;
    QTest::newRow("goods") << "frmWare" << cmdOK;
    QTest::newRow("employee") << "frmEmployee" << cmdOK;
}

void TestFitScreen::windows_fit() {
    QFETCH(QString, window);
    QFETCH(QStringList, inSight);
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    frmMain main;
    std::unique_ptr<QWidget> w;
    if (window == QLatin1String("frmMain")) {
        main.Init();
        main.showMaximized();
    } else {
        main.resize(600, 400);
        main.show();
        if (window == QLatin1String("frmCloseHouse")) {
            auto* d = new frmCloseHouse(&main);
            d->prepare(g_bill, false);
            w.reset(d);
        } else if (window == QLatin1String("frmCloseHouse-deferred")) {
            auto* d = new frmCloseHouse(&main);
            d->prepare(QString(), true);
            w.reset(d);
        } else if (window == QLatin1String("frmExpenseDetail")) {
            auto* d = new frmExpenseDetail(&main);
            d->Init(g_bill);
            w.reset(d);
        } else if (window == QLatin1String("frmOpenHouse")) {
            auto* d = new frmOpenHouse(&main);
            QVERIFY(d->prepare(QStringLiteral("r2")));
            w.reset(d);
        } else if (window == QLatin1String("frmHouseChange")) {
            auto* d = new frmHouseChange(&main);
            QVERIFY(d->prepare(g_bill));
            w.reset(d);
        } else if (window == QLatin1String("frmExpenseAmalgamate")) {
            auto* d = new frmExpenseAmalgamate(&main);
            d->prepare();
            w.reset(d);
        } else if (window == QLatin1String("frmChongzhi")) {
            auto* d = new frmChongzhi(&main);
            d->prepare(QStringLiteral("M1"));
            w.reset(d);
        } else if (window == QLatin1String("frmMember")) {
            auto* d = new frmMember(&main);
            d->startAdd();
            w.reset(d);
        } else if (window == QLatin1String("frmOption")) {
            auto* d = new frmOption(&main);
            w.reset(d);
        } else if (window == QLatin1String("frmPayLevel")) {
            auto* d = new frmPayLevel(&main);
            d->prepare(QStringLiteral("00000000000000001"));
            w.reset(d);
        } else if (window == QLatin1String("frmWare")) {
            auto* d = new frmWare(&main);
            d->startAdd();
            w.reset(d);
        } else if (window == QLatin1String("frmEmployee")) {
            auto* d = new frmEmployee(&main);
            d->startAdd();
            w.reset(d);
        } else {
            auto* d = new frmMemberList(&main);
            d->prepare(false);
            w.reset(d);
        }
        w->show();
    }
    QWidget* shown = w ? w.get() : &main;
    QVERIFY(QTest::qWaitForWindowExposed(shown));
    QApplication::processEvents();
    Msg::taken();

    // A maximized window may round a scaled screen up by a pixel.
    const QRect avail = shown->screen()->availableGeometry().adjusted(-1, -1, 1, 1);
    QVERIFY2(avail.contains(shown->frameGeometry()), qPrintable(QStringLiteral("%1 at %2,%3 %4x%5 on %6x%7")
                                                                    .arg(window)
                                                                    .arg(shown->frameGeometry().x())
                                                                    .arg(shown->frameGeometry().y())
                                                                    .arg(shown->frameGeometry().width())
                                                                    .arg(shown->frameGeometry().height())
                                                                    .arg(avail.width())
                                                                    .arg(avail.height())));
    for (const QString& name : inSight) {
        auto* c = shown->findChild<QWidget*>(name);
        QVERIFY2(c, qPrintable(name));
        QVERIFY2(::inSight(c), qPrintable(name + QStringLiteral(" out of sight")));
    }
}

int main(int argc, char** argv) {
    // A 1366x768 screen; the run's QT_SCALE_FACTOR makes it smaller in logical pixels.
    QTemporaryDir dir;
    QFile config(dir.filePath(QStringLiteral("screen.json")));
    if (!config.open(QIODevice::WriteOnly)) return 1;
    config.write(R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": true,
        "screens": [{"name": "till", "x": 0, "y": 0, "width": 1366, "height": 768,
                     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    config.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + config.fileName().toLocal8Bit());
    QApplication app(argc, argv);
    // The program's own font, taller than the platform's plain one.
    if (QFontDatabase::hasFamily(QStringLiteral("Noto Sans CJK SC")))
        QApplication::setFont(QFont(QStringLiteral("Noto Sans CJK SC"), 10));
    InstallFocusStyle();
    ScreenFit::installForAllWindows();
    TestFitScreen test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_fit_screen.moc"
