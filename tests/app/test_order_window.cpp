#include "FormProbe.h"
#include "Ini.h"
#include "MessageBox.h"
#include "OrderPrinting.h"
#include "RoomBoard.h"
#include "Settings.h"
#include "ModalDriver.h"
#include "TestVenue.h"
#include "frmExpenseDetail.h"
#include "frmMain.h"
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <functional>

namespace {
// Room A01; drinks and snacks, stock 10 each; one employee in service, one away.
void addVenue() {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values "
                             "('a', '小包', '00000000000000001')"));
    DB().exec(
        QStringLiteral("insert into The (TheID, TheCode, AssortID, State) values ('r1', 'A01', 'a', 0)"));
    DB().exec(QStringLiteral(
        "insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水'), ('02', '小吃')"));
    DB().exec(QStringLiteral(
        "insert into Ware (WareID, WareTypeID, WareCode, WareName, Mnemonics, Price, ProcurePrice, tiCheng, "
        "nownum) values ('beer', '01', 'A1', '啤酒', 'pj', 100000, 40000, 15000, 10), "
        "('juice', '01', 'A2', '冬瓜茶', 'dk', 33300, 10000, 0, 10), "
        "('nuts', '02', 'B1', '花生', 'hs', 80000, 20000, 5000, 10)"));
    DB().exec(QStringLiteral("insert into Employee (EmployeeID, Employeecode, EmployeeName, State) values "
                             "('e1', '01', '小王', 0), ('e2', '02', '老李', 1)"));
}

// Runs `act` on the modal dialog of that name once it is up and active (its F-keys work
// from then on), while the caller sits in exec(). A dialog a failed check leaves open is
// The item of a list (or the child of a tree node) showing `text` in `column`.
QTreeWidgetItem* item(QTreeWidget* list, const QString& text, int column = 0,
                      QTreeWidgetItem* parent = nullptr) {
    const int n = parent ? parent->childCount() : list->topLevelItemCount();
    for (int i = 0; i < n; ++i) {
        QTreeWidgetItem* it = parent ? parent->child(i) : list->topLevelItem(i);
        if (it->text(column) == text) return it;
    }
    qFatal("no item %s", qPrintable(text));
    return nullptr;
}

QString focused(QWidget* d) {
    return d->focusWidget() ? d->focusWidget()->objectName() : QString();
}

QStringList g_printed;
class RecordedPrinting : public OrderPrinting {
  public:
    void PrintThis(const OrderBatch& b, bool slip) override {
        g_printed << QStringList{b.expenseID, b.thisCode, b.theCode, b.thisSum,
                                 slip ? QStringLiteral("slip") : QStringLiteral("-")}
                         .join(QLatin1Char('|'));
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
    void order_from_the_board();
    void gift_right_keys_and_settings();
};

// Open A01 and go straight on to ordering: by list, by tree and by mnemonic, a gift, a note
// and a void; then the lines, the stock, the board and the tickets.
void TestOrderWindow::order_from_the_board() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    SetSetup(QStringLiteral("IsUseWareHouse"), QStringLiteral("1"));
    frmMain w;
    w.show();
    w.Init();
    QVERIFY(w.board()->selectRoom(QStringLiteral("r1")));

    bool ordered = false;
    onModal(QStringLiteral("frmOpenHouse"), [](QDialog* d) { child<QPushButton>(d, "cmdExpense")->click(); });
    onModal(QStringLiteral("frmExpenseDetail"), [&](QDialog* d) {
        auto* lvwWare = child<QTreeWidget>(d, "lvwWare");
        auto* tvWare = child<QTreeWidget>(d, "tvWare");
        auto* lvwDetail = child<QTreeWidget>(d, "lvwDetail");
        auto* txtInput = child<QLineEdit>(d, "txtInput");
        auto* cmbSteward = child<QComboBox>(d, "cmbSteward");
        QCOMPARE(child<QLabel>(d, "lblTheCode")->text(), QStringLiteral("包厢号: A01"));
        QCOMPARE(cmbSteward->count(), 2);
        QCOMPARE(item(lvwWare, QStringLiteral("dk"))->text(2), QStringLiteral("3.33"));
        QTreeWidgetItem* snacks = item(tvWare, QStringLiteral("小吃"));
        QCOMPARE(snacks->child(0)->text(0), QStringLiteral("花生   8.00   提 0.50"));
        // Enter on nothing moves on and writes nothing.
        QCOMPARE(focused(d), QStringLiteral("txtInput"));
        QTest::keyClick(txtInput, Qt::Key_Return);
        QCOMPARE(focused(d), QStringLiteral("txtNum"));

        // From the list: two beers credited to 小王.
        lvwWare->setCurrentItem(item(lvwWare, QStringLiteral("pj")));
        child<QLineEdit>(d, "txtNum")->setText(QStringLiteral("2"));
        cmbSteward->setCurrentIndex(1);
        child<QPushButton>(d, "cmdAdd")->click();
        QCOMPARE(lvwDetail->topLevelItem(0)->text(4), QStringLiteral("小王"));
        QCOMPARE(child<QLineEdit>(d, "txtNum")->text() + cmbSteward->currentText(), QStringLiteral("1"));
        QCOMPARE(focused(d), QStringLiteral("txtInput"));

        // From the tree with F5; a type node orders nothing.
        child<QTabWidget>(d, "ctabThis")->setCurrentIndex(1);
        tvWare->setCurrentItem(snacks);
        QTest::keyClick(tvWare, Qt::Key_F5);
        tvWare->setCurrentItem(snacks->child(0));
        QTest::keyClick(tvWare, Qt::Key_F5);
        QCOMPARE(lvwDetail->topLevelItemCount(), 2);

        // By mnemonic, added at once; 1.5 shows as 2. An unknown one is told.
        child<QCheckBox>(d, "chkAdd")->setChecked(true);
        for (const char* typed : {"dk 2", "DK 1.5", "xx"}) {
            txtInput->setText(QLatin1String(typed));
            QTest::keyClick(txtInput, Qt::Key_Return);
        }
        QCOMPARE(messages(), QStringList{QStringLiteral("没找到助记符为“xx”的商品或服务！")});
        QCOMPARE(child<QTabWidget>(d, "ctabThis")->currentIndex(), 0);
        QCOMPARE(lvwDetail->topLevelItem(3)->text(1) + QLatin1Char(' ') + lvwDetail->topLevelItem(3)->text(3),
                 QStringLiteral("2 5.00"));

        // A gift, ticked with the mouse; asked, and the box stays ticked.
        auto* chkFree = child<QCheckBox>(d, "chkFree");
        QTest::mouseClick(chkFree, Qt::LeftButton, {}, QPoint(8, chkFree->height() / 2));
        txtInput->setText(QStringLiteral("pj"));
        QTest::keyClick(txtInput, Qt::Key_Return);
        QCOMPARE(messages(), QStringList{QStringLiteral("请确认是否赠送商品？")});
        QCOMPARE(lvwDetail->topLevelItem(4)->text(3), QStringLiteral("0.00"));
        QVERIFY(chkFree->isChecked());
        QCOMPARE(child<QLabel>(d, "lblThisSum")->text(), QStringLiteral("本次消费: ￥39.66"));

        // A note on the first line; with no line chosen, the reminder.
        lvwDetail->setCurrentItem(lvwDetail->topLevelItem(0));
        onModal(QStringLiteral("frmExpenseDetailInfo"), [](QDialog* n) {
            child<QComboBox>(n, "cmbInfo")->setEditText(QStringLiteral("少冰 'x'"));
            child<QPushButton>(n, "OKButton")->click();
        });
        child<QPushButton>(d, "cmdDescription")->click();
        lvwDetail->clearSelection();
        child<QPushButton>(d, "cmdDescription")->click();
        QCOMPARE(messages(), QStringList{QStringLiteral("请先选择消费项目！")});

        // Void the 1.5: Delete asks and Cancel keeps it; OK voids it.
        lvwDetail->setCurrentItem(lvwDetail->topLevelItem(3));
        QTest::keyClick(lvwDetail, Qt::Key_Delete);
        QCOMPARE(lvwDetail->topLevelItemCount(), 5);
        Msg::setNextAnswer(QMessageBox::Ok);
        child<QPushButton>(d, "cmdDel")->click();
        QCOMPARE(messages(), QStringList(2, QStringLiteral("您真要删除这个数据吗？")));
        QCOMPARE(lvwDetail->topLevelItemCount(), 4);
        QCOMPARE(lvwDetail->currentItem(), lvwDetail->topLevelItem(0));
        QCOMPARE(child<QLabel>(d, "lblThisSum")->text(), QStringLiteral("本次消费: ￥34.66"));
        ordered = true;
        child<QPushButton>(d, "cmdClose")->click();
    });
    w.action(QStringLiteral("mnuOpOpen"))->trigger();
    QVERIFY(ordered);

    const QString bill = w.board()->selectedTag();
    QStringList got;
    for (const Row r : DB().query(
             QStringLiteral("select * from ExpenseDetail where ExpenseID=? order by WareID, num"), {bill}))
        got << QStringList{r.text(QStringLiteral("WareID")),
                           QString::number(r.num(QStringLiteral("num"))),
                           r.money(QStringLiteral("oughtMoney")).toString2(),
                           r.text(QStringLiteral("isFree")),
                           r.text(QStringLiteral("isdel")),
                           r.text(QStringLiteral("Description"))}
                   .join(QLatin1Char(' '));
    QCOMPARE(got,
             QStringList({QStringLiteral("beer 1 0.00 1 0 "), QStringLiteral("beer 2 20.00 0 0 少冰 'x'"),
                          QStringLiteral("juice 1.5 5.00 0 1 "), QStringLiteral("juice 2 6.66 0 0 "),
                          QStringLiteral("nuts 1 8.00 0 0 ")}));
    QStringList stock;
    for (const Row r : DB().query(QStringLiteral("select nownum from Ware order by WareID")))
        stock << QString::number(r.num(QStringLiteral("nownum")));
    QCOMPARE(stock.join(QLatin1Char(' ')), QStringLiteral("7 8.5 9")); // the void gave back 2, as shown

    // The batch went to the printers once, as the window closed; the board shows its lines.
    const QString thisCode =
        DB().scalar(QStringLiteral("select min(ThisCode) from ExpenseDetail where ExpenseID=?"), {bill})
            .toString();
    QCOMPARE(g_printed, QStringList{bill + QStringLiteral("|") + thisCode + QStringLiteral("|A01|34.66|-")});
    QCOMPARE(w.board()->detailList()->topLevelItemCount(), 4);
    QCOMPARE(child<QLabel>(&w, "lblExpenseMoney")->text(), QStringLiteral("￥34.66"));

    // Again from the toolbar: the lines loaded, the gift in blue; nothing new prints.
    onModal(QStringLiteral("frmExpenseDetail"), [](QDialog* d) {
        auto* lvwDetail = child<QTreeWidget>(d, "lvwDetail");
        QCOMPARE(item(lvwDetail, QStringLiteral("0.00"), 3)->foreground(0).color(), QColor(0, 0, 255));
        QCOMPARE(child<QLabel>(d, "lblThisSum")->text(), QStringLiteral("本次消费: ￥0.00"));
    });
    w.action(QStringLiteral("tbrEXPENSE"))->trigger();
    QCOMPARE(g_printed.size(), 1);
    QCOMPARE(messages(), QStringList());
}

// The gift box's right on the mouse, the F-keys, the two remembered boxes and the quick add
// of an article; a window closed without an order prints nothing.
void TestOrderWindow::gift_right_keys_and_settings() {
    TestVenue v;
    OPEN_VENUE(v);
    addVenue();
    DB().exec(
        QStringLiteral("update Puissance set isHave=0 where OperatorID='qa042' and SysPuissanceID='D020'"));
    DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, OpenTime, State) values "
                             "('b1', 'r1', '2026-11-21 19:00', 1)"));
    frmExpenseDetail d;
    d.Init(QStringLiteral("b1"));
    d.show();
    QVERIFY(QTest::qWaitForWindowActive(&d));
    auto* chkFree = child<QCheckBox>(&d, "chkFree");
    QTest::mouseClick(chkFree, Qt::LeftButton, {}, QPoint(8, chkFree->height() / 2));
    QCOMPARE(messages(), QStringList{QStringLiteral("您没有操作此项业务的权限！")});
    QVERIFY(!chkFree->isChecked());
    // From the keyboard the box is not guarded.
    QTest::keyClick(chkFree, Qt::Key_Space);
    QVERIFY(chkFree->isChecked());
    QCOMPARE(messages(), QStringList());
    chkFree->setChecked(false);

    for (const auto& [key, box] : {std::pair{Qt::Key_F3, "cmbSteward"}, std::pair{Qt::Key_F4, "txtNum"},
                                   std::pair{Qt::Key_F2, "txtInput"}}) {
        QTest::keyClick(d.focusWidget(), key);
        QCOMPARE(focused(&d), QLatin1String(box));
    }
    child<QCheckBox>(&d, "chkPrintThis")->click();
    child<QCheckBox>(&d, "chkAdd")->click();
    QCOMPARE(GetSetup(QStringLiteral("IsPrintThis")) + GetIni(QStringLiteral("IsAutoAddMode")),
             QStringLiteral("11"));

    // A new article from the window is listed at once.
    onModal(QStringLiteral("frmWare"), [](QDialog* w) {
        child<QLineEdit>(w, "txtWareName")->setText(QStringLiteral("薯条"));
        child<QLineEdit>(w, "txtMnemonics")->setText(QStringLiteral("st"));
        child<QLineEdit>(w, "txtPrice")->setText(QStringLiteral("12"));
        child<QPushButton>(w, "cmdOK")->click();
    });
    child<QPushButton>(&d, "cmdWareAdd")->click();
    QCOMPARE(child<QTreeWidget>(&d, "lvwWare")->topLevelItemCount(), 4);
    QCOMPARE(focused(&d), QStringLiteral("txtInput"));

    d.reject();
    QVERIFY(g_printed.isEmpty());

    frmExpenseDetail again;
    again.Init(QStringLiteral("b1"));
    QVERIFY(child<QCheckBox>(&again, "chkPrintThis")->isChecked() &&
            child<QCheckBox>(&again, "chkAdd")->isChecked());
}

QTEST_MAIN(TestOrderWindow)
#include "test_order_window.moc"
