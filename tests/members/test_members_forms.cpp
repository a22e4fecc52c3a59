#include "FormProbe.h"
#include "AppState.h"
#include "ListColumns.h"
#include "MemberPrinting.h"
#include "Password.h"
#include "SignIn.h"
#include "ModalDriver.h"
#include "TestVenue.h"
#include "frmChangePw.h"
#include "frmChongzhi.h"
#include "frmChongzhiList.h"
#include "frmMain.h"
#include "frmMember.h"
#include "frmMemberList.h"
#include "frmMemberSetup.h"
#include "frmSetupMember.h"
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <functional>

namespace {
qint64 count(const QString& sql, const Params& p = {}) {
    return DB().scalar(sql, p).toLongLong();
}

QLineEdit* box(QObject* form, const char* name) {
    return child<QLineEdit>(form, name);
}
void click(QObject* form, const char* name) {
    child<QPushButton>(form, name)->click();
}

QStringList column(QTreeWidget* list, const QString& colname) {
    QStringList out;
    const int c = ListColumn(list, colname);
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->text(c);
    return out;
}

void selectRow(QTreeWidget* list, const QString& colname, const QString& text) {
    const QList<QTreeWidgetItem*> found = list->findItems(text, Qt::MatchExactly, ListColumn(list, colname));
    QVERIFY(!found.isEmpty());
    list->setCurrentItem(found.first());
}

// Picks a class in the combo as a click does.
void pickClass(QDialog* d, const QString& name) {
    auto* combo = child<QComboBox>(d, "imgcmbMemberSetup");
    combo->setCurrentIndex(combo->findText(name));
    Q_EMIT combo->activated(combo->currentIndex());
}

void seed() {
    DB().exec(
        QStringLiteral("insert into MemberSetup (SetupID, SetupName, InitValue, StepValue, discount) values "
                       "('s1', '普通会员', 0, 10, 0.95), ('s2', '金卡会员', 100, 5, 0.88)"));
    DB().exec(
        QStringLiteral("insert into Member (MemberCode, MemberName, SetupID, State, MemberValue, chongzhi, "
                       "sumValue, pw) values ('A''1', '张''三', 's2', 0, 55, ?, 0, ''), "
                       "('B2', '李四', 's1', 1, 0, 0, 0, '')"),
        {Money::yuan(200)});
    DB().exec(
        QStringLiteral(
            "insert into chongzhi (chongzhiid, MemberCode, thismemoney, factpay, OperatorTime) "
            "values ('c1', 'A''1', ?, ?, '2026-11-01 10:00'), ('c2', 'A''1', ?, ?, '2026-11-20 10:00')"),
        {Money::yuan(100), Money::yuan(100), Money::yuan(100), Money::yuan(80)});
    DB().exec(QStringLiteral(
                  "insert into Expense (ExpenseID, State, CustomerCode, chongzhiIDCare, chongzhipay) values "
                  "('e1', 0, 'A''1', 'A''1', ?), ('e2', 0, 'A''1', '', 0)"),
              {Money::yuan(30)});
}
} // namespace

class TestMemberForms : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // Add mode stays open for the next member: the class stays chosen, its points are not
    // filled in again, and a taken code keeps everything typed.
    void member_dialog_add_mode() {
        TestVenue v;
        OPEN_VENUE(v);
        seed();
        frmMember d;
        d.startAdd();
        d.show();
        QVERIFY(QTest::qWaitForWindowActive(&d));
        auto* points = box(&d, "txtMemberValue");
        QCOMPARE(child<QComboBox>(&d, "imgcmbMemberSetup")->currentText(), QStringLiteral("普通会员"));
        QCOMPARE(points->text(), QStringLiteral("0"));
        pickClass(&d, QStringLiteral("金卡会员"));
        QCOMPARE(points->text(), QStringLiteral("100"));
        box(&d, "txtMemberCode")->setText(QStringLiteral("C3"));
        d.OKButton_Click();
        QCOMPARE(messages(), QStringList{QStringLiteral("请输入会员姓名！")});
        QCOMPARE(QApplication::focusWidget(), box(&d, "txtMemberName"));
        box(&d, "txtMemberName")->setText(QStringLiteral("王五"));
        child<QRadioButton>(&d, "optSex1")->setChecked(true);
        child<QCheckBox>(&d, "chkBirthday")->setChecked(true);
        child<QDateEdit>(&d, "dtpBirthday")->setDate(QDate(1995, 5, 4));
        box(&d, "txtSMS")->setText(QStringLiteral(" 139 "));
        d.OKButton_Click();
        QVERIFY(d.saved());
        QCOMPARE(messages(), QStringList());
        const Row c3 = DB().query(QStringLiteral("select * from Member where MemberCode='C3'")).first();
        QCOMPARE(c3.text(QStringLiteral("Sex")), QStringLiteral("女"));
        QCOMPARE(c3.num(QStringLiteral("MemberValue")), 100.0);
        QCOMPARE(c3.text(QStringLiteral("SetupID")), QStringLiteral("s2"));
        QCOMPARE(c3.text(QStringLiteral("birthday")), QStringLiteral("1995-05-04"));
        QCOMPARE(c3.text(QStringLiteral("sms")), QStringLiteral("139"));
        QCOMPARE(c3.text(QStringLiteral("AddDate")), QStringLiteral("2026-11-21 20:00"));

        // Cleared for the next one; the points box stays empty until a class is picked.
        QCOMPARE(box(&d, "txtMemberCode")->text(), QString());
        QCOMPARE(box(&d, "txtMemberName")->text(), QString());
        QCOMPARE(points->text(), QString());
        QCOMPARE(child<QComboBox>(&d, "imgcmbMemberSetup")->currentText(), QStringLiteral("金卡会员"));
        QVERIFY(child<QRadioButton>(&d, "optSex0")->isChecked());

        // A taken code: one message, the dialog keeps what was typed.
        box(&d, "txtMemberCode")->setText(QStringLiteral("B2"));
        box(&d, "txtMemberName")->setText(QStringLiteral("赵六"));
        d.OKButton_Click();
        const QStringList shown = messages();
        QCOMPARE(shown.size(), 1);
        QVERIFY(shown.first().startsWith(
            QStringLiteral("会员编号为： B2 的会员已存在，请重新输入会员编号！\n错误信息： ")));
        QCOMPARE(box(&d, "txtMemberName")->text(), QStringLiteral("赵六"));
        QCOMPARE(count(QStringLiteral("select count(*) from Member where MemberName='赵六'")), 0);

        // Saved as the empty points box shows: no points.
        box(&d, "txtMemberCode")->setText(QStringLiteral("D4"));
        d.OKButton_Click();
        QCOMPARE(
            DB().scalar(QStringLiteral("select MemberValue from Member where MemberCode='D4'")).toDouble(),
            0.0);
        QCOMPARE(count(QStringLiteral("select count(*) from s_log where theModel='会员管理'")), 2);
    }

    // Loading a member keeps its stored points; picking another class replaces them.
    void member_dialog_edit() {
        TestVenue v;
        OPEN_VENUE(v);
        seed();
        DB().exec(QStringLiteral("update Member set birthday=null, State=2 where MemberCode='A''1'"));
        frmMember d;
        QVERIFY(d.startEdit(QStringLiteral("A'1")));
        QCOMPARE(box(&d, "txtMemberValue")->text(), QStringLiteral("55"));
        QCOMPARE(child<QComboBox>(&d, "imgcmbMemberSetup")->currentText(), QStringLiteral("金卡会员"));
        QVERIFY(!child<QCheckBox>(&d, "chkBirthday")->isChecked());
        QCOMPARE(box(&d, "txtMemberName")->text(), QStringLiteral("张'三"));
        pickClass(&d, QStringLiteral("普通会员"));
        QCOMPARE(box(&d, "txtMemberValue")->text(), QStringLiteral("0"));
        box(&d, "txtMemberValue")->setText(QStringLiteral("60"));
        d.OKButton_Click();
        QVERIFY(d.saved());
        const Row a = DB().query(QStringLiteral("select * from Member where MemberCode='A''1'")).first();
        QCOMPARE(a.num(QStringLiteral("MemberValue")), 60.0);
        QCOMPARE(a.text(QStringLiteral("SetupID")), QStringLiteral("s1"));
        // A state the combo does not offer is written back as it was; the balance is untouched.
        QCOMPARE(a.integer(QStringLiteral("State")), 2);
        QCOMPARE(a.money(QStringLiteral("chongzhi")), Money::yuan(200));
        QVERIFY(a.isNull(QStringLiteral("birthday")));
        QVERIFY(!d.startEdit(QStringLiteral("gone")));
    }

    void member_list_search_records_and_delete() {
        TestVenue v;
        OPEN_VENUE(v);
        seed();
        frmMemberList w;
        w.prepare(false);
        auto* list = child<QTreeWidget>(&w, "lvwThis");
        auto* topUps = child<QTreeWidget>(&w, "lvwChongzhi");
        auto* bills = child<QTreeWidget>(&w, "lvwExpense");
        QCOMPARE(list->topLevelItemCount(), 2); // the members at once
        click(&w, "cmdFind");
        QCOMPARE(column(list, QStringLiteral("MemberCode")),
                 (QStringList{QStringLiteral("A'1"), QStringLiteral("B2")}));
        QCOMPARE(column(list, QStringLiteral("State")),
                 (QStringList{QStringLiteral("可用"), QStringLiteral("停用")}));
        QCOMPARE(column(list, QStringLiteral("chongzhi")).first(), QStringLiteral("￥200"));
        box(&w, "txtName")->setText(QStringLiteral("'"));
        click(&w, "cmdFind");
        QCOMPARE(column(list, QStringLiteral("MemberCode")), QStringList{QStringLiteral("A'1")});

        // Records: top-ups newest first; the second tab lists only bills paid by card.
        selectRow(list, QStringLiteral("MemberCode"), QStringLiteral("A'1"));
        QCOMPARE(column(topUps, QStringLiteral("factpay")),
                 (QStringList{QStringLiteral("80.00"), QStringLiteral("100.00")}));
        QCOMPARE(bills->topLevelItemCount(), 0);
        child<QTabWidget>(&w, "ctbRecord")->setCurrentIndex(1);
        QCOMPARE(column(bills, QStringLiteral("ExpenseID")), QStringList{QStringLiteral("e1")});

        // Bills carry the member: a question, Cancel by default.
        w.DeleteMember();
        QCOMPARE(
            messages(),
            QStringList{QStringLiteral(
                "如果您删除此会员的资料，那么此会员相关的消费、储值卡等记录也会被删除，您真打算这样做吗？\n"
                "提示：如果您打算保留此会员的资料，您可以将其状态设置为“暂停服务”。")});
        QCOMPARE(count(QStringLiteral("select count(*) from Member")), 2);
        Msg::setNextAnswer(QMessageBox::Ok);
        w.DeleteMember();
        messages();
        QCOMPARE(count(QStringLiteral("select count(*) from Member")), 1);
        QCOMPARE(count(QStringLiteral("select count(*) from chongzhi")), 0);
        QCOMPARE(count(QStringLiteral("select count(*) from Expense")), 2);
        QCOMPARE(list->topLevelItemCount(), 0); // searched again with the name still typed

        // No bills: no question.
        box(&w, "txtName")->clear();
        click(&w, "cmdFind");
        selectRow(list, QStringLiteral("MemberCode"), QStringLiteral("B2"));
        w.DeleteMember();
        QCOMPARE(messages(), QStringList());
        QCOMPARE(count(QStringLiteral("select count(*) from Member")), 0);
        QCOMPARE(list->topLevelItemCount(), 0);
    }

    // Clearing asks first, Cancel by default.
    void member_list_clear_password() {
        TestVenue v;
        OPEN_VENUE(v);
        seed();
        const QString hashed = Password::hash(QStringLiteral("9"));
        DB().exec(QStringLiteral("update Member set pw=? where MemberCode='A''1'"), {hashed});
        frmMemberList w;
        w.prepare(false);
        click(&w, "cmdFind");
        selectRow(child<QTreeWidget>(&w, "lvwThis"), QStringLiteral("MemberCode"), QStringLiteral("A'1"));
        const auto stored = [] {
            return DB().scalar(QStringLiteral("select pw from Member where MemberCode='A''1'")).toString();
        };
        w.cmdClearPw_Click();
        QCOMPARE(messages(), QStringList{QStringLiteral("您真打算消除此会员的密码吗？")});
        QCOMPARE(stored(), hashed);
        Msg::setNextAnswer(QMessageBox::Ok);
        w.cmdClearPw_Click();
        QCOMPARE(stored(), QString());
    }

    // The operator's own password from the main menu, then a sign-in with the new one.
    void operator_password_from_the_menu() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(QStringLiteral("update Operator set pw=? where OperatorID='qa042'"),
                  {Password::hash(QStringLiteral("a1"))});
        frmMain main;
        for (const char* name :
             {"mnuMember", "mnuSetupMember", "mnuFindChongzhi", "tbrCHONGZHI", "mnuChangePw"})
            QVERIFY2(main.action(QLatin1String(name))->isEnabled(), name);
        onModal([](QDialog* d) {
            box(d, "txtNowPw")->setText(QStringLiteral("a1"));
            box(d, "txtpw")->setText(QStringLiteral("b2"));
            box(d, "txtPw1")->setText(QStringLiteral("b3"));
            click(d, "OKButton");
            QCOMPARE(messages(), QStringList{QStringLiteral("您输入的新密码和重复密码不一样，请重新输入！")});
            QCOMPARE(QApplication::focusWidget(), box(d, "txtpw"));
            box(d, "txtPw1")->setText(QStringLiteral("b2"));
            click(d, "OKButton");
        });
        main.runCommand(QStringLiteral("mnuChangePw"));
        QCOMPARE(messages(), QStringList{QStringLiteral("密码修改成功！")});
        QCOMPARE(SignIn(QStringLiteral("admin"), QStringLiteral("b2")), SignInOutcome::Ok);
    }

    // A top-up from the member list: the member is fixed, the receipt comes after the commit.
    void chongzhi_from_the_member_list() {
        TestVenue v;
        OPEN_VENUE(v);
        seed();
        App().IsPrintChongzhi = 1;
        QList<ChongzhiReceipt> printed;
        Money balanceWhenPrinted;
        MemberPrinting::setChongzhiPrinter([&](const ChongzhiReceipt& r) {
            printed << r;
            balanceWhenPrinted =
                DB().query(QStringLiteral("select chongzhi from Member where MemberCode='A''1'"))
                    .first()
                    .money(QStringLiteral("chongzhi"));
        });
        frmMemberList w;
        w.prepare(false);
        click(&w, "cmdFind");
        selectRow(child<QTreeWidget>(&w, "lvwThis"), QStringLiteral("MemberCode"), QStringLiteral("A'1"));
        onModal([](QDialog* d) {
            QVERIFY(box(d, "txtMemberCode")->isReadOnly());
            QCOMPARE(QApplication::focusWidget(), box(d, "txtFactPay"));
            QCOMPARE(box(d, "txtMemberName")->text(), QStringLiteral("张'三"));
            QCOMPARE(box(d, "txtchongzhi")->text(), QStringLiteral("200"));
            QVERIFY(child<QCheckBox>(d, "chkPrint")->isChecked());
            box(d, "txtFactPay")->setText(QStringLiteral("80"));
            box(d, "txtThisMemoney")->setText(QStringLiteral("百"));
            click(d, "OKButton");
            QCOMPARE(messages(), QStringList{QStringLiteral("请输入充值金额！")});
            QCOMPARE(QApplication::focusWidget(), box(d, "txtThisMemoney"));
            box(d, "txtThisMemoney")->setText(QStringLiteral("100"));
            click(d, "OKButton");
        });
        w.cmdChongzhi_Click();
        MemberPrinting::setChongzhiPrinter({});
        QCOMPARE(count(QStringLiteral("select count(*) from chongzhi")), 3);
        QCOMPARE(printed.size(), 1);
        QCOMPARE(balanceWhenPrinted, Money::yuan(300));
        QCOMPARE(printed.first().balanceBefore, QStringLiteral("200"));
        QCOMPARE(printed.first().factPay, QStringLiteral("80"));
        // The member's records were loaded again.
        QCOMPARE(child<QTreeWidget>(&w, "lvwChongzhi")->topLevelItemCount(), 3);
    }

    // Typing a code: only a member found and in service can be topped up.
    void chongzhi_by_typed_code() {
        TestVenue v;
        OPEN_VENUE(v);
        seed();
        App().IsPrintChongzhi = 0;
        frmChongzhi d;
        d.prepare({});
        d.show();
        QVERIFY(QTest::qWaitForWindowActive(&d));
        auto* code = box(&d, "txtMemberCode");
        QVERIFY(!code->isReadOnly());
        QCOMPARE(QApplication::focusWidget(), code);
        QVERIFY(!child<QCheckBox>(&d, "chkPrint")->isChecked());
        code->setText(QStringLiteral("X9"));
        QTest::keyClick(code, Qt::Key_Return);
        QCOMPARE(messages(), QStringList{QStringLiteral("没找到这个会员！请检查您输入的会员编号是否正确！")});
        QCOMPARE(QApplication::focusWidget(), code);
        QCOMPARE(code->selectedText(), QStringLiteral("X9"));

        code->setText(QStringLiteral("A'1"));
        QTest::keyClick(code, Qt::Key_Return);
        QCOMPARE(messages(), QStringList());
        QCOMPARE(d.CurrentMember(), QStringLiteral("A'1"));
        QCOMPARE(box(&d, "txtchongzhi")->text(), QStringLiteral("200"));
        QVERIFY(QApplication::focusWidget() != code);

        // A stopped member entered by Enter leaves nothing to save.
        code->setText(QStringLiteral("B2"));
        QTest::keyClick(code, Qt::Key_Return);
        QCOMPARE(messages(), QStringList{QStringLiteral("不能操作此会员的数据，因为此会员已暂停服务！")});
        QCOMPARE(box(&d, "txtMemberName")->text(), QString());
        QCOMPARE(box(&d, "txtChongzhiNew")->text(), QString());
        box(&d, "txtFactPay")->setText(QStringLiteral("10"));
        box(&d, "txtThisMemoney")->setText(QStringLiteral("10"));
        d.OKButton_Click();
        QCOMPARE(messages(), QStringList{QStringLiteral("请输入正确的会员编号！")});
        QVERIFY(!d.saved());
        QCOMPARE(count(QStringLiteral("select count(*) from chongzhi")), 2);
    }

    // Opened for a stopped member, the dialog says so but keeps the member and can save.
    void chongzhi_for_a_given_stopped_member() {
        TestVenue v;
        OPEN_VENUE(v);
        seed();
        frmChongzhi d;
        d.prepare(QStringLiteral("B2"));
        QCOMPARE(messages(), QStringList{QStringLiteral("不能操作此会员的数据，因为此会员已暂停服务！")});
        box(&d, "txtFactPay")->setText(QStringLiteral("5"));
        box(&d, "txtThisMemoney")->setText(QStringLiteral("5"));
        d.OKButton_Click();
        QVERIFY(d.saved());
        QCOMPARE(DB().query(QStringLiteral("select chongzhi from Member where MemberCode='B2'"))
                     .first()
                     .money(QStringLiteral("chongzhi")),
                 Money::yuan(5));
    }

    void chongzhi_list() {
        TestVenue v;
        OPEN_VENUE(v);
        seed();
        DB().exec(QStringLiteral(
                      "insert into chongzhi (chongzhiid, MemberCode, thismemoney, factpay, OperatorTime, "
                      "operatorname) values ('c3', 'B2', ?, ?, '2026-11-21 09:30', '收银'), "
                      "('c4', 'A''1', ?, ?, '2026-11-16 09:30', '收银')"),
                  {Money::fromDouble(50.5), Money::yuan(40), Money::yuan(10), Money::yuan(10)});
        frmChongzhiList w;
        auto* list = child<QTreeWidget>(&w, "lvwThis");
        w.prepare(1);
        QCOMPARE(column(list, QStringLiteral("chongzhiid")),
                 (QStringList{QStringLiteral("c3"), QStringLiteral("c2"), QStringLiteral("c4")}));
        QCOMPARE(column(list, QStringLiteral("membername")).first(), QStringLiteral("李四"));
        w.prepare(2);
        QCOMPARE(list->topLevelItemCount(), 4);
        QCOMPARE(box(&w, "txtThisMemoney")->text(), QStringLiteral("261"));
        QCOMPARE(box(&w, "txtFactPay")->text(), QStringLiteral("230"));
    }

    void pick_mode() {
        TestVenue v;
        OPEN_VENUE(v);
        seed();
        frmMemberList w;
        onModal([](QDialog* d) {
            QVERIFY(!child<QWidget>(d, "fraEdit")->isVisible());
            QVERIFY(child<QWidget>(d, "fraSelect")->isVisible());
            box(d, "txtCode")->setText(QStringLiteral("b"));
            click(d, "cmdFind");
            selectRow(child<QTreeWidget>(d, "lvwThis"), QStringLiteral("MemberCode"), QStringLiteral("B2"));
            click(d, "cmdSelect");
        });
        QCOMPARE(w.SelectMember(), QStringLiteral("B2"));
        onModal([](QDialog* d) { click(d, "cmdClose"); });
        QCOMPARE(w.SelectMember(), QString());
    }

    void member_classes_window() {
        TestVenue v;
        OPEN_VENUE(v);
        seed();
        frmSetupMember w;
        w.LoadData();
        auto* list = child<QTreeWidget>(&w, "lvwMemberSetup");
        QCOMPARE(list->topLevelItemCount(), 2);
        onModal([](QDialog* d) {
            QCOMPARE(box(d, "txtDiscount")->text(), QStringLiteral("1"));
            box(d, "txtSetupName")->setText(QStringLiteral("钻石会员"));
            box(d, "txtDiscount")->setText(QStringLiteral("0.8"));
            click(d, "OKButton");
        });
        w.cmdMemberSetupAdd_Click();
        QCOMPARE(list->topLevelItemCount(), 3);
        QCOMPARE(DB().scalar(QStringLiteral("select discount from MemberSetup where SetupName='钻石会员'"))
                     .toDouble(),
                 0.8);
        // A class members belong to is refused by the store.
        list->setCurrentItem(list->findItems(QStringLiteral("金卡会员"), Qt::MatchExactly).first());
        w.cmdMemberSetupDel_Click();
        QCOMPARE(messages(), QStringList{QStringLiteral("不能删除此数据，因为它已经使用！")});
        list->setCurrentItem(list->findItems(QStringLiteral("钻石会员"), Qt::MatchExactly).first());
        w.cmdMemberSetupDel_Click();
        QCOMPARE(list->topLevelItemCount(), 2);
    }

    // Without the rights the buttons refuse and open nothing.
    void rights_data() {
        QTest::addColumn<QString>("button");
        QTest::newRow("add needs C008") << "cmdAdd";
        QTest::newRow("delete needs C008") << "cmdDel";
        QTest::newRow("top-up needs C015") << "cmdChongzhi";
        QTest::newRow("classes need C007") << "cmdSetup";
    }
    void rights() {
        QFETCH(QString, button);
        TestVenue v;
        OPEN_VENUE(v);
        seed();
        DB().exec(QStringLiteral("insert into Operator (OperatorID, LoginName, operatorname, State) values "
                                 "('o1', 'c', '收银员', 0)"));
        App().CurrentOperatorID = QStringLiteral("o1");
        frmMemberList w;
        w.prepare(false);
        click(&w, "cmdFind");
        selectRow(child<QTreeWidget>(&w, "lvwThis"), QStringLiteral("MemberCode"), QStringLiteral("B2"));
        child<QPushButton>(&w, qPrintable(button))->click();
        QCOMPARE(messages(), QStringList{QStringLiteral("您没有操作此项业务的权限！")});
        QCOMPARE(count(QStringLiteral("select count(*) from Member")), 2);
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
    }
};

QTEST_MAIN(TestMemberForms)
#include "test_members_forms.moc"
