// The one current room of the board: mouse, keys, the finder and refreshes all move the same
// selection, and the commands, the panel and the menus follow it.
#include "DbProbe.h"
#include "Desktop.h"
#include "FormProbe.h"
#include "MessageBox.h"
#include "ModalDriver.h"
#include "RoomBoard.h"
#include "RoomUse.h"
#include "Seed.h"
#include "TestVenue.h"
#include "frmMain.h"
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {
void addRooms() {
    addRoomType(u"a"_s, u"小包"_s);
    addRoomType(u"b"_s, u"中包"_s);
    addRoom(u"r1"_s, u"A01"_s, u"a"_s);
    addRoom(u"r2"_s, u"A02"_s, u"a"_s);
    addRoom(u"r3"_s, u"A03"_s, u"a"_s);
    addRoom(u"r9"_s, u"B01"_s, u"b"_s);
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
} // namespace

class TestBoardSelect : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void init() { Msg::taken(); }
    void cleanup() { Desktop::setLauncher({}); }
    void click_then_keys_and_menu();
    void open_under_filter_and_refresh_data();
    void open_under_filter_and_refresh();
    void finder_and_tab_keys();
    void checkout_and_merge_answer();
    void calculator_of_the_desktop();
};

void TestBoardSelect::click_then_keys_and_menu() {
    NEW_VENUE(v);
    addRooms();
    openElsewhere(u"r2"_s);
    frmMain w;
    w.resize(1366, 768);
    w.show();
    w.Init();
    QVERIFY(QTest::qWaitForWindowActive(&w));
    QCOMPARE(current(w), u"小包 A01 open"_s);

    // A click on A02 (in use): the panel, the commands and F4 all on A02.
    clickRoom(w, 1);
    QCOMPARE(w.board()->selectedTheID(), u"r2"_s);
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

void TestBoardSelect::open_under_filter_and_refresh_data() {
    QTest::addColumn<bool>("refreshAfterCommit");
    QTest::addColumn<QString>("board");
    // Before the commit the refresh drops A01 (opened elsewhere); A02 stays current and is
    // the tile painted in use.
    QTest::newRow("refresh before") << false << u"A02:使用=1 A03:空闲=0"_s;
    // After the commit the refresh drops A02 as well; no other tile may take its state.
    QTest::newRow("refresh after") << true << u"A03:空闲=0"_s;
}

void TestBoardSelect::open_under_filter_and_refresh() {
    QFETCH(bool, refreshAfterCommit);
    QFETCH(QString, board);
    NEW_VENUE(v);
    addRooms();
    frmMain w;
    w.resize(1366, 768);
    w.show();
    w.Init();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    child<QPushButton>(&w, "cmdShowNoUse")->click();
    clickRoom(w, 1);
    QCOMPARE(w.board()->selectedTheID(), u"r2"_s);

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

void TestBoardSelect::finder_and_tab_keys() {
    NEW_VENUE(v);
    addRooms();
    frmMain w;
    w.show();
    w.Init();
    QVERIFY(QTest::qWaitForWindowActive(&w));
    RoomBoard* b = w.board();
    auto* tabs = child<QTabBar>(&w, "ctabThis");
    const auto find = [b](const QString& code) {
        b->findBox()->setText(code);
        QTest::keyClick(b->findBox(), Qt::Key_Return);
    };

    // Another tab's room, typed in small letters; then back, past the filter.
    find(u"b01"_s);
    QCOMPARE(tabs->currentIndex(), 1);
    QCOMPARE(b->selectedTheID(), u"r9"_s);
    QCOMPARE(texts(w, {"lblHouse"}), u"中包 B01"_s);
    openElsewhere(u"r3"_s);
    child<QPushButton>(&w, "cmdShowNoUse")->click();
    find(u"A03"_s);
    QCOMPARE(b->selectedTheID() + b->selectedStatus(), u"r3Use"_s);

    // The room types by keyboard, round the end.
    QTest::keyClick(b->currentView(), Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(tabs->currentIndex(), 1);
    QCOMPARE(texts(w, {"lblHouse"}), u"中包 B01"_s);
    QTest::keyClick(b->currentView(), Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(tabs->currentIndex(), 0);
}

// The status line says what the checkout and the merge did; merging asks first.
void TestBoardSelect::checkout_and_merge_answer() {
    NEW_VENUE(v);
    addRooms();
    for (const QString& r : {u"r1"_s, u"r2"_s, u"r3"_s})
        openElsewhere(r);
    frmMain w;
    w.Init();
    QVERIFY(w.board()->selectRoom(u"r2"_s));
    QString change;
    onModal(u"frmCloseHouse"_s, [&](QDialog* d) {
        auto* cash = child<QLineEdit>(d, "txtFactPay");
        cash->setText(u"1000"_s);
        Q_EMIT cash->textEdited(cash->text());
        change = Money::fromText(texts(d, {"txtTemp"})).toYuan();
        child<QPushButton>(d, "OKButton")->click();
    });
    w.action(u"mnuOpEnd"_s)->trigger();
    QCOMPARE(w.announced(), u"A02 已结帐 找零 "_s + change);

    onModal(u"frmExpenseAmalgamate"_s, [](QDialog* d) {
        child<QLineEdit>(d, "txt1")->setText(u"A03"_s);
        child<QLineEdit>(d, "txt2")->setText(u"A01"_s);
        Msg::setNextAnswer(QMessageBox::Cancel);
        child<QPushButton>(d, "OKButton")->click();
        QVERIFY(d->isVisible()); // not merged: the cashier thought again
        child<QPushButton>(d, "OKButton")->click();
    });
    w.action(u"mnuExpenseAmalgamate"_s)->trigger();
    QCOMPARE(messages(), QStringList(2, u"并台后不能撤销。确定要把包厢 A03 的消费并入包厢 A01 吗？"_s));
    QCOMPARE(w.announced(), u"已并台：A03 并入 A01"_s);
    QCOMPARE(count(u"select State from The where TheID='r3'"_s), 0);
}

// Without the test seam: a calculator found on the path is started; none, the message.
void TestBoardSelect::calculator_of_the_desktop() {
#ifdef Q_OS_UNIX
    NEW_VENUE(v);
    frmMain w;
    w.Init();
    QTemporaryDir bin;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", bin.path().toLocal8Bit());
    w.action(u"mnuOtherToolsCalc"_s)->trigger();
    QCOMPARE(messages(), QStringList{Desktop::calculatorMissingText()});

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

QTEST_MAIN(TestBoardSelect)
#include "test_board_select.moc"
