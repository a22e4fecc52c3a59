#include "AppState.h"
#include "MessageBox.h"
#include "Settings.h"
#include "TestVenue.h"
#include "frmOption.h"
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

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
};

QTEST_MAIN(TestOption)
#include "test_option.moc"
