// The program keeps running: a database error on a read path is shown and the window goes
// on; sign-in and the first-run help do what one press and one first start ask.
#include "GuardedApplication.h"
#include "RoomBoard.h"
#include "TestKit.h"
#include "Venue.h"
#include "frmHouse.h"
#include "frmHouseChange.h"
#include "frmLogin.h"
#include "frmMain.h"
#include "frmOpenHouse.h"
#include "frmOption.h"
#include "frmPayLevel.h"
#include <QDockWidget>
#include <QPlainTextEdit>
#include <string>

namespace {
// A02 free; A01 in use with its bill.
void seedRooms() {
    addRoomType(u"t1"_s, u"小包"_s);
    addRoom(u"r1"_s, u"A01"_s, u"t1"_s, 1);
    addRoom(u"r2"_s, u"A02"_s, u"t1"_s);
    DB().exec(u"update The set ExpenseID='e1' where TheID='r1'"_s);
    DB().exec(u"insert into Expense (ExpenseID, TheID, OpenTime, State, PayLevelID) values "
              "('e1', 'r1', '2026-11-21 19:00', 1, ?)"_s,
              {StandardTariff});
}

// The documented text of an error in a procedure of a form, whatever its number.
bool errorOf(const QStringList& shown, const QString& procedure, const QString& form,
             const QString& kind = u"Form"_s) {
    const QString where = u" in procedure %1 of %2 %3"_s.arg(procedure, kind, form);
    return std::any_of(shown.begin(), shown.end(),
                       [&](const QString& s) { return s.startsWith(u"Error "_s) && s.endsWith(where); });
}

} // namespace

class TestKeepsRunning : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // The board's refresh comes round with the connection gone: one message, the program runs on,
    // and the memo is saved at the exit.
    void boardRefreshWithoutConnection() {
        NEW_VENUE(v);
        seedRooms();
        frmMain w;
        w.Init();
        QCOMPARE(w.board()->model()->rowCount(), 2);
        messages();
        child<QPlainTextEdit>(w, "txtMemo")->setPlainText(u"交班：A01 欠款"_s);
        DB().close();
        QMetaObject::invokeMethod(w.refreshTimer(), "timeout");
        QVERIFY(errorOf(messages(), u"LoadRoomTabs"_s, u"frmMain"_s));
        QCOMPARE(w.board()->model()->rowCount(), 2); // the board as it was
        w.SaveInfo();
        QCOMPARE(GetIni(u"Remind"_s), u"交班：A01 欠款"_s);
    }

    void dialogLoadsWithoutConnection_data() {
        QTest::addColumn<QString>("form");
        for (const char* f :
             {"frmOpenHouse", "frmHouseChange", "frmOption", "frmHouse", "frmHouse edit", "frmPayLevel"})
            QTest::newRow(f) << QString::fromLatin1(f);
    }
    void dialogLoadsWithoutConnection() {
        QFETCH(QString, form);
        NEW_VENUE(v);
        seedRooms();
        DB().close();
        const std::map<std::string, std::function<void()>> open = {
            {"frmOpenHouse", [] { QVERIFY(frmOpenHouse().Add(u"r2"_s).isEmpty()); }},
            {"frmHouseChange", [] { QVERIFY(!frmHouseChange().Edit(u"e1"_s)); }},
            {"frmOption", [] { frmOption w; }},
            {"frmHouse", [] { QVERIFY(!frmHouse().Add()); }},
            {"frmHouse edit", [] { QVERIFY(!frmHouse().Edit(u"r1"_s)); }},
            {"frmPayLevel", [] { QVERIFY(!frmPayLevel().Edit(u"00000000000000001"_s)); }},
        };
        open.at(form.toStdString())();
        QVERIFY2(errorOf(messages(), u"Form_Load"_s, form.section(QLatin1Char(' '), 0, 0)), qPrintable(form));
    }

    // A sign-in again whose database does not open: the board waits instead of failing under it,
    // and the next sign-in brings it back.
    void reloginWhoseReopenFails() {
        NEW_VENUE(v);
        seedRooms();
        SetSetup(u"RefurbishTime"_s, u"5"_s);
        frmMain w;
        w.Init();
        w.refreshTimer()->setInterval(5);
        for (const auto& [key, value] :
             {std::pair{"DBType", "1"}, {"DBServer", "127.0.0.1"}, {"DBPort", "1"}})
            SetIni(QLatin1String(key), QLatin1String(value));
        messages();
        onModal(u"frmLogin"_s, [&v](QDialog* d) {
            auto* login = static_cast<frmLogin*>(d);
            d->findChild<QLineEdit*>(u"txtUserName"_s)->setText(u"admin"_s);
            login->cmdOK_Click();
            QTest::qWait(60); // the refresh would come round meanwhile
            Venue::saveConnection(v.home(), v.config());
            login->cmdOK_Click();
        });
        w.Relogin();
        QCOMPARE(messages(), (QStringList{u"没能打开系统的数据库，请检查您的数据库配置是否正确！"_s,
                                          u"无效的登录名或密码，请重试!"_s}));
        QVERIFY(w.refreshTimer()->isActive());
        QCOMPARE(w.board()->model()->rowCount(), 2);
    }

    // Settings that cannot be read: the message of LoadSetupValue, the values held stay, and
    // the rest of the start (help, memo, board) runs.
    void startWithUnreadableSettings() {
        NEW_VENUE(v);
        seedRooms();
        SetIni(u"Remind"_s, u"备忘"_s);
        App().AllDiscount = 0.8f;
        DB().exec(u"alter table pSetup rename to pSetupGone"_s);
        frmMain w;
        w.Init();
        QVERIFY(errorOf(messages(), u"LoadSetupValue"_s, u"mdMain"_s, u"Module"_s));
        QCOMPARE(App().AllDiscount, 0.8f);
        QCOMPARE(child<QPlainTextEdit>(w, "txtMemo")->toPlainText(), u"备忘"_s);
        QCOMPARE(w.board()->model()->rowCount(), 2);
        DB().exec(u"alter table pSetupGone rename to pSetup"_s);
    }

    // An error no slot caught is shown, the memo is saved first, and the program goes on.
    void lastResort() {
        NEW_VENUE(v);
        auto* app = static_cast<GuardedApplication*>(QCoreApplication::instance());
        int saved = 0;
        app->setOnError([&saved] { ++saved; });
        QTimer t;
        t.setObjectName(u"tmTest"_s);
        t.setSingleShot(true);
        connect(&t, &QTimer::timeout, this, [] { throw DbError(7, u"磁盘已满"_s); });
        t.start(0);
        QTest::qWait(20);
        app->setOnError({});
        QCOMPARE(saved, 1);
        QCOMPARE(messages(), QStringList{u"Error 7 (磁盘已满) in procedure tmTest of Form frmMain"_s});
    }

    // With IsOpenHelp "N" and no IsTopRun the help shows at the first start only; each start
    // refreshes the board as often as the venue asks.
    void firstRunHelpOnce() {
        NEW_VENUE(v);
        SetIni(u"IsOpenHelp"_s, u"N"_s);
        SetSetup(u"RefurbishTime"_s, u"30"_s);
        for (const bool first : {true, false}) {
            frmMain w;
            w.Init();
            QCOMPARE(QList<bool>({w.findChild<QDockWidget*>(u"dockHelp"_s)->isVisibleTo(&w),
                                  w.action(u"mnuQNHelp"_s)->isChecked()}),
                     QList<bool>(2, first));
            QCOMPARE(texts(w, {"txtTime"}) + u' ' + QString::number(w.refreshTimer()->interval()),
                     u"30 30000"_s);
            w.SaveInfo();
        }
        QCOMPARE(GetIni(u"IsOpenHelp"_s), u"N"_s);
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
