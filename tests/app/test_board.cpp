// The board: the one current room that mouse, keys, the finder and refreshes all move, the
// commands, the panel and the menus that follow it, and the dialogs it opens.
#include "RoomBoard.h"
#include "RoomUse.h"
#include "TestKit.h"
#include "frmMain.h"
#include <QContextMenuEvent>
#include <QListView>
#include <QTabBar>

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

QString roomRow(const QString& theID) {
    return dump(u"select State, ExpenseID, Other1 from The where TheID=?"_s, {theID});
}
QString openElsewhere(const QString& theID) {
    return RoomUseService().open({theID, {}, u"2"_s, {}, u"0"_s, true, 1}).expenseID;
}

// What each tile shows against what the database holds: "A01:空闲=0 A02:使用=1".
QString tiles(RoomBoard* b) {
    QStringList out;
    for (int i = 0; i < b->model()->rowCount(); ++i) {
        const QString id = b->model()->item(i, 0)->data(RoomBoard::KeyRole).toString().mid(1);
        out << b->model()->item(i, 0)->text() + u':' + b->model()->item(i, 1)->text() + u'=' +
                   text(u"select State from The where TheID=?"_s, {id});
    }
    return out.join(u' ');
}

QListView* tilesView(frmMain& w) {
    return child<QListView>(&w, "lvwThisIcons");
}

void clickRoom(frmMain& w, int row, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers mods = Qt::NoModifier) {
    QListView* v = tilesView(w);
    QTest::mouseClick(v->viewport(), button, mods, v->visualRect(w.board()->model()->index(row, 0)).center());
}

// The panel's room, and whether checkout and opening are offered: "小包 A02 end".
QString current(frmMain& w) {
    return child<QLabel>(&w, "lblHouse")->text() +
           (w.action(u"mnuOpEnd"_s)->isEnabled() ? u" end"_s : QString()) +
           (w.action(u"mnuOpOpen"_s)->isEnabled() ? u" open"_s : QString());
}

// The text the named field of the next such dialog starts with; the dialog is cancelled.
void peek(const QString& dialog, const char* field, QString& shown) {
    onModal(dialog, [field, &shown](QDialog* d) {
        shown = texts(d, {field});
        d->reject();
    });
}

void showUp(frmMain& w) {
    // A closed dialog leaves the offscreen platform without an active window.
    w.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w));
}

// The board of the venue on the till's screen, ready for keys and clicks.
void start(frmMain& w) {
    addVenue();
    w.resize(1366, 768);
    w.show();
    w.Init();
    QVERIFY(QTest::qWaitForWindowActive(&w));
}
} // namespace

class TestBoard : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void init() { Msg::taken(); }
    void cleanup() { Desktop::setLauncher({}); }
    void commands_follow_the_status_data() { // clang-format off
        columns<int, QString, QString>("state", "other1", "enabled");
        const QString open = u"mnuOpOpen tbrOPENHOUSE"_s;
        QTest::newRow("no room") << -1 << "" << "";
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
        if (state >= 0) { // none: an empty venue
            addRoomType(u"a"_s, u"小包"_s);
            addRoom(u"r1"_s, u"A01"_s, u"a"_s, state, other1);
        }
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
    void open_change_merge() {
        NEW_VENUE(v);
        frmMain w;
        start(w);
        RoomBoard* b = w.board();
        QVERIFY(b->selectRoom(u"r2"_s));

        // Open A02 through the real dialog.
        onModal([](QDialog* d) {
            QCOMPARE(d->objectName(), u"frmOpenHouse"_s);
            QCOMPARE(texts(d, {"txtHouseCode", "txtHouseAssortName", "txtOperator"}),
                     u"A02|小包|系统管理员"_s);
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
        QCOMPARE(tiles(b), u"A01:空闲=0 A02:使用=1 A03:空闲=0"_s);
        QCOMPARE(texts(w, {"lblCustomerNum", "lblDesc"}), u"5|同学聚会"_s);

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
        QCOMPARE(tiles(b), u"A01:空闲=0 A02:空闲=0 A03:使用=1"_s);

        // Open A01 and fold A03's bill into it.
        QVERIFY(b->selectRoom(u"r1"_s));
        onModal([](QDialog* d) { child<QPushButton>(d, "OKButton")->click(); });
        w.action(u"mnuOpOpen"_s)->trigger();
        onModal([](QDialog* d) {
            QCOMPARE(d->windowTitle(), u"并台"_s);
            child<QLineEdit>(d, "txt1")->setText(u"A01"_s);
            child<QLineEdit>(d, "txt2")->setText(u"A01"_s);
            child<QPushButton>(d, "OKButton")->click();
            const QList<Msg::Shown> shown = Msg::taken();
            QCOMPARE(shown.size(), 1);
            QCOMPARE(shown[0].title + d->focusWidget()->objectName(), u"错误的包厢号txt2"_s);
            // Merging asks first; Cancel leaves the dialog to think again.
            child<QLineEdit>(d, "txt1")->setText(u"A03"_s);
            Msg::setNextAnswer(QMessageBox::Cancel);
            child<QPushButton>(d, "OKButton")->click();
            QVERIFY(d->isVisible());
            child<QPushButton>(d, "OKButton")->click();
        });
        w.action(u"mnuExpenseAmalgamate"_s)->trigger();
        QCOMPARE(messages(), QStringList(2, u"并台后不能撤销。确定要把包厢 A03 的消费并入包厢 A01 吗？"_s));
        QCOMPARE(w.announced(), u"已并台：A03 并入 A01"_s);
        QCOMPARE(tiles(b), u"A01:使用=1 A02:空闲=0 A03:空闲=0"_s);
    }
    void finder_keys() {
        NEW_VENUE(v);
        frmMain w;
        start(w);
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
        QString shown;
        peek(u"frmOpenHouse"_s, "txtHouseCode", shown);
        QTest::keyClick(find, Qt::Key_O);
        QCOMPARE(shown + u'|' + find->text() + u'|' + roomRow(u"r1"_s), u"A01||0||"_s);

        // Space runs the default action: a free room opens.
        find->setText(u"A02"_s);
        onModal([](QDialog* d) { child<QPushButton>(d, "OKButton")->click(); });
        QTest::keyClick(find, Qt::Key_Space);
        QCOMPARE(roomRow(u"r2"_s).left(2) + b->selectedStatus(), u"1|Use"_s);

        // "j" on a room in use goes to its checkout, and is not typed.
        find->setText(u"A02"_s);
        peek(u"frmCloseHouse"_s, "lblHouse", shown);
        QTest::keyClick(find, Qt::Key_J);
        QCOMPARE(shown + u'|' + find->text() + u'|' + roomRow(u"r2"_s).left(2), u"A02||1|"_s);

        // Another tab's room, typed in small letters; then back, past the filter.
        auto* tabs = child<QTabBar>(&w, "ctabThis");
        find->setText(u"b01"_s);
        QTest::keyClick(find, Qt::Key_Return);
        QCOMPARE(QString::number(tabs->currentIndex()) + b->selectedTheID() + texts(w, {"lblHouse"}),
                 u"1r9中包 B01"_s);
        openElsewhere(u"r3"_s);
        child<QPushButton>(&w, "cmdShowNoUse")->click();
        find->setText(u"A03"_s);
        QTest::keyClick(find, Qt::Key_Return);
        QCOMPARE(b->selectedTheID() + b->selectedStatus(), u"r3Use"_s);

        // The room types by keyboard, round the end.
        showUp(w);
        QTest::keyClick(b->currentView(), Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(QString::number(tabs->currentIndex()) + texts(w, {"lblHouse"}), u"1中包 B01"_s);
        QTest::keyClick(b->currentView(), Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(tabs->currentIndex(), 0);
    }
    // Stop and resume from the menu; the tick shows what other workstations did and keeps the
    // selection and the focus; the filters and the view.
    void stop_refresh_and_filters() {
        NEW_VENUE(v);
        frmMain w;
        start(w);
        RoomBoard* b = w.board();
        QVERIFY(b->selectRoom(u"r2"_s));
        w.action(u"mnuHouseStop"_s)->trigger();
        QCOMPARE(tiles(b), u"A01:空闲=0 A02:停用=2 A03:空闲=0"_s);
        // Another workstation resumed and opened it meanwhile: refused, the board catches up.
        DB().exec(u"update The set State=1, ExpenseID='x' where TheID='r2'"_s);
        messages(); // the question before stopping
        w.action(u"mnuHouseResume"_s)->trigger();
        QCOMPARE(messages(), QStringList{u"这个包厢的状态已被其它收银台改变，请刷新后再试！"_s});
        QCOMPARE(tiles(b), u"A01:空闲=0 A02:使用=1 A03:空闲=0"_s);

        QVERIFY(b->selectRoom(u"r3"_s));
        b->findBox()->setFocus();
        DB().exec(u"update The set State=2 where TheID='r1'"_s);
        QMetaObject::invokeMethod(w.refreshTimer(), "timeout");
        QCOMPARE(tiles(b), u"A01:停用=2 A02:使用=1 A03:空闲=0"_s);
        QCOMPARE(b->selectedTheID() + u'|' + texts(w, {"lblHouse"}), u"r3|小包 A03"_s);
        QCOMPARE(w.focusWidget(), b->findBox());
        // A room deleted elsewhere drops out; the selection falls to the first.
        DB().exec(u"delete from The where TheID='r3'"_s);
        b->LoadRoomTabs();
        QCOMPARE(b->selectedTheID(), u"r1"_s);

        child<QPushButton>(&w, "cmdShowUse")->click();
        QCOMPARE(tiles(b), u"A02:使用=1"_s);
        child<QPushButton>(&w, "cmdShowNoUse")->click();
        QCOMPARE(tiles(b), u"A01:停用=2"_s);
        child<QPushButton>(&w, "cmdShowAll")->click();
        QCOMPARE(b->model()->rowCount(), 2);
        QPushButton* view = child<QPushButton>(&w, "cmdView");
        view->click();
        QVERIFY(b->detailsView() && view->text() == u"显示图标"_s);
    }
    void click_then_keys_and_menu();
    void open_under_filter_and_refresh_data();
    void open_under_filter_and_refresh();
    void calculator_of_the_desktop();
};

void TestBoard::click_then_keys_and_menu() {
    NEW_VENUE(v);
    frmMain w;
    start(w);
    openElsewhere(u"r2"_s);
    w.board()->LoadRoomTabs();
    QCOMPARE(current(w), u"小包 A01 open"_s);

    // A click on A02 (in use): the panel, the commands and F4 all on A02.
    clickRoom(w, 1);
    QCOMPARE(current(w), u"小包 A02 end"_s);
    QString shown;
    peek(u"frmCloseHouse"_s, "lblHouse", shown);
    QTest::keyClick(tilesView(w), Qt::Key_F4);
    QCOMPARE(shown, u"A02"_s);

    // A click on A03 (free), then F2 opens A03.
    clickRoom(w, 2);
    QCOMPARE(current(w), u"小包 A03 open"_s);
    peek(u"frmOpenHouse"_s, "txtHouseCode", shown);
    showUp(w);
    QTest::keyClick(tilesView(w), Qt::Key_F2);
    QCOMPARE(shown, u"A03"_s);

    // A ctrl click on the current room leaves it selected.
    clickRoom(w, 2, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(w.board()->selectedTheID(), u"r3"_s);

    // Right click on A02: its menu, with A02's commands.
    QListView* view = tilesView(w);
    const QPoint at = view->visualRect(w.board()->model()->index(1, 0)).center();
    QTest::mousePress(view->viewport(), Qt::RightButton, {}, at);
    QContextMenuEvent menuEvent(QContextMenuEvent::Mouse, at, view->viewport()->mapToGlobal(at));
    QApplication::sendEvent(view->viewport(), &menuEvent);
    QTest::mouseRelease(view->viewport(), Qt::RightButton, {}, at);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(current(w), u"小包 A02 end"_s);
    menu->close();
}

void TestBoard::open_under_filter_and_refresh_data() {
    columns<bool, QString>("refreshAfterCommit", "board");
    // Before the commit the refresh drops A01 (opened elsewhere); A02 stays current and is
    // the tile painted in use.
    QTest::newRow("refresh before") << false << u"A02:使用=1 A03:空闲=0"_s;
    // After the commit the refresh drops A02 as well; no other tile may take its state.
    QTest::newRow("refresh after") << true << u"A03:空闲=0"_s;
}

void TestBoard::open_under_filter_and_refresh() {
    auto [refreshAfterCommit, board] = fetch<bool, QString>("refreshAfterCommit", "board");
    NEW_VENUE(v);
    frmMain w;
    start(w);
    child<QPushButton>(&w, "cmdShowNoUse")->click();
    clickRoom(w, 1);
    onModal(u"frmOpenHouse"_s, [&](QDialog* d) {
        openElsewhere(u"r1"_s);
        if (!refreshAfterCommit) QMetaObject::invokeMethod(w.refreshTimer(), "timeout");
        child<QPushButton>(d, "OKButton")->click();
        if (refreshAfterCommit) QMetaObject::invokeMethod(w.refreshTimer(), "timeout");
    });
    showUp(w);
    QTest::keyClick(tilesView(w), Qt::Key_F2);
    QCOMPARE(count(u"select State from The where TheID='r2'"_s), 1);
    QCOMPARE(tiles(w.board()), board);
    QCOMPARE(w.announced(), u"A02 已开单"_s);
    // The panel shows the current room, whichever it is.
    QCOMPARE(texts(w, {"lblHouse"}), u"小包 "_s + w.board()->codeOf(w.board()->selectedTheID()));
}

// Without the test seam: a calculator found on the path is started.
void TestBoard::calculator_of_the_desktop() {
#ifdef Q_OS_UNIX
    NEW_VENUE(v);
    frmMain w;
    w.Init();
    QTemporaryDir bin;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", bin.path().toLocal8Bit());
    const QString started = bin.filePath(u"started"_s);
    QFile script(bin.filePath(u"galculator"_s));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho > '" + started.toLocal8Bit() + "'\n");
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    w.action(u"mnuOtherToolsCalc"_s)->trigger();
    qputenv("PATH", path);
    QCOMPARE(messages(), QStringList());
    QTRY_VERIFY(QFile::exists(started));
#endif
}

QTEST_MAIN(TestBoard)
#include "test_board.moc"
