#include "AppState.h"
#include "MessageBox.h"
#include "Settings.h"
#include "TestVenue.h"
#include "frmOption.h"
#include "frmWare.h"
#include "frmWareLevel.h"
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <memory>

namespace {
template <class T> T* child(QWidget& w, const char* name) { return w.findChild<T*>(QString::fromLatin1(name)); }

void signInWithout(const QString& code) {
    DB().exec(QStringLiteral("insert into Operator (OperatorID, LoginName, operatorname, State) values ('o1', 'c', '收银员', 0)"));
    DB().exec(QStringLiteral("insert into Puissance (OperatorID, SysPuissanceID, isHave) select 'o1', SysPuissanceID, 1 from "
                             "SysPuissance where SysPuissanceID<>?"),
              {code});
    App().CurrentOperatorID = QStringLiteral("o1");
    App().CurrentOperatorName = QStringLiteral("收银员");
}
void addGoods() {
    DB().exec(QStringLiteral(
        "insert into WareType (WareTypeID, wareTypeName, isDoDiscount) values ('01', '酒水', 1), "
        "('02', '小吃', 0)"));
    DB().exec(QStringLiteral(
        "insert into Ware (WareID, WareTypeID, WareName, Price) values ('w1', '01', '啤酒', 100000), "
        "('w2', '01', '红酒', 1880000), ('w3', '02', '花生', 80000)"));
}

void select(QTreeWidget* list, const QString& text) {
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        if (list->topLevelItem(i)->text(0) == text) return list->setCurrentItem(list->topLevelItem(i));
    QFAIL("no such item");
}

int column(QTreeWidget* list, const QString& title) {
    for (int c = 0; c < list->columnCount(); ++c)
        if (list->headerItem()->text(c) == title) return c;
    return -1;
}

QStringList names(QTreeWidget* list) {
    QStringList out;
    const int c = column(list, QStringLiteral("商品名称"));
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->text(c);
    out.sort();
    return out;
}

// Hands the next modal dialog to `act` once it shows; `seen` tells whether one did.
template <class F> std::shared_ptr<bool> onModal(F act) {
    auto seen = std::make_shared<bool>(false);
    QTimer::singleShot(0, [seen, act] {
        if (auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            *seen = true;
            act(d);
            if (d->isVisible()) d->reject();
        }
    });
    return seen;
}
} // namespace

class TestOption : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void listsShowTheVenue() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values ('a', '豪华包', '00000000000000001')"));
        DB().exec(QStringLiteral("insert into The (TheID, TheCode, AssortID, State, Other1) values ('t1', 'V01', 'a', 4, '2026-11-21 20:00')"));
        DB().exec(QStringLiteral("insert into The (TheID, TheCode, AssortID, State, Other1) values ('t2', 'V02', 'a', 4, '2026-11-21 19:59')"));
        frmOption w;
        auto* tariffs = child<QTreeWidget>(w, "lvwPayLevel");
        QCOMPARE(tariffs->topLevelItemCount(), 1);
        QCOMPARE(tariffs->topLevelItem(0)->text(0), QStringLiteral("标准计费"));
        QCOMPARE(tariffs->topLevelItem(0)->text(5), QStringLiteral("18-24点 买断价格:300元 计时价格:120"));
        QCOMPARE(child<QTreeWidget>(w, "lvwHouseAssort")->topLevelItem(0)->text(1), QStringLiteral("标准计费"));
        auto* rooms = child<QTreeWidget>(w, "lvwHouse");
        QCOMPARE(rooms->topLevelItemCount(), 2);
        rooms->sortByColumn(0, Qt::AscendingOrder);
        // A lock runs out by itself: V01 still locked this minute, V02 free.
        QCOMPARE(rooms->topLevelItem(0)->text(2), QStringLiteral("锁定"));
        QCOMPARE(rooms->topLevelItem(1)->text(2), QStringLiteral("空闲"));
    }

    void discountAndFormat() {
        TestVenue v;
        OPEN_VENUE(v);
        frmOption w;
        child<QLineEdit>(w, "txtAllDiscount")->setText(QStringLiteral("九折"));
        w.cmdAllDiscount_Click();
        QCOMPARE(messages(), QStringList{QStringLiteral("折扣比率只能输入数字，请输入正确的折扣比率！")});
        QCOMPARE(GetSetup(QStringLiteral("IsAllDiscount")), QStringLiteral("0"));
        child<QLineEdit>(w, "txtAllDiscount")->setText(QStringLiteral("0.9"));
        child<QCheckBox>(w, "ChkAllDiscount")->setChecked(true);
        child<QRadioButton>(w, "optPayMoneyFormat2")->setChecked(true);
        w.cmdAllDiscount_Click();
        QCOMPARE(messages(), QStringList());
        QCOMPARE(GetSetup(QStringLiteral("PayMoneyFormat")), QStringLiteral("2"));
        QCOMPARE(GetSetup(QStringLiteral("IsAllDiscount")), QStringLiteral("1"));
        QCOMPARE(App().IsAllDiscount, 1);
        QCOMPARE(float(App().AllDiscount), 0.9f);
        QCOMPARE(DB().scalar(QStringLiteral("select theContent from s_log where theDoName=?"), {QStringLiteral("商品及服务设置")}).toString(),
                 QStringLiteral("启用全场折扣为：0.9"));
        // Shown again as stored.
        frmOption again;
        QCOMPARE(child<QLineEdit>(again, "txtAllDiscount")->text(), QStringLiteral("0.90"));
        QVERIFY(child<QRadioButton>(again, "optPayMoneyFormat2")->isChecked());
    }

    void rulesNeedC001ButCheckoutDoesNot() {
        TestVenue v;
        OPEN_VENUE(v);
        signInWithout(QStringLiteral("C001"));
        frmOption w;
        child<QCheckBox>(w, "chkAllowHigh2Low")->setChecked(true);
        w.cmdAllowLow2High_Click();
        w.cmdAllDiscount_Click();
        QCOMPARE(messages(), (QStringList{QStringLiteral("您没有操作此项业务的权限！"), QStringLiteral("您没有操作此项业务的权限！")}));
        QCOMPARE(GetSetup(QStringLiteral("AllowHigh2Low")), QStringLiteral("0"));
        child<QComboBox>(w, "cmbCloseHouseCur")->setCurrentIndex(1);
        child<QLineEdit>(w, "txtLockTime")->setText(QStringLiteral("15.9分钟"));
        w.cmdSaveCZ_Click();
        QCOMPARE(messages(), QStringList());
        QCOMPARE(GetSetup(QStringLiteral("HClose")), QStringLiteral("1"));
        QCOMPARE(GetSetup(QStringLiteral("LockTime")), QStringLiteral("15"));
        QCOMPARE(App().LockTime, 15);
    }

    void allowHigh2LowIsLogged() {
        TestVenue v;
        OPEN_VENUE(v);
        frmOption w;
        child<QCheckBox>(w, "chkAllowHigh2Low")->setChecked(true);
        w.cmdAllowLow2High_Click();
        QCOMPARE(GetSetup(QStringLiteral("AllowHigh2Low")), QStringLiteral("1"));
        QCOMPARE(DB().scalar(QStringLiteral("select theContent from s_log")).toString(),
                 QStringLiteral("设置允许顾客由高费率包厢换到低费率包厢。"));
    }

    void deletingRowsInUse() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values ('a', '小包', '00000000000000001')"));
        DB().exec(QStringLiteral("insert into The (TheID, TheCode, AssortID) values ('t1', 'A01', 'a')"));
        frmOption w;
        for (const char* list : {"lvwPayLevel", "lvwHouseAssort"}) {
            auto* l = child<QTreeWidget>(w, list);
            l->setCurrentItem(l->topLevelItem(0));
        }
        w.cmdPayLevelDel_Click();
        w.cmdHouseAssortDel_Click();
        QCOMPARE(messages(), (QStringList{QStringLiteral("不能删除此数据，因为它已经使用！"),
                                          QStringLiteral("不能删除此数据，因为它已经使用！")}));
        auto* rooms = child<QTreeWidget>(w, "lvwHouse");
        rooms->setCurrentItem(rooms->topLevelItem(0));
        w.cmdHouseDel_Click();
        QCOMPARE(messages(), QStringList());
        QCOMPARE(rooms->topLevelItemCount(), 0);
        w.cmdHouseAssortDel_Click();
        QCOMPARE(child<QTreeWidget>(w, "lvwHouseAssort")->topLevelItemCount(), 0);
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from PayLevel")).toInt(), 1);
    }

    void goodsPage() {
        TestVenue v;
        OPEN_VENUE(v);
        addGoods();
        frmOption w;
        auto* types = child<QTreeWidget>(w, "lvwWareType");
        auto* goods = child<QTreeWidget>(w, "lvwWare");
        QCOMPARE(types->topLevelItemCount(), 2);
        QCOMPARE(types->topLevelItem(0)->text(2), QStringLiteral("是"));
        QCOMPARE(names(goods),
                 (QStringList{QStringLiteral("啤酒"), QStringLiteral("红酒"), QStringLiteral("花生")}));
        // Money in the list as the configured column shows it.
        select(goods, QStringLiteral("w2"));
        QCOMPARE(goods->currentItem()->text(column(goods, QStringLiteral("售价"))), QStringLiteral("188.00"));
        QCOMPARE(goods->currentItem()->text(column(goods, QStringLiteral("商品分类"))),
                 QStringLiteral("酒水"));
        // The goods of the chosen type only.
        select(types, QStringLiteral("02"));
        QCOMPARE(names(goods), QStringList{QStringLiteral("花生")});
        // A type with goods stays; deleting an article takes it off the list.
        w.cmdWareTypeDel_Click();
        QCOMPARE(messages(), QStringList{QStringLiteral("不能删除此数据，因为它已经使用！")});
        QCOMPARE(types->topLevelItemCount(), 2);
        goods->setCurrentItem(goods->topLevelItem(0));
        w.cmdWareDel_Click();
        QCOMPARE(goods->topLevelItemCount(), 0);
        DB().exec(QStringLiteral(
            "insert into Ware (WareID, WareTypeID, WareName, Price) values ('w4', '02', '瓜子', 50000)"));
        w.cmdRefresh_Click();
        QCOMPARE(names(goods), QStringList{QStringLiteral("瓜子")});
        DB().exec(QStringLiteral("delete from Ware where WareID='w4'"));
        w.cmdWareTypeDel_Click();
        QCOMPARE(messages(), QStringList());
        QCOMPARE(types->topLevelItemCount(), 1);
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from WareType")).toInt(), 1);
        // With no type chosen the list holds every article again.
        QCOMPARE(names(goods), (QStringList{QStringLiteral("啤酒"), QStringLiteral("红酒")}));
    }

    void goodsDialogsFromThePage() {
        TestVenue v;
        OPEN_VENUE(v);
        addGoods();
        frmOption w;
        select(child<QTreeWidget>(w, "lvwWareType"), QStringLiteral("01"));
        auto periods = [](QDialog* d) {
            QVERIFY(qobject_cast<frmWareLevel*>(d));
            d->findChild<QLineEdit*>(QStringLiteral("txtWareLevelName"))->setText(QStringLiteral("全天"));
            auto* end1 = d->findChild<QComboBox*>(QStringLiteral("cmbEnd1"));
            end1->setCurrentIndex(end1->findText(QStringLiteral("24")));
            Q_EMIT end1->activated(end1->currentIndex());
            d->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        };
        onModal(periods);
        w.cmdWareLevel_Click();
        onModal(periods);
        w.Command1_Click();
        QCOMPARE(
            DB().scalar(QStringLiteral("select count(*) from WareLevel where WareLevelID in ('01', 'The')"))
                .toInt(),
            2);

        // A new article shows in the list of the chosen type at once.
        onModal([](QDialog* d) {
            QVERIFY(qobject_cast<frmWare*>(d));
            d->findChild<QLineEdit*>(QStringLiteral("txtWareName"))->setText(QStringLiteral("黑啤"));
            d->findChild<QLineEdit*>(QStringLiteral("txtPrice"))->setText(QStringLiteral("15"));
            d->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        });
        w.cmdWareAdd_Click();
        QCOMPARE(names(child<QTreeWidget>(w, "lvwWare")),
                 (QStringList{QStringLiteral("啤酒"), QStringLiteral("红酒"), QStringLiteral("黑啤")}));
    }

    void goodsButtonsNeedTheirRights_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("button");
        QTest::newRow("type add") << "C004"
                                  << "cmdWareTypeAdd";
        QTest::newRow("type delete") << "C004"
                                     << "cmdWareTypeDel";
        QTest::newRow("article add") << "C005"
                                     << "cmdWareAdd";
        QTest::newRow("article delete") << "C005"
                                        << "cmdWareDel";
        QTest::newRow("type periods") << "C006"
                                      << "cmdWareLevel";
        QTest::newRow("venue periods") << "C006"
                                       << "Command1";
    }
    void goodsButtonsNeedTheirRights() {
        QFETCH(QString, code);
        QFETCH(QString, button);
        TestVenue v;
        OPEN_VENUE(v);
        addGoods();
        signInWithout(code);
        frmOption w;
        select(child<QTreeWidget>(w, "lvwWareType"), QStringLiteral("02"));
        auto* goods = child<QTreeWidget>(w, "lvwWare");
        goods->setCurrentItem(goods->topLevelItem(0));
        const auto opened = onModal([](QDialog*) {});
        w.findChild<QPushButton*>(button)->click();
        QCoreApplication::processEvents();
        QCOMPARE(messages(), QStringList{QStringLiteral("您没有操作此项业务的权限！")});
        QVERIFY(!*opened);
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from Ware")).toInt(), 3);
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from WareType")).toInt(), 2);
    }
};

QTEST_MAIN(TestOption)
#include "test_option.moc"
