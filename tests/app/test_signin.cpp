#include "Puissance.h"
#include "SignIn.h"
#include "TestKit.h"
#include "frmLogin.h"
#include "frmMain.h"
#include <QPlainTextEdit>
#include <QToolBar>

namespace {
void addOperator(const QString& id, const QString& login, const QString& pw, int state, bool hashed = true) {
    DB().exec(
        u"insert into Operator (OperatorID, LoginName, operatorname, pw, discount, Closetimeset, State) "
        "values (?,?,?,?,?,?,?)"_s,
        {id, login, u"名字"_s + login, hashed ? Password::hash(pw) : pw, 25.0, 15.0, state});
}

int logRows(const QString& content) {
    return count(u"select count(*) from s_log where theContent=?"_s, {content});
}
} // namespace

class TestSignIn : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void outcomes_data() { // clang-format off
        columns<QString, QString, int, QString>("login", "password", "outcome", "logText");
        const int ok = int(SignInOutcome::Ok), bad = int(SignInOutcome::Invalid),
                  off = int(SignInOutcome::Disabled);
        QTest::newRow("admin, empty password") << "admin" << "" << ok << "操作员admin登录系统成功！";
        QTest::newRow("admin, wrong password") << "admin" << "x" << bad << "操作员admin登录系统失败！";
        QTest::newRow("unknown name") << "nobody" << "" << bad << "操作员nobody登录系统失败！";
        QTest::newRow("quote in name") << "o'hara" << "pw'1" << ok << "操作员o'hara登录系统成功！";
        QTest::newRow("case matters") << "o'hara" << "PW'1" << bad << "操作员o'hara登录系统失败！";
        QTest::newRow("disabled, right password") << "gone" << "secret" << off << "";
        QTest::newRow("disabled, wrong password") << "gone" << "nope" << off << "";
        QTest::newRow("stored as typed") << "legacy" << "1234" << ok << "操作员legacy登录系统成功！"; // clang-format on
    }
    void outcomes() {
        auto [login, password, outcome, logText] =
            fetch<QString, QString, int, QString>("login", "password", "outcome", "logText");
        NEW_VENUE(v);
        addOperator(u"o1"_s, u"o'hara"_s, u"pw'1"_s, 0);
        addOperator(u"o2"_s, u"gone"_s, u"secret"_s, 1);
        addOperator(u"o3"_s, u"legacy"_s, u"1234"_s, 0, false);
        App().CurrentOperatorID.clear();
        App().CurrentOperatorName.clear();
        QCOMPARE(int(SignIn(login, password)), outcome);
        QCOMPARE(dump(u"select theContent, theModel, theDoName, Dotype, dook from s_log"_s),
                 logText.isEmpty() ? QString()
                                   : logText + u"|系统管理|登录系统|其它|"_s +
                                         (outcome == int(SignInOutcome::Ok) ? u"成功"_s : u"失败"_s));
        if (outcome == int(SignInOutcome::Ok)) {
            QVERIFY(!App().CurrentOperatorID.isEmpty());
            QCOMPARE(App().CurrentOperatorName,
                     text(u"select operatorname from Operator where LoginName=?"_s, {login}));
            // Whatever was stored, a hash is stored now.
            QVERIFY(
                text(u"select pw from Operator where LoginName=?"_s, {login}).startsWith(u"$argon2id$"_s));
            // The limits come from the operator's row.
            if (login == u"o'hara"_s)
                QCOMPARE(u"%1/%2"_s.arg(App().CurrentDiscountLimit).arg(App().CurrentCloseTimeLimit),
                         u"25/15"_s);
        } else {
            QVERIFY(App().CurrentOperatorID.isEmpty());
        }
    }

    void checkPuissance_data() { // clang-format off
        columns<QString, QString, bool>("isHave", "asked", "granted");
        QTest::newRow("granted") << "1" << "C30" << true;
        QTest::newRow("other code of like name") << "1" << "C030" << false;
        QTest::newRow("not granted") << "0" << "C30" << false;
        QTest::newRow("no row") << "" << "D001" << false; // clang-format on
    }
    void checkPuissance() {
        auto [isHave, asked, granted] = fetch<QString, QString, bool>("isHave", "asked", "granted");
        NEW_VENUE(v);
        addOperator(u"o1"_s, u"cashier"_s, QString(), 0);
        if (!isHave.isEmpty())
            DB().exec(u"insert into Puissance (OperatorID, SysPuissanceID, isHave) values ('o1', 'C30', ?)"_s,
                      {isHave.toInt()});
        App().CurrentOperatorID = u"o1"_s;
        Msg::taken();
        QCOMPARE(CheckPuissance(asked), granted);
        QCOMPARE(messages(), granted ? QStringList() : QStringList{u"您没有操作此项业务的权限！"_s});
        App().CurrentOperatorID = u"qa042"_s;
        QVERIFY(CheckPuissance(asked));
    }

    void loginWindow() {
        NEW_VENUE(v);
        addOperator(u"o2"_s, u"gone"_s, u"secret"_s, 1);
        DB().close(); // the window opens the connection itself
        frmLogin dlg;
        auto* user = child<QLineEdit>(dlg, "txtUserName");
        auto* pw = child<QLineEdit>(dlg, "txtPassword");
        auto* ok = child<QPushButton>(dlg, "cmdOK");
        const QString version = texts(dlg, {"lblVer"});
        QVERIFY(version.startsWith(u"版本: 1."_s));
        QCOMPARE(version.endsWith(u" 网络版"_s), TestVenue::isPg());
        QCOMPARE(pw->echoMode(), QLineEdit::Password);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));

        // A disabled account is told so.
        user->setText(u"gone"_s);
        pw->setText(u"secret"_s);
        QTest::mouseClick(ok, Qt::LeftButton);
        QCOMPARE(messages(), QStringList{u"此帐号已被停用！"_s});
        user->clear();
        pw->clear();

        // Wrong password and one Enter: one attempt, its message with caption 登录, one log row,
        // the name selected for retyping.
        QTest::keyClicks(user, u"admin"_s);
        QTest::keyClicks(pw, u"wrong"_s);
        pw->setFocus();
        QTest::keyClick(pw, Qt::Key_Return);
        const QList<Msg::Shown> shown = Msg::taken();
        QCOMPARE(shown.size(), 1);
        QCOMPARE(shown[0].text + u'|' + shown[0].title, u"无效的登录名或密码，请重试!|登录"_s);
        QVERIFY(dlg.isVisible() && user->selectedText() == u"admin"_s);
        QCOMPARE(logRows(u"操作员admin登录系统失败！"_s), 1);

        // Enter moves from the name to the password; Enter there signs in.
        pw->clear();
        user->setFocus();
        QTest::keyClick(user, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), pw);
        QTest::keyClick(pw, Qt::Key_Return);
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(App().CurrentOperatorName, u"系统管理员"_s);
        QCOMPARE(logRows(u"操作员admin登录系统成功！"_s), 1);
    }

    void mainWindowStartAndExit() {
        NEW_VENUE(v);
        SetSetup(u"RefurbishTime"_s, u"2"_s);
        SetIni(u"Remind"_s, u"交班|记得续酒"_s);
        frmMain w;
        w.show();
        w.Init();
        auto* txtTime = child<QLineEdit>(w, "txtTime");
        QCOMPARE(txtTime->text(), u"0"_s);
        QVERIFY(!w.refreshTimer()->isActive());
        auto* memo = child<QPlainTextEdit>(w, "txtMemo");
        QCOMPARE(memo->toPlainText(), u"交班\n记得续酒"_s);

        // Refresh seconds typed by hand.
        txtTime->setText(u"2"_s);
        w.txtTime_LostFocus();
        QCOMPARE(messages(), QStringList{u"您设置的刷新时间小于3秒，系统将取消自动刷新功能！"_s});
        QCOMPARE(txtTime->text(), u"0"_s);
        txtTime->setText(u"15"_s);
        w.txtTime_LostFocus();
        QVERIFY(w.refreshTimer()->isActive() && w.refreshTimer()->interval() == 15000);

        // Cancel keeps the window and saves nothing.
        memo->setPlainText(u"一|二\n三"_s);
        Msg::setNextAnswer(QMessageBox::Cancel);
        w.close();
        QCOMPARE(messages(), QStringList{u"您真要退出本系统吗？"_s});
        QVERIFY(w.isVisible());
        QCOMPARE(GetIni(u"IsTopRun"_s), QString());

        // OK saves every step.
        w.findChild<QToolBar*>(u"tbrMain"_s)->hide();
        w.action(u"mnuQNHelp"_s)->setChecked(false);
        DB().exec(u"insert into s_log (logid, Logdate) values ('old', '2000-01-01 10:00')"_s);
        SetSetup(u"IsDBBackup"_s, u"1"_s);
        LoadSetupValue();
        Msg::setNextAnswer(QMessageBox::Ok);
        w.close();
        QCOMPARE(QStringList({GetIni(u"IsTopRun"_s), GetIni(u"IsOpenHelp"_s), GetIni(u"IsShowToolbar"_s),
                              GetIni(u"Remind"_s), GetSetup(u"RefurbishTime"_s)}),
                 QStringList({u"1"_s, u"N"_s, u"N"_s, u"一|二|三"_s, u"15"_s}));
        QCOMPARE(count(u"select count(*) from s_log where logid='old'"_s), 0);
        const QStringList backups = QDir(v.home() + u"/DBBackup"_s).entryList({u"*.db"_s});
        QCOMPARE(backups, TestVenue::isPg() ? QStringList() : QStringList{u"202611212000.db"_s});
    }
};

QTEST_MAIN(TestSignIn)
#include "test_signin.moc"
