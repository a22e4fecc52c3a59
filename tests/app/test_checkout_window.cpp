#include "FormProbe.h"
#include "AppState.h"
#include "Clock.h"
#include "Desktop.h"
#include "MessageBox.h"
#include "ModalDriver.h"
#include "Password.h"
#include "RoomBoard.h"
#include "Settings.h"
#include "TestVenue.h"
#include "frmCloseHouse.h"
#include "frmMain.h"
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDateTimeEdit>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

namespace {
// Room A01 on the starting tariff (120 an hour in the evening); beer, and cigarettes that
// take no member discount; member M1 of the gold class (0.9, a point per 10 yuan) with
// 50 stored and the card password 8888.
void addVenue() {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values "
                             "('a', '小包', '00000000000000001')"));
    DB().exec(
        QStringLiteral("insert into The (TheID, TheCode, AssortID, State) values ('r1', 'A01', 'a', 0)"));
    DB().exec(QStringLiteral("insert into WareType (WareTypeID, wareTypeName, isNomember) values "
                             "('01', '酒水', 0), ('02', '香烟', 1)"));
    DB().exec(QStringLiteral("insert into Ware (WareID, WareTypeID, WareCode, WareName, Mnemonics, Price, "
                             "ProcurePrice) values ('beer', '01', 'A1', '啤酒', 'pj', 100000, 40000), "
                             "('cig', '02', 'B1', '中华', 'zh', 200000, 150000)"));
    DB().exec(QStringLiteral("insert into MemberSetup (SetupID, SetupName, InitValue, StepValue, discount) "
                             "values ('s1', '金卡', 0, 10, 0.9)"));
    DB().exec(QStringLiteral("insert into Member (MemberCode, MemberName, SetupID, chongzhi, State, pw, "
                             "MemberValue, sumValue) values ('M1', '张三', 's1', ?, 0, ?, 0, 0)"),
              {Money::yuan(50), Password::hash(QStringLiteral("8888"))});
    SetSetup(QStringLiteral("HClose"), QStringLiteral("0"));
    SetSetup(QStringLiteral("PayMoneyFormat"), QStringLiteral("0"));
    App().IsPrintEndBill = 0;
    App().LockTime = 0;
}

QString focused(QWidget* d) {
    QApplication::processEvents();
    return d->focusWidget() ? d->focusWidget()->objectName() : QString();
}

QString text(QWidget* d, const char* name) {
    if (auto* e = d->findChild<QLineEdit*>(QLatin1String(name))) return e->text();
    return child<QLabel>(d, name)->text();
}

Row bill(const QString& id) {
    return DB().query(QStringLiteral("select * from Expense where ExpenseID=?"), {id}).first();
}
Row member() {
    return DB().query(QStringLiteral("select * from Member where MemberCode='M1'")).first();
}
Row room() {
    return DB().query(QStringLiteral("select * from The where TheID='r1'")).first();
}

void advanceClock(qint64 minutes) {
    auto clock = std::make_unique<FixedClock>(Now().addSecs(minutes * 60));
    Clock::install(std::move(clock));
}

// Opens A01 from the board and orders two beers and a pack of cigarettes.
QString openAndOrder(frmMain& w) {
    if (!w.board()->selectRoom(QStringLiteral("r1"))) qFatal("no room A01 on the board");
    onModal(QStringLiteral("frmOpenHouse"), [](QDialog* d) { child<QPushButton>(d, "cmdExpense")->click(); });
    onModal(QStringLiteral("frmExpenseDetail"), [](QDialog* d) {
        child<QCheckBox>(d, "chkAdd")->setChecked(true);
        auto* txtInput = child<QLineEdit>(d, "txtInput");
        for (const char* typed : {"pj 2", "zh"}) {
            txtInput->setText(QLatin1String(typed));
            QTest::keyClick(txtInput, Qt::Key_Return);
        }
        child<QPushButton>(d, "cmdClose")->click();
    });
    w.action(QStringLiteral("mnuOpOpen"))->trigger();
    return w.board()->selectedTag();
}

// Typed into a box that gets the focus first; Chinese arrives whole, as from an input method.
void type(QWidget* box, const QString& text) {
    box->setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    bool ascii = true;
    for (QChar c : text)
        ascii = ascii && c.unicode() < 128;
    if (ascii)
        QTest::keyClicks(box, text);
    else
        static_cast<QLineEdit*>(box)->insert(text);
}
} // namespace

class TestCheckoutWindow : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void init() { Msg::taken(); }
    void cleanup() { Desktop::setLauncher({}); }
    void room_life_with_member_and_cash();
    void deferred_then_settled_from_the_list();
    void free_bill_limits_and_keys();
    void bill_printed_after_the_commit();
};

// Open, order, a member with discount and stored value, cash, F4: the bill, the room and
// the member as a whole evening leaves them.
void TestCheckoutWindow::room_life_with_member_and_cash() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    frmMain w;
    w.show();
    w.Init();
    const QString id = openAndOrder(w);
    QVERIFY(!id.isEmpty());
    advanceClock(60);

    bool checked = false;
    onModal(QStringLiteral("frmCloseHouse"), [&](QDialog* d) {
        QCOMPARE(d->windowTitle(), QStringLiteral("顾客结帐"));
        QCOMPARE(focused(d), QStringLiteral("txtCustomerCode"));
        QVERIFY(!child<QTabWidget>(d, "ctbThis")->isTabVisible(1));
        QCOMPARE(text(d, "lblHouse"), QStringLiteral("A01"));
        QCOMPARE(text(d, "lblExpendtime"), QStringLiteral("1小时0分钟"));
        QCOMPARE(text(d, "lblExpenseMoney"), QStringLiteral("40.00"));
        QCOMPARE(text(d, "lblHouseMoney"), QStringLiteral("120.00"));
        QCOMPARE(text(d, "txtExpenseMoney"), QStringLiteral("160"));
        QCOMPARE(child<QTreeWidget>(d, "lvwDetail")->topLevelItemCount(), 2);

        // The member: room and beer at 0.9, the cigarettes at full price.
        type(child<QLineEdit>(d, "txtCustomerCode"), QStringLiteral("M1"));
        QTest::keyClick(d->focusWidget(), Qt::Key_Return);
        QCOMPARE(focused(d), QStringLiteral("txtpw"));
        QCOMPARE(text(d, "txtMemberName"), QStringLiteral("张三"));
        QCOMPARE(text(d, "lblMemberDiscount"), QStringLiteral("0.90"));
        QCOMPARE(text(d, "txtOughtMoney"), QStringLiteral("146.00"));
        QCOMPARE(text(d, "txtNoMoney"), QStringLiteral("14"));
        QCOMPARE(text(d, "txtDiscount"), QStringLiteral("9.13"));

        // A wrong password is told; the right one lets the card pay all it holds.
        QTest::keyClicks(d->focusWidget(), QStringLiteral("1234"));
        QTest::keyClick(d->focusWidget(), Qt::Key_Return);
        QCOMPARE(messages(), QStringList{QStringLiteral("您输入的会员编号或密码不对，请重新输入！")});
        QCOMPARE(focused(d), QStringLiteral("txtCustomerCode"));
        child<QLineEdit>(d, "txtpw")->clear();
        type(child<QLineEdit>(d, "txtpw"), QStringLiteral("8888"));
        QTest::keyClick(d->focusWidget(), Qt::Key_Return);
        QCOMPARE(focused(d), QStringLiteral("txtOughtMoney"));
        QCOMPARE(text(d, "txtChongzhiD"), QStringLiteral("50"));
        QCOMPARE(text(d, "txtTemp"), QStringLiteral("-96.00"));
        QCOMPARE(child<QLineEdit>(d, "txtTemp")->palette().color(QPalette::Text), QColor(255, 0, 0));

        // Cash for the rest, typed over the selected 0; the change in blue.
        QTest::keyClick(d->focusWidget(), Qt::Key_Return);
        QCOMPARE(focused(d), QStringLiteral("txtFactPay"));
        QTest::keyClicks(d->focusWidget(), QStringLiteral("100"));
        QCOMPARE(text(d, "txtTemp"), QStringLiteral("4.00"));
        QCOMPARE(child<QLineEdit>(d, "txtTemp")->palette().color(QPalette::Text), QColor(0, 0, 255));
        QVERIFY(messages().isEmpty());
        checked = true;
        QTest::keyClick(d->focusWidget(), Qt::Key_F4);
    });
    w.action(QStringLiteral("mnuOpEnd"))->trigger();
    QVERIFY(checked);
    QVERIFY(messages().isEmpty());
    QCOMPARE(w.board()->selectedStatus(), QStringLiteral("Common"));

    const Row e = bill(id);
    QCOMPARE(e.integer(QStringLiteral("State")), 0);
    QCOMPARE(e.integer(QStringLiteral("VoucherState")), 0);
    QCOMPARE(e.text(QStringLiteral("CloseTime")), QStringLiteral("2026-11-21 21:00"));
    QCOMPARE(e.text(QStringLiteral("CustomerCode")), QStringLiteral("M1"));
    QCOMPARE(e.text(QStringLiteral("CloseOperator")), App().CurrentOperatorName);
    QCOMPARE(e.money(QStringLiteral("theMoney")), Money::yuan(120));
    QCOMPARE(e.money(QStringLiteral("ExpenseMoney")), Money::yuan(160));
    QCOMPARE(e.money(QStringLiteral("oughtMoney")), Money::yuan(160));
    QCOMPARE(e.money(QStringLiteral("NoMoney")), Money::yuan(14));
    QCOMPARE(e.money(QStringLiteral("factpay")), Money::yuan(146));
    QCOMPARE(e.money(QStringLiteral("CashPay")), Money::yuan(96));
    QCOMPARE(e.money(QStringLiteral("chongzhipay")), Money::yuan(50));
    QCOMPARE(e.text(QStringLiteral("chongzhiIDCare")), QStringLiteral("M1"));
    // Goods cost 8 + 15 of 40: the profit is what was settled less 23.
    QCOMPARE(e.money(QStringLiteral("Income")), Money::yuan(146 - 23));
    QCOMPARE(room().integer(QStringLiteral("State")), 0);
    QCOMPARE(room().text(QStringLiteral("ExpenseID")), QString());
    QCOMPARE(member().money(QStringLiteral("chongzhi")), Money());
    QCOMPARE(member().money(QStringLiteral("sumValue")), Money::yuan(146));
    QCOMPARE(member().num(QStringLiteral("MemberValue")), 15.0); // 14.6 points
}

// Deferred against a name (asked, refused without one, then F4 alone defers), the room
// locked; later found by name in the deferred list and paid.
void TestCheckoutWindow::deferred_then_settled_from_the_list() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    frmMain w;
    w.show();
    w.Init();
    App().LockTime = 10;
    const QString id = openAndOrder(w);
    advanceClock(60);

    onModal(QStringLiteral("frmCloseHouse"), [&](QDialog* d) {
        Msg::setNextAnswer(QMessageBox::Yes);
        child<QPushButton>(d, "cmdPayAfter")->click();
        QCOMPARE(messages(), QStringList({QStringLiteral("您确认要进行挂帐处理吗？"),
                                          QStringLiteral("挂帐时需输入结帐人！")}));
        QCOMPARE(focused(d), QStringLiteral("txtjzr"));
        type(d->focusWidget(), QStringLiteral("老王"));
        QTest::keyClick(d->focusWidget(), Qt::Key_F4);
    });
    w.action(QStringLiteral("mnuOpEnd"))->trigger();
    QCOMPARE(w.board()->selectedStatus(), QStringLiteral("Lock"));
    Row e = bill(id);
    QCOMPARE(e.integer(QStringLiteral("VoucherState")), 2);
    QCOMPARE(e.text(QStringLiteral("jzr")), QStringLiteral("老王"));
    QCOMPARE(e.money(QStringLiteral("factpay")), Money());
    QCOMPARE(e.money(QStringLiteral("CashPay")), Money());
    QCOMPARE(e.money(QStringLiteral("Income")), Money::yuan(160 - 23));
    QCOMPARE(room().text(QStringLiteral("Other1")), QStringLiteral("2026-11-21 21:10"));

    // The next day the room charge stays as deferred.
    advanceClock(24 * 60);
    onModal(QStringLiteral("frmCloseHouse"), [&](QDialog* d) {
        auto* tabs = child<QTabWidget>(d, "ctbThis");
        QVERIFY(tabs->isTabVisible(1));
        QCOMPARE(tabs->currentIndex(), 1);
        QVERIFY(!child<QPushButton>(d, "OKButton")->isEnabled());
        QVERIFY(!child<QPushButton>(d, "cmdFreeMoney")->isEnabled());
        QVERIFY(!child<QPushButton>(d, "cmdcal")->isEnabled());
        auto* list = child<QTreeWidget>(d, "lvwPayAfter");
        QCOMPARE(list->topLevelItemCount(), 1); // the open deferred bills at once
        QCOMPARE(focused(d), QStringLiteral("txtjzrInfo"));
        QTest::keyClick(d, Qt::Key_F4); // no bill chosen: nothing happens

        auto* find = child<QLineEdit>(d, "txtjzrInfo");
        type(find, QStringLiteral("赵"));
        QTest::keyClick(find, Qt::Key_Return);
        QCOMPARE(list->topLevelItemCount(), 0);
        QCOMPARE(text(d, "lblSumGZ"), QStringLiteral("0.00"));
        find->setText(QStringLiteral("王"));
        QTest::keyClick(find, Qt::Key_Return);
        QCOMPARE(focused(d), QStringLiteral("txtjzrInfo"));
        QCOMPARE(list->topLevelItemCount(), 1);
        QCOMPARE(text(d, "lblSumGZ"), QStringLiteral("160.00"));

        QTreeWidgetItem* it = list->topLevelItem(0);
        // The window fits the test screen, narrower than the list's columns.
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(it).topLeft() + QPoint(20, 8));
        QVERIFY(child<QPushButton>(d, "OKButton")->isEnabled());
        QCOMPARE(text(d, "lblID"), id);
        QCOMPARE(text(d, "lblHouseMoney"), QStringLiteral("120.00"));
        QCOMPARE(text(d, "txtjzr"), QStringLiteral("老王"));
        QCOMPARE(child<QDateTimeEdit>(d, "dtpCloseTime")->dateTime(),
                 QDateTime(QDate(2026, 11, 21), QTime(21, 0)));
        QVERIFY(messages().isEmpty());
        type(child<QLineEdit>(d, "txtFactPay"), QStringLiteral("150"));
        QTest::keyClick(d->focusWidget(), Qt::Key_F4);
        QCOMPARE(messages(),
                 QStringList{QStringLiteral("实收金额加储卡支付金额不能小于结算金额，请检查输入是否正确！")});
        type(child<QLineEdit>(d, "txtFactPay"), QStringLiteral("200"));
        QTest::keyClick(d->focusWidget(), Qt::Key_F4);
    });
    w.action(QStringLiteral("mnuPayAfter"))->trigger();
    QVERIFY(messages().isEmpty());
    e = bill(id);
    QCOMPARE(e.integer(QStringLiteral("VoucherState")), 0);
    QCOMPARE(e.text(QStringLiteral("CloseTime")), QStringLiteral("2026-11-21 21:00"));
    QCOMPARE(e.money(QStringLiteral("factpay")), Money::yuan(160));
    QCOMPARE(e.money(QStringLiteral("CashPay")), Money::yuan(160));
    // The lock of the first checkout stands; the room was not this bill's any more.
    QCOMPARE(room().integer(QStringLiteral("State")), 4);
    QCOMPARE(room().text(QStringLiteral("Other1")), QStringLiteral("2026-11-21 21:10"));
}

// The free bill asks first; the operator's reduction limit is kept on leaving the box; a
// moved closing time needs a recalculation; F11 starts the calculator; HClose 1 starts in
// the cash box.
void TestCheckoutWindow::free_bill_limits_and_keys() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    SetSetup(QStringLiteral("HClose"), QStringLiteral("1"));
    App().CurrentDiscountLimit = 10;
    App().CurrentCloseTimeLimit = 30;
    QStringList started;
    Desktop::setLauncher([&](Desktop::Program p, const QString&) {
        started << (p == Desktop::Program::Calculator ? QStringLiteral("calc") : QStringLiteral("other"));
        return false;
    });
    frmMain w;
    w.show();
    w.Init();
    const QString id = openAndOrder(w);
    advanceClock(60);

    onModal(QStringLiteral("frmCloseHouse"), [&](QDialog* d) {
        QCOMPARE(focused(d), QStringLiteral("txtFactPay"));
        QTest::keyClick(d->focusWidget(), Qt::Key_F11);
        QCOMPARE(started, QStringList{QStringLiteral("calc")});
        QCOMPARE(messages(), QStringList{Desktop::calculatorMissingText()});

        // 11 off 160 is beyond a limit of 10; 10 is not.
        auto* ought = child<QLineEdit>(d, "txtOughtMoney");
        type(ought, QStringLiteral("149"));
        QTest::keyClick(ought, Qt::Key_Tab);
        QCOMPARE(messages(),
                 QStringList{QStringLiteral("对不起，您优惠的金额超过了您的权限！请重新输入结算金额。")});
        QCOMPARE(focused(d), QStringLiteral("txtOughtMoney"));
        QTest::keyClicks(ought, QStringLiteral("150"));
        QTest::keyClick(ought, Qt::Key_Tab);
        QVERIFY(messages().isEmpty());
        QCOMPARE(text(d, "txtDiscount"), QStringLiteral("9.38"));

        // An earlier closing time stops the checkout until the charge is recalculated; an
        // hour earlier is beyond the operator's 30 minutes.
        auto* dtp = child<QDateTimeEdit>(d, "dtpCloseTime");
        QVERIFY(dtp->isEnabled());
        dtp->setDateTime(dtp->dateTime().addSecs(-20 * 60));
        QVERIFY(!child<QPushButton>(d, "OKButton")->isEnabled());
        QTest::keyClick(d, Qt::Key_F4);
        QVERIFY(messages().isEmpty());
        child<QPushButton>(d, "cmdcal")->click();
        QVERIFY(child<QPushButton>(d, "OKButton")->isEnabled());
        QCOMPARE(text(d, "txtExpenseMoney"), QStringLiteral("100"));
        dtp->setDateTime(dtp->dateTime().addSecs(-40 * 60));
        child<QPushButton>(d, "cmdcal")->click();
        type(child<QLineEdit>(d, "txtFactPay"), QStringLiteral("500"));
        child<QPushButton>(d, "OKButton")->click();
        QCOMPARE(messages(), QStringList{QStringLiteral(
                                 "对不起，您输入的结账时间超出您的权力，系统将自动修改结账时间为原时间！")});
        QCOMPARE(dtp->dateTime(), QDateTime(QDate(2026, 11, 21), QTime(21, 0)));
        QVERIFY(!child<QPushButton>(d, "OKButton")->isEnabled());
        child<QPushButton>(d, "cmdcal")->click();

        // Free: No keeps the bill open; Yes closes it with nothing paid.
        Msg::setNextAnswer(QMessageBox::No);
        child<QPushButton>(d, "cmdFreeMoney")->click();
        QCOMPARE(messages(), QStringList{QStringLiteral("您确认要进行免单处理吗？")});
        QCOMPARE(bill(id).integer(QStringLiteral("State")), 1);
        Msg::setNextAnswer(QMessageBox::Yes);
        child<QPushButton>(d, "cmdFreeMoney")->click();
    });
    w.action(QStringLiteral("mnuOpEnd"))->trigger();
    QCOMPARE(messages(), QStringList{QStringLiteral("您确认要进行免单处理吗？")});
    const Row e = bill(id);
    QCOMPARE(e.integer(QStringLiteral("State")), 0);
    QCOMPARE(e.integer(QStringLiteral("VoucherState")), 1);
    QCOMPARE(e.money(QStringLiteral("ExpenseMoney")), Money::yuan(160));
    QCOMPARE(e.money(QStringLiteral("factpay")), Money());
    QCOMPARE(e.money(QStringLiteral("Income")), -Money::yuan(23));
    QCOMPARE(w.board()->selectedStatus(), QStringLiteral("Common"));
}

// The bill goes to its printer after the commit; a printer that fails is told and the
// checkout stands.
void TestCheckoutWindow::bill_printed_after_the_commit() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    frmMain w;
    w.show();
    w.Init();
    const QString pdf = v.home() + QStringLiteral("/pdf");
    for (const QString& printer :
         QStringList{QStringLiteral("PDF:") + pdf, QStringLiteral("tcp://127.0.0.1:1")}) {
        SetSetup(QStringLiteral("Printer"), printer);
        const QString id = openAndOrder(w);
        onModal(QStringLiteral("frmCloseHouse"), [&](QDialog* d) {
            child<QCheckBox>(d, "chkPrint")->setChecked(true);
            type(child<QLineEdit>(d, "txtFactPay"), QStringLiteral("1000"));
            QTest::keyClick(d->focusWidget(), Qt::Key_F4);
        });
        w.action(QStringLiteral("mnuOpEnd"))->trigger();
        QCOMPARE(bill(id).integer(QStringLiteral("State")), 0);
        const bool toPdf = printer.startsWith(QLatin1String("PDF:"));
        const QStringList said = messages();
        QCOMPARE(said.size(), toPdf ? 0 : 1);
        if (!toPdf) QVERIFY(said.first().contains(QStringLiteral("单据已保存在打印队列中")));
        QCOMPARE(DB().scalar(QStringLiteral("select State from PrintJob where SourceID=? and Role='Printer'"),
                             {id})
                     .toInt(),
                 toPdf ? 1 : 2);
    }
    QCOMPARE(QDir(pdf).entryList(QDir::Files).size(), 1);
}

QTEST_MAIN(TestCheckoutWindow)
#include "test_checkout_window.moc"
