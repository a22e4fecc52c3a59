#include "TestKit.h"
#include "frmOption.h"

namespace {
void signInWithout(const QString& code) {
    DB().exec(
        u"insert into Operator (OperatorID, LoginName, operatorname, State) values ('o1', 'c', '收银员', 0)"_s);
    DB().exec(
        u"insert into Puissance (OperatorID, SysPuissanceID, isHave) select 'o1', SysPuissanceID, 1 from "
        "SysPuissance where SysPuissanceID<>?"_s,
        {code});
    App().CurrentOperatorID = u"o1"_s;
    App().CurrentOperatorName = u"收银员"_s;
}
void addGoods() {
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName, isDoDiscount) values ('01', '酒水', 1), "
              "('02', '小吃', 0)"_s);
    DB().exec(u"insert into Ware (WareID, WareTypeID, WareName, Price) values ('w1', '01', '啤酒', 100000), "
              "('w2', '01', '红酒', 1880000), ('w3', '02', '花生', 80000)"_s);
}

// The goods a list shows, by name.
QStringList names(QTreeWidget* list) {
    QStringList out = column(list, u"WareName"_s);
    out.sort();
    return out;
}
void selectType(QTreeWidget* types, const QString& id) {
    types->setCurrentItem(types->findItems(id, Qt::MatchExactly).value(0));
}
} // namespace

class TestOption : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // The tariff, room type and room lists; a tariff or type in use stays.
    void roomPages() {
        NEW_VENUE(v);
        addRoomType(u"a"_s, u"豪华包"_s);
        addRoom(u"t1"_s, u"V01"_s, u"a"_s, 4, u"2026-11-21 20:00"_s);
        addRoom(u"t2"_s, u"V02"_s, u"a"_s, 4, u"2026-11-21 19:59"_s);
        frmOption w;
        auto* tariffs = child<QTreeWidget>(w, "lvwPayLevel");
        auto* types = child<QTreeWidget>(w, "lvwHouseAssort");
        QCOMPARE(tariffs->topLevelItemCount(), 1);
        QCOMPARE(tariffs->topLevelItem(0)->text(0) + u'|' + tariffs->topLevelItem(0)->text(5) + u'|' +
                     types->topLevelItem(0)->text(1),
                 u"标准计费|18-24点 买断价格:300元 计时价格:120|标准计费"_s);
        auto* rooms = child<QTreeWidget>(w, "lvwHouse");
        rooms->sortByColumn(0, Qt::AscendingOrder);
        // A lock runs out by itself: V01 still locked this minute, V02 free.
        QCOMPARE(rooms->topLevelItem(0)->text(2) + rooms->topLevelItem(1)->text(2), u"锁定空闲"_s);

        tariffs->setCurrentItem(tariffs->topLevelItem(0));
        types->setCurrentItem(types->topLevelItem(0));
        w.cmdPayLevelDel_Click();
        w.cmdHouseAssortDel_Click();
        QCOMPARE(messages(),
                 (QStringList{u"不能删除此数据，因为它已经使用！"_s, u"不能删除此数据，因为它已经使用！"_s}));
        for (int i = 0; i < 2; ++i) {
            rooms->setCurrentItem(rooms->topLevelItem(0));
            w.cmdHouseDel_Click();
        }
        QCOMPARE(messages(), QStringList());
        QCOMPARE(rooms->topLevelItemCount(), 0);
        w.cmdHouseAssortDel_Click();
        QCOMPARE(types->topLevelItemCount(), 0);
        QCOMPARE(count(u"select count(*) from PayLevel"_s), 1);
    }

    void rulesAndCheckoutSettings() {
        NEW_VENUE(v);
        frmOption w;
        child<QLineEdit>(w, "txtAllDiscount")->setText(u"九折"_s);
        w.cmdAllDiscount_Click();
        QCOMPARE(messages(), QStringList{u"折扣比率只能输入数字，请输入正确的折扣比率！"_s});
        QCOMPARE(GetSetup(u"IsAllDiscount"_s), u"0"_s);
        child<QLineEdit>(w, "txtAllDiscount")->setText(u"0.9"_s);
        child<QCheckBox>(w, "ChkAllDiscount")->setChecked(true);
        child<QRadioButton>(w, "optPayMoneyFormat2")->setChecked(true);
        w.cmdAllDiscount_Click();
        QCOMPARE(messages(), QStringList());
        QCOMPARE(GetSetup(u"PayMoneyFormat"_s) + u'|' + GetSetup(u"IsAllDiscount"_s), u"2|1"_s);
        QCOMPARE(App().IsAllDiscount, 1);
        QCOMPARE(float(App().AllDiscount), 0.9f);
        QCOMPARE(text(u"select theContent from s_log where theDoName=?"_s, {u"商品及服务设置"_s}),
                 u"启用全场折扣为：0.9"_s);
        child<QCheckBox>(w, "chkAllowHigh2Low")->setChecked(true);
        w.cmdAllowLow2High_Click();
        QCOMPARE(GetSetup(u"AllowHigh2Low"_s), u"1"_s);
        QCOMPARE(count(u"select count(*) from s_log where theContent=?"_s,
                       {u"设置允许顾客由高费率包厢换到低费率包厢。"_s}),
                 1);
        // Shown again as stored; the checkout settings need no C001, which the rules above do
        // (see the rights sweep).
        signInWithout(u"C001"_s);
        frmOption again;
        QCOMPARE(child<QLineEdit>(again, "txtAllDiscount")->text(), u"0.90"_s);
        QVERIFY(child<QRadioButton>(again, "optPayMoneyFormat2")->isChecked());
        child<QComboBox>(again, "cmbCloseHouseCur")->setCurrentIndex(1);
        child<QLineEdit>(again, "txtLockTime")->setText(u"15.9分钟"_s);
        again.cmdSaveCZ_Click();
        QCOMPARE(messages(), QStringList());
        QCOMPARE(GetSetup(u"HClose"_s) + u'|' + GetSetup(u"LockTime"_s), u"1|15"_s);
        QCOMPARE(App().LockTime, 15);
    }

    void goodsPage() {
        NEW_VENUE(v);
        addGoods();
        frmOption w;
        auto* types = child<QTreeWidget>(w, "lvwWareType");
        auto* goods = child<QTreeWidget>(w, "lvwWare");
        QCOMPARE(types->topLevelItemCount(), 2);
        QCOMPARE(types->topLevelItem(0)->text(2), u"是"_s);
        QCOMPARE(names(goods), (QStringList{u"啤酒"_s, u"红酒"_s, u"花生"_s}));
        // The goods of the chosen type only.
        selectType(types, u"02"_s);
        QCOMPARE(names(goods), QStringList{u"花生"_s});
        // A type with goods stays; deleting an article takes it off the list.
        w.cmdWareTypeDel_Click();
        QCOMPARE(messages(), QStringList{u"不能删除此数据，因为它已经使用！"_s});
        QCOMPARE(types->topLevelItemCount(), 2);
        goods->setCurrentItem(goods->topLevelItem(0));
        w.cmdWareDel_Click();
        QCOMPARE(goods->topLevelItemCount(), 0);
        DB().exec(
            u"insert into Ware (WareID, WareTypeID, WareName, Price) values ('w4', '02', '瓜子', 50000)"_s);
        w.cmdRefresh_Click();
        QCOMPARE(names(goods), QStringList{u"瓜子"_s});
        DB().exec(u"delete from Ware where WareID='w4'"_s);
        w.cmdWareTypeDel_Click();
        QCOMPARE(messages(), QStringList());
        QCOMPARE(types->topLevelItemCount(), 1);
        QCOMPARE(count(u"select count(*) from WareType"_s), 1);
        // With no type chosen the list holds every article again.
        QCOMPARE(names(goods), (QStringList{u"啤酒"_s, u"红酒"_s}));

        selectType(types, u"01"_s);
        auto periods = [](QDialog* d) {
            child<QLineEdit>(d, "txtWareLevelName")->setText(u"全天"_s);
            choose(child<QComboBox>(d, "cmbEnd1"), u"24"_s);
            child<QPushButton>(d, "cmdOK")->click();
        };
        onModal(u"frmWareLevel"_s, periods);
        w.cmdWareLevel_Click();
        onModal(u"frmWareLevel"_s, periods);
        w.Command1_Click();
        QCOMPARE(count(u"select count(*) from WareLevel where WareLevelID in ('01', 'The')"_s), 2);

        // A new article shows in the list of the chosen type at once.
        onModal(u"frmWare"_s, [](QDialog* d) {
            child<QLineEdit>(d, "txtWareName")->setText(u"黑啤"_s);
            child<QLineEdit>(d, "txtPrice")->setText(u"15"_s);
            child<QPushButton>(d, "cmdOK")->click();
        });
        w.cmdWareAdd_Click();
        QCOMPARE(names(goods), (QStringList{u"啤酒"_s, u"红酒"_s, u"黑啤"_s}));
    }
};

QTEST_MAIN(TestOption)
#include "test_option.moc"
