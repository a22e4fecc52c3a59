#include "OrderPrinting.h"
#include "RoomBoard.h"
#include "TestKit.h"
#include "frmExpenseDetail.h"
#include "frmMain.h"

namespace {
// Room A01; drinks and snacks, stock 10 each; one employee in service, one away.
void addVenue() {
    addRoomType(u"a"_s, u"小包"_s);
    addRoom(u"r1"_s, u"A01"_s, u"a"_s);
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水'), ('02', '小吃')"_s);
    DB().exec(
        u"insert into Ware (WareID, WareTypeID, WareCode, WareName, Mnemonics, Price, ProcurePrice, tiCheng, "
        "nownum) values ('beer', '01', 'A1', '啤酒', 'pj', 100000, 40000, 15000, 10), "
        "('juice', '01', 'A2', '冬瓜茶', 'dk', 33300, 10000, 0, 10), "
        "('nuts', '02', 'B1', '花生', 'hs', 80000, 20000, 5000, 10)"_s);
    DB().exec(u"insert into Employee (EmployeeID, Employeecode, EmployeeName, State) values "
              "('e1', '01', '小王', 0), ('e2', '02', '老李', 1)"_s);
}

// The top-level item of a list showing `text` in `column`.
QTreeWidgetItem* item(QTreeWidget* list, const QString& text, int column = 0) {
    const QList<QTreeWidgetItem*> found = list->findItems(text, Qt::MatchExactly, column);
    if (found.isEmpty()) qFatal("no item %s", qPrintable(text));
    return found.first();
}

QStringList g_printed;
class RecordedPrinting : public OrderPrinting {
  public:
    void PrintThis(const OrderBatch& b, bool slip) override {
        g_printed << QStringList{b.expenseID, b.thisCode, b.theCode, b.thisSum, slip ? u"slip"_s : u"-"_s}
                         .join(u'|');
    }
};
} // namespace

class TestOrderWindow : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void init() {
        g_printed.clear();
        OrderPrinting::install(std::make_unique<RecordedPrinting>());
    }
    void cleanup() { OrderPrinting::install(nullptr); }
    // Open A01 and go straight on to ordering: by list, by tree and by mnemonic, a gift, a note
    // and a void; then the lines, the stock, the board and the tickets.
    void order_from_the_board() {
        NEW_VENUE(v);
        addVenue();
        SetSetup(u"IsUseWareHouse"_s, u"1"_s);
        frmMain w;
        w.show();
        w.Init();
        QVERIFY(w.board()->selectRoom(u"r1"_s));

        onModal(u"frmOpenHouse"_s, [](QDialog* d) { child<QPushButton>(d, "cmdExpense")->click(); });
        onModal(u"frmExpenseDetail"_s, [&](QDialog* d) {
            auto* lvwWare = child<QTreeWidget>(d, "lvwWare");
            auto* tvWare = child<QTreeWidget>(d, "tvWare");
            auto* lvwDetail = child<QTreeWidget>(d, "lvwDetail");
            auto* txtInput = child<QLineEdit>(d, "txtInput");
            auto* cmbSteward = child<QComboBox>(d, "cmbSteward");
            QCOMPARE(texts(d, {"lblTheCode"}), u"包厢号: A01"_s);
            QCOMPARE(cmbSteward->count(), 2);
            QTreeWidgetItem* snacks = item(tvWare, u"小吃"_s);
            QCOMPARE(snacks->child(0)->text(0), u"花生   8.00   提 0.50"_s);
            // Enter on nothing moves on and writes nothing.
            QCOMPARE(focused(), u"txtInput"_s);
            QTest::keyClick(txtInput, Qt::Key_Return);
            QCOMPARE(focused(), u"txtNum"_s);

            // From the list: two beers credited to 小王.
            lvwWare->setCurrentItem(item(lvwWare, u"pj"_s));
            child<QLineEdit>(d, "txtNum")->setText(u"2"_s);
            cmbSteward->setCurrentIndex(1);
            child<QPushButton>(d, "cmdAdd")->click();
            QCOMPARE(lvwDetail->topLevelItem(0)->text(4), u"小王"_s);
            QCOMPARE(child<QLineEdit>(d, "txtNum")->text() + cmbSteward->currentText(), u"1"_s);
            QCOMPARE(focused(), u"txtInput"_s);

            // From the tree with F5; a type node orders nothing (the stored lines below).
            child<QTabWidget>(d, "ctabThis")->setCurrentIndex(1);
            tvWare->setCurrentItem(snacks);
            QTest::keyClick(tvWare, Qt::Key_F5);
            tvWare->setCurrentItem(snacks->child(0));
            QTest::keyClick(tvWare, Qt::Key_F5);

            // By mnemonic, added at once; 1.5 shows as 2. An unknown one is told.
            child<QCheckBox>(d, "chkAdd")->setChecked(true);
            for (const char* typed : {"dk 2", "DK 1.5", "xx"}) {
                txtInput->setText(QLatin1String(typed));
                QTest::keyClick(txtInput, Qt::Key_Return);
            }
            QCOMPARE(messages(), QStringList{u"没找到助记符为“xx”的商品或服务！"_s});
            QCOMPARE(child<QTabWidget>(d, "ctabThis")->currentIndex(), 0);
            QCOMPARE(lvwDetail->topLevelItem(3)->text(1) + u' ' + lvwDetail->topLevelItem(3)->text(3),
                     u"2 5.00"_s);

            // A gift, ticked with the mouse; asked, and the box stays ticked.
            auto* chkFree = child<QCheckBox>(d, "chkFree");
            QTest::mouseClick(chkFree, Qt::LeftButton, {}, QPoint(8, chkFree->height() / 2));
            txtInput->setText(u"pj"_s);
            QTest::keyClick(txtInput, Qt::Key_Return);
            QCOMPARE(messages(), QStringList{u"请确认是否赠送商品？"_s});
            QVERIFY(chkFree->isChecked());
            QCOMPARE(child<QLabel>(d, "lblThisSum")->text(), u"本次消费: ￥39.66"_s);

            // A note on the first line; with no line chosen, the reminder.
            lvwDetail->setCurrentItem(lvwDetail->topLevelItem(0));
            onModal(u"frmExpenseDetailInfo"_s, [](QDialog* n) {
                child<QComboBox>(n, "cmbInfo")->setEditText(u"少冰 'x'"_s);
                child<QPushButton>(n, "OKButton")->click();
            });
            child<QPushButton>(d, "cmdDescription")->click();
            lvwDetail->clearSelection();
            child<QPushButton>(d, "cmdDescription")->click();
            QCOMPARE(messages(), QStringList{u"请先选择消费项目！"_s});

            // Void the 1.5: Delete asks and Cancel keeps it; OK voids it.
            lvwDetail->setCurrentItem(lvwDetail->topLevelItem(3));
            QTest::keyClick(lvwDetail, Qt::Key_Delete);
            QCOMPARE(lvwDetail->topLevelItemCount(), 5);
            Msg::setNextAnswer(QMessageBox::Ok);
            child<QPushButton>(d, "cmdDel")->click();
            QCOMPARE(messages(), QStringList(2, u"您真要删除这个数据吗？"_s));
            QCOMPARE(lvwDetail->currentItem(), lvwDetail->topLevelItem(0));
            QCOMPARE(child<QLabel>(d, "lblThisSum")->text(), u"本次消费: ￥34.66"_s);
            child<QPushButton>(d, "cmdClose")->click();
        });
        w.action(u"mnuOpOpen"_s)->trigger();

        const QString bill = w.board()->selectedTag();
        QCOMPARE(dump(u"select WareID, num, oughtMoney, isFree, isdel, Description from ExpenseDetail "
                      "where ExpenseID=? order by WareID, num"_s,
                      {bill})
                     .split(u'\n'),
                 QStringList({u"beer|1|0|1|0|"_s, u"beer|2|200000|0|0|少冰 'x'"_s, u"juice|1.5|49950|0|1|"_s,
                              u"juice|2|66600|0|0|"_s, u"nuts|1|80000|0|0|"_s}));
        // The void gave back the 2 the line showed, not the 1.5 typed.
        QCOMPARE(dump(u"select nownum from Ware order by WareID"_s), u"7\n8.5\n9"_s);

        // The batch went to the printers once, as the window closed; the board shows its total.
        const QString thisCode = text(u"select min(ThisCode) from ExpenseDetail where ExpenseID=?"_s, {bill});
        QCOMPARE(g_printed, QStringList{bill + u"|"_s + thisCode + u"|A01|34.66|-"_s});
        QCOMPARE(texts(w, {"lblExpenseMoney"}), u"￥34.66"_s);

        // Again from the toolbar: the lines loaded, the gift in blue; nothing new prints.
        onModal(u"frmExpenseDetail"_s, [](QDialog* d) {
            auto* lvwDetail = child<QTreeWidget>(d, "lvwDetail");
            QCOMPARE(item(lvwDetail, u"0.00"_s, 3)->foreground(0).color(), QColor(0, 0, 255));
            QCOMPARE(child<QLabel>(d, "lblThisSum")->text(), u"本次消费: ￥0.00"_s);
        });
        w.action(u"tbrEXPENSE"_s)->trigger();
        QCOMPARE(g_printed.size(), 1);
        QCOMPARE(messages(), QStringList());
    }
    // The gift box's right on the mouse, the F-keys, the two remembered boxes and the quick add
    // of an article; a window closed without an order prints nothing.
    void gift_right_keys_and_settings() {
        NEW_VENUE(v);
        addVenue();
        DB().exec(u"update Puissance set isHave=0 where OperatorID='qa042' and SysPuissanceID='D020'"_s);
        DB().exec(u"insert into Expense (ExpenseID, TheID, OpenTime, State) values "
                  "('b1', 'r1', '2026-11-21 19:00', 1)"_s);
        frmExpenseDetail d;
        d.Init(u"b1"_s);
        d.show();
        QVERIFY(QTest::qWaitForWindowActive(&d));
        auto* chkFree = child<QCheckBox>(&d, "chkFree");
        QTest::mouseClick(chkFree, Qt::LeftButton, {}, QPoint(8, chkFree->height() / 2));
        QCOMPARE(messages(), QStringList{u"您没有操作此项业务的权限！"_s});
        QVERIFY(!chkFree->isChecked());
        // From the keyboard the box is not guarded.
        QTest::keyClick(chkFree, Qt::Key_Space);
        QVERIFY(chkFree->isChecked());
        QCOMPARE(messages(), QStringList());

        for (const auto& [key, box] : {std::pair{Qt::Key_F3, "cmbSteward"}, std::pair{Qt::Key_F4, "txtNum"},
                                       std::pair{Qt::Key_F2, "txtInput"}}) {
            QTest::keyClick(d.focusWidget(), key);
            QCOMPARE(focused(), QLatin1String(box));
        }
        child<QCheckBox>(&d, "chkPrintThis")->click();
        child<QCheckBox>(&d, "chkAdd")->click();
        QCOMPARE(GetSetup(u"IsPrintThis"_s) + GetIni(u"IsAutoAddMode"_s), u"11"_s);

        // A new article from the window is listed at once.
        onModal(u"frmWare"_s, [](QDialog* w) {
            child<QLineEdit>(w, "txtWareName")->setText(u"薯条"_s);
            child<QLineEdit>(w, "txtMnemonics")->setText(u"st"_s);
            child<QLineEdit>(w, "txtPrice")->setText(u"12"_s);
            child<QPushButton>(w, "cmdOK")->click();
        });
        child<QPushButton>(&d, "cmdWareAdd")->click();
        QCOMPARE(child<QTreeWidget>(&d, "lvwWare")->topLevelItemCount(), 4);
        QCOMPARE(d.focusWidget()->objectName(), u"txtInput"_s);

        d.reject();
        QVERIFY(g_printed.isEmpty());

        frmExpenseDetail again;
        again.Init(u"b1"_s);
        QVERIFY(child<QCheckBox>(&again, "chkPrintThis")->isChecked() &&
                child<QCheckBox>(&again, "chkAdd")->isChecked());
    }
};

QTEST_MAIN(TestOrderWindow)
#include "test_order_window.moc"
