#include "StockView.h"
#include "SupplierService.h"
#include "TestKit.h"
#include "frmSupplier.h"
#include "frmWarehouseNum.h"

class TestStock : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void shortfall_data() { // clang-format off
        columns<double, double, QString, bool>("now", "min", "shortfall", "red");
        QTest::newRow("at the minimum") << 5.0 << 5.0 << "       0" << false;
        QTest::newRow("negative stock") << -2.0 << 5.0 << "       7" << true;
        QTest::newRow("fractions rounded to even, here only") << 2.5 << 3.0 << "       1" << true;
        QTest::newRow("beyond 16 bits") << 40000.0 << 70000.0 << "   30000" << true; // clang-format on
    }
    void shortfall() {
        auto [now, min, shortfall, red] =
            fetch<double, double, QString, bool>("now", "min", "shortfall", "red");
        const StockLine l = MakeStockLine(now, min);
        QCOMPARE(StockNumberText(l.shortfall), shortfall);
        QCOMPARE(l.red, red);
    }

    void stockWindow() {
        NEW_VENUE(v);
        DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水')"_s);
        DB().exec(u"insert into Ware (WareID, WareTypeID, WareCode, WareName, nownum, minnum) values "
                  "('w1', '01', '1', '啤酒', 3, 5), ('w2', '01', '2', '可乐', 12, 5)"_s);
        frmWarehouseNum w;
        w.LoadData();
        auto* list = child<QTreeWidget>(&w, "lvwThis");
        QCOMPARE(list->topLevelItemCount(), 2);
        for (int i = 0; i < 2; ++i) {
            const QTreeWidgetItem* it = list->topLevelItem(i);
            const bool low = it->text(0) == u"啤酒"_s;
            QCOMPARE(it->text(1) + it->text(4), low ? u"酒水       2"_s : u"酒水       0"_s);
            QCOMPARE(it->foreground(0).color() == QColor(255, 0, 0), low);
        }
    }

    // The name is required; the list is by name; a supplier with receipts stays.
    void suppliers() {
        NEW_VENUE(v);
        SupplierService s;
        SupplierInput in{{u"SupplierName"_s, u"  "_s}};
        QCOMPARE(s.save({}, in).refusal->field, u"txtSupplierName"_s);
        in[u"SupplierName"_s] = u"青岛啤酒 O'Brien"_s;
        in[u"tax"_s] = u"0532-1234567"_s;
        const QString beer = s.save({}, in).id;
        in[u"SupplierName"_s] = u"可口可乐"_s;
        const QString cola = s.save({}, in).id;
        QVERIFY(!beer.isEmpty() && !cola.isEmpty());
        QCOMPARE(s.load(beer)->value(u"tax"_s), u"0532-1234567"_s);
        QCOMPARE(s.list().count(), 2);

        DB().exec(
            u"insert into WareIn (wareInID, InTime, SupplierID) values ('in1', '2026-11-21 10:00', ?)"_s,
            {beer});
        bool removed = false;
        QCOMPARE(s.remove(beer, &removed)->message, u"不能删除此数据，因为已有此供应商的进货数据！"_s);
        QVERIFY(!removed);
        QVERIFY(!s.remove(cola, &removed) && removed);
        // Changing a supplier deleted meanwhile saves nothing.
        QVERIFY(s.save(cola, in).id.isEmpty());
        QCOMPARE(count(u"select count(*) from Supplier"_s), 1);

        // The dialog: the name is asked for, the rest saved as typed.
        frmSupplier dlg;
        QVERIFY(dlg.prepare({}));
        QCOMPARE(child<QLineEdit>(&dlg, "txtWeb")->text(), u"http://"_s);
        dlg.show();
        dlg.SaveData();
        QCOMPARE(messages(), QStringList{u"请输入供应商名称！"_s});
        QCOMPARE(dlg.focusWidget()->objectName(), u"txtSupplierName"_s);
        child<QLineEdit>(&dlg, "txtSupplierName")->setText(u"百威"_s);
        dlg.SaveData();
        QVERIFY(dlg.saved());
        QCOMPARE(text(u"select WEb from Supplier where SupplierName='百威'"_s), u"http://"_s);
    }
};

QTEST_MAIN(TestStock)
#include "test_stock.moc"
