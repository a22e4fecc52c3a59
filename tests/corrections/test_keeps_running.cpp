// The program keeps running: a database error on a read path is shown and the window goes
// on; sign-in and the first-run help do what one press and one first start ask.
#include "AppState.h"
#include "FormProbe.h"
#include "GuardedApplication.h"
#include "Ini.h"
#include "MessageBox.h"
#include "ModalDriver.h"
#include "RoomBoard.h"
#include "Settings.h"
#include "TestVenue.h"
#include "Venue.h"
#include "frmHouse.h"
#include "frmHouseChange.h"
#include "frmLogin.h"
#include "frmMain.h"
#include "frmOpenHouse.h"
#include "frmOption.h"
#include "frmPayLevel.h"
#include <QDockWidget>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStandardItemModel>
#include <QTest>
#include <QTimer>
#include <functional>
#include <map>
#include <string>

namespace {
void seedRooms() {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values "
                             "('t1', '小包', '00000000000000001')"));
    DB().exec(QStringLiteral("insert into The (TheID, TheCode, AssortID, State, ExpenseID) values "
                             "('r1', 'A01', 't1', 1, 'e1'), ('r2', 'A02', 't1', 0, '')"));
    DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, OpenTime, State, PayLevelID) values "
                             "('e1', 'r1', '2026-11-21 19:00', 1, '00000000000000001')"));
}

// The documented text of an error in a procedure of a form, whatever its number.
bool errorOf(const QStringList& shown, const QString& procedure, const QString& form,
             const QString& kind = QStringLiteral("Form")) {
    for (const QString& s : shown)
        if (s.startsWith(QLatin1String("Error ")) &&
            s.endsWith(QStringLiteral(" in procedure ") + procedure + QStringLiteral(" of ") + kind +
                       QLatin1Char(' ') + form))
            return true;
    return false;
}

int failedSignIns() {
    return DB()
        .scalar(QStringLiteral("select count(*) from s_log where theContent=?"),
                {QStringLiteral("操作员admin登录系统失败！")})
        .toInt();
}
} // namespace

class TestKeepsRunning : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // The board's refresh comes round with the connection gone: one message, the program runs on,
    // and the memo is saved at the exit.
    void boardRefreshWithoutConnection() {
        TestVenue v;
        OPEN_VENUE(v);
        seedRooms();
        SetSetup(QStringLiteral("RefurbishTime"), QStringLiteral("5"));
        frmMain w;
        w.Init();
        QCOMPARE(w.board()->model()->rowCount(), 2);
        messages();
        child<QPlainTextEdit>(w, "txtMemo")->setPlainText(QStringLiteral("交班：A01 欠款"));
        DB().close();
        w.refreshTimer()->setInterval(5);
        QTest::qWait(60);
        const QStringList shown = messages();
        QVERIFY(errorOf(shown, QStringLiteral("LoadRoomTabs"), QStringLiteral("frmMain")));
        QCOMPARE(w.board()->model()->rowCount(), 2); // the board as it was
        w.SaveInfo();
        QCOMPARE(GetIni(QStringLiteral("Remind")), QStringLiteral("交班：A01 欠款"));
    }

    void dialogLoadsWithoutConnection_data() {
        QTest::addColumn<QString>("form");
        for (const char* f :
             {"frmOpenHouse", "frmHouseChange", "frmOption", "frmHouse", "frmHouse edit", "frmPayLevel"})
            QTest::newRow(f) << QString::fromLatin1(f);
    }
    void dialogLoadsWithoutConnection() {
        QFETCH(QString, form);
        TestVenue v;
        OPEN_VENUE(v);
        seedRooms();
        DB().close();
        const std::map<std::string, std::function<void()>> open = {
            {"frmOpenHouse", [] { QVERIFY(frmOpenHouse().Add(QStringLiteral("r2")).isEmpty()); }},
            {"frmHouseChange", [] { QVERIFY(!frmHouseChange().Edit(QStringLiteral("e1"))); }},
            {"frmOption", [] { frmOption w; }},
            {"frmHouse", [] { QVERIFY(!frmHouse().Add()); }},
            {"frmHouse edit", [] { QVERIFY(!frmHouse().Edit(QStringLiteral("r1"))); }},
            {"frmPayLevel", [] { QVERIFY(!frmPayLevel().Edit(QStringLiteral("00000000000000001"))); }},
        };
        open.at(form.toStdString())();
        QVERIFY2(errorOf(messages(), QStringLiteral("Form_Load"), form.section(QLatin1Char(' '), 0, 0)),
                 qPrintable(form));
    }

    // A sign-in again whose database does not open: the board waits instead of failing under it,
    // and the next sign-in brings it back.
    void reloginWhoseReopenFails() {
        TestVenue v;
        OPEN_VENUE(v);
        seedRooms();
        SetSetup(QStringLiteral("RefurbishTime"), QStringLiteral("5"));
        frmMain w;
        w.Init();
        w.refreshTimer()->setInterval(5);
        SetIni(QStringLiteral("DBType"), QStringLiteral("1"));
        SetIni(QStringLiteral("DBServer"), QStringLiteral("127.0.0.1"));
        SetIni(QStringLiteral("DBPort"), QStringLiteral("1"));
        messages();
        onModal(QStringLiteral("frmLogin"), [&v](QDialog* d) {
            auto* login = static_cast<frmLogin*>(d);
            d->findChild<QLineEdit*>(QStringLiteral("txtUserName"))->setText(QStringLiteral("admin"));
            login->cmdOK_Click();
            QTest::qWait(60); // the refresh would come round meanwhile
            Venue::saveConnection(v.home(), v.config());
            login->cmdOK_Click();
        });
        w.Relogin();
        QCOMPARE(messages(),
                 (QStringList{QStringLiteral("没能打开系统的数据库，请检查您的数据库配置是否正确！"),
                              QStringLiteral("无效的登录名或密码，请重试!")}));
        QVERIFY(w.refreshTimer()->isActive());
        QCOMPARE(w.board()->model()->rowCount(), 2);
    }

    // Settings that cannot be read: the message of LoadSetupValue, the values held stay, and
    // the rest of the start (help, memo, board) runs.
    void startWithUnreadableSettings() {
        TestVenue v;
        OPEN_VENUE(v);
        seedRooms();
        SetIni(QStringLiteral("Remind"), QStringLiteral("备忘"));
        App().AllDiscount = 0.8f;
        DB().exec(QStringLiteral("alter table pSetup rename to pSetupGone"));
        frmMain w;
        w.Init();
        const QStringList shown = messages();
        QVERIFY(errorOf(shown, QStringLiteral("LoadSetupValue"), QStringLiteral("mdMain"),
                        QStringLiteral("Module")));
        QCOMPARE(App().AllDiscount, 0.8f);
        QCOMPARE(child<QPlainTextEdit>(w, "txtMemo")->toPlainText(), QStringLiteral("备忘"));
        QCOMPARE(w.board()->model()->rowCount(), 2);
        DB().exec(QStringLiteral("alter table pSetupGone rename to pSetup"));
    }

    // An error no slot caught is shown, the memo is saved first, and the program goes on.
    void lastResort() {
        TestVenue v;
        OPEN_VENUE(v);
        auto* app = static_cast<GuardedApplication*>(QCoreApplication::instance());
        int saved = 0;
        app->setOnError([&saved] { ++saved; });
        QTimer t;
        t.setObjectName(QStringLiteral("tmTest"));
        t.setSingleShot(true);
        connect(&t, &QTimer::timeout, this, [] { throw DbError(7, QStringLiteral("磁盘已满")); });
        t.start(0);
        QTest::qWait(20);
        app->setOnError({});
        QCOMPARE(saved, 1);
        QCOMPARE(messages(),
                 QStringList{QStringLiteral("Error 7 (磁盘已满) in procedure tmTest of Form frmMain")});
    }

    // One Enter after a wrong password: one attempt, one message, one log row.
    void enterAfterWrongPassword() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().close();
        frmLogin dlg;
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        child<QLineEdit>(dlg, "txtUserName")->setText(QStringLiteral("admin"));
        auto* pw = child<QLineEdit>(dlg, "txtPassword");
        pw->setText(QStringLiteral("wrong"));
        pw->setFocus();
        QTest::keyClick(pw, Qt::Key_Return);
        QCOMPARE(messages(), QStringList{QStringLiteral("无效的登录名或密码，请重试!")});
        QCOMPARE(failedSignIns(), 1);
    }

    // With IsOpenHelp "N" and no IsTopRun the help shows at the first start only.
    void firstRunHelpOnce() {
        TestVenue v;
        OPEN_VENUE(v);
        SetIni(QStringLiteral("IsOpenHelp"), QStringLiteral("N"));
        for (const bool first : {true, false}) {
            frmMain w;
            w.Init();
            QCOMPARE(w.findChild<QDockWidget*>(QStringLiteral("dockHelp"))->isVisibleTo(&w), first);
            w.SaveInfo();
        }
        QCOMPARE(GetIni(QStringLiteral("IsOpenHelp")), QStringLiteral("N"));
    }
};

// The program's own application object, so that its last resort is under test too.
int main(int argc, char** argv) {
    GuardedApplication app(argc, argv);
    app.setAttribute(Qt::AA_Use96Dpi, true);
    TestKeepsRunning t;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&t, argc, argv);
}
#include "test_keeps_running.moc"
