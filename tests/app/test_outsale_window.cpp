#include "PrintUi.h"
#include "TestKit.h"
#include "frmMain.h"

namespace {
// Beer at 10, cigarettes at 20 and nuts at 8, each kept in stock.
void addGoods() {
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水')"_s);
    DB().exec(u"insert into Ware (WareID, WareTypeID, WareCode, WareName, Mnemonics, Price, ProcurePrice, "
              "nownum) values ('beer', '01', 'A1', '啤酒', 'pj', 100000, 40000, 100), "
              "('cig', '01', 'B1', '中华', 'zh', 200000, 150000, 50), "
              "('nut', '01', 'C1', '花生', 'hs', 80000, 20000, 30)"_s);
    SetSetup(u"IsUseWareHouse"_s, u"1"_s);
    App().CurrentDiscountLimit = 5;
}

void keys(QWidget* d, const QString& typed, Qt::Key then) {
    QApplication::processEvents();
    QWidget* box = d->focusWidget();
    QTest::keyClicks(box, typed);
    QTest::keyClick(box, then);
    QApplication::processEvents();
}
void key(QWidget* d, Qt::Key k, Qt::KeyboardModifiers mods = {}) {
    QApplication::processEvents();
    QTest::keyClick(d->focusWidget(), k, mods);
    QApplication::processEvents();
}

// The lines of the window as "name num price amount gift", one per line.
QString lines(QWidget* d) {
    auto* list = child<QTreeWidget>(d, "lvwDetail");
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        QStringList cells;
        for (int c = 0; c < 5; ++c)
            cells << list->topLevelItem(i)->text(c);
        out << cells.join(u' ');
    }
    return out.join(u'\n');
}
} // namespace

class TestOutSaleWindow : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void init() { Msg::taken(); }
    // From the toolbar: two beers, a gift of cigarettes, nuts added and deleted again, a
    // settlement the operator may not give, then cash and F4, all by keyboard.
    void sale_by_keyboard() {
        NEW_VENUE(v);
        addGoods();
        const QString pdf = v.home() + u"/pdf"_s;
        SetSetup(u"Printer"_s, u"PDF:"_s + pdf);
        SetSetup(u"PrintOutSale"_s, u"1"_s);
        frmMain w;
        w.show();
        w.Init();
        bool sold = false;
        onModal(u"frmOutSale"_s, [&](QDialog* d) {
            QCOMPARE(d->windowTitle(), u"外卖"_s);
            QVERIFY(child<QCheckBox>(d, "chkPrint")->isChecked());
            QCOMPARE(focused(), u"txtInput"_s);
            keys(d, u"pj 2"_s, Qt::Key_Return); // the quantity is set, the box is next
            QCOMPARE(focused(), u"txtNum"_s);
            key(d, Qt::Key_F5);
            keys(d, u"zz"_s, Qt::Key_Return);
            QCOMPARE(messages(), QStringList{u"没找到助记符为“zz”的商品或服务！"_s});
            child<QLineEdit>(d, "txtInput")->clear();
            keys(d, u"zh"_s, Qt::Key_Return);
            key(d, Qt::Key_Tab); // to the gift box
            key(d, Qt::Key_Space);
            key(d, Qt::Key_F5);
            keys(d, u"hs 3"_s, Qt::Key_Return);
            key(d, Qt::Key_F5);
            QCOMPARE(lines(d), u"啤酒 2 10.00 20.00 \n中华 1 20.00 0.00 是\n花生 3 8.00 24.00 "_s);
            QCOMPARE(texts(d, {"lblThisSum", "txtExpenseMoney", "txtOughtMoney"}),
                     u"本次消费: 44.00|44.00|44.00"_s);

            // The nuts go again: back from the settlement box to the list, its last line, Delete.
            key(d, Qt::Key_F9);
            key(d, Qt::Key_Tab, Qt::ShiftModifier);
            key(d, Qt::Key_Tab, Qt::ShiftModifier);
            QCOMPARE(focused(), u"lvwDetail"_s);
            key(d, Qt::Key_End);
            key(d, Qt::Key_Delete);
            QCOMPARE(lines(d), u"啤酒 2 10.00 20.00 \n中华 1 20.00 0.00 是"_s);
            QCOMPARE(texts(d, {"lblThisSum", "txtExpenseMoney"}), u"本次消费: 20.00|20.00"_s);

            // 6 off is beyond the operator's 5; 5 is not.
            key(d, Qt::Key_F9);
            keys(d, u"14"_s, Qt::Key_F4);
            QCOMPARE(messages(), QStringList{u"对不起，您优惠的金额超过了您的权限！请重新输入结算金额。"_s});
            child<QLineEdit>(d, "txtOughtMoney")->selectAll();
            keys(d, u"14"_s, Qt::Key_Return);
            QCOMPARE(messages(), QStringList{u"对不起，您优惠的金额超过了您的权限！请重新输入结算金额。"_s});
            QCOMPARE(focused(), u"txtOughtMoney"_s);
            keys(d, u"15"_s, Qt::Key_Return);
            QCOMPARE(focused(), u"txtFactPay"_s);
            QCOMPARE(texts(d, {"txtNoMoney", "txtDiscount", "txtTemp"}), u"5|7.50|-15.00"_s);
            keys(d, u"50"_s, Qt::Key_F4);
            QVERIFY(messages().isEmpty());

            // Cleared for the next customer, who still sees the change of the last one.
            QCOMPARE(lines(d), QString());
            QCOMPARE(texts(d, {"lblThisSum", "txtExpenseMoney", "txtOughtMoney", "txtDiscount", "txtFactPay",
                               "txtTemp", "txtNum", "lblLastSale"}),
                     u"|0.00|0.00|10.00|0.00|0.00|1|上一单 20261121-00001  结算 15.00  找零 35.00"_s);
            QCOMPARE(focused(), u"txtInput"_s);
            sold = true;
            key(d, Qt::Key_Escape);
        });
        w.action(u"tbrOUTSALE"_s)->trigger();
        QVERIFY(sold);
        QCOMPARE(dump(u"select ExpenseMoney, NoMoney, factpay, CashPay, Income from Outsale"_s),
                 u"200000|50000|150000|150000|-20000"_s);
        // The receipt went to its printer after the commit.
        QVERIFY(WaitForPrinting());
        QCOMPARE(count(u"select count(*) from PrintJob where SourceID='20261121-00001'"_s), 1);
        QCOMPARE(QDir(pdf).entryList(QDir::Files).size(), 1);
    }
    // A sale the database refuses keeps its lines for another try, which then stores it.
    void failed_sale_keeps_the_lines() {
        NEW_VENUE(v);
        addGoods();
        frmMain w;
        w.show();
        w.Init();
        onModal(u"frmOutSale"_s, [&](QDialog* d) {
            child<QCheckBox>(d, "chkAdd")->setChecked(true);
            keys(d, u"pj 3"_s, Qt::Key_Return);
            key(d, Qt::Key_F9);
            key(d, Qt::Key_Tab);
            keys(d, u"30"_s, Qt::Key_Tab);
            d->resize(1366, 768);
            look(*d, u"frmOutSale"_s);
            DB().exec(u"alter table OutsaleDetail rename to OutsaleDetailGone"_s);
            key(d, Qt::Key_F4);
            const QStringList said = messages();
            QCOMPARE(said.size(), 1);
            QVERIFY2(said.first().endsWith(u" in procedure SaveData of Form frmOutSale"_s),
                     qPrintable(said.first()));
            QCOMPARE(lines(d), u"啤酒 3 10.00 30.00 "_s);
            QCOMPARE(texts(d, {"txtFactPay", "txtTemp"}), u"30|0.00"_s);

            DB().exec(u"alter table OutsaleDetailGone rename to OutsaleDetail"_s);
            key(d, Qt::Key_F4);
            QVERIFY(messages().isEmpty());
            QCOMPARE(lines(d), QString());

            // From the tree: a type adds nothing, an article adds at its price.
            child<QTabWidget>(d, "ctabThis")->setCurrentIndex(1);
            auto* tree = child<QTreeWidget>(d, "tvWare");
            tree->setCurrentItem(tree->topLevelItem(0));
            key(d, Qt::Key_F5);
            QCOMPARE(lines(d), QString());
            tree->setCurrentItem(tree->topLevelItem(0)->child(0));
            QCOMPARE(tree->currentItem()->text(0), u"啤酒   (10.00)"_s);
            key(d, Qt::Key_F5);
            QCOMPARE(lines(d), u"啤酒 1 10.00 10.00 "_s);
            // Closed before paying: the line is gone without a question.
            d->reject();
        });
        w.action(u"mnuOutSale"_s)->trigger();
        QVERIFY(messages().isEmpty());
        QCOMPARE(dump(u"select ExpenseID, factpay from Outsale"_s), u"20261121-00001|300000"_s);
        QCOMPARE(dump(u"select nownum from Ware where WareID='beer'"_s), u"97"_s);
    }
};

QTEST_MAIN(TestOutSaleWindow)
#include "test_outsale_window.moc"
