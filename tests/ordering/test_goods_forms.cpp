#include "TestKit.h"
#include "frmWare.h"
#include "frmWareLevel.h"
#include "frmWareType.h"

namespace {
QLineEdit* box(QWidget& w, const char* name) {
    return child<QLineEdit>(w, name);
}

void addTypes() {
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水'), ('02', '小吃')"_s);
}

void press(QWidget& w) {
    QTest::mouseClick(child<QPushButton>(w, "cmdOK"), Qt::LeftButton);
}
} // namespace

class TestGoodsForms : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void wareStockFields_data() { // clang-format off
        QTest::addColumn<int>("stock");
        QTest::newRow("without stock management") << 0;
        QTest::newRow("with stock management") << 1; // clang-format on
    }
    void wareStockFields() {
        QFETCH(int, stock);
        NEW_VENUE(v);
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
        NEW_VENUE(v);
        addTypes();
        frmWare dlg;
        dlg.startAdd();
        showActive(dlg);
        auto* type = child<QComboBox>(dlg, "imgcmbWareType");
        QCOMPARE(texts(dlg, {"imgcmbWareType", "txtPrice"}), u"酒水|0"_s);

        press(dlg);
        QCOMPARE(messages(), QStringList{u"请输入品项名称！"_s});
        QCOMPARE(focused(), u"txtWareName"_s);
        box(dlg, "txtWareName")->insert(u"青岛啤酒 500ml"_s);
        // The mnemonic is made on entering its box, and selected so typing replaces it.
        QTest::keyClick(box(dlg, "txtWareName"), Qt::Key_Return);
        QCOMPARE(focused() + u'|' + box(dlg, "txtMnemonics")->text(), u"txtMnemonics|qdpj500ml"_s);
        QTRY_COMPARE(box(dlg, "txtMnemonics")->selectedText(), u"qdpj500ml"_s);
        QTest::keyClicks(box(dlg, "txtMnemonics"), u"QD"_s);
        // A mnemonic the user typed stays when the box is entered again; the checks of the
        // other boxes are the service's, the focus on the refused box is shown above.
        box(dlg, "txtPrice")->setFocus();
        box(dlg, "txtMnemonics")->setFocus();
        QCOMPARE(box(dlg, "txtMnemonics")->text(), u"QD"_s);
        box(dlg, "txtPrice")->setText(u"8"_s);
        box(dlg, "txtProcurePrice")->setText(u"3.2"_s);
        box(dlg, "txtTicheng")->setText(u"0.5"_s);
        box(dlg, "txtWareUnit")->setText(u"瓶"_s);
        type->setCurrentIndex(1);
        press(dlg);
        QCOMPARE(messages(), QStringList());
        QVERIFY(dlg.saved() && dlg.isVisible()); // stays open for the next article
        QCOMPARE(dump(u"select WareName, Mnemonics, WareTypeID, ProcurePrice from Ware"_s),
                 u"青岛啤酒 500ml|QD|02|32000"_s);
        // Prices go back to 0, the rest stays unless clearing is ticked; the type stays.
        QCOMPARE(texts(dlg, {"txtPrice", "txtProcurePrice", "txtTicheng", "txtWareName", "txtWareUnit",
                             "imgcmbWareType"}),
                 u"0|0|0|青岛啤酒 500ml|瓶|小吃"_s);
        QCOMPARE(focused(), u"txtWareName"_s);

        child<QCheckBox>(dlg, "chkClear")->setChecked(true);
        box(dlg, "txtPrice")->setText(u"9"_s);
        press(dlg);
        QCOMPARE(texts(dlg, {"txtWareName", "txtMnemonics", "txtWareUnit", "txtMinNum"}), u"|||"_s);
        QCOMPARE(count(u"select count(*) from Ware"_s), 2);
    }

    void wareTypeDialog() {
        NEW_VENUE(v);
        SetSetup(u"IsHC"_s, u"1"_s);
        SetSetup(u"IsBT"_s, u"-1"_s); // only exactly 1 is on
        frmWareType dlg;
        dlg.startAdd();
        showActive(dlg);
        QVERIFY(child<QCheckBox>(dlg, "chkhc")->isEnabled() && !child<QCheckBox>(dlg, "chkbt")->isEnabled());
        press(dlg);
        QCOMPARE(messages(), QStringList{u"请输入分类编号！"_s});
        QCOMPARE(focused(), u"txtWareTypeID"_s);
        box(dlg, "txtWareTypeID")->setText(u"01"_s);
        box(dlg, "txtWareTypeName")->setText(u"酒水"_s);
        child<QCheckBox>(dlg, "chkisDoDiscount")->setChecked(true);
        child<QCheckBox>(dlg, "chkhc")->setChecked(true);
        press(dlg);
        QVERIFY(dlg.saved() && dlg.result() == QDialog::Accepted);
        QCOMPARE(count(u"select isDoDiscount + 10 * isHC + 100 * isNomember from WareType"_s), 11);

        frmWareType edit;
        QVERIFY(edit.startEdit(u"01"_s));
        QVERIFY(!box(edit, "txtWareTypeID")->isEnabled());
        QVERIFY(child<QCheckBox>(edit, "chkisDoDiscount")->isChecked());
    }

    void periodEditor() {
        NEW_VENUE(v);
        frmWareLevel dlg;
        dlg.prepare(u"01"_s);
        showActive(dlg);
        auto* end1 = child<QComboBox>(dlg, "cmbEnd1");
        auto* end2 = child<QComboBox>(dlg, "cmbEnd2");
        QCOMPARE(texts(dlg, {"txtStart1", "txtDiscount3"}), u"0|1"_s);
        QCOMPARE((QList<int>{end1->count(), end2->count()}), (QList<int>{24, 0}));

        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{u"请时段名称！"_s});
        QCOMPARE(focused(), u"txtWareLevelName"_s);
        box(dlg, "txtWareLevelName")->setText(u"夜场"_s);
        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{u"请选择时段1结束时间！"_s});
        choose(end1, u"18"_s);
        QCOMPARE(texts(dlg, {"txtStart2"}) + u'|' + end2->itemText(0), u"18|19"_s);
        choose(end2, u"20"_s);
        box(dlg, "txtStart1")->setFocus();
        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{u"必须设置一个时段的结束时间为24点！"_s});
        QCOMPARE(focused(), u"cmbEnd1"_s);
        // A new first end clears the chain behind it.
        choose(end1, u"12"_s);
        QVERIFY(end2->currentIndex() == -1 && child<QComboBox>(dlg, "cmbEnd3")->count() == 0);
        choose(end2, u"24"_s);
        box(dlg, "txtDiscount2")->setText(u"0.8"_s);
        QVERIFY(dlg.cmdOK_Click());
        QCOMPARE(text(u"select theContent from s_log"_s),
                 u"修改为：0-12折扣：1，12-24折扣：0.8，24-折扣：1，-折扣：1"_s);

        frmWareLevel again;
        again.prepare(u"01"_s);
        QCOMPARE(texts(again, {"txtWareLevelName", "cmbEnd1", "cmbEnd2", "txtDiscount2", "txtDiscount1"}),
                 u"夜场|12|24|0.80|1.00"_s);
    }
};

QTEST_MAIN(TestGoodsForms)
#include "test_goods_forms.moc"
