#include "MemberPrinting.h"
#include "SignIn.h"
#include "TestKit.h"
#include "frmChongzhi.h"
#include "frmChongzhiList.h"
#include "frmMain.h"
#include "frmMember.h"
#include "frmMemberList.h"
#include "frmSetupMember.h"

namespace {
QLineEdit* box(QObject* form, const char* name) {
    return child<QLineEdit>(form, name);
}
void click(QObject* form, const char* name) {
    child<QPushButton>(form, name)->click();
}
QComboBox* classes(QObject* form) {
    return child<QComboBox>(form, "imgcmbMemberSetup");
}

void seed() {
    DB().exec(u"insert into MemberSetup (SetupID, SetupName, InitValue, StepValue, discount) values "
              "('s1', '普通会员', 0, 10, 0.95), ('s2', '金卡会员', 100, 5, 0.88)"_s);
    DB().exec(u"insert into Member (MemberCode, MemberName, SetupID, State, MemberValue, chongzhi, "
              "sumValue, pw) values ('A''1', '张''三', 's2', 0, 55, ?, 0, ''), "
              "('B2', '李四', 's1', 1, 0, 0, 0, '')"_s,
              {Money::yuan(200)});
    DB().exec(u"insert into chongzhi (chongzhiid, MemberCode, thismemoney, factpay, OperatorTime) "
              "values ('c1', 'A''1', ?, ?, '2026-11-01 10:00'), ('c2', 'A''1', ?, ?, '2026-11-20 10:00')"_s,
              {Money::yuan(100), Money::yuan(100), Money::yuan(100), Money::yuan(80)});
    DB().exec(u"insert into Expense (ExpenseID, State, CustomerCode, chongzhiIDCare, chongzhipay) values "
              "('e1', 0, 'A''1', 'A''1', ?), ('e2', 0, 'A''1', '', 0)"_s,
              {Money::yuan(30)});
}
} // namespace

class TestMemberForms : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // Adding stays open for the next member: the class stays chosen, its points are not filled
    // in again, and a taken code keeps everything typed. Editing keeps the stored points until
    // another class is picked.
    void member_dialog() {
        NEW_VENUE(v);
        seed();
        frmMember d;
        d.startAdd();
        showActive(d);
        QCOMPARE(texts(d, {"imgcmbMemberSetup", "txtMemberValue"}), u"普通会员|0"_s);
        choose(classes(&d), u"金卡会员"_s);
        QCOMPARE(box(&d, "txtMemberValue")->text(), u"100"_s);
        box(&d, "txtMemberCode")->setText(u"C3"_s);
        d.OKButton_Click();
        QCOMPARE(messages(), QStringList{u"请输入会员姓名！"_s});
        QCOMPARE(focused(), u"txtMemberName"_s);
        box(&d, "txtMemberName")->setText(u"王五"_s);
        child<QRadioButton>(&d, "optSex1")->setChecked(true);
        child<QCheckBox>(&d, "chkBirthday")->setChecked(true);
        child<QDateEdit>(&d, "dtpBirthday")->setDate(QDate(1995, 5, 4));
        d.OKButton_Click();
        QVERIFY(d.saved());
        QCOMPARE(
            dump(u"select Sex, MemberValue, SetupID, birthday, AddDate from Member where MemberCode='C3'"_s),
            u"女|100|s2|1995-05-04|2026-11-21 20:00"_s);
        QCOMPARE(texts(d, {"txtMemberCode", "txtMemberName", "txtMemberValue", "imgcmbMemberSetup"}),
                 u"|||金卡会员"_s);
        QVERIFY(child<QRadioButton>(&d, "optSex0")->isChecked());

        box(&d, "txtMemberCode")->setText(u"B2"_s);
        box(&d, "txtMemberName")->setText(u"赵六"_s);
        d.OKButton_Click();
        QCOMPARE(messages().size(), 1);
        QCOMPARE(texts(d, {"txtMemberCode", "txtMemberName"}), u"B2|赵六"_s);
        // Saved as the empty points box shows: no points.
        box(&d, "txtMemberCode")->setText(u"D4"_s);
        d.OKButton_Click();
        QCOMPARE(text(u"select MemberValue from Member where MemberCode='D4'"_s), u"0"_s);

        DB().exec(u"update Member set State=2 where MemberCode='A''1'"_s);
        frmMember edit;
        QVERIFY(edit.startEdit(u"A'1"_s));
        QCOMPARE(texts(edit, {"txtMemberValue", "imgcmbMemberSetup", "txtMemberName"}),
                 u"55|金卡会员|张'三"_s);
        QVERIFY(!child<QCheckBox>(&edit, "chkBirthday")->isChecked());
        choose(classes(&edit), u"普通会员"_s);
        QCOMPARE(box(&edit, "txtMemberValue")->text(), u"0"_s);
        box(&edit, "txtMemberValue")->setText(u"60"_s);
        edit.OKButton_Click();
        // A state the combo does not offer is written back as it was; the balance is untouched.
        QCOMPARE(dump(u"select MemberValue, SetupID, State, chongzhi, coalesce(birthday, 'none') from Member "
                      "where MemberCode='A''1'"_s),
                 u"60|s1|2|2000000|none"_s);
        QVERIFY(!edit.startEdit(u"gone"_s));
    }

    // Search, records, a top-up, the password and deleting, from the member list.
    void member_list() {
        NEW_VENUE(v);
        seed();
        App().IsPrintChongzhi = 1;
        QList<ChongzhiReceipt> printed;
        Money balanceWhenPrinted;
        MemberPrinting::setChongzhiPrinter([&](const ChongzhiReceipt& r) {
            printed << r;
            balanceWhenPrinted =
                Money::fromRaw(count(u"select chongzhi from Member where MemberCode='A''1'"_s));
        });
        frmMemberList w;
        w.prepare(false);
        auto* list = child<QTreeWidget>(&w, "lvwThis");
        auto* bills = child<QTreeWidget>(&w, "lvwExpense");
        QCOMPARE(column(list, u"MemberCode"_s), (QStringList{u"A'1"_s, u"B2"_s})); // the members at once
        box(&w, "txtName")->setText(u"'"_s);
        click(&w, "cmdFind");
        QCOMPARE(column(list, u"MemberCode"_s), QStringList{u"A'1"_s});

        // Records: top-ups newest first; the second tab lists only bills paid by card.
        selectRow(list, u"MemberCode"_s, u"A'1"_s);
        QCOMPARE(column(child<QTreeWidget>(&w, "lvwChongzhi"), u"factpay"_s),
                 (QStringList{u"80.00"_s, u"100.00"_s}));
        QCOMPARE(bills->topLevelItemCount(), 0);
        child<QTabWidget>(&w, "ctbRecord")->setCurrentIndex(1);
        QCOMPARE(column(bills, u"ExpenseID"_s), QStringList{u"e1"_s});

        // A top-up for the chosen member, who stays fixed; the receipt comes after the commit.
        onModal([](QDialog* d) {
            QVERIFY(box(d, "txtMemberCode")->isReadOnly());
            QCOMPARE(focused(), u"txtFactPay"_s);
            QCOMPARE(texts(d, {"txtMemberName", "txtchongzhi"}), u"张'三|200"_s);
            QVERIFY(child<QCheckBox>(d, "chkPrint")->isChecked());
            box(d, "txtFactPay")->setText(u"80"_s);
            box(d, "txtThisMemoney")->setText(u"百"_s);
            click(d, "OKButton");
            QCOMPARE(messages(), QStringList{u"请输入充值金额！"_s});
            QCOMPARE(focused(), u"txtThisMemoney"_s);
            box(d, "txtThisMemoney")->setText(u"100"_s);
            click(d, "OKButton");
        });
        w.cmdChongzhi_Click();
        MemberPrinting::setChongzhiPrinter({});
        QCOMPARE(printed.size(), 1);
        QCOMPARE(balanceWhenPrinted, Money::yuan(300));
        QCOMPARE(printed.first().balanceBefore + u'/' + printed.first().factPay, u"200/80"_s);
        // The member's records were loaded again.
        QCOMPARE(child<QTreeWidget>(&w, "lvwChongzhi")->topLevelItemCount(), 3);

        // Clearing the password asks first, Cancel by default.
        const QString pw = u"select pw from Member where MemberCode='A''1'"_s;
        DB().exec(u"update Member set pw=? where MemberCode='A''1'"_s, {Password::hash(u"9"_s)});
        w.cmdClearPw_Click();
        QCOMPARE(messages(), QStringList{u"您真打算消除此会员的密码吗？"_s});
        QVERIFY(!text(pw).isEmpty());
        Msg::setNextAnswer(QMessageBox::Ok);
        w.cmdClearPw_Click();
        QCOMPARE(text(pw), QString());

        // Bills carry the member: a question, Cancel by default.
        messages();
        w.DeleteMember();
        QCOMPARE(
            messages(),
            QStringList{
                u"如果您删除此会员的资料，那么此会员相关的消费、储值卡等记录也会被删除，您真打算这样做吗？\n"
                "提示：如果您打算保留此会员的资料，您可以将其状态设置为“暂停服务”。"_s});
        QCOMPARE(count(u"select count(*) from Member"_s), 2);
        Msg::setNextAnswer(QMessageBox::Ok);
        w.DeleteMember();
        QCOMPARE(dump(u"select (select count(*) from Member), (select count(*) from chongzhi), "
                      "(select count(*) from Expense)"_s),
                 u"1|0|2"_s);
        QCOMPARE(list->topLevelItemCount(), 0); // searched again with the name still typed

        // No bills: no question.
        messages();
        box(&w, "txtName")->clear();
        click(&w, "cmdFind");
        selectRow(list, u"MemberCode"_s, u"B2"_s);
        w.DeleteMember();
        QCOMPARE(messages(), QStringList());
        QCOMPARE(count(u"select count(*) from Member"_s), 0);
        QCOMPARE(list->topLevelItemCount(), 0);
    }

    void pick_mode() {
        NEW_VENUE(v);
        seed();
        frmMemberList w;
        onModal([](QDialog* d) {
            QVERIFY(child<QWidget>(d, "fraSelect")->isVisible() &&
                    !child<QWidget>(d, "fraEdit")->isVisible());
            box(d, "txtCode")->setText(u"b"_s);
            click(d, "cmdFind");
            selectRow(child<QTreeWidget>(d, "lvwThis"), u"MemberCode"_s, u"B2"_s);
            click(d, "cmdSelect");
        });
        QCOMPARE(w.SelectMember(), u"B2"_s);
        onModal([](QDialog* d) { click(d, "cmdClose"); });
        QCOMPARE(w.SelectMember(), QString());
    }

    // The operator's own password from the main menu, then a sign-in with the new one.
    void operator_password_from_the_menu() {
        NEW_VENUE(v);
        DB().exec(u"update Operator set pw=? where OperatorID='qa042'"_s, {Password::hash(u"a1"_s)});
        frmMain main;
        onModal([](QDialog* d) {
            QVERIFY(QTest::qWaitForWindowActive(d));
            box(d, "txtNowPw")->setText(u"a1"_s);
            box(d, "txtpw")->setText(u"b2"_s);
            box(d, "txtPw1")->setText(u"b3"_s);
            click(d, "OKButton");
            QCOMPARE(messages(), QStringList{u"您输入的新密码和重复密码不一样，请重新输入！"_s});
            QCOMPARE(focused(), u"txtpw"_s);
            box(d, "txtPw1")->setText(u"b2"_s);
            click(d, "OKButton");
        });
        main.runCommand(u"mnuChangePw"_s);
        QCOMPARE(messages(), QStringList{u"密码修改成功！"_s});
        QCOMPARE(SignIn(u"admin"_s, u"b2"_s), SignInOutcome::Ok);
    }

    // Typed, only a member found and in service can be topped up; opened for a stopped member,
    // the dialog says so but keeps the member and can save.
    void chongzhi_by_typed_code() {
        NEW_VENUE(v);
        seed();
        App().IsPrintChongzhi = 0;
        frmChongzhi d;
        d.prepare({});
        showActive(d);
        auto* code = box(&d, "txtMemberCode");
        QVERIFY(!code->isReadOnly() && !child<QCheckBox>(&d, "chkPrint")->isChecked());
        QCOMPARE(focused(), u"txtMemberCode"_s);
        code->setText(u"X9"_s);
        QTest::keyClick(code, Qt::Key_Return);
        QCOMPARE(messages(), QStringList{u"没找到这个会员！请检查您输入的会员编号是否正确！"_s});
        QCOMPARE(focused() + u'|' + code->selectedText(), u"txtMemberCode|X9"_s);

        code->setText(u"A'1"_s);
        QTest::keyClick(code, Qt::Key_Return);
        QCOMPARE(messages(), QStringList());
        QCOMPARE(d.CurrentMember() + u'|' + box(&d, "txtchongzhi")->text(), u"A'1|200"_s);
        QVERIFY(focused() != u"txtMemberCode"_s);

        // A stopped member entered by Enter leaves nothing to save.
        code->setText(u"B2"_s);
        QTest::keyClick(code, Qt::Key_Return);
        QCOMPARE(messages(), QStringList{u"不能操作此会员的数据，因为此会员已暂停服务！"_s});
        QCOMPARE(texts(d, {"txtMemberName", "txtChongzhiNew"}), u"|"_s);
        box(&d, "txtFactPay")->setText(u"10"_s);
        box(&d, "txtThisMemoney")->setText(u"10"_s);
        d.OKButton_Click();
        QCOMPARE(messages(), QStringList{u"请输入正确的会员编号！"_s});
        QVERIFY(!d.saved());

        d.prepare(u"B2"_s);
        QCOMPARE(messages(), QStringList{u"不能操作此会员的数据，因为此会员已暂停服务！"_s});
        box(&d, "txtFactPay")->setText(u"5"_s);
        box(&d, "txtThisMemoney")->setText(u"5"_s);
        d.OKButton_Click();
        QVERIFY(d.saved());
        QCOMPARE(text(u"select chongzhi from Member where MemberCode='B2'"_s), u"50000"_s);
    }

    void chongzhi_list() {
        NEW_VENUE(v);
        seed();
        DB().exec(u"insert into chongzhi (chongzhiid, MemberCode, thismemoney, factpay, OperatorTime, "
                  "operatorname) values ('c3', 'B2', ?, ?, '2026-11-21 09:30', '收银'), "
                  "('c4', 'A''1', ?, ?, '2026-11-16 09:30', '收银')"_s,
                  {Money::fromDouble(50.5), Money::yuan(40), Money::yuan(10), Money::yuan(10)});
        frmChongzhiList w;
        auto* list = child<QTreeWidget>(&w, "lvwThis");
        w.prepare(1);
        QCOMPARE(column(list, u"chongzhiid"_s), (QStringList{u"c3"_s, u"c2"_s, u"c4"_s}));
        QCOMPARE(column(list, u"membername"_s).first(), u"李四"_s);
        w.prepare(2);
        QCOMPARE(list->topLevelItemCount(), 4);
        QCOMPARE(texts(w, {"txtThisMemoney", "txtFactPay"}), u"261|230"_s);
    }

    void member_classes_window() {
        NEW_VENUE(v);
        seed();
        frmSetupMember w;
        w.LoadData();
        auto* list = child<QTreeWidget>(&w, "lvwMemberSetup");
        onModal([](QDialog* d) {
            QCOMPARE(box(d, "txtDiscount")->text(), u"1"_s);
            box(d, "txtSetupName")->setText(u"钻石会员"_s);
            box(d, "txtDiscount")->setText(u"0.8"_s);
            click(d, "OKButton");
        });
        w.cmdMemberSetupAdd_Click();
        QCOMPARE(list->topLevelItemCount(), 3);
        QCOMPARE(DB().scalar(u"select discount from MemberSetup where SetupName='钻石会员'"_s).toDouble(),
                 0.8);
        // A class members belong to is refused by the store.
        list->setCurrentItem(list->findItems(u"金卡会员"_s, Qt::MatchExactly).first());
        w.cmdMemberSetupDel_Click();
        QCOMPARE(messages(), QStringList{u"不能删除此数据，因为它已经使用！"_s});
        list->setCurrentItem(list->findItems(u"钻石会员"_s, Qt::MatchExactly).first());
        w.cmdMemberSetupDel_Click();
        QCOMPARE(list->topLevelItemCount(), 2);
    }
};

QTEST_MAIN(TestMemberForms)
#include "test_members_forms.moc"
