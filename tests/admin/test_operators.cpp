#include "Log.h"
#include "LogService.h"
#include "OperatorService.h"
#include "TestKit.h"
#include "frmLog.h"
#include "frmLogSetup.h"
#include "frmOperator.h"

namespace {
OperatorInput person(const QString& login, const QStringList& granted = {}) {
    OperatorInput in;
    in.operatorName = u"收银员"_s;
    in.loginName = login;
    in.pw = in.pwRepeat = u"pw'1"_s;
    in.rights = OperatorService().rights(QString());
    for (OperatorRight& r : in.rights)
        r.granted = granted.contains(r.code);
    return in;
}
const QString LockOut = u"至少要保留一个可用的、有管理操作员权限的操作员！"_s;
} // namespace

class TestOperators : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void validate_data() { // clang-format off
        columns<QString, QString, QString, QString, bool, QString, QString>(
            "name", "login", "discount", "minutes", "s01", "message", "field");
        QTest::newRow("no name") << " " << "a" << "10" << "0" << false << "请输入用户名称！" << "txtOperatorName";
        QTest::newRow("no login") << "x" << " " << "10" << "0" << false << "请输入操作员的登录姓名！" << "txtLoginName";
        QTest::newRow("discount text") << "x" << "a" << "十" << "0" << false << "请输入允许优惠的总金额（元）！" << "txtDiscount";
        QTest::newRow("minutes text") << "x" << "a" << "5" << "5m" << false << "请输入允许优惠的时间（分钟）！" << "txtCloseTimeSet";
        QTest::newRow("Admin without S01") << "x" << "Admin" << "5" << "5" << false
            << "您必须为“admin即“系统管理员”设置管理操作员的权限！" << "lvwSysPuissance";
        QTest::newRow("admin with S01") << "x" << "admin" << "5" << "5" << true << "" << "";
        QTest::newRow("ordinary") << "x" << "a" << "5.5" << "-3" << false << "" << ""; // clang-format on
    }
    void validate() {
        auto [name, login, discount, minutes, s01, message, field] =
            fetch<QString, QString, QString, QString, bool, QString, QString>(
                "name", "login", "discount", "minutes", "s01", "message", "field");
        OperatorInput in;
        in.operatorName = name;
        in.loginName = login;
        in.discount = discount;
        in.closeTimeSet = minutes;
        in.rights << OperatorRight{u"S01"_s, {}, {}, s01};
        QCOMPARE(refusal(OperatorService::validate(in)), refusal(message, field));
    }

    // Row and every code of the catalogue in one save; a code without a row still shows.
    void save_edit_and_rights() {
        NEW_VENUE(v);
        OperatorService s;
        App().CurrentDiscountLimit = 1.0;
        const qint64 codes = count(u"select count(*) from SysPuissance"_s);
        OperatorInput in = person(u"cash"_s, {u"C30"_s, u"D001"_s});
        in.discount = u"12.6"_s;
        const OperatorSaved saved = s.save({}, in);
        QCOMPARE(count(u"select count(*) from Puissance where OperatorID=?"_s, {saved.id}), codes);
        QCOMPARE(dump(u"select SysPuissanceID from Puissance where OperatorID=? and isHave=1 order by 1"_s,
                      {saved.id}),
                 u"C30\nD001"_s);
        QVERIFY(
            Password::verify(text(u"select pw from Operator where OperatorID=?"_s, {saved.id}), u"pw'1"_s));

        // Blank password boxes keep the password; the limits load without decimals.
        DB().exec(u"delete from Puissance where OperatorID=? and SysPuissanceID='C030'"_s, {saved.id});
        std::optional<OperatorInput> back = s.load(saved.id);
        QVERIFY(back);
        QCOMPARE(back->discount, u"13"_s);
        QCOMPARE(qint64(back->rights.size()), codes);
        back->pw.clear();
        back->pwRepeat.clear();
        QVERIFY(s.save(saved.id, *back).ok());
        QVERIFY(
            Password::verify(text(u"select pw from Operator where OperatorID=?"_s, {saved.id}), u"pw'1"_s));
        QCOMPARE(count(u"select count(*) from Puissance where OperatorID=?"_s, {saved.id}), codes);

        // A second "admin" cannot take the built-in key.
        const OperatorSaved twin = s.save({}, person(u"admin"_s, {u"S01"_s}));
        QVERIFY(twin.ok());
        QVERIFY(twin.id != BuiltInAdminID);

        // Limits go into force only for the operator's own row.
        QCOMPARE(App().CurrentDiscountLimit, 1.0);
        std::optional<OperatorInput> me = s.load(App().CurrentOperatorID);
        me->discount = u"50"_s;
        me->closeTimeSet = u"15"_s;
        QVERIFY(s.save(App().CurrentOperatorID, *me).ok());
        QCOMPARE(App().CurrentDiscountLimit, 50.0);
        QCOMPARE(App().CurrentCloseTimeLimit, 15.0);
    }

    // Nobody can leave the venue without an active operator who manages operators.
    void no_lock_out() {
        NEW_VENUE(v);
        OperatorService s;
        const Refused admin = s.remove(BuiltInAdminID, u"ADMIN"_s);
        QCOMPARE(refusal(admin), refusal(u"您不能删除系统管理员这个用户！"_s, {}));
        QCOMPARE(admin->title, u"系统提示"_s);

        // A venue whose administrator no longer holds the right: the boss is the last one.
        DB().exec(u"update Puissance set isHave=0 where OperatorID=? and SysPuissanceID='S01'"_s,
                  {BuiltInAdminID});
        const OperatorSaved boss = s.save({}, person(u"boss"_s, {u"S01"_s}));
        QVERIFY(boss.ok());
        OperatorInput without = person(u"boss"_s);
        const OperatorSaved refused = s.save(boss.id, without);
        QCOMPARE(refusal(refused.refusal), refusal(LockOut, u"lvwSysPuissance"_s));
        OperatorInput stopped = person(u"boss"_s, {u"S01"_s});
        stopped.state = 1;
        QVERIFY(!s.save(boss.id, stopped).ok());
        QCOMPARE(refusal(s.remove(boss.id, u"boss"_s)), refusal(LockOut, {}));
        QCOMPARE(
            count(
                u"select count(*) from Puissance where OperatorID=? and SysPuissanceID='S01' and isHave=1"_s,
                {boss.id}),
            1);

        QVERIFY(s.save({}, person(u"deputy"_s, {u"S01"_s})).ok());
        QVERIFY(!s.remove(boss.id, u"boss"_s));
        QCOMPARE(count(u"select count(*) from Puissance where OperatorID=?"_s, {boss.id}), 0);
    }

    void dialog_flow() {
        NEW_VENUE(v);
        frmOperator dlg;
        dlg.startAdd();
        QCOMPARE(texts(dlg, {"txtDiscount", "txtCloseTimeSet", "cmbState"}), u"10|0|可用"_s);
        child<QCheckBox>(dlg, "chkAll")->click();
        showActive(dlg);
        child<QLineEdit>(dlg, "txtOperatorName")->setText(u"李四"_s);
        child<QLineEdit>(dlg, "txtLoginName")->setText(u"lisi"_s);
        child<QLineEdit>(dlg, "txtPW")->setText(u"a"_s);
        child<QPushButton>(dlg, "OKButton")->click();
        QCOMPARE(messages(), QStringList{u"您输入的登录密码和重复输入的密码不一样，请重新输入！"_s});
        QCOMPARE(focused(), u"txtPW"_s);
        child<QLineEdit>(dlg, "txtPw1")->setText(u"a"_s);
        look(dlg, u"frmOperator"_s);
        child<QPushButton>(dlg, "OKButton")->click();
        // Every right of the catalogue listed and ticked.
        QCOMPARE(count(u"select count(*) from Puissance where OperatorID=? and isHave=1"_s, {dlg.savedId()}),
                 count(u"select count(*) from SysPuissance"_s));

        frmOperator admin;
        QVERIFY(admin.startEdit(BuiltInAdminID));
        QVERIFY(!child<QLineEdit>(admin, "txtLoginName")->isEnabled());
        QVERIFY(!child<QComboBox>(admin, "cmbState")->isEnabled());
    }
    // The period and the search pick rows; wildcards in the search are plain text.
    void log_list_and_window() {
        NEW_VENUE(v);
        DB().exec(u"delete from s_log"_s);
        const QDateTime now = TestVenue::fixedNow();
        WriteLog(now.addDays(-40), u"甲"_s, u"营业设置"_s, u"设置包厢"_s, 1, true, u"old"_s);
        WriteLog(now.addDays(-1), u"乙"_s, u"会员管理"_s, u"会员资料"_s, 2, true, u"50% off, it's"_s);
        WriteLog(now, u"丙"_s, u"外卖"_s, u"外卖"_s, 1, true, u"500 off"_s);
        LogService s;
        const auto shown = [&](const QString& search) {
            QStringList names;
            for (const Row r : s.list({now.addDays(-30), now, search}))
                names << r.text(u"theOperator"_s);
            return names.join(u',');
        };
        QCOMPARE(shown({}), u"丙,乙"_s);
        QCOMPARE(shown(u"%"_s), u"乙"_s);
        QCOMPARE(shown(u"外卖"_s), u"丙"_s);

        // Deleting from the window leaves one row that says so.
        frmLog dlg;
        dlg.cmdFind_Click();
        look(dlg, u"frmLog"_s);
        Msg::setNextAnswer(QMessageBox::Ok);
        child<QPushButton>(dlg, "cmdDel")->click();
        QCOMPARE(messages(), (QStringList{u"系统操作日志删除后将不能恢复，您确认要删除吗？"_s,
                                          u"共删除3条系统日志！"_s}));
        QCOMPARE(child<QTreeWidget>(dlg, "lvwThis")->topLevelItemCount(), 1);
        QCOMPARE(dump(u"select theOperator, theModel, theDoName, Dotype, theContent from s_log"_s),
                 u"系统管理员|系统设置|操作日志|删除|"_s);
    }

    // The retention as the window saves it; a refusal puts the focus on its box and keeps what
    // was stored.
    void log_setup_window_data() { // clang-format off
        columns<int, QString, QString, QString, QString>("type", "days", "rows", "message", "stored");
        QTest::newRow("days") << 0 << "7" << "x" << "" << "0|7";
        QTest::newRow("rows") << 1 << "x" << "0" << "" << "1|0";
        QTest::newRow("days not numeric") << 0 << "7天" << "5" << "请输入日志的保留天数！ @Text10" << "";
        QTest::newRow("rows not numeric") << 1 << "5" << "abc" << "请输入日志的保留条数！ @Text11" << ""; // clang-format on
    }
    void log_setup_window() {
        auto [type, days, rows, message, stored] =
            fetch<int, QString, QString, QString, QString>("type", "days", "rows", "message", "stored");
        NEW_VENUE(v);
        const QString before = GetSetup(u"LogType"_s) + u'|' + GetSetup(u"LogSaveNumber"_s);
        frmLogSetup setup;
        setup.load();
        child<QRadioButton>(setup, type == 0 ? "optSet0" : "optSet1")->setChecked(true);
        child<QLineEdit>(setup, "Text10")->setText(days);
        child<QLineEdit>(setup, "Text11")->setText(rows);
        showActive(setup);
        look(setup, u"frmLogSetup"_s);
        child<QPushButton>(setup, "OKButton")->click();
        const QStringList shown = messages();
        QCOMPARE(shown.isEmpty() ? QString() : shown.first() + u" @"_s + focused(), message);
        const QString after = GetSetup(u"LogType"_s) + u'|' + GetSetup(u"LogSaveNumber"_s);
        QCOMPARE(after, stored.isEmpty() ? before : stored);
    }
};

QTEST_MAIN(TestOperators)
#include "test_operators.moc"
