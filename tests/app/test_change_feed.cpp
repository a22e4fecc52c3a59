#include "ChangeFeed.h"
#include "CheckoutService.h"
#include "OrderService.h"
#include "RoomBoard.h"
#include "RoomUse.h"
#include "TestKit.h"
#include "frmCloseHouse.h"
#include "frmExpenseDetail.h"
#include "frmMain.h"
#include <QSignalSpy>

// Another till is a second connection to the same venue; this program learns of its writes
// only through the change feed (the board's refresh timer is off throughout).
namespace {
QStandardItem* tile(const RoomBoard* board, const QString& theID) {
    for (int i = 0; i < board->model()->rowCount(); ++i)
        if (board->model()->item(i, 0)->data(RoomBoard::KeyRole).toString() == u'K' + theID)
            return board->model()->item(i, 0);
    return nullptr;
}
QString status(const RoomBoard* board, const QString& theID) {
    const QStandardItem* it = tile(board, theID);
    return it ? it->data(RoomBoard::StatusRole).toString() : QString();
}
void venue() {
    addRoomType(u"a"_s, u"中包"_s);
    addRoom(u"r1"_s, u"B01"_s, u"a"_s);
    addRoom(u"r2"_s, u"B02"_s, u"a"_s);
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('01', '啤酒')"_s);
    DB().exec(u"insert into Ware (WareID, WareTypeID, WareCode, WareName, Price) values "
              "('w1', '01', '1001', '青岛啤酒', 150000)"_s);
    QVERIFY(SetSetup(u"RefurbishTime"_s, u"0"_s));
}
OpenHouseInput party(const QString& theID) {
    return {theID, u"生日会"_s, u"6"_s, {}, u"0"_s, true, 1};
}
OrderLineInput beer(const QString& bill) {
    return {bill, {}, u"w1"_s, u"15.00"_s, u"0"_s, u"2"_s, {}, false};
}
} // namespace

class TestChangeFeed : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void boardFollowsOtherTills() {
        NEW_VENUE(v);
        venue();
        frmMain w;
        w.Init();
        RoomBoard* board = w.board();
        QVERIFY(!w.findChild<QTimer*>(u"tmRefurbish"_s)->isActive());
        QVERIFY(board->selectRoom(u"r1"_s));
        const QStandardItem* untouched = tile(board, u"r2"_s);
        Db other;
        other.open(v.config());

        const QString bill = RoomUseService(other).open(party(u"r1"_s)).expenseID;
        QTRY_COMPARE_WITH_TIMEOUT(status(board, u"r1"_s), u"Use"_s, 5000);
        QCOMPARE(tile(board, u"r1"_s)->data(RoomBoard::TagRole).toString(), bill);
        // Only the tile concerned was read again: the other one is the same item as before.
        QCOMPARE(tile(board, u"r2"_s), untouched);
        // The panel of the selected room shows its running bill.
        QVERIFY(!OrderService(other).SaveLine(beer(bill)).refusal);
        QTRY_COMPARE_WITH_TIMEOUT(board->detailList()->topLevelItemCount(), 1, 5000);

        // A write that rolls back tells nobody.
        QSignalSpy spy(&ChangeFeed::main(), &ChangeFeed::changed);
        DB().write([&] {
            DB().announceRoom(u"r2"_s);
            return DB().discard(0);
        });
        // Checked out on the other till: free again, and the own process hears its own write.
        CheckoutInput in;
        in.expenseID = bill;
        in.closeTime = TestVenue::fixedNow();
        QVERIFY(CheckoutService(other).close(in).saved);
        QTRY_COMPARE_WITH_TIMEOUT(status(board, u"r1"_s), u"Common"_s, 5000);
        QVERIFY(!RoomUseService().open(party(u"r2"_s)).expenseID.isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(status(board, u"r2"_s), u"Use"_s, 5000);
        QStringList heard;
        for (const QList<QVariant>& call : spy)
            heard << call.first().toStringList();
        // On SQLite the other till's checkout may arrive as "something changed"; never as r2's.
        QCOMPARE(heard.count(u"Rr2"_s), 1);

        // The connection opened anew (signing in again, a server back after a break): the
        // feed listens on the new one by itself.
        DB().open(v.config());
        if (TestVenue::isPg()) QTRY_VERIFY_WITH_TIMEOUT(ChangeFeed::main().subscribed(), 5000);
        QVERIFY(!RoomUseService(other).open(party(u"r1"_s)).expenseID.isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(status(board, u"r1"_s), u"Use"_s, 5000);
        QCOMPARE(messages(), QStringList());
    }

    void billWindowsFollowTheirBill() {
        NEW_VENUE(v);
        venue();
        ChangeFeed::main().start();
        const QString bill = RoomUseService().open(party(u"r1"_s)).expenseID;
        Db other;
        other.open(v.config());

        // Lines ordered at another till show in the open order window.
        frmExpenseDetail order;
        order.Init(bill);
        order.show();
        QVERIFY(!OrderService(other).SaveLine(beer(bill)).refusal);
        QTRY_COMPARE_WITH_TIMEOUT(child<QTreeWidget>(&order, "lvwDetail")->topLevelItemCount(), 1, 5000);
        order.close();

        // A checkout window open on a bill closed elsewhere says so before anything is typed.
        frmCloseHouse checkout;
        checkout.prepare(bill, false);
        checkout.show();
        CheckoutInput in;
        in.expenseID = bill;
        in.closeTime = TestVenue::fixedNow();
        QVERIFY(CheckoutService(other).close(in).saved);
        QTRY_VERIFY_WITH_TIMEOUT(!checkout.isVisible(), 5000);
        QCOMPARE(messages(), QStringList{CheckoutText::closedElsewhere()});
        QVERIFY(!checkout.saved());
        ChangeFeed::main().stop();
    }
};

QTEST_MAIN(TestChangeFeed)
#include "test_change_feed.moc"
