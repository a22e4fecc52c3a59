// The one current room of the board: mouse, keys, the finder and refreshes all move the same
// selection, and the commands, the panel and the menus follow it.
#include "Desktop.h"
#include "FormProbe.h"
#include "MessageBox.h"
#include "ModalDriver.h"
#include "RoomBoard.h"
#include "RoomUse.h"
#include "TestVenue.h"
#include "frmMain.h"
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDir>
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

namespace {
void addRooms() {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values "
                             "('a', '小包', '00000000000000001'), ('b', '中包', '00000000000000001')"));
    const char* rooms[][3] = {{"r1", "A01", "a"}, {"r2", "A02", "a"}, {"r3", "A03", "a"}, {"r9", "B01", "b"}};
    for (const auto& r : rooms)
        DB().exec(QStringLiteral("insert into The (TheID, TheCode, AssortID, State) values (?, ?, ?, 0)"),
                  {QString::fromLatin1(r[0]), QString::fromLatin1(r[1]), QString::fromLatin1(r[2])});
}

QString openElsewhere(const QString& theID) {
    return RoomUseService()
        .open({theID, {}, QStringLiteral("2"), {}, QStringLiteral("0"), true, 1})
        .expenseID;
}

// What each tile shows against what the database holds: "A01:空闲=0 A02:使用=1".
QString tiles(RoomBoard* b) {
    QStringList out;
    for (int i = 0; i < b->model()->rowCount(); ++i) {
        const QString id = b->model()->item(i, 0)->data(RoomBoard::KeyRole).toString().mid(1);
        out << b->model()->item(i, 0)->text() + QLatin1Char(':') + b->model()->item(i, 1)->text() +
                   QLatin1Char('=') +
                   DB().scalar(QStringLiteral("select State from The where TheID=?"), {id}).toString();
    }
    return out.join(QLatin1Char(' '));
}

QListView* tilesView(frmMain& w) {
    return child<QListView>(&w, "lvwThisIcons");
}

void clickRoom(frmMain& w, int row, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers mods = Qt::NoModifier) {
    QListView* v = tilesView(w);
    QTest::mouseClick(v->viewport(), button, mods, v->visualRect(w.board()->model()->index(row, 0)).center());
}

QString panelHouse(frmMain& w) {
    return child<QLabel>(&w, "lblHouse")->text();
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
    TestVenue v;
    OPEN_VENUE(v);
    addRooms();
    openElsewhere(QStringLiteral("r2"));
    frmMain w;
    w.resize(1366, 768);
    w.show();
    w.Init();
    QVERIFY(QTest::qWaitForWindowActive(&w));
    QCOMPARE(panelHouse(w), QStringLiteral("小包 A01"));

    // A click on A02 (in use): the panel, the commands and F4 all on A02.
    clickRoom(w, 1);
    QCOMPARE(w.board()->selectedTheID(), QStringLiteral("r2"));
    QCOMPARE(panelHouse(w), QStringLiteral("小包 A02"));
    QVERIFY(w.action(QStringLiteral("mnuOpEnd"))->isEnabled());
    QVERIFY(!w.action(QStringLiteral("mnuOpOpen"))->isEnabled());
    QString shown;
    onModal(QStringLiteral("frmCloseHouse"), [&](QDialog* d) {
        shown = child<QLabel>(d, "lblHouse")->text();
        d->reject();
    });
    QTest::keyClick(tilesView(w), Qt::Key_F4);
    QCOMPARE(shown, QStringLiteral("A02"));

    // A click on A03 (free), then F2 opens A03.
    clickRoom(w, 2);
    QCOMPARE(panelHouse(w), QStringLiteral("小包 A03"));
    QVERIFY(!w.action(QStringLiteral("mnuOpEnd"))->isEnabled());
    onModal(QStringLiteral("frmOpenHouse"), [&](QDialog* d) {
        shown = child<QLineEdit>(d, "txtHouseCode")->text();
        d->reject();
    });
    // A closed dialog leaves the offscreen platform without an active window.
    w.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w));
    QTest::keyClick(tilesView(w), Qt::Key_F2);
    QCOMPARE(shown, QStringLiteral("A03"));

    // A ctrl click on the current room leaves it selected.
    clickRoom(w, 2, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(w.board()->selectedTheID(), QStringLiteral("r3"));

    // Right click on A02: its menu, with A02's commands.
    QListView* view = tilesView(w);
    const QPoint at = view->visualRect(w.board()->model()->index(1, 0)).center();
    QTest::mousePress(view->viewport(), Qt::RightButton, {}, at);
    QContextMenuEvent menuEvent(QContextMenuEvent::Mouse, at, view->viewport()->mapToGlobal(at));
    QApplication::sendEvent(view->viewport(), &menuEvent);
    QTest::mouseRelease(view->viewport(), Qt::RightButton, {}, at);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(panelHouse(w), QStringLiteral("小包 A02"));
    QVERIFY(w.action(QStringLiteral("mnuOpEnd"))->isEnabled());
    QVERIFY(!w.action(QStringLiteral("mnuOpOpen"))->isEnabled());
    menu->close();
}

void TestBoardSelect::open_under_filter_and_refresh_data() {
    QTest::addColumn<bool>("refreshAfterCommit");
    QTest::addColumn<QString>("board");
    // Before the commit the refresh drops A01 (opened elsewhere); A02 stays current and is
    // the tile painted in use.
    QTest::newRow("refresh before") << false << QStringLiteral("A02:使用=1 A03:空闲=0");
    // After the commit the refresh drops A02 as well; no other tile may take its state.
    QTest::newRow("refresh after") << true << QStringLiteral("A03:空闲=0");
}

void TestBoardSelect::open_under_filter_and_refresh() {
    QFETCH(bool, refreshAfterCommit);
    QFETCH(QString, board);
    TestVenue v;
    OPEN_VENUE(v);
    addRooms();
    frmMain w;
    w.resize(1366, 768);
    w.show();
    w.Init();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    child<QPushButton>(&w, "cmdShowNoUse")->click();
    clickRoom(w, 1);
    QCOMPARE(w.board()->selectedTheID(), QStringLiteral("r2"));

    onModal(QStringLiteral("frmOpenHouse"), [&](QDialog* d) {
        openElsewhere(QStringLiteral("r1"));
        if (!refreshAfterCommit) QMetaObject::invokeMethod(w.refreshTimer(), "timeout");
        child<QPushButton>(d, "OKButton")->click();
        if (refreshAfterCommit) QMetaObject::invokeMethod(w.refreshTimer(), "timeout");
    });
    w.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w));
    QTest::keyClick(tilesView(w), Qt::Key_F2);
    QCOMPARE(DB().scalar(QStringLiteral("select State from The where TheID='r2'")).toInt(), 1);
    QCOMPARE(tiles(w.board()), board);
    QCOMPARE(w.announced(), QStringLiteral("A02 已开单"));
    // The panel shows the current room, whichever it is.
    QCOMPARE(panelHouse(w), QStringLiteral("小包 ") + w.board()->codeOf(w.board()->selectedTheID()));
}

void TestBoardSelect::finder_and_tab_keys() {
    TestVenue v;
    OPEN_VENUE(v);
    addRooms();
    frmMain w;
    w.show();
    w.Init();
    QVERIFY(QTest::qWaitForWindowActive(&w));
    RoomBoard* b = w.board();
    auto* tabs = child<QTabBar>(&w, "ctabThis");

    // Another tab's room, typed in small letters; then back, past the filter.
    b->findBox()->setText(QStringLiteral("b01"));
    QTest::keyClick(b->findBox(), Qt::Key_Return);
    QCOMPARE(tabs->currentIndex(), 1);
    QCOMPARE(b->selectedTheID(), QStringLiteral("r9"));
    QCOMPARE(panelHouse(w), QStringLiteral("中包 B01"));
    openElsewhere(QStringLiteral("r3"));
    child<QPushButton>(&w, "cmdShowNoUse")->click();
    b->findBox()->setText(QStringLiteral("A03"));
    QTest::keyClick(b->findBox(), Qt::Key_Return);
    QCOMPARE(b->selectedTheID(), QStringLiteral("r3"));
    QCOMPARE(b->selectedStatus(), QStringLiteral("Use"));
    b->findBox()->setText(QStringLiteral("C9"));
    QTest::keyClick(b->findBox(), Qt::Key_Return);
    QCOMPARE(child<QLabel>(&w, "txtFindHouseInfo")->text(), QStringLiteral("当前的包厢列表中没找到此包厢！"));
    QCOMPARE(b->selectedTheID(), QStringLiteral("r3"));

    // The room types by keyboard, round the end.
    QTest::keyClick(b->currentView(), Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(tabs->currentIndex(), 1);
    QCOMPARE(panelHouse(w), QStringLiteral("中包 B01"));
    QTest::keyClick(b->currentView(), Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(tabs->currentIndex(), 0);
}

// The status line says what the checkout and the merge did; merging asks first.
void TestBoardSelect::checkout_and_merge_answer() {
    TestVenue v;
    OPEN_VENUE(v);
    addRooms();
    openElsewhere(QStringLiteral("r1"));
    openElsewhere(QStringLiteral("r2"));
    openElsewhere(QStringLiteral("r3"));
    frmMain w;
    w.Init();
    QVERIFY(w.board()->selectRoom(QStringLiteral("r2")));
    QString change;
    onModal(QStringLiteral("frmCloseHouse"), [&](QDialog* d) {
        auto* cash = child<QLineEdit>(d, "txtFactPay");
        cash->setText(QStringLiteral("1000"));
        Q_EMIT cash->textEdited(cash->text());
        change = Money::fromText(child<QLineEdit>(d, "txtTemp")->text()).toYuan();
        child<QPushButton>(d, "OKButton")->click();
    });
    w.action(QStringLiteral("mnuOpEnd"))->trigger();
    QCOMPARE(w.announced(), QStringLiteral("A02 已结帐 找零 ") + change);

    onModal(QStringLiteral("frmExpenseAmalgamate"), [](QDialog* d) {
        child<QLineEdit>(d, "txt1")->setText(QStringLiteral("A03"));
        child<QLineEdit>(d, "txt2")->setText(QStringLiteral("A01"));
        Msg::setNextAnswer(QMessageBox::Cancel);
        child<QPushButton>(d, "OKButton")->click();
        QVERIFY(d->isVisible()); // not merged: the cashier thought again
        child<QPushButton>(d, "OKButton")->click();
    });
    w.action(QStringLiteral("mnuExpenseAmalgamate"))->trigger();
    const QStringList said = messages();
    QCOMPARE(said,
             QStringList(2, QStringLiteral("并台后不能撤销。确定要把包厢 A03 的消费并入包厢 A01 吗？")));
    QCOMPARE(w.announced(), QStringLiteral("已并台：A03 并入 A01"));
    QCOMPARE(DB().scalar(QStringLiteral("select State from The where TheID='r3'")).toInt(), 0);
}

// Without the test seam: a calculator found on the path is started; none, the message.
void TestBoardSelect::calculator_of_the_desktop() {
#ifdef Q_OS_UNIX
    TestVenue v;
    OPEN_VENUE(v);
    frmMain w;
    w.Init();
    QTemporaryDir bin;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", bin.path().toLocal8Bit());
    w.action(QStringLiteral("mnuOtherToolsCalc"))->trigger();
    QCOMPARE(messages(), QStringList{Desktop::calculatorMissingText()});

    const QString started = bin.filePath(QStringLiteral("started"));
    QFile script(bin.filePath(QStringLiteral("galculator")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write(QByteArray("#!/bin/sh\necho > '") + started.toLocal8Bit() + "'\n");
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    w.action(QStringLiteral("mnuOtherToolsCalc"))->trigger();
    qputenv("PATH", path);
    QCOMPARE(messages(), QStringList());
    QTRY_VERIFY(QFile::exists(started));
#endif
}

QTEST_MAIN(TestBoardSelect)
#include "test_board_select.moc"
