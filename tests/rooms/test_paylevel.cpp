#include "AppState.h"
#include "MessageBox.h"
#include "PayLevel.h"
#include "TestVenue.h"
#include "frmPayLevel.h"
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

namespace {
PayLevelInput valid() {
    PayLevelInput in;
    in.name = QStringLiteral("夜场");
    in.end = {QStringLiteral("18"), QStringLiteral("24"), QString(), QString()};
    for (int i = 0; i < 4; ++i) {
        in.price[size_t(i)] = QStringLiteral("60");
        in.minMoney[size_t(i)] = QStringLiteral("0");
        in.priceA[size_t(i)] = QStringLiteral("3");
        in.minMoneyA[size_t(i)] = QStringLiteral("200");
    }
    in.unit = QStringLiteral("30");
    return in;
}


void choose(QComboBox* c, const QString& text) {
    c->setCurrentIndex(c->findText(text));
    Q_EMIT c->activated(c->currentIndex());
}
} // namespace

class TestPayLevel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void validation_data() {
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");
        QTest::newRow("no name") << "name" << "请计费标准名称！" << "txtPayLevelName";
        QTest::newRow("free minutes not numeric") << "after" << "请输入开始计费时间！" << "txtAfterTime";
        QTest::newRow("no first end") << "end1" << "请选择时段1结束时间！" << "cmbEnd1";
        QTest::newRow("nothing ends at 24") << "no24" << "必须设置一个时段的结束时间为24点！" << "";
        QTest::newRow("buy-out price") << "minA3" << "最低消费金额必须输入数字！输入0表示不计费。" << "txtMinMoneyA3";
        QTest::newRow("minimum spend") << "min2" << "最低消费金额必须输入数字！输入0表示没有最低消费要求。" << "txtMinMoney2";
        QTest::newRow("unit zero") << "unit0" << "请输入计费单位！" << "txtUnit";
        QTest::newRow("unit text") << "unitText" << "请输入计费单位！" << "txtUnit";
        QTest::newRow("unit negative") << "unitNeg" << "请输入计费单位！" << "txtUnit";
        QTest::newRow("grace minutes") << "grace" << "请输入优惠时间！" << "txtPrivilegeTime";
        QTest::newRow("prices are not checked") << "price" << "" << "";
    }
    void validation() {
        QFETCH(QString, what);
        QFETCH(QString, message);
        QFETCH(QString, field);
        PayLevelInput in = valid();
        if (what == QLatin1String("name")) in.name = QStringLiteral("  ");
        if (what == QLatin1String("after")) in.afterTime = QStringLiteral("5分");
        if (what == QLatin1String("end1")) in.end = {};
        if (what == QLatin1String("no24")) in.end[1] = QStringLiteral("23");
        if (what == QLatin1String("minA3")) in.minMoneyA[2] = QStringLiteral("");
        if (what == QLatin1String("min2")) in.minMoney[1] = QStringLiteral("x");
        if (what == QLatin1String("unit0")) in.unit = QStringLiteral("0");
        if (what == QLatin1String("unitText")) in.unit = QStringLiteral("abc");
        if (what == QLatin1String("unitNeg")) in.unit = QStringLiteral("-10");
        if (what == QLatin1String("grace")) in.privilegeTime = QStringLiteral("十");
        if (what == QLatin1String("price")) in.price[0] = QStringLiteral("贵");
        const Refused r = PayLevelService::validate(in);
        QCOMPARE(r ? r->message : QString(), message);
        QCOMPARE(r ? r->field : QString(), field);
    }

    void periodChain() {
        PeriodChain c;
        QCOMPARE(c.choices(0).size(), 24);
        QVERIFY(c.choices(1).isEmpty());
        c.choose(0, 18);
        QCOMPARE(c.choices(1), (QList<int>{19, 20, 21, 22, 23, 24}));
        c.choose(1, 24);
        QVERIFY(c.choices(2).isEmpty());
        // Changing the first end clears the later ones.
        c.choose(0, 12);
        QCOMPARE(c.end[1], 0);
        QCOMPARE(c.start[1], 12);
    }

    void saveLoadAndRowText() {
        TestVenue v;
        OPEN_VENUE(v);
        PayLevelInput in = valid();
        in.name = QStringLiteral("O'Hara 夜场");
        in.price[0] = QStringLiteral("88.5");
        in.unit = QStringLiteral("40000");
        const QString id = PayLevelService::save(QString(), in);
        QVERIFY(!id.isEmpty());
        bool found = false;
        const PayLevelInput back = PayLevelService::load(id, &found);
        QVERIFY(found);
        QCOMPARE(back.name, in.name);
        QCOMPARE(back.price[0], QStringLiteral("88.5")); // kept as typed
        QCOMPARE(back.unit, QStringLiteral("40000"));
        QCOMPARE(back.end[1], QStringLiteral("24"));
        QCOMPARE(back.end[2], QString());
        const Row row = DB().query(QStringLiteral("select * from PayLevel where PayLevelID=?"), {id}).first();
        QCOMPARE(PayLevelService::rowTexts(row),
                 (QStringList{in.name, QStringLiteral("0元"), QStringLiteral("按时间计费"),
                              QStringLiteral("0-18点 买断价格:200元 计时价格:88.5"),
                              QStringLiteral("18-24点 买断价格:200元 计时价格:60")}));
        QCOMPARE(DB().scalar(QStringLiteral("select theContent from s_log")).toString(),
                 QStringLiteral("编辑计费标准 O'Hara 夜场"));
        // Renaming keeps the key.
        in.name = QStringLiteral("新名字");
        QCOMPARE(PayLevelService::save(id, in), id);
        // An edited row that went away is not made again.
        DB().exec(QStringLiteral("delete from PayLevel where PayLevelID=?"), {id});
        QCOMPARE(PayLevelService::save(id, in), QString());
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from PayLevel where PayLevelID=?"), {id}).toInt(), 0);
    }

    void deleteInUse() {
        TestVenue v;
        OPEN_VENUE(v);
        const QString used = PayLevelService::save(QString(), valid());
        const QString open = PayLevelService::save(QString(), valid());
        const QString spare = PayLevelService::save(QString(), valid());
        DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values ('a', '小包', ?)"), {used});
        DB().exec(QStringLiteral("insert into The (TheID, TheCode) values ('t', '101')"));
        DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, PayLevelID, State) values ('e', 't', ?, 1)"), {open});
        for (const QString& id : {used, open}) {
            const Refused r = PayLevelService::remove(id);
            QVERIFY(r);
            QCOMPARE(r->message, QStringLiteral("不能删除此数据，因为它已经使用！"));
        }
        QVERIFY(!PayLevelService::remove(spare));
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from PayLevel where PayLevelID in (?,?,?)"), {used, open, spare}).toInt(), 2);
    }

    void editorWindow() {
        TestVenue v;
        OPEN_VENUE(v);
        frmPayLevel dlg;
        dlg.prepare(QString());
        dlg.show();
        auto* name = dlg.findChild<QLineEdit*>(QStringLiteral("txtPayLevelName"));
        auto* end1 = dlg.findChild<QComboBox*>(QStringLiteral("cmbEnd1"));
        auto* end2 = dlg.findChild<QComboBox*>(QStringLiteral("cmbEnd2"));
        auto* start2 = dlg.findChild<QLineEdit*>(QStringLiteral("txtStart2"));
        auto* unit = dlg.findChild<QLineEdit*>(QStringLiteral("txtUnit"));
        auto* tabs = dlg.findChild<QTabWidget*>(QStringLiteral("ctbThis"));
        QCOMPARE(dlg.findChild<QLineEdit*>(QStringLiteral("txtStart1"))->text(), QStringLiteral("0"));
        QCOMPARE(end1->count(), 24);
        // The grace minutes show only with rule 1.
        dlg.findChild<QRadioButton*>(QStringLiteral("optNotOne1"))->setChecked(true);
        QVERIFY(dlg.findChild<QLineEdit*>(QStringLiteral("txtPrivilegeTime"))->isVisible());
        dlg.findChild<QRadioButton*>(QStringLiteral("optNotOne2"))->setChecked(true);
        QVERIFY(!dlg.findChild<QLineEdit*>(QStringLiteral("txtPrivilegeTime"))->isVisible());

        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{QStringLiteral("请计费标准名称！")});
        QCOMPARE(dlg.focusWidget(), name);
        name->insert(QStringLiteral("白天场"));
        choose(end1, QStringLiteral("12"));
        QCOMPARE(start2->text(), QStringLiteral("12"));
        QCOMPARE(end2->itemText(0), QStringLiteral("13"));
        choose(end2, QStringLiteral("24"));
        QCOMPARE(dlg.findChild<QComboBox*>(QStringLiteral("cmbEnd3"))->count(), 0);
        // A new first end clears the chain, and 24 must be chosen again.
        choose(end1, QStringLiteral("18"));
        QCOMPARE(end2->currentIndex(), -1);
        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{QStringLiteral("必须设置一个时段的结束时间为24点！")});
        choose(end2, QStringLiteral("24"));
        unit->setText(QStringLiteral("0"));
        tabs->setCurrentIndex(0);
        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{QStringLiteral("请输入计费单位！")});
        QCOMPARE(tabs->currentIndex(), 1);
        QCOMPARE(dlg.focusWidget(), unit);
        unit->setText(QStringLiteral("15"));
        dlg.findChild<QLineEdit*>(QStringLiteral("txtPrice2"))->setText(QStringLiteral("99.5"));
        tabs->setCurrentIndex(0);
        QVERIFY(dlg.cmdOK_Click());
        const Row r = DB().query(QStringLiteral("select * from PayLevel where PayLevelID=?"), {dlg.savedId()}).first();
        QCOMPARE(r.text(QStringLiteral("PayLevelName")), QStringLiteral("白天场"));
        QCOMPARE(r.integer(QStringLiteral("payType")), qint64(0));
        QCOMPARE(r.integer(QStringLiteral("Unit")), qint64(15));
        QCOMPARE(r.integer(QStringLiteral("NotOne")), qint64(2));
        QCOMPARE(r.num(QStringLiteral("end1")), 18.0);
        QCOMPARE(r.num(QStringLiteral("start2")), 18.0);
        QCOMPARE(r.num(QStringLiteral("end2")), 24.0);
        QCOMPARE(r.num(QStringLiteral("Price2")), 99.5);

        // Editing shows what was stored.
        frmPayLevel edit;
        edit.prepare(dlg.savedId());
        QCOMPARE(edit.findChild<QLineEdit*>(QStringLiteral("txtPayLevelName"))->text(), QStringLiteral("白天场"));
        QCOMPARE(edit.findChild<QComboBox*>(QStringLiteral("cmbEnd2"))->currentText(), QStringLiteral("24"));
        QCOMPARE(edit.findChild<QTabWidget*>(QStringLiteral("ctbThis"))->currentIndex(), 0);
        QVERIFY(edit.findChild<QRadioButton*>(QStringLiteral("optNotOne2"))->isChecked());
    }
};

QTEST_MAIN(TestPayLevel)
#include "test_paylevel.moc"
