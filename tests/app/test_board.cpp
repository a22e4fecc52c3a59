#include "AppState.h"
#include "Clock.h"
#include "Columns.h"
#include "DbProbe.h"
#include "FormProbe.h"
#include "MessageBox.h"
#include "ModalDriver.h"
#include "RoomBoard.h"
#include "Seed.h"
#include "TestVenue.h"
#include "fExpense.h"
#include "frmMain.h"
#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {
// Three rooms of one type, one of another; the tabs come in the order the types were made.
void addVenue() {
    addRoomType(u"a"_s, u"小包"_s);
    addRoomType(u"b"_s, u"中包"_s);
    addRoom(u"r1"_s, u"A01"_s, u"a"_s);
    addRoom(u"r2"_s, u"A02"_s, u"a"_s);
    addRoom(u"r3"_s, u"A03"_s, u"a"_s);
    addRoom(u"r9"_s, u"B01"_s, u"b"_s);
}

QString codes(RoomBoard* b) {
    QStringList out;
    for (int i = 0; i < b->model()->rowCount(); ++i)
        out << b->model()->item(i, 0)->text() + u':' + b->model()->item(i, 1)->text();
    return out.join(u' ');
}

QString roomRow(const QString& theID) {
    return dump(u"select State, ExpenseID, Other1 from The where TheID=?"_s, {theID});
}
} // namespace

class TestBoard : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void empty_venue() {
        NEW_VENUE(v);
        frmMain w;
        w.Init();
        QCOMPARE(w.board()->model()->rowCount(), 0);
        QCOMPARE(texts(w, {"lblOughtMoney"}) + u'|' + w.board()->selectedKey(), u"￥0.00|"_s);
        w.action(u"mnuOpOpen"_s)->trigger(); // nothing selected: nothing happens
        QCOMPARE(messages(), QStringList());
    }
    void commands_follow_the_status_data() { // clang-format off
        columns<int, QString, QString>("state", "other1", "enabled");
        const QString open = u"mnuOpOpen tbrOPENHOUSE"_s;
        QTest::newRow("free") << 0 << "" << u"mnuOpOpen tbrOPENHOUSE mnuHouseStop mnuReservation"_s;
        QTest::newRow("lock run out is free") << 4 << "2026-11-21 19:00" << u"mnuOpOpen tbrOPENHOUSE mnuHouseStop mnuReservation"_s;
        QTest::newRow("in use") << 1 << "" << u"mnuOpExpense mnuOpEnd mnuPrintExpense mnuHouseChange"_s;
        QTest::newRow("reserved") << 3 << "" << open + u" mnuReservationView mnuReservationCancel"_s;
        QTest::newRow("stopped") << 2 << "" << u"mnuHouseResume"_s;
        QTest::newRow("locked") << 4 << "2026-11-21 21:00" << u"mnuHouseResume"_s; // clang-format on
    }
    void commands_follow_the_status() {
        auto [state, other1, enabled] = fetch<int, QString, QString>("state", "other1", "enabled");
        NEW_VENUE(v);
        addRoomType(u"a"_s, u"小包"_s);
        addRoom(u"r1"_s, u"A01"_s, u"a"_s, state, other1);
        frmMain w;
        w.Init();
        QStringList on;
        for (const char* name : {"mnuOpOpen", "tbrOPENHOUSE", "mnuOpExpense", "mnuOpEnd", "mnuPrintExpense",
                                 "mnuHouseStop", "mnuHouseResume", "mnuHouseChange", "mnuReservation",
                                 "mnuReservationView", "mnuReservationCancel"})
            if (w.action(QLatin1String(name))->isEnabled()) on << QLatin1String(name);
        QCOMPARE(on.join(u' '), enabled);
        // Merging does not depend on the selected room.
        QVERIFY(w.action(u"mnuExpenseAmalgamate"_s)->isEnabled());
    }
    void open_watch_change_merge() {
        NEW_VENUE(v);
        addVenue();
        frmMain w;
        w.show();
        w.Init();
        RoomBoard* b = w.board();
        QCOMPARE(codes(b), u"A01:空闲 A02:空闲 A03:空闲"_s);
        QVERIFY(b->selectRoom(u"r2"_s));

        // Open A02 through the real dialog.
        onModal([](QDialog* d) {
            QCOMPARE(d->objectName(), u"frmOpenHouse"_s);
            QCOMPARE(texts(d, {"txtHouseCode", "txtHouseAssortName", "txtOperator"}),
                     u"A02|小包|系统管理员"_s);
            QVERIFY(child<QCheckBox>(d, "chkUseMinMoney")->isChecked());
            child<QLineEdit>(d, "txtNum")->setText(u"人"_s);
            child<QPushButton>(d, "OKButton")->click();
            // Refused: the dialog stays, the focus on the guests.
            QCOMPARE(messages(), QStringList{u"请输入顾客人数！"_s});
            QVERIFY(d->isVisible() && d->focusWidget()->objectName() == u"txtNum"_s);
            child<QLineEdit>(d, "txtNum")->setText(u"5"_s);
            child<QLineEdit>(d, "txtDesc")->setText(u"同学聚会"_s);
            QTest::keyClick(child<QCheckBox>(d, "chkUseMinMoney"), Qt::Key_Return); // Enter there opens
        });
        w.action(u"mnuOpOpen"_s)->trigger();
        QCOMPARE(codes(b), u"A01:空闲 A02:使用 A03:空闲"_s);
        QCOMPARE(b->selectedStatus(), u"Use"_s);
        const QString bill = b->selectedTag();
        QCOMPARE(roomRow(u"r2"_s), u"1|"_s + bill + u'|');
        QCOMPARE(texts(w, {"lblCustomerNum", "lblDesc"}), u"5|同学聚会"_s);
        QVERIFY(w.action(u"mnuHouseChange"_s)->isEnabled() && !w.action(u"mnuOpOpen"_s)->isEnabled());

        // The panel runs with the clock.
        DB().exec(u"insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, oughtMoney, isdel, "
                  "ExpenseTime) values ('d1', ?, 'w', 2, 150000, 300000, 0, '2026-11-21 20:10')"_s,
                  {bill});
        Clock::install(std::make_unique<FixedClock>(QDateTime(QDate(2026, 11, 21), QTime(21, 30))));
        b->LoadRoomTabs();
        Money goods, room;
        fExpense().GetByIDCurrency(bill, Now(), goods, room);
        QCOMPARE(texts(w, {"lblExpendtime", "lblExpenseMoney", "lblHouseMoney", "lblOughtMoney"}),
                 u"1小时30分钟|￥30.00|"_s + room.toYuan() + u'|' + (goods + room).toYuan());
        QTreeWidget* lines = child<QTreeWidget>(&w, "lvwDetail");
        QCOMPARE(lines->topLevelItemCount(), 1);
        QCOMPARE(lines->topLevelItem(0)->text(1) + u' ' + lines->topLevelItem(0)->text(3), u"2 30.00"_s);

        // Move the party to A03.
        onModal([](QDialog* d) {
            QCOMPARE(child<QLineEdit>(d, "txtOldHouseCode")->text(), u"A02"_s);
            child<QLineEdit>(d, "txtNewHouseCode")->setText(u"A02"_s);
            child<QPushButton>(d, "OKButton")->click();
            QCOMPARE(messages(), QStringList{u"您要更换的包厢已被占用或暂停使用，请重新输入！"_s});
            child<QLineEdit>(d, "txtNewHouseCode")->setText(u"A03"_s);
            child<QPushButton>(d, "OKButton")->click();
        });
        w.action(u"mnuHouseChange"_s)->trigger();
        QCOMPARE(codes(b), u"A01:空闲 A02:空闲 A03:使用"_s);
        QCOMPARE(roomRow(u"r3"_s), u"1|"_s + bill + u'|');

        // Open A01 and fold A03's bill into it.
        QVERIFY(b->selectRoom(u"r1"_s));
        onModal([](QDialog* d) { child<QPushButton>(d, "OKButton")->click(); });
        w.action(u"mnuOpOpen"_s)->trigger();
        const QString target = b->selectedTag();
        onModal([](QDialog* d) {
            QCOMPARE(d->windowTitle(), u"并台"_s);
            child<QLineEdit>(d, "txt1")->setText(u"A01"_s);
            child<QLineEdit>(d, "txt2")->setText(u"A01"_s);
            child<QPushButton>(d, "OKButton")->click();
            const QList<Msg::Shown> shown = Msg::taken();
            QCOMPARE(shown.size(), 1);
            QCOMPARE(shown[0].title + d->focusWidget()->objectName(), u"错误的包厢号txt2"_s);
            child<QLineEdit>(d, "txt1")->setText(u"A03"_s);
            child<QPushButton>(d, "OKButton")->click();
        });
        w.action(u"mnuExpenseAmalgamate"_s)->trigger();
        QCOMPARE(codes(b), u"A01:使用 A02:空闲 A03:空闲"_s);
        QCOMPARE(text(u"select ExpenseID from ExpenseDetail where DetailID='d1'"_s), target);
        QCOMPARE(count(u"select count(*) from Expense"_s), 1);
    }
    void finder_keys() {
        NEW_VENUE(v);
        addVenue();
        frmMain w;
        w.show();
        w.Init();
        RoomBoard* b = w.board();
        QLineEdit* find = b->findBox();
        QLabel* info = child<QLabel>(&w, "txtFindHouseInfo");

        find->setText(u"a03"_s);
        QTest::keyClick(find, Qt::Key_Return);
        // Enter keeps the text and goes to the list.
        QCOMPARE(b->selectedTheID() + u'|' + find->text() + u'|' + info->text(), u"r3|a03|"_s);

        // A room that is nowhere is not found.
        find->setText(u"C01"_s);
        QTest::keyClick(find, Qt::Key_Return);
        QCOMPARE(info->text() + u'|' + find->selectedText() + u'|' + b->selectedTheID(),
                 u"当前的包厢列表中没找到此包厢！|C01|r3"_s);

        // "o" opens the found room; the key itself is not typed.
        find->setText(u"A01"_s);
        bool asked = false;
        onModal([&](QDialog* d) {
            asked = true;
            QCOMPARE(child<QLineEdit>(d, "txtHouseCode")->text(), u"A01"_s);
            d->reject();
        });
        QTest::keyClick(find, Qt::Key_O);
        QVERIFY(asked);
        QCOMPARE(find->text() + u'|' + b->selectedTheID() + u'|' + roomRow(u"r1"_s), u"|r1|0||"_s);

        // Space runs the default action: a free room opens.
        find->setText(u"A02"_s);
        onModal([](QDialog* d) { child<QPushButton>(d, "OKButton")->click(); });
        QTest::keyClick(find, Qt::Key_Space);
        QCOMPARE(roomRow(u"r2"_s).left(2) + b->selectedStatus(), u"1|Use"_s);

        // "j" on a room in use goes to its checkout, and is not typed.
        find->setText(u"A02"_s);
        bool checkout = false;
        onModal(u"frmCloseHouse"_s, [&](QDialog* d) {
            checkout = true;
            QCOMPARE(find->text(), QString());
            child<QPushButton>(d, "CancelButton")->click();
        });
        QTest::keyClick(find, Qt::Key_J);
        QVERIFY(checkout);
        QCOMPARE(roomRow(u"r2"_s).left(2), u"1|"_s);
    }
    void stop_and_resume() {
        NEW_VENUE(v);
        addVenue();
        frmMain w;
        w.Init();
        RoomBoard* b = w.board();
        QVERIFY(b->selectRoom(u"r2"_s));
        w.action(u"mnuHouseStop"_s)->trigger();
        QCOMPARE(roomRow(u"r2"_s), u"2||"_s);
        QCOMPARE(codes(b), u"A01:空闲 A02:停用 A03:空闲"_s);
        QVERIFY(w.action(u"mnuHouseResume"_s)->isEnabled() && !w.action(u"mnuHouseStop"_s)->isEnabled());

        // Another workstation resumed and opened it meanwhile: refused, the board catches up.
        DB().exec(u"update The set State=1, ExpenseID='x' where TheID='r2'"_s);
        messages(); // the question before stopping
        w.action(u"mnuHouseResume"_s)->trigger();
        QCOMPARE(messages(), QStringList{u"这个包厢的状态已被其它收银台改变，请刷新后再试！"_s});
        QCOMPARE(codes(b), u"A01:空闲 A02:使用 A03:空闲"_s);

        DB().exec(u"update The set State=4, ExpenseID='', Other1='2026-11-21 23:00' where TheID='r2'"_s);
        b->LoadRoomTabs();
        QCOMPARE(b->selectedStatus(), u"Lock"_s);
        w.action(u"mnuHouseResume"_s)->trigger();
        QCOMPARE(roomRow(u"r2"_s) + b->selectedStatus(), u"0||Common"_s);
    }
    void refresh_keeps_the_selection_and_focus() {
        NEW_VENUE(v);
        addVenue();
        frmMain w;
        w.show();
        w.Init();
        RoomBoard* b = w.board();
        QVERIFY(b->selectRoom(u"r3"_s));
        b->findBox()->setFocus();
        QCOMPARE(w.focusWidget(), b->findBox());
        DB().exec(u"update The set State=2 where TheID='r1'"_s);
        QMetaObject::invokeMethod(w.refreshTimer(), "timeout");
        QCOMPARE(codes(b), u"A01:停用 A02:空闲 A03:空闲"_s);
        QCOMPARE(b->selectedTheID() + u'|' + texts(w, {"lblHouse"}), u"r3|小包 A03"_s);
        QCOMPARE(w.focusWidget(), b->findBox());
        // A room deleted elsewhere drops out; the selection falls to the first.
        DB().exec(u"delete from The where TheID='r3'"_s);
        b->LoadRoomTabs();
        QCOMPARE(b->selectedTheID(), u"r1"_s);
    }
    void filters_and_views() {
        NEW_VENUE(v);
        addVenue();
        DB().exec(u"update The set State=1 where TheID='r2'"_s);
        frmMain w;
        w.Init();
        RoomBoard* b = w.board();
        child<QPushButton>(&w, "cmdShowUse")->click();
        QCOMPARE(codes(b), u"A02:使用"_s);
        // A room opened on another workstation shows at the next tick.
        DB().exec(u"update The set State=1 where TheID='r3'"_s);
        QMetaObject::invokeMethod(w.refreshTimer(), "timeout");
        QCOMPARE(codes(b), u"A02:使用 A03:使用"_s);
        child<QPushButton>(&w, "cmdShowNoUse")->click();
        QCOMPARE(codes(b), u"A01:空闲"_s);
        child<QPushButton>(&w, "cmdShowAll")->click();
        QCOMPARE(b->model()->rowCount(), 3);

        QPushButton* view = child<QPushButton>(&w, "cmdView");
        QCOMPARE(view->text(), u"显示详情"_s);
        view->click();
        QVERIFY(b->detailsView() && view->text() == u"显示图标"_s);
    }
};

QTEST_MAIN(TestBoard)
#include "test_board.moc"
