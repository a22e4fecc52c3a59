#include "FormProbe.h"
#include "AppState.h"
#include "MessageBox.h"
#include "Settings.h"
#include "TestVenue.h"
#include "frmWare.h"
#include "frmWareLevel.h"
#include "frmWareType.h"
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {
QLineEdit* box(QWidget& w, const char* name) {
    return child<QLineEdit>(w, name);
}

QString focused() {
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}

void showAndWait(QWidget& w) {
    w.show();
    QVERIFY(QTest::qWaitForWindowActive(&w));
}

void choose(QComboBox* c, const QString& text) {
    c->setCurrentIndex(c->findText(text));
    Q_EMIT c->activated(c->currentIndex());
}

void addTypes() {
    DB().exec(QStringLiteral(
        "insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水'), ('02', '小吃')"));
}

void press(QWidget& w) {
    QTest::mouseClick(child<QPushButton>(w, "cmdOK"), Qt::LeftButton);
}
} // namespace

class TestGoodsForms : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void wareStockFields_data() {
        QTest::addColumn<int>("stock");
        QTest::newRow("without stock management") << 0;
        QTest::newRow("with stock management") << 1;
    }
    void wareStockFields() {
        QFETCH(int, stock);
        TestVenue v;
        OPEN_VENUE(v);
        App().IsUseWareHouse = stock;
        frmWare dlg;
        dlg.startAdd();
        dlg.show();
        for (const char* name : {"txtNowNum", "lblNowNum", "txtMinNum", "lblMinNum"})
            QCOMPARE(child<QWidget>(dlg, name)->isVisible(), stock == 1);
        // Receipts keep the cost while stock is managed.
        QCOMPARE(box(dlg, "txtProcurePrice")->isEnabled(), stock == 0);
        App().IsUseWareHouse = 0;
    }

    void addingArticles() {
        TestVenue v;
        OPEN_VENUE(v);
        addTypes();
        frmWare dlg;
        dlg.startAdd();
        showAndWait(dlg);
        auto* type = child<QComboBox>(dlg, "imgcmbWareType");
        QCOMPARE(type->currentText(), QStringLiteral("酒水"));
        QCOMPARE(box(dlg, "txtPrice")->text(), QStringLiteral("0"));

        press(dlg);
        QCOMPARE(messages(), QStringList{QStringLiteral("请输入品项名称！")});
        QCOMPARE(focused(), QStringLiteral("txtWareName"));
        box(dlg, "txtWareName")->insert(QStringLiteral("青岛啤酒 500ml"));
        // The mnemonic is made on entering its box, and selected so typing replaces it.
        QTest::keyClick(box(dlg, "txtWareName"), Qt::Key_Return);
        QCOMPARE(focused(), QStringLiteral("txtMnemonics"));
        QCOMPARE(box(dlg, "txtMnemonics")->text(), QStringLiteral("qdpj500ml"));
        QTRY_COMPARE(box(dlg, "txtMnemonics")->selectedText(), QStringLiteral("qdpj500ml"));
        QTest::keyClicks(box(dlg, "txtMnemonics"), QStringLiteral("QD"));
        press(dlg);
        QCOMPARE(messages(), QStringList{QStringLiteral("请输入品项单价！")});
        QCOMPARE(focused(), QStringLiteral("txtPrice"));
        // A mnemonic the user typed stays when the box is entered again.
        box(dlg, "txtMnemonics")->setFocus();
        QCOMPARE(box(dlg, "txtMnemonics")->text(), QStringLiteral("QD"));

        box(dlg, "txtPrice")->setText(QStringLiteral("8"));
        box(dlg, "txtProcurePrice")->clear();
        press(dlg);
        QCOMPARE(messages(), QStringList{QStringLiteral("品项成本只能输入数字！")});
        QCOMPARE(focused(), QStringLiteral("txtProcurePrice"));
        box(dlg, "txtProcurePrice")->setText(QStringLiteral("3.2"));
        box(dlg, "txtTicheng")->setText(QStringLiteral("0.5"));
        box(dlg, "txtWareUnit")->setText(QStringLiteral("瓶"));
        type->setCurrentIndex(1);
        press(dlg);
        QCOMPARE(messages(), QStringList());
        QVERIFY(dlg.saved());
        QVERIFY(dlg.isVisible()); // stays open for the next article
        const Row r = DB().query(QStringLiteral("select * from Ware")).first();
        QCOMPARE(r.text(QStringLiteral("WareName")), QStringLiteral("青岛啤酒 500ml"));
        QCOMPARE(r.text(QStringLiteral("Mnemonics")), QStringLiteral("QD"));
        QCOMPARE(r.text(QStringLiteral("WareTypeID")), QStringLiteral("02"));
        QCOMPARE(r.money(QStringLiteral("ProcurePrice")), Money::fromRaw(32000));
        // Prices go back to 0, the rest stays unless clearing is ticked; the type stays.
        for (const char* name : {"txtPrice", "txtProcurePrice", "txtTicheng"})
            QCOMPARE(box(dlg, name)->text(), QStringLiteral("0"));
        QCOMPARE(box(dlg, "txtWareName")->text(), QStringLiteral("青岛啤酒 500ml"));
        QCOMPARE(box(dlg, "txtWareUnit")->text(), QStringLiteral("瓶"));
        QCOMPARE(type->currentText(), QStringLiteral("小吃"));
        QCOMPARE(focused(), QStringLiteral("txtWareName"));

        child<QCheckBox>(dlg, "chkClear")->setChecked(true);
        box(dlg, "txtPrice")->setText(QStringLiteral("9"));
        press(dlg);
        for (const char* name : {"txtWareName", "txtMnemonics", "txtWareUnit", "txtMinNum"})
            QCOMPARE(box(dlg, name)->text(), QString());
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from Ware")).toInt(), 2);
    }

    void editingAnArticle() {
        TestVenue v;
        OPEN_VENUE(v);
        addTypes();
        DB().exec(QStringLiteral("insert into Ware (WareID, WareTypeID, WareName, Price, nownum) "
                                 "values ('w1', '02', '花生', 80000, 12)"));
        frmWare dlg;
        QVERIFY(dlg.startEdit(QStringLiteral("w1")));
        showAndWait(dlg);
        QCOMPARE(child<QComboBox>(dlg, "imgcmbWareType")->currentText(), QStringLiteral("小吃"));
        QVERIFY(child<QCheckBox>(dlg, "chkClear")->isHidden());
        // An empty stored mnemonic is made when its box is entered.
        box(dlg, "txtMnemonics")->setFocus();
        QCOMPARE(box(dlg, "txtMnemonics")->text(), QStringLiteral("hs"));
        box(dlg, "txtPrice")->setText(QStringLiteral("10"));
        press(dlg);
        QCOMPARE(dlg.result(), int(QDialog::Accepted)); // editing closes
        const Row r = DB().query(QStringLiteral("select * from Ware where WareID='w1'")).first();
        QCOMPARE(r.money(QStringLiteral("Price")), Money::yuan(10));
        QCOMPARE(r.text(QStringLiteral("Mnemonics")), QStringLiteral("hs"));
    }

    void wareTypeDialog() {
        TestVenue v;
        OPEN_VENUE(v);
        SetSetup(QStringLiteral("IsHC"), QStringLiteral("1"));
        SetSetup(QStringLiteral("IsBT"), QStringLiteral("-1")); // only exactly 1 is on
        frmWareType dlg;
        dlg.startAdd();
        showAndWait(dlg);
        QVERIFY(child<QCheckBox>(dlg, "chkhc")->isEnabled());
        QVERIFY(!child<QCheckBox>(dlg, "chkbt")->isEnabled());
        press(dlg);
        QCOMPARE(messages(), QStringList{QStringLiteral("请输入分类编号！")});
        QCOMPARE(focused(), QStringLiteral("txtWareTypeID"));
        box(dlg, "txtWareTypeID")->setText(QStringLiteral("01"));
        box(dlg, "txtWareTypeName")->setText(QStringLiteral("酒水"));
        child<QCheckBox>(dlg, "chkisDoDiscount")->setChecked(true);
        child<QCheckBox>(dlg, "chkhc")->setChecked(true);
        press(dlg);
        QVERIFY(dlg.saved());
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(
            DB().scalar(QStringLiteral("select isDoDiscount + 10 * isHC + 100 * isNomember from WareType"))
                .toInt(),
            11);

        // The same key again: the dialog stays with the message.
        frmWareType again;
        again.startAdd();
        showAndWait(again);
        box(again, "txtWareTypeID")->setText(QStringLiteral("01"));
        box(again, "txtWareTypeName")->setText(QStringLiteral("饮料"));
        press(again);
        const QStringList shown = messages();
        QCOMPARE(shown.size(), 1);
        QVERIFY(shown[0].startsWith(QStringLiteral("您输入的分类编号已存在，请重新输入！\n错误信息： ")));
        QVERIFY(!again.saved());
        QVERIFY(again.isVisible());

        frmWareType edit;
        QVERIFY(edit.startEdit(QStringLiteral("01")));
        QVERIFY(!box(edit, "txtWareTypeID")->isEnabled());
        QVERIFY(child<QCheckBox>(edit, "chkisDoDiscount")->isChecked());
    }

    void periodEditor() {
        TestVenue v;
        OPEN_VENUE(v);
        frmWareLevel dlg;
        dlg.prepare(QStringLiteral("01"));
        showAndWait(dlg);
        auto* end1 = child<QComboBox>(dlg, "cmbEnd1");
        auto* end2 = child<QComboBox>(dlg, "cmbEnd2");
        QCOMPARE(box(dlg, "txtStart1")->text(), QStringLiteral("0"));
        QCOMPARE(box(dlg, "txtDiscount3")->text(), QStringLiteral("1"));
        QCOMPARE(end1->count(), 24);
        QCOMPARE(end2->count(), 0);

        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{QStringLiteral("请时段名称！")});
        QCOMPARE(focused(), QStringLiteral("txtWareLevelName"));
        box(dlg, "txtWareLevelName")->setText(QStringLiteral("夜场"));
        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{QStringLiteral("请选择时段1结束时间！")});
        choose(end1, QStringLiteral("18"));
        QCOMPARE(box(dlg, "txtStart2")->text(), QStringLiteral("18"));
        QCOMPARE(end2->itemText(0), QStringLiteral("19"));
        choose(end2, QStringLiteral("20"));
        box(dlg, "txtStart1")->setFocus();
        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{QStringLiteral("必须设置一个时段的结束时间为24点！")});
        QCOMPARE(focused(), QStringLiteral("cmbEnd1"));
        // A new first end clears the chain behind it.
        choose(end1, QStringLiteral("12"));
        QCOMPARE(end2->currentIndex(), -1);
        QCOMPARE(child<QComboBox>(dlg, "cmbEnd3")->count(), 0);
        choose(end2, QStringLiteral("24"));
        box(dlg, "txtDiscount2")->setText(QStringLiteral("0.8"));
        QVERIFY(dlg.cmdOK_Click());
        QCOMPARE(DB().scalar(QStringLiteral("select theContent from s_log")).toString(),
                 QStringLiteral("修改为：0-12折扣：1，12-24折扣：0.8，24-折扣：1，-折扣：1"));

        frmWareLevel again;
        again.prepare(QStringLiteral("01"));
        QCOMPARE(box(again, "txtWareLevelName")->text(), QStringLiteral("夜场"));
        QCOMPARE(child<QComboBox>(again, "cmbEnd1")->currentText(), QStringLiteral("12"));
        QCOMPARE(child<QComboBox>(again, "cmbEnd2")->currentText(), QStringLiteral("24"));
        QCOMPARE(box(again, "txtDiscount2")->text(), QStringLiteral("0.80"));
        QCOMPARE(box(again, "txtDiscount1")->text(), QStringLiteral("1.00"));
    }
};

QTEST_MAIN(TestGoodsForms)
#include "test_goods_forms.moc"
