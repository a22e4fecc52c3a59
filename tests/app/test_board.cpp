#include "FormProbe.h"
#include "AppState.h"
#include "Clock.h"
#include "MessageBox.h"
#include "RoomBoard.h"
#include "ModalDriver.h"
#include "TestVenue.h"
#include "fExpense.h"
#include "frmMain.h"
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardItemModel>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <functional>

namespace {
const QString Tariff = QStringLiteral("00000000000000001");

void addType(const QString& id, const QString& name) {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values (?, ?, ?)"),
              {id, name, Tariff});
}
void addRoom(const QString& id, const QString& code, const QString& type, int state = 0,
             const QString& other1 = {}) {
    DB().exec(
        QStringLiteral("insert into The (TheID, TheCode, AssortID, State, Other1) values (?, ?, ?, ?, ?)"),
        {id, code, type, state, other1});
}
// Three rooms of one type, one of another; the tabs come in the order the types were made.
void addVenue() {
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addType(QStringLiteral("b"), QStringLiteral("中包"));
    addRoom(QStringLiteral("r1"), QStringLiteral("A01"), QStringLiteral("a"));
    addRoom(QStringLiteral("r2"), QStringLiteral("A02"), QStringLiteral("a"));
    addRoom(QStringLiteral("r3"), QStringLiteral("A03"), QStringLiteral("a"));
    addRoom(QStringLiteral("r9"), QStringLiteral("B01"), QStringLiteral("b"));
}

QString codes(RoomBoard* b) {
    QStringList out;
    for (int i = 0; i < b->model()->rowCount(); ++i)
        out << b->model()->item(i, 0)->text() + QLatin1Char(':') + b->model()->item(i, 1)->text();
    return out.join(QLatin1Char(' '));
}

qint64 roomState(const QString& theID) {
    return DB().scalar(QStringLiteral("select State from The where TheID=?"), {theID}).toLongLong();
}
} // namespace

class TestBoard : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void empty_venue();
    void commands_follow_the_status_data();
    void commands_follow_the_status();
    void open_watch_change_merge();
    void finder_keys();
    void stop_and_resume();
    void refresh_keeps_the_selection_and_focus();
    void filters_and_views();
};

void TestBoard::empty_venue() {
    TestVenue v;
    OPEN_VENUE(v);
    frmMain w;
    w.Init();
    QCOMPARE(w.board()->model()->rowCount(), 0);
    QCOMPARE(child<QLabel>(&w, "lblOughtMoney")->text(), QStringLiteral("￥0.00"));
    QCOMPARE(w.board()->selectedKey(), QString());
    w.action(QStringLiteral("mnuOpOpen"))->trigger(); // nothing selected: nothing happens
    QCOMPARE(messages(), QStringList());
}

void TestBoard::commands_follow_the_status_data() {
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("other1");
    QTest::addColumn<QString>("enabled");
    const QString open = QStringLiteral("mnuOpOpen tbrOPENHOUSE");
    QTest::newRow("free") << 0 << "" << QStringLiteral("mnuOpOpen tbrOPENHOUSE mnuHouseStop");
    QTest::newRow("lock run out is free")
        << 4 << "2026-11-21 19:00" << QStringLiteral("mnuOpOpen tbrOPENHOUSE mnuHouseStop");
    QTest::newRow("in use") << 1 << "" << QStringLiteral("mnuOpExpense mnuOpEnd mnuPrintExpense mnuHouseChange");
    QTest::newRow("reserved") << 3 << "" << open;
    QTest::newRow("stopped") << 2 << "" << QStringLiteral("mnuHouseResume");
    QTest::newRow("locked") << 4 << "2026-11-21 21:00" << QStringLiteral("mnuHouseResume");
}

void TestBoard::commands_follow_the_status() {
    QFETCH(int, state);
    QFETCH(QString, other1);
    QFETCH(QString, enabled);
    TestVenue v;
    OPEN_VENUE(v);
    addType(QStringLiteral("a"), QStringLiteral("小包"));
    addRoom(QStringLiteral("r1"), QStringLiteral("A01"), QStringLiteral("a"), state, other1);
    frmMain w;
    w.Init();
    QStringList on;
    for (const char* name :
         {"mnuOpOpen", "tbrOPENHOUSE", "mnuOpExpense", "mnuOpEnd", "mnuPrintExpense", "mnuHouseStop",
          "mnuHouseResume", "mnuHouseChange", "mnuReservation", "mnuReservationView", "mnuReservationCancel"})
        if (w.action(QLatin1String(name))->isEnabled()) on << QLatin1String(name);
    QCOMPARE(on.join(QLatin1Char(' ')), enabled);
    // Merging does not depend on the selected room.
    QVERIFY(w.action(QStringLiteral("mnuExpenseAmalgamate"))->isEnabled());
}

void TestBoard::open_watch_change_merge() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    frmMain w;
    w.show();
    w.Init();
    RoomBoard* b = w.board();
    QCOMPARE(codes(b), QStringLiteral("A01:空闲 A02:空闲 A03:空闲"));
    QVERIFY(b->selectRoom(QStringLiteral("r2")));

    // Open A02 through the real dialog.
    onModal([](QDialog* d) {
        QCOMPARE(d->objectName(), QStringLiteral("frmOpenHouse"));
        QCOMPARE(child<QLineEdit>(d, "txtHouseCode")->text(), QStringLiteral("A02"));
        QCOMPARE(child<QLineEdit>(d, "txtHouseAssortName")->text(), QStringLiteral("小包"));
        QCOMPARE(child<QLineEdit>(d, "txtOperator")->text(), QStringLiteral("系统管理员"));
        QVERIFY(child<QCheckBox>(d, "chkUseMinMoney")->isChecked());
        child<QLineEdit>(d, "txtNum")->setText(QStringLiteral("人"));
        child<QPushButton>(d, "OKButton")->click();
        // Refused: the dialog stays, the focus on the guests.
        QCOMPARE(messages(), QStringList{QStringLiteral("请输入顾客人数！")});
        QVERIFY(d->isVisible());
        QCOMPARE(d->focusWidget()->objectName(), QStringLiteral("txtNum"));
        child<QLineEdit>(d, "txtNum")->setText(QStringLiteral("5"));
        child<QLineEdit>(d, "txtDesc")->setText(QStringLiteral("同学聚会"));
        QTest::keyClick(child<QCheckBox>(d, "chkUseMinMoney"), Qt::Key_Return); // Enter there opens
    });
    w.action(QStringLiteral("mnuOpOpen"))->trigger();
    QCOMPARE(codes(b), QStringLiteral("A01:空闲 A02:使用 A03:空闲"));
    QCOMPARE(b->selectedStatus(), QStringLiteral("Use"));
    const QString bill = b->selectedTag();
    QCOMPARE(DB().scalar(QStringLiteral("select ExpenseID from The where TheID='r2'")).toString(), bill);
    QCOMPARE(child<QLabel>(&w, "lblCustomerNum")->text(), QStringLiteral("5"));
    QCOMPARE(child<QLabel>(&w, "lblDesc")->text(), QStringLiteral("同学聚会"));
    QVERIFY(w.action(QStringLiteral("mnuHouseChange"))->isEnabled());
    QVERIFY(!w.action(QStringLiteral("mnuOpOpen"))->isEnabled());

    // The panel runs with the clock.
    DB().exec(QStringLiteral(
                  "insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, oughtMoney, isdel, "
                  "ExpenseTime) values ('d1', ?, 'w', 2, 150000, 300000, 0, '2026-11-21 20:10')"),
              {bill});
    Clock::install(std::make_unique<FixedClock>(QDateTime(QDate(2026, 11, 21), QTime(21, 30))));
    b->LoadRoomTabs();
    Money goods, room;
    fExpense().GetByIDCurrency(bill, Now(), goods, room);
    QCOMPARE(child<QLabel>(&w, "lblExpendtime")->text(), QStringLiteral("1小时30分钟"));
    QCOMPARE(child<QLabel>(&w, "lblExpenseMoney")->text(), QStringLiteral("￥30.00"));
    QCOMPARE(child<QLabel>(&w, "lblHouseMoney")->text(), room.toYuan());
    QCOMPARE(child<QLabel>(&w, "lblOughtMoney")->text(), (goods + room).toYuan());
    QTreeWidget* lines = child<QTreeWidget>(&w, "lvwDetail");
    QCOMPARE(lines->topLevelItemCount(), 1);
    QCOMPARE(lines->topLevelItem(0)->text(1), QStringLiteral("2"));
    QCOMPARE(lines->topLevelItem(0)->text(3), QStringLiteral("30.00"));

    // Move the party to A03.
    onModal([](QDialog* d) {
        QCOMPARE(child<QLineEdit>(d, "txtOldHouseCode")->text(), QStringLiteral("A02"));
        child<QLineEdit>(d, "txtNewHouseCode")->setText(QStringLiteral("A02"));
        child<QPushButton>(d, "OKButton")->click();
        QCOMPARE(messages(), QStringList{QStringLiteral("您要更换的包厢已被占用或暂停使用，请重新输入！")});
        child<QLineEdit>(d, "txtNewHouseCode")->setText(QStringLiteral("A03"));
        child<QPushButton>(d, "OKButton")->click();
    });
    w.action(QStringLiteral("mnuHouseChange"))->trigger();
    QCOMPARE(codes(b), QStringLiteral("A01:空闲 A02:空闲 A03:使用"));
    QCOMPARE(roomState(QStringLiteral("r3")), 1);

    // Open A01 and fold A03's bill into it.
    QVERIFY(b->selectRoom(QStringLiteral("r1")));
    onModal([](QDialog* d) { child<QPushButton>(d, "OKButton")->click(); });
    w.action(QStringLiteral("mnuOpOpen"))->trigger();
    const QString target = b->selectedTag();
    onModal([](QDialog* d) {
        QCOMPARE(d->windowTitle(), QStringLiteral("并台"));
        child<QLineEdit>(d, "txt1")->setText(QStringLiteral("A01"));
        child<QLineEdit>(d, "txt2")->setText(QStringLiteral("A01"));
        child<QPushButton>(d, "OKButton")->click();
        const QList<Msg::Shown> shown = Msg::taken();
        QCOMPARE(shown.size(), 1);
        QCOMPARE(shown[0].title, QStringLiteral("错误的包厢号"));
        QCOMPARE(d->focusWidget()->objectName(), QStringLiteral("txt2"));
        child<QLineEdit>(d, "txt1")->setText(QStringLiteral("A03"));
        child<QPushButton>(d, "OKButton")->click();
    });
    w.action(QStringLiteral("mnuExpenseAmalgamate"))->trigger();
    QCOMPARE(codes(b), QStringLiteral("A01:使用 A02:空闲 A03:空闲"));
    QCOMPARE(
        DB().scalar(QStringLiteral("select ExpenseID from ExpenseDetail where DetailID='d1'")).toString(),
        target);
    QCOMPARE(DB().scalar(QStringLiteral("select count(*) from Expense")).toInt(), 1);
}

void TestBoard::finder_keys() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    frmMain w;
    w.show();
    w.Init();
    RoomBoard* b = w.board();
    QLineEdit* find = b->findBox();
    QLabel* info = child<QLabel>(&w, "txtFindHouseInfo");

    find->setText(QStringLiteral("a03"));
    QTest::keyClick(find, Qt::Key_Return);
    QCOMPARE(b->selectedTheID(), QStringLiteral("r3"));
    QCOMPARE(find->text(), QStringLiteral("a03")); // Enter keeps the text and goes to the list
    QCOMPARE(info->text(), QString());

    // A room that is nowhere is not found.
    find->setText(QStringLiteral("C01"));
    QTest::keyClick(find, Qt::Key_Return);
    QCOMPARE(info->text(), QStringLiteral("当前的包厢列表中没找到此包厢！"));
    QCOMPARE(find->selectedText(), QStringLiteral("C01"));
    QCOMPARE(b->selectedTheID(), QStringLiteral("r3"));

    // "o" opens the found room; the key itself is not typed.
    find->setText(QStringLiteral("A01"));
    bool asked = false;
    onModal([&](QDialog* d) {
        asked = true;
        QCOMPARE(child<QLineEdit>(d, "txtHouseCode")->text(), QStringLiteral("A01"));
        d->reject();
    });
    QTest::keyClick(find, Qt::Key_O);
    QVERIFY(asked);
    QCOMPARE(find->text(), QString());
    QCOMPARE(b->selectedTheID(), QStringLiteral("r1"));
    QCOMPARE(roomState(QStringLiteral("r1")), 0);

    // Space runs the default action: a free room opens.
    find->setText(QStringLiteral("A02"));
    onModal([](QDialog* d) { child<QPushButton>(d, "OKButton")->click(); });
    QTest::keyClick(find, Qt::Key_Space);
    QCOMPARE(roomState(QStringLiteral("r2")), 1);
    QCOMPARE(b->selectedStatus(), QStringLiteral("Use"));

    // "j" on a room in use goes to its checkout, and is not typed.
    find->setText(QStringLiteral("A02"));
    bool checkout = false;
    onModal(QStringLiteral("frmCloseHouse"), [&](QDialog* d) {
        checkout = true;
        QCOMPARE(find->text(), QString());
        child<QPushButton>(d, "CancelButton")->click();
    });
    QTest::keyClick(find, Qt::Key_J);
    QVERIFY(checkout);
    QCOMPARE(roomState(QStringLiteral("r2")), 1);
}

void TestBoard::stop_and_resume() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    frmMain w;
    w.Init();
    RoomBoard* b = w.board();
    QVERIFY(b->selectRoom(QStringLiteral("r2")));
    w.action(QStringLiteral("mnuHouseStop"))->trigger();
    QCOMPARE(roomState(QStringLiteral("r2")), 2);
    QCOMPARE(codes(b), QStringLiteral("A01:空闲 A02:停用 A03:空闲"));
    QVERIFY(w.action(QStringLiteral("mnuHouseResume"))->isEnabled());
    QVERIFY(!w.action(QStringLiteral("mnuHouseStop"))->isEnabled());

    // Another workstation resumed and opened it meanwhile: refused, the board catches up.
    DB().exec(QStringLiteral("update The set State=1, ExpenseID='x' where TheID='r2'"));
    messages(); // the question before stopping
    w.action(QStringLiteral("mnuHouseResume"))->trigger();
    QCOMPARE(messages(), QStringList{QStringLiteral("这个包厢的状态已被其它收银台改变，请刷新后再试！")});
    QCOMPARE(codes(b), QStringLiteral("A01:空闲 A02:使用 A03:空闲"));

    DB().exec(
        QStringLiteral("update The set State=4, ExpenseID='', Other1='2026-11-21 23:00' where TheID='r2'"));
    b->LoadRoomTabs();
    QCOMPARE(b->selectedStatus(), QStringLiteral("Lock"));
    w.action(QStringLiteral("mnuHouseResume"))->trigger();
    QCOMPARE(roomState(QStringLiteral("r2")), 0);
    QCOMPARE(DB().scalar(QStringLiteral("select Other1 from The where TheID='r2'")).toString(), QString());
    QCOMPARE(b->selectedStatus(), QStringLiteral("Common"));
}

void TestBoard::refresh_keeps_the_selection_and_focus() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    frmMain w;
    w.show();
    w.Init();
    RoomBoard* b = w.board();
    QVERIFY(b->selectRoom(QStringLiteral("r3")));
    b->findBox()->setFocus();
    QCOMPARE(w.focusWidget(), b->findBox());
    DB().exec(QStringLiteral("update The set State=2 where TheID='r1'"));
    QMetaObject::invokeMethod(w.refreshTimer(), "timeout");
    QCOMPARE(codes(b), QStringLiteral("A01:停用 A02:空闲 A03:空闲"));
    QCOMPARE(b->selectedTheID(), QStringLiteral("r3"));
    QCOMPARE(child<QLabel>(&w, "lblHouse")->text(), QStringLiteral("小包 A03"));
    QCOMPARE(w.focusWidget(), b->findBox());
    // A room deleted elsewhere drops out; the selection falls to the first.
    DB().exec(QStringLiteral("delete from The where TheID='r3'"));
    b->LoadRoomTabs();
    QCOMPARE(b->selectedTheID(), QStringLiteral("r1"));
}

void TestBoard::filters_and_views() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    DB().exec(QStringLiteral("update The set State=1 where TheID='r2'"));
    frmMain w;
    w.Init();
    RoomBoard* b = w.board();
    child<QPushButton>(&w, "cmdShowUse")->click();
    QCOMPARE(codes(b), QStringLiteral("A02:使用"));
    // A room opened on another workstation shows at the next tick.
    DB().exec(QStringLiteral("update The set State=1 where TheID='r3'"));
    QMetaObject::invokeMethod(w.refreshTimer(), "timeout");
    QCOMPARE(codes(b), QStringLiteral("A02:使用 A03:使用"));
    child<QPushButton>(&w, "cmdShowNoUse")->click();
    QCOMPARE(codes(b), QStringLiteral("A01:空闲"));
    child<QPushButton>(&w, "cmdShowAll")->click();
    QCOMPARE(b->model()->rowCount(), 3);

    QPushButton* view = child<QPushButton>(&w, "cmdView");
    QCOMPARE(view->text(), QStringLiteral("显示详情"));
    view->click();
    QVERIFY(b->detailsView());
    QCOMPARE(view->text(), QStringLiteral("显示图标"));
}

QTEST_MAIN(TestBoard)
#include "test_board.moc"
