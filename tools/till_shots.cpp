// The till as a cashier sees it on a given screen: till_shots --screen 1366x768 --out DIR
// (with QT_SCALE_FACTOR for the scaling). The board maximized on a busy evening, the
// checkout, the order window and the opening dialog, each as the screen fits it.
#include "ShotSave.h"
#include "AppInit.h"
#include "Clock.h"
#include "Db.h"
#include "Demo.h"
#include "FocusStyle.h"
#include "Format.h"
#include "MessageBox.h"
#include "RoomBoard.h"
#include "RoomUse.h"
#include "ScreenFit.h"
#include "Venue.h"
#include "frmCloseHouse.h"
#include "frmExpenseDetail.h"
#include "frmLogin.h"
#include "frmMain.h"
#include "frmOpenHouse.h"
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFontDatabase>
#include <QLineEdit>
#include <QTemporaryDir>
#include <cstdio>
#include <cstring>

namespace {
QString g_out;

void save(QWidget* w, const QString& name) {
    SaveShot(w, g_out, name);
}

QString roomID(const char* code) {
    return DB()
        .scalar(QStringLiteral("select TheID from The where TheCode=?"), {QString::fromUtf8(code)})
        .toString();
}

// Rooms in use with their orders, one stopped, one locked, one reserved.
void busyEvening() {
    const QDateTime now = Now();
    const Rows wares = DB().query(QStringLiteral("select WareID, Price from Ware order by WareCode"));
    const int minutes[] = {185, 95, 42, 8, 130};
    const char* codes[] = {"A01", "A02", "A04", "A07", "B01"};
    for (int i = 0; i < 5; ++i) {
        Clock::install(std::make_unique<FixedClock>(now.addSecs(-60 * minutes[i])));
        const Opened o = RoomUseService().open({roomID(codes[i]),
                                                QStringLiteral("老顾客"),
                                                QString::number(4 + i),
                                                {},
                                                QStringLiteral("0"),
                                                true,
                                                1});
        for (int l = 0; l < 3 + 2 * i && l < wares.count(); ++l) {
            const Row w = wares[(l * 5 + i) % wares.count()];
            const double n = 1 + (l % 3);
            DB().exec(QStringLiteral(
                          "insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, thePrice, "
                          "ExpenseMoney, oughtMoney, isFree, isdel, operatorname, ExpenseTime, "
                          "Description) values (?, ?, ?, ?, ?, ?, ?, ?, 0, 0, '系统管理员', ?, ?)"),
                      {o.expenseID + QString::number(l), o.expenseID, w.text(QStringLiteral("WareID")), n,
                       w.money(QStringLiteral("Price")), w.money(QStringLiteral("Price")),
                       w.money(QStringLiteral("Price")).times(n), w.money(QStringLiteral("Price")).times(n),
                       TimeText(now.addSecs(-60 * (minutes[i] - 5 * l))),
                       l == 1 ? QStringLiteral("少冰") : QString()});
        }
    }
    Clock::install(std::make_unique<FixedClock>(now));
    DB().exec(QStringLiteral("update The set State=2 where TheCode='A03'"));
    DB().exec(QStringLiteral("update The set State=4, Other1=? where TheCode='A05'"),
              {TimeText(now.addSecs(1200))});
    DB().exec(QStringLiteral("update The set State=3 where TheCode='A06'"));
}
} // namespace

int main(int argc, char** argv) {
    QString screen = QStringLiteral("1366x768");
    for (int i = 1; i + 1 < argc; ++i) {
        if (std::strcmp(argv[i], "--screen") == 0) screen = QString::fromLatin1(argv[i + 1]);
        if (std::strcmp(argv[i], "--out") == 0) g_out = QString::fromLocal8Bit(argv[i + 1]);
    }
    const QStringList wh = screen.split(QLatin1Char('x'));
    if (wh.size() != 2 || g_out.isEmpty()) {
        std::fprintf(stderr, "till_shots --screen WxH --out DIR\n");
        return 2;
    }
    QTemporaryDir dir;
    QFile config(dir.filePath(QStringLiteral("screen.json")));
    if (!config.open(QIODevice::WriteOnly)) return 1;
    config.write(QStringLiteral(R"({"windowFrameMargins": true, "screens": [{"name": "till", "x": 0, "y": 0,
        "width": %1, "height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                     .arg(wh[0], wh[1])
                     .toUtf8());
    config.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + config.fileName().toLocal8Bit());

    QApplication app(argc, argv);
    InitResources();
    QDir().mkpath(g_out);
    if (QFontDatabase::hasFamily(QStringLiteral("Noto Sans CJK SC")))
        QApplication::setFont(QFont(QStringLiteral("Noto Sans CJK SC"), 10));
    InstallFocusStyle();
    ScreenFit::installForAllWindows();
    const QString home = dir.filePath(QStringLiteral("venue"));
    Venue::prepare(home);
    AppInit(home);
    Msg::installRecorder();
    frmLogin login;
    login.findChild<QLineEdit*>(QStringLiteral("txtUserName"))->setText(QStringLiteral("admin"));
    login.cmdOK_Click();
    AddDemoVenue(DB());
    busyEvening();

    frmMain main;
    main.showMaximized();
    main.Init();
    main.board()->selectRoom(roomID("A02"));
    main.announce(QStringLiteral("A08 已结帐 找零 ￥12.00"));
    save(&main, QStringLiteral("board"));

    const QString bill =
        DB().scalar(QStringLiteral("select ExpenseID from The where TheID=?"), {roomID("A02")}).toString();
    frmCloseHouse close(&main);
    close.prepare(bill, false);
    auto* factPay = close.findChild<QLineEdit*>(QStringLiteral("txtFactPay"));
    close.show();
    QApplication::processEvents();
    factPay->setFocus();
    factPay->setText(QStringLiteral("1500"));
    Q_EMIT factPay->textEdited(factPay->text());
    save(&close, QStringLiteral("checkout"));
    close.hide();

    frmExpenseDetail order(&main);
    order.Init(bill);
    order.findChild<QCheckBox*>(QStringLiteral("chkAdd"))->setChecked(true);
    for (const char* typed : {"qdpj 6", "xgp"}) {
        order.findChild<QLineEdit*>(QStringLiteral("txtInput"))->setText(QLatin1String(typed));
        order.txtInput_Enter();
    }
    save(&order, QStringLiteral("order"));
    order.hide();

    frmOpenHouse open(&main);
    open.prepare(roomID("B02"));
    save(&open, QStringLiteral("open"));
    // The keyboard focus on a check box, then on a button.
    for (const char* name : {"chkUseMinMoney", "cmdExpense"}) {
        if (auto* w = open.findChild<QWidget*>(QLatin1String(name))) w->setFocus(Qt::TabFocusReason);
        save(&open, QStringLiteral("open-focus-") + QLatin1String(name));
    }
    open.hide();
    for (const Msg::Shown& m : Msg::taken())
        std::fprintf(stderr, "said: %s\n", qPrintable(m.text));
    DB().close();
    return 0;
}
