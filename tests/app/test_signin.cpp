#include "AppInit.h"
#include "AppState.h"
#include "Ini.h"
#include "MessageBox.h"
#include "Password.h"
#include "Puissance.h"
#include "Settings.h"
#include "SignIn.h"
#include "TestVenue.h"
#include "frmLogin.h"
#include "frmMain.h"
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolBar>

namespace {
void addOperator(const QString& id, const QString& login, const QString& pw, int state, bool hashed = true) {
    DB().exec(QStringLiteral("insert into Operator (OperatorID, LoginName, operatorname, pw, discount, Closetimeset, State) "
                             "values (?,?,?,?,?,?,?)"),
              {id, login, QStringLiteral("名字") + login, hashed ? Password::hash(pw) : pw, 25.0, 15.0, state});
}


int logRows(const QString& content) {
    return DB().scalar(QStringLiteral("select count(*) from s_log where theContent=?"), {content}).toInt();
}
} // namespace

class TestSignIn : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void outcomes_data() {
        QTest::addColumn<QString>("login");
        QTest::addColumn<QString>("password");
        QTest::addColumn<int>("outcome");
        QTest::addColumn<QString>("logText");
        const int ok = int(SignInOutcome::Ok), bad = int(SignInOutcome::Invalid), off = int(SignInOutcome::Disabled);
        QTest::newRow("admin, empty password") << "admin" << "" << ok << "操作员admin登录系统成功！";
        QTest::newRow("admin, wrong password") << "admin" << "x" << bad << "操作员admin登录系统失败！";
        QTest::newRow("unknown name") << "nobody" << "" << bad << "操作员nobody登录系统失败！";
        QTest::newRow("quote in name") << "o'hara" << "pw'1" << ok << "操作员o'hara登录系统成功！";
        QTest::newRow("case matters") << "o'hara" << "PW'1" << bad << "操作员o'hara登录系统失败！";
        QTest::newRow("disabled, right password") << "gone" << "secret" << off << "";
        QTest::newRow("disabled, wrong password") << "gone" << "nope" << off << "";
        QTest::newRow("stored as typed") << "legacy" << "1234" << ok << "操作员legacy登录系统成功！";
    }
    void outcomes() {
        QFETCH(QString, login);
        QFETCH(QString, password);
        QFETCH(int, outcome);
        QFETCH(QString, logText);
        TestVenue v;
        OPEN_VENUE(v);
        addOperator(QStringLiteral("o1"), QStringLiteral("o'hara"), QStringLiteral("pw'1"), 0);
        addOperator(QStringLiteral("o2"), QStringLiteral("gone"), QStringLiteral("secret"), 1);
        addOperator(QStringLiteral("o3"), QStringLiteral("legacy"), QStringLiteral("1234"), 0, false);
        App().CurrentOperatorID.clear();
        App().CurrentOperatorName.clear();
        QCOMPARE(int(SignIn(login, password)), outcome);
        const int logged = DB().scalar(QStringLiteral("select count(*) from s_log")).toInt();
        if (logText.isEmpty()) {
            QCOMPARE(logged, 0);
        } else {
            QCOMPARE(logged, 1);
            const Row r = DB().query(QStringLiteral("select * from s_log")).first();
            QCOMPARE(r.text(QStringLiteral("theContent")), logText);
            QCOMPARE(r.text(QStringLiteral("theModel")), QStringLiteral("系统管理"));
            QCOMPARE(r.text(QStringLiteral("theDoName")), QStringLiteral("登录系统"));
            QCOMPARE(r.text(QStringLiteral("Dotype")), QStringLiteral("其它"));
            QCOMPARE(r.text(QStringLiteral("dook")), outcome == int(SignInOutcome::Ok) ? QStringLiteral("成功") : QStringLiteral("失败"));
        }
        if (outcome == int(SignInOutcome::Ok)) {
            QVERIFY(!App().CurrentOperatorID.isEmpty());
            QCOMPARE(App().CurrentOperatorName, DB().scalar(QStringLiteral("select operatorname from Operator where LoginName=?"), {login}).toString());
            // Whatever was stored, a hash is stored now.
            QVERIFY(DB().scalar(QStringLiteral("select pw from Operator where LoginName=?"), {login}).toString().startsWith(QStringLiteral("$argon2id$")));
        } else {
            QVERIFY(App().CurrentOperatorID.isEmpty());
        }
    }

    void limitsComeFromTheRow() {
        TestVenue v;
        OPEN_VENUE(v);
        addOperator(QStringLiteral("o1"), QStringLiteral("cashier"), QString(), 0);
        QCOMPARE(SignIn(QStringLiteral("cashier"), QString()), SignInOutcome::Ok);
        QCOMPARE(App().CurrentDiscountLimit, 25.0);
        QCOMPARE(App().CurrentCloseTimeLimit, 15.0);
        QCOMPARE(App().CurrentOperatorID, QStringLiteral("o1"));
    }

    void checkPuissance_data() {
        QTest::addColumn<QString>("isHave");
        QTest::addColumn<QString>("asked");
        QTest::addColumn<bool>("granted");
        QTest::newRow("granted") << "1" << "C30" << true;
        QTest::newRow("other code of like name") << "1" << "C030" << false;
        QTest::newRow("not granted") << "0" << "C30" << false;
        QTest::newRow("no row") << "" << "D001" << false;
    }
    void checkPuissance() {
        QFETCH(QString, isHave);
        QFETCH(QString, asked);
        QFETCH(bool, granted);
        TestVenue v;
        OPEN_VENUE(v);
        addOperator(QStringLiteral("o1"), QStringLiteral("cashier"), QString(), 0);
        if (!isHave.isEmpty())
            DB().exec(QStringLiteral("insert into Puissance (OperatorID, SysPuissanceID, isHave) values ('o1', 'C30', ?)"),
                      {isHave.toInt()});
        App().CurrentOperatorID = QStringLiteral("o1");
        Msg::taken();
        QCOMPARE(CheckPuissance(asked), granted);
        QCOMPARE(messages(), granted ? QStringList() : QStringList{QStringLiteral("您没有操作此项业务的权限！")});
        App().CurrentOperatorID = QStringLiteral("qa042");
        QVERIFY(CheckPuissance(asked));
    }

    void loginWindow() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().close(); // the window opens the connection itself
        frmLogin dlg;
        auto* user = dlg.findChild<QLineEdit*>(QStringLiteral("txtUserName"));
        auto* pw = dlg.findChild<QLineEdit*>(QStringLiteral("txtPassword"));
        auto* ok = dlg.findChild<QPushButton*>(QStringLiteral("cmdOK"));
        QVERIFY(user && pw && ok);
        QCOMPARE(dlg.findChild<QLabel*>(QStringLiteral("lblHelp"))->text(), QStringLiteral("提示:初始用户名为admin，无密码"));
        QVERIFY(dlg.findChild<QLabel*>(QStringLiteral("lblVer"))->text().startsWith(QStringLiteral("版本: 1.")));
        QCOMPARE(dlg.findChild<QLabel*>(QStringLiteral("lblVer"))->text().endsWith(QStringLiteral(" 网络版")), TestVenue::isPg());
        QCOMPARE(pw->echoMode(), QLineEdit::Password);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));

        // Wrong password: message with caption 登录, log row, name selected for retyping.
        QTest::keyClicks(user, QStringLiteral("admin"));
        QTest::keyClicks(pw, QStringLiteral("wrong"));
        QTest::mouseClick(ok, Qt::LeftButton);
        const QList<Msg::Shown> shown = Msg::taken();
        QCOMPARE(shown.size(), 1);
        QCOMPARE(shown[0].text, QStringLiteral("无效的登录名或密码，请重试!"));
        QCOMPARE(shown[0].title, QStringLiteral("登录"));
        QVERIFY(dlg.isVisible());
        QCOMPARE(user->selectedText(), QStringLiteral("admin"));
        QCOMPARE(logRows(QStringLiteral("操作员admin登录系统失败！")), 1);

        // Enter moves from the name to the password; Enter there signs in.
        pw->clear();
        user->setFocus();
        QTest::keyClick(user, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), pw);
        QTest::keyClick(pw, Qt::Key_Return);
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(App().CurrentOperatorName, QStringLiteral("系统管理员"));
        QCOMPARE(logRows(QStringLiteral("操作员admin登录系统成功！")), 1);
    }

    void loginWithoutDatabase() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().close();
        // Point the workstation at a server that is not there.
        DbConfig bad;
        bad.backend = Backend::PostgreSQL;
        bad.host = QStringLiteral("127.0.0.1");
        bad.port = 1;
        bad.name = QStringLiteral("none");
        QVERIFY(SetIni(QStringLiteral("DBType"), QStringLiteral("1")));
        QVERIFY(SetIni(QStringLiteral("DBPort"), QStringLiteral("1")));
        QVERIFY(SetIni(QStringLiteral("DBServer"), QStringLiteral("127.0.0.1")));
        frmLogin dlg;
        dlg.findChild<QLineEdit*>(QStringLiteral("txtUserName"))->setText(QStringLiteral("admin"));
        dlg.cmdOK_Click();
        QCOMPARE(messages(), (QStringList{QStringLiteral("没能打开系统的数据库，请检查您的数据库配置是否正确！"),
                                          QStringLiteral("无效的登录名或密码，请重试!")}));
        QVERIFY(dlg.result() != QDialog::Accepted);
    }

    void disabledAccountInWindow() {
        TestVenue v;
        OPEN_VENUE(v);
        addOperator(QStringLiteral("o2"), QStringLiteral("gone"), QStringLiteral("secret"), 1);
        DB().close();
        frmLogin dlg;
        dlg.findChild<QLineEdit*>(QStringLiteral("txtUserName"))->setText(QStringLiteral("gone"));
        dlg.findChild<QLineEdit*>(QStringLiteral("txtPassword"))->setText(QStringLiteral("secret"));
        dlg.cmdOK_Click();
        QCOMPARE(messages(), QStringList{QStringLiteral("此帐号已被停用！")});
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from s_log")).toInt(), 0);
    }

    void mainWindowStartAndExit() {
        TestVenue v;
        OPEN_VENUE(v);
        SetSetup(QStringLiteral("RefurbishTime"), QStringLiteral("2"));
        SetIni(QStringLiteral("IsOpenHelp"), QStringLiteral("N"));
        SetIni(QStringLiteral("Remind"), QStringLiteral("交班|记得续酒"));
        frmMain w;
        w.show();
        w.Init();
        auto* txtTime = w.findChild<QLineEdit*>(QStringLiteral("txtTime"));
        QCOMPARE(txtTime->text(), QStringLiteral("0"));
        QVERIFY(!w.refreshTimer()->isActive());
        // First run: the help panel shows though IsOpenHelp is N.
        QVERIFY(w.action(QStringLiteral("mnuQNHelp"))->isChecked());
        QCOMPARE(w.findChild<QLabel*>(QStringLiteral("OperatorName"))->text(), QStringLiteral("操作员：系统管理员"));
        auto* memo = w.findChild<QPlainTextEdit*>(QStringLiteral("txtMemo"));
        QCOMPARE(memo->toPlainText(), QStringLiteral("交班\n记得续酒"));

        // Refresh seconds typed by hand.
        txtTime->setText(QStringLiteral("2"));
        w.txtTime_LostFocus();
        QCOMPARE(messages(), QStringList{QStringLiteral("您设置的刷新时间小于3秒，系统将取消自动刷新功能！")});
        QCOMPARE(txtTime->text(), QStringLiteral("0"));
        txtTime->setText(QStringLiteral("15"));
        w.txtTime_LostFocus();
        QVERIFY(w.refreshTimer()->isActive());
        QCOMPARE(w.refreshTimer()->interval(), 15000);

        // With no room on the board the room commands are off.
        QVERIFY(!w.action(QStringLiteral("mnuOpOpen"))->isEnabled());
        QVERIFY(w.action(QStringLiteral("mnuExit"))->isEnabled());
        QCOMPARE(w.action(QStringLiteral("mnuOpOpen"))->shortcut(), QKeySequence(QStringLiteral("F2")));

        // Cancel keeps the window and saves nothing.
        memo->setPlainText(QStringLiteral("一|二\n三"));
        Msg::setNextAnswer(QMessageBox::Cancel);
        w.close();
        QCOMPARE(messages(), QStringList{QStringLiteral("您真要退出本系统吗？")});
        QVERIFY(w.isVisible());
        QCOMPARE(GetIni(QStringLiteral("IsTopRun")), QString());

        // OK saves every step.
        w.findChild<QToolBar*>(QStringLiteral("tbrMain"))->hide();
        w.action(QStringLiteral("mnuQNHelp"))->setChecked(false);
        DB().exec(QStringLiteral("insert into s_log (logid, Logdate) values ('old', '2000-01-01 10:00')"));
        SetSetup(QStringLiteral("IsDBBackup"), QStringLiteral("1"));
        LoadSetupValue();
        Msg::setNextAnswer(QMessageBox::Ok);
        w.close();
        QCOMPARE(GetIni(QStringLiteral("IsTopRun")), QStringLiteral("1"));
        QCOMPARE(GetIni(QStringLiteral("IsOpenHelp")), QStringLiteral("N"));
        QCOMPARE(GetIni(QStringLiteral("IsShowToolbar")), QStringLiteral("N"));
        QCOMPARE(GetIni(QStringLiteral("Remind")), QStringLiteral("一|二|三"));
        QCOMPARE(GetSetup(QStringLiteral("RefurbishTime")), QStringLiteral("15"));
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from s_log where logid='old'")).toInt(), 0);
        const QStringList backups = QDir(v.home() + QStringLiteral("/DBBackup")).entryList({QStringLiteral("*.db")});
        QCOMPARE(backups, TestVenue::isPg() ? QStringList() : QStringList{QStringLiteral("202611212000.db")});
    }

    void secondStartKeepsHelpClosed() {
        TestVenue v;
        OPEN_VENUE(v);
        SetIni(QStringLiteral("IsTopRun"), QStringLiteral("1"));
        SetIni(QStringLiteral("IsOpenHelp"), QStringLiteral("N"));
        SetSetup(QStringLiteral("RefurbishTime"), QStringLiteral("30"));
        frmMain w;
        w.Init();
        QVERIFY(!w.action(QStringLiteral("mnuQNHelp"))->isChecked());
        QCOMPARE(w.findChild<QLineEdit*>(QStringLiteral("txtTime"))->text(), QStringLiteral("30"));
        QCOMPARE(w.refreshTimer()->interval(), 30000);
    }

    void guardedMenuAsksForTheRight() {
        TestVenue v;
        OPEN_VENUE(v);
        addOperator(QStringLiteral("o1"), QStringLiteral("cashier"), QString(), 0);
        App().CurrentOperatorID = QStringLiteral("o1");
        frmMain w;
        int ran = 0;
        w.wire(QStringLiteral("mnuLog"), [&] { ++ran; });
        w.action(QStringLiteral("mnuLog"))->trigger();
        QCOMPARE(ran, 0);
        QCOMPARE(messages(), QStringList{QStringLiteral("您没有操作此项业务的权限！")});
        DB().exec(QStringLiteral("insert into Puissance (OperatorID, SysPuissanceID, isHave) values ('o1', 'F010', 1)"));
        w.action(QStringLiteral("mnuLog"))->trigger();
        QCOMPARE(ran, 1);
        QCOMPARE(messages(), QStringList());
    }
};

QTEST_MAIN(TestSignIn)
#include "test_signin.moc"
