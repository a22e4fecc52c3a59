#include "PrintUi.h"
#include "RoomBoard.h"
#include "TestKit.h"
#include "frmCloseHouse.h"
#include "frmMain.h"

namespace {
// Room A01 on the starting tariff (120 an hour in the evening); beer, and cigarettes that
// take no member discount; member M1 of the gold class (0.9, a point per 10 yuan) with
// 50 stored and the card password 8888.
void addVenue() {
    addRoomType(u"a"_s, u"小包"_s);
    addRoom(u"r1"_s, u"A01"_s, u"a"_s);
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName, isNomember) values "
              "('01', '酒水', 0), ('02', '香烟', 1)"_s);
    DB().exec(u"insert into Ware (WareID, WareTypeID, WareCode, WareName, Mnemonics, Price, "
              "ProcurePrice) values ('beer', '01', 'A1', '啤酒', 'pj', 100000, 40000), "
              "('cig', '02', 'B1', '中华', 'zh', 200000, 150000)"_s);
    DB().exec(u"insert into MemberSetup (SetupID, SetupName, InitValue, StepValue, discount) "
              "values ('s1', '金卡', 0, 10, 0.9)"_s);
    DB().exec(u"insert into Member (MemberCode, MemberName, SetupID, chongzhi, State, pw, "
              "MemberValue, sumValue) values ('M1', '张三', 's1', ?, 0, ?, 0, 0)"_s,
              {Money::yuan(50), Password::hash(u"8888"_s)});
    SetSetup(u"HClose"_s, u"0"_s);
    SetSetup(u"PayMoneyFormat"_s, u"0"_s);
    App().IsPrintEndBill = 0;
    App().LockTime = 0;
}

// Columns of a bill joined by '|', its money in yuan.
QString bill(const QString& id, const QString& columns) {
    static const QStringList money = {u"theMoney"_s, u"ExpenseMoney"_s, u"oughtMoney"_s,  u"NoMoney"_s,
                                      u"factpay"_s,  u"CashPay"_s,      u"chongzhipay"_s, u"Income"_s};
    QStringList out;
    const Row r = DB().query(u"select * from Expense where ExpenseID=?"_s, {id}).first();
    for (const QString& c : columns.split(u' '))
        out << (money.contains(c) ? r.money(c).toPlain() : r.text(c));
    return out.join(u'|');
}
QString room() {
    return dump(u"select State, ExpenseID, Other1 from The where TheID='r1'"_s);
}

void advanceClock(qint64 minutes) {
    Clock::install(std::make_unique<FixedClock>(Now().addSecs(minutes * 60)));
}

// The venue on a shown board, A01 opened from it an hour ago with two beers and a pack of
// cigarettes ordered; the bill.
QString openAndOrder(frmMain& w) {
    addVenue();
    w.show();
    w.Init();
    if (!w.board()->selectRoom(u"r1"_s)) qFatal("no room A01 on the board");
    onModal(u"frmOpenHouse"_s, [](QDialog* d) { child<QPushButton>(d, "cmdExpense")->click(); });
    onModal(u"frmExpenseDetail"_s, [](QDialog* d) {
        child<QCheckBox>(d, "chkAdd")->setChecked(true);
        auto* txtInput = child<QLineEdit>(d, "txtInput");
        for (const char* typed : {"pj 2", "zh"}) {
            txtInput->setText(QLatin1String(typed));
            QTest::keyClick(txtInput, Qt::Key_Return);
        }
        child<QPushButton>(d, "cmdClose")->click();
    });
    w.action(u"mnuOpOpen"_s)->trigger();
    advanceClock(60);
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
    // Open, order, a member with discount and stored value, cash, F4: the bill as a whole
    // evening leaves it.
    void room_life_with_member_and_cash() {
        NEW_VENUE(v);
        frmMain w;
        const QString id = openAndOrder(w);
        onModal(u"frmCloseHouse"_s, [&](QDialog* d) {
            QCOMPARE(focused(), u"txtCustomerCode"_s);
            QVERIFY(!child<QTabWidget>(d, "ctbThis")->isTabVisible(1));
            QCOMPARE(texts(d, {"lblHouse", "lblExpendtime", "lblExpenseMoney", "lblHouseMoney",
                               "txtExpenseMoney"}),
                     u"A01|1小时0分钟|40.00|120.00|160"_s);
            QCOMPARE(child<QTreeWidget>(d, "lvwDetail")->topLevelItemCount(), 2);

            // The member: room and beer at 0.9, the cigarettes at full price.
            type(child<QLineEdit>(d, "txtCustomerCode"), u"M1"_s);
            QTest::keyClick(d->focusWidget(), Qt::Key_Return);
            QCOMPARE(focused(), u"txtpw"_s);
            QCOMPARE(texts(d, {"txtMemberName", "lblMemberDiscount", "txtOughtMoney", "txtNoMoney",
                               "txtDiscount"}),
                     u"张三|0.90|146.00|14|9.13"_s);

            // A wrong password is told; the right one lets the card pay all it holds.
            QTest::keyClicks(d->focusWidget(), u"1234"_s);
            QTest::keyClick(d->focusWidget(), Qt::Key_Return);
            QCOMPARE(messages(), QStringList{u"您输入的会员编号或密码不对，请重新输入！"_s});
            QCOMPARE(focused(), u"txtCustomerCode"_s);
            child<QLineEdit>(d, "txtpw")->clear();
            type(child<QLineEdit>(d, "txtpw"), u"8888"_s);
            QTest::keyClick(d->focusWidget(), Qt::Key_Return);
            QCOMPARE(focused(), u"txtOughtMoney"_s);
            QCOMPARE(texts(d, {"txtChongzhiD", "txtTemp"}), u"50|-96.00"_s);
            QCOMPARE(child<QLineEdit>(d, "txtTemp")->palette().color(QPalette::Text), QColor(255, 0, 0));

            // Cash for the rest, typed over the selected 0; the change in blue.
            QTest::keyClick(d->focusWidget(), Qt::Key_Return);
            QCOMPARE(focused(), u"txtFactPay"_s);
            QTest::keyClicks(d->focusWidget(), u"100"_s);
            QCOMPARE(texts(d, {"txtTemp"}), u"4.00"_s);
            QCOMPARE(child<QLineEdit>(d, "txtTemp")->palette().color(QPalette::Text), QColor(0, 0, 255));
            QTest::keyClick(d->focusWidget(), Qt::Key_F4);
        });
        w.action(u"mnuOpEnd"_s)->trigger();
        QVERIFY(messages().isEmpty());
        // The status line says what the checkout did.
        QCOMPARE(w.board()->selectedStatus() + u' ' + w.announced(), u"Common A01 已结帐 找零 ￥4.00"_s);

        // Goods cost 8 + 15 of 40: the profit is what was settled less 23.
        QCOMPARE(bill(id, u"State VoucherState CloseTime CustomerCode CloseOperator theMoney ExpenseMoney "
                          "oughtMoney NoMoney factpay CashPay chongzhipay chongzhiIDCare Income"_s),
                 u"0|0|2026-11-21 21:00|M1|系统管理员|120|160|160|14|146|96|50|M1|123"_s);
    }
    // Deferred against a name (asked, refused without one, then F4 alone defers), the room
    // locked; later found by name in the deferred list and paid, its bill printed after the
    // commit: a printer that fails is told and the payment stands.
    void deferred_then_settled_from_the_list() {
        NEW_VENUE(v);
        frmMain w;
        const QString id = openAndOrder(w);
        SetSetup(u"Printer"_s, u"tcp://127.0.0.1:1"_s);
        App().LockTime = 10;

        onModal(u"frmCloseHouse"_s, [&](QDialog* d) {
            Msg::setNextAnswer(QMessageBox::Yes);
            child<QPushButton>(d, "cmdPayAfter")->click();
            QCOMPARE(messages(), QStringList({u"您确认要进行挂帐处理吗？"_s, u"挂帐时需输入结帐人！"_s}));
            QCOMPARE(focused(), u"txtjzr"_s);
            type(d->focusWidget(), u"老王"_s);
            QTest::keyClick(d->focusWidget(), Qt::Key_F4);
        });
        w.action(u"mnuOpEnd"_s)->trigger();
        QCOMPARE(w.board()->selectedStatus(), u"Lock"_s);
        QCOMPARE(bill(id, u"VoucherState jzr factpay CashPay Income"_s), u"2|老王|0|0|137"_s);
        QCOMPARE(room(), u"4||2026-11-21 21:10"_s);

        // The next day the room charge stays as deferred.
        advanceClock(24 * 60);
        onModal(u"frmCloseHouse"_s, [&](QDialog* d) {
            auto* tabs = child<QTabWidget>(d, "ctbThis");
            QVERIFY(tabs->isTabVisible(1));
            QCOMPARE(tabs->currentIndex(), 1);
            for (const char* b : {"OKButton", "cmdFreeMoney", "cmdcal"})
                QVERIFY2(!child<QPushButton>(d, b)->isEnabled(), b);
            auto* list = child<QTreeWidget>(d, "lvwPayAfter");
            QCOMPARE(list->topLevelItemCount(), 1); // the open deferred bills at once
            // No bill chosen: F4 does nothing.
            QTest::keyClick(d, Qt::Key_F4);

            auto* find = child<QLineEdit>(d, "txtjzrInfo");
            type(find, u"王"_s);
            QTest::keyClick(find, Qt::Key_Return);
            QCOMPARE(focused(), u"txtjzrInfo"_s);
            QCOMPARE(QString::number(list->topLevelItemCount()) + u'|' + texts(d, {"lblSumGZ"}),
                     u"1|160.00"_s);

            QTreeWidgetItem* it = list->topLevelItem(0);
            // The window fits the test screen, narrower than the list's columns.
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                              list->visualItemRect(it).topLeft() + QPoint(20, 8));
            QVERIFY(child<QPushButton>(d, "OKButton")->isEnabled());
            QCOMPARE(texts(d, {"lblID", "lblHouseMoney", "txtjzr"}), id + u"|120.00|老王"_s);
            QCOMPARE(child<QDateTimeEdit>(d, "dtpCloseTime")->dateTime(),
                     QDateTime(QDate(2026, 11, 21), QTime(21, 0)));
            child<QCheckBox>(d, "chkPrint")->setChecked(true);
            type(child<QLineEdit>(d, "txtFactPay"), u"200"_s);
            QTest::keyClick(d->focusWidget(), Qt::Key_F4);
        });
        w.action(u"mnuPayAfter"_s)->trigger();
        QCOMPARE(bill(id, u"VoucherState CloseTime factpay CashPay"_s), u"0|2026-11-21 21:00|160|160"_s);
        // The slip was queued with the payment and goes out without holding the window.
        QCOMPARE(count(u"select count(*) from PrintJob where SourceID=?"_s, {id}), 1);
        QVERIFY(WaitForPrinting());
        const QStringList said = messages();
        QVERIFY(said.size() == 1 && said.first().contains(u"单据已保存在打印队列中"_s));
        QCOMPARE(count(u"select State from PrintJob where SourceID=? and Role='Printer'"_s, {id}), 2);
        // The lock of the first checkout stands; the room was not this bill's any more.
        QCOMPARE(room(), u"4||2026-11-21 21:10"_s);
    }
    // The free bill asks first; the operator's reduction limit is kept on leaving the box; a
    // moved closing time needs a recalculation; F11 starts the calculator; HClose 1 starts in
    // the cash box.
    void free_bill_limits_and_keys() {
        NEW_VENUE(v);
        frmMain w;
        const QString id = openAndOrder(w);
        SetSetup(u"HClose"_s, u"1"_s);
        App().CurrentDiscountLimit = 10;
        App().CurrentCloseTimeLimit = 30;
        QStringList started;
        Desktop::setLauncher([&](Desktop::Program p, const QString&) {
            started << (p == Desktop::Program::Calculator ? u"calc"_s : u"other"_s);
            return false;
        });
        onModal(u"frmCloseHouse"_s, [&](QDialog* d) {
            QCOMPARE(focused(), u"txtFactPay"_s);
            QTest::keyClick(d->focusWidget(), Qt::Key_F11);
            QCOMPARE(started, QStringList{u"calc"_s});
            QCOMPARE(messages(), QStringList{Desktop::calculatorMissingText()});

            // 11 off 160 is beyond a limit of 10; 10 is not.
            auto* ought = child<QLineEdit>(d, "txtOughtMoney");
            type(ought, u"149"_s);
            QTest::keyClick(ought, Qt::Key_Tab);
            QCOMPARE(messages(), QStringList{u"对不起，您优惠的金额超过了您的权限！请重新输入结算金额。"_s});
            QCOMPARE(focused(), u"txtOughtMoney"_s);
            QTest::keyClicks(ought, u"150"_s);
            QTest::keyClick(ought, Qt::Key_Tab);
            QVERIFY(messages().isEmpty());

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
            QCOMPARE(texts(d, {"txtExpenseMoney"}), u"100"_s);
            dtp->setDateTime(dtp->dateTime().addSecs(-40 * 60));
            child<QPushButton>(d, "cmdcal")->click();
            type(child<QLineEdit>(d, "txtFactPay"), u"500"_s);
            child<QPushButton>(d, "OKButton")->click();
            QCOMPARE(
                messages(),
                QStringList{u"对不起，您输入的结账时间超出您的权力，系统将自动修改结账时间为原时间！"_s});
            QCOMPARE(dtp->dateTime(), QDateTime(QDate(2026, 11, 21), QTime(21, 0)));
            QVERIFY(!child<QPushButton>(d, "OKButton")->isEnabled());
            child<QPushButton>(d, "cmdcal")->click();

            // Free: No keeps the bill open; Yes closes it with nothing paid.
            Msg::setNextAnswer(QMessageBox::No);
            child<QPushButton>(d, "cmdFreeMoney")->click();
            QCOMPARE(messages(), QStringList{u"您确认要进行免单处理吗？"_s});
            QCOMPARE(bill(id, u"State"_s), u"1"_s);
            Msg::setNextAnswer(QMessageBox::Yes);
            child<QPushButton>(d, "cmdFreeMoney")->click();
        });
        w.action(u"mnuOpEnd"_s)->trigger();
        QCOMPARE(messages(), QStringList{u"您确认要进行免单处理吗？"_s});
        QCOMPARE(bill(id, u"State VoucherState ExpenseMoney factpay Income"_s), u"0|1|160|0|-23"_s);
    }
};

QTEST_MAIN(TestCheckoutWindow)
#include "test_checkout_window.moc"
