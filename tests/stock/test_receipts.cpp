#include "OrderService.h"
#include "StockRecords.h"
#include "TestKit.h"
#include "Together.h"
#include "WareIn.h"
#include "frmWareIn.h"
#include "frmWareLoss.h"

namespace {
void goods(double nownum, double cost) {
    DB().exec(u"insert into Supplier (SupplierID, SupplierName) values ('s1', '青岛啤酒')"_s);
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水')"_s);
    DB().exec(
        u"insert into Ware (WareID, WareTypeID, WareCode, WareName, Mnemonics, WareUnit, Price, nownum, "
        "ProcurePrice) values ('w1', '01', '1', '啤酒', 'pj', '瓶', 100000, ?, ?)"_s,
        {nownum, Money::fromDouble(cost)});
}
QString stock() {
    return dump(u"select nownum, ProcurePrice from Ware where WareID='w1'"_s);
}
WareInLine line(double num, double money) {
    return MakeReceiptLine({u"w1"_s, u"啤酒"_s, u"瓶"_s, Money::yuan(10)}, QString::number(std::abs(num)),
                           QString::number(std::abs(money)), {}, num < 0, u"s1"_s, u"青岛啤酒"_s);
}
} // namespace

class TestReceipts : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void cost_data() { // clang-format off
        columns<double, double, double, double, double, QString>("oldNum", "oldPrice", "num", "money", "newNum", "newPrice");
        QTest::newRow("first receipt, no stock, no cost") << 0.0 << 0.0 << 10.0 << 50.0 << 10.0 << "5.00";
        QTest::newRow("no stock, a stored cost counts once") << 0.0 << 4.0 << 10.0 << 50.0 << 10.0 << "5.40";
        QTest::newRow("stock of no cost is worth 1 a unit") << 3.0 << 0.0 << 1.0 << 2.0 << 4.0 << "1.25";
        QTest::newRow("a return to nothing costs 0") << 5.0 << 2.0 << -5.0 << -10.0 << 0.0 << "0.00";
        QTest::newRow("a return below 0 divides by it") << 2.0 << 3.0 << -4.0 << -8.0 << -2.0 << "1.00";
        QTest::newRow("two decimals kept") << 3.0 << 1.0 << 0.0 << 1.0 << 3.0 << "1.33";
        QTest::newRow("single precision count") << 0.1 << 1.0 << 0.2 << 0.0 << double(0.1f + 0.2f) << "0.33"; // clang-format on
    }
    void cost() {
        auto [oldNum, oldPrice, num, money, newNum, newPrice] =
            fetch<double, double, double, double, double, QString>("oldNum", "oldPrice", "num", "money",
                                                                   "newNum", "newPrice");
        const WareCost c = UpdateWareCost(oldNum, Money::fromDouble(oldPrice), num, Money::fromDouble(money));
        QCOMPARE(c.newNum, newNum);
        QCOMPARE(c.newPrice.toString2(), newPrice);
    }

    void lineChecks_data() { // clang-format off
        columns<QString, QString, QString, QString, QString>("supplier", "ware", "num", "money", "message");
        QTest::newRow("supplier first") << "" << "" << "x" << "x" << "请选择供应商！";
        QTest::newRow("then the article") << "s1" << "" << "x" << "x" << "请输入商品助记符！";
        QTest::newRow("then the quantity") << "s1" << "w1" << "1e309" << "x" << "请输入商品数量！";
        QTest::newRow("then the amount") << "s1" << "w1" << "2" << "99999999999999999999" << "请输入商品金额！";
        QTest::newRow("a quantity of 0 passes") << "s1" << "w1" << "0" << "5" << ""; // clang-format on
    }
    void lineChecks() {
        auto [supplier, ware, num, money, message] =
            fetch<QString, QString, QString, QString, QString>("supplier", "ware", "num", "money", "message");
        const Refused r = CheckReceiptLine(supplier, ware, num, money);
        QCOMPARE(r ? r->message : QString(), message);
        QCOMPARE(ReceiptPriceText(u"0"_s, u"5"_s), u"0"_s);
        QCOMPARE(ReceiptPriceText(u"3"_s, u"10"_s), u"3.33"_s);
    }

    // Two lines of one article apply one after the other; then surplus and loss move the stock
    // by the signed quantity and never the cost, their amount the selling price times the
    // quantity. With stock keeping off the goods stay as they are, the documents are kept.
    void saved_data() {
        QTest::addColumn<int>("useWareHouse");
        QTest::addColumn<QString>("afterReceipt");
        QTest::addColumn<QString>("afterLoss");
        // (4*2 + 50)/14 = 4.14, then (4.14*14 - 8)/13
        QTest::newRow("stock kept") << 1 << u"13|38400"_s << u"10|38400"_s;
        QTest::newRow("stock not kept") << 0 << u"4|20000"_s << u"4|20000"_s;
    }
    void saved() {
        QFETCH(int, useWareHouse);
        NEW_VENUE(v);
        goods(4, 2);
        App().IsUseWareHouse = useWareHouse;
        const QString id = ReceiptService().save({QDate(2026, 11, 21), u"老王"_s, {}, u"J-1"_s, u"s1"_s},
                                                 {line(10, 50), line(-1, 8)});
        QCOMPARE(dump(u"select InTime, TheCode, SupplierID from WareIn where wareInID=?"_s, {id}),
                 u"2026-11-21 00:00|J-1|s1"_s);
        QCOMPARE(dump(u"select num, theMoney from WareInList order by num"_s), u"-1|-80000\n10|500000"_s);
        QTEST(stock(), "afterReceipt");

        const WareInGoods beer{u"w1"_s, u"啤酒"_s, u"瓶"_s, Money::yuan(10)};
        QCOMPARE(CheckLossLine({}, u"1"_s)->message, u"请输入商品助记符！"_s);
        QCOMPARE(CheckLossLine(u"w1"_s, u"一"_s)->message, u"请输入商品数量！"_s);
        ReceiptService().saveLoss({QDate(2026, 11, 21), {}, {}, {}, {}},
                                  {MakeLossLine(beer, u"-4"_s, {}), MakeLossLine(beer, u"1"_s, {}),
                                   MakeLossLine(beer, u"0"_s, {})});
        QCOMPARE(dump(u"select num, theMoney from WareLossList order by num"_s),
                 u"-4|-400000\n0|0\n1|100000"_s);
        QTEST(stock(), "afterLoss");
    }

    // A receipt at one till and sales at another, many rounds on one article: no stock is lost.
    void receiptsRaceSales() {
        NEW_VENUE(v);
        goods(100, 2);
        App().IsUseWareHouse = 1;
        addRoomType(u"a"_s, u"中包"_s);
        addRoom(u"r1"_s, u"B01"_s, u"a"_s, 1);
        DB().exec(
            u"insert into Expense (ExpenseID, TheID, OpenTime, State) values ('b1', 'r1', '2026-11-21 19:00', 1)"_s);
        const int rounds = 40;
        together(v.config(), 2, [&](Db& db, int n) {
            for (int i = 0; i < rounds; ++i) {
                if (n == 1)
                    ReceiptService(db).save({QDate(2026, 11, 21), {}, {}, {}, u"s1"_s}, {line(3, 6)});
                else
                    OrderService(db).SaveLine({u"b1"_s, {}, u"w1"_s, u"10.00"_s, u"0"_s, u"2"_s, {}, false});
            }
        });
        QCOMPARE(count(u"select count(*) from WareInList"_s), rounds);
        QCOMPARE(count(u"select count(*) from ExpenseDetail"_s), rounds);
        QCOMPARE(stock().section(u'|', 0, 0).toDouble(), 100.0 + 3 * rounds - 2 * rounds);
    }

    // The record windows' three views over a period (start in, end out), by supplier.
    void records() {
        NEW_VENUE(v);
        goods(0, 0);
        DB().exec(u"insert into Supplier (SupplierID, SupplierName) values ('s2', '百威')"_s);
        ReceiptService s;
        s.save({QDate(2026, 11, 20), {}, {}, u"A"_s, u"s1"_s}, {line(10, 50)});
        s.save({QDate(2026, 11, 21), {}, {}, u"B"_s, u"s1"_s}, {line(4, 30), line(-1, 8)});
        WareInLine other = line(2, 12);
        other.supplierID = u"s2"_s;
        s.save({QDate(2026, 11, 21), {}, {}, u"C"_s, u"s2"_s}, {other});
        s.saveLoss({QDate(2026, 11, 21), {}, {}, u"L"_s, {}},
                   {MakeLossLine({u"w1"_s, u"啤酒"_s, {}, Money::yuan(10)}, u"-2"_s, {})});
        const QDateTime day(QDate(2026, 11, 21), QTime(0, 0)), next = day.addDays(1);
        const StockRecordsService receipts(ReceiptRecords()), losses(LossRecords());
        QCOMPARE(receipts.documents(day, next, {}).count(), 2);
        QCOMPARE(receipts.documents(day.addDays(-1), day, {}).count(), 1);
        QCOMPARE(receipts.documents(day, next, u"s2"_s).first().text(u"TheCode"_s), u"C"_s);
        QCOMPARE(receipts.lines(day, next, u"s1"_s).count(), 2);
        const Rows sums = receipts.sums(day.addDays(-1), next, {});
        QCOMPARE(sums.first().num(u"Num"_s), 15.0);
        QCOMPARE(sums.first().money(u"TheMoney"_s), Money::yuan(84));
        QCOMPARE(losses.lines(day, next, {}).first().money(u"TheMoney"_s), Money::yuan(-20));
        QCOMPARE(receipts.linesOf(receipts.documents(day, next, u"s1"_s).first().text(u"wareInID"_s)).count(),
                 2);

        frmWareInList w;
        w.prepare(0);
        QCOMPARE(child<QTreeWidget>(&w, "lvwThis")->topLevelItemCount(), 2);
        child<QTabWidget>(&w, "ctabThis")->setCurrentIndex(2);
        QCOMPARE(child<QLineEdit>(&w, "txtWareInSumMoney")->text(), u"34.00"_s);
        QCOMPARE(child<QTreeWidget>(&w, "lvwWareInSum")->topLevelItem(0)->text(2), u"5.00"_s);
    }

    // By keyboard: a purchase line and a return line, then the receipt saved; then a loss.
    void receiptByKeyboard() {
        NEW_VENUE(v);
        goods(0, 0);
        App().IsUseWareHouse = 1;
        frmWareIn w;
        w.prepare();
        w.show();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        auto type = [&](const QString& text) {
            QTest::keyClicks(QApplication::focusWidget(), text);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        };
        auto press = [&](const char* button) {
            while (QApplication::focusWidget()->objectName() != QLatin1String(button))
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        };
        type(u"zz"_s);
        QCOMPARE(messages(), QStringList{u"没找到您输入的商品或服务，请检查输入是否正确！"_s});
        child<QLineEdit>(&w, "txtMnemonics")->clear();
        type(u"pj"_s);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"txtNum"_s);
        type(u"10"_s);
        QTest::keyClicks(QApplication::focusWidget(), u"55"_s);
        QCOMPARE(child<QLineEdit>(&w, "txtPrice")->text(), u"5.50"_s);
        press("cmdAdd");
        QCOMPARE(QApplication::focusWidget()->objectName(), u"txtMnemonics"_s);
        type(u"pj"_s);
        type(u"2"_s);
        QTest::keyClicks(QApplication::focusWidget(), u"11"_s);
        press("cmdWareOut");
        auto* list = child<QTreeWidget>(&w, "lvwThis");
        QCOMPARE(list->topLevelItem(1)->text(1) + u' ' + list->topLevelItem(1)->text(2) + u' ' +
                     list->topLevelItem(1)->text(3),
                 u"-2 5.50 -11.00"_s);
        press("OKButton");
        QVERIFY(w.saved());
        QCOMPARE(stock(), u"8|"_s + QString::number(Money::fromText(u"5.50"_s).raw()));

        frmWareLoss loss;
        loss.prepare();
        loss.show();
        QVERIFY(QTest::qWaitForWindowActive(&loss));
        type(u"pj"_s);
        QCOMPARE(child<QLineEdit>(&loss, "txtPrice")->text(), u"10.00"_s);
        type(u"-3"_s);
        QTest::keyClicks(QApplication::focusWidget(), u"99"_s); // the amount is not typed
        QCOMPARE(child<QLineEdit>(&loss, "txtTheMoney")->text(), u"-30.00"_s);
        press("cmdAdd");
        press("OKButton");
        QVERIFY(loss.saved());
        QCOMPARE(stock(), u"5|"_s + QString::number(Money::fromText(u"5.50"_s).raw()));
    }
};

QTEST_MAIN(TestReceipts)
#include "test_receipts.moc"
