#include "PayLevel.h"
#include "TestKit.h"
#include "frmPayLevel.h"

namespace {
PayLevelInput valid() {
    PayLevelInput in;
    in.name = u"夜场"_s;
    in.end = {u"18"_s, u"24"_s, QString(), QString()};
    for (int i = 0; i < 4; ++i) {
        in.price[size_t(i)] = u"60"_s;
        in.minMoney[size_t(i)] = u"0"_s;
        in.priceA[size_t(i)] = u"3"_s;
        in.minMoneyA[size_t(i)] = u"200"_s;
    }
    in.unit = u"30"_s;
    return in;
}

} // namespace

class TestPayLevel : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void validation_data() { // clang-format off
        columns<QString, QString, QString>("what", "message", "field");
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
        QTest::newRow("prices are not checked") << "price" << "" << ""; // clang-format on
    }
    void validation() {
        auto [what, message, field] = fetch<QString, QString, QString>("what", "message", "field");
        PayLevelInput in = valid();
        if (what == u"name"_s) in.name = u"  "_s;
        if (what == u"after"_s) in.afterTime = u"5分"_s;
        if (what == u"end1"_s) in.end = {};
        if (what == u"no24"_s) in.end[1] = u"23"_s;
        if (what == u"minA3"_s) in.minMoneyA[2] = u""_s;
        if (what == u"min2"_s) in.minMoney[1] = u"x"_s;
        if (what == u"unit0"_s) in.unit = u"0"_s;
        if (what == u"unitText"_s) in.unit = u"abc"_s;
        if (what == u"unitNeg"_s) in.unit = u"-10"_s;
        if (what == u"grace"_s) in.privilegeTime = u"十"_s;
        if (what == u"price"_s) in.price[0] = u"贵"_s;
        const Refused r = PayLevelService::validate(in);
        QCOMPARE(refusal(r), refusal(message, field));
    }

    void saveLoadAndRowText() {
        NEW_VENUE(v);
        PayLevelInput in = valid();
        in.name = u"O'Hara 夜场"_s;
        in.price[0] = u"88.5"_s;
        in.unit = u"40000"_s;
        const QString id = PayLevelService::save(QString(), in);
        QVERIFY(!id.isEmpty());
        bool found = false;
        const PayLevelInput back = PayLevelService::load(id, &found);
        QVERIFY(found);
        // Kept as typed.
        QCOMPARE(QStringList({back.name, back.price[0], back.unit, back.end[1], back.end[2]}),
                 QStringList({in.name, u"88.5"_s, u"40000"_s, u"24"_s, QString()}));
        const Row row = DB().query(u"select * from PayLevel where PayLevelID=?"_s, {id}).first();
        QCOMPARE(PayLevelService::rowTexts(row),
                 (QStringList{in.name, u"0元"_s, u"按时间计费"_s, u"0-18点 买断价格:200元 计时价格:88.5"_s,
                              u"18-24点 买断价格:200元 计时价格:60"_s}));
        QCOMPARE(text(u"select theContent from s_log"_s), u"编辑计费标准 O'Hara 夜场"_s);
        // Renaming keeps the key.
        in.name = u"新名字"_s;
        QCOMPARE(PayLevelService::save(id, in), id);
        // An edited row that went away is not made again.
        DB().exec(u"delete from PayLevel where PayLevelID=?"_s, {id});
        QCOMPARE(PayLevelService::save(id, in), QString());
        QCOMPARE(count(u"select count(*) from PayLevel where PayLevelID=?"_s, {id}), 0);
    }

    void deleteInUse() {
        NEW_VENUE(v);
        const QString used = PayLevelService::save(QString(), valid());
        const QString open = PayLevelService::save(QString(), valid());
        const QString spare = PayLevelService::save(QString(), valid());
        DB().exec(u"insert into TheAssort (AssortID, AssortName, PayLevelID) values ('a', '小包', ?)"_s,
                  {used});
        DB().exec(u"insert into The (TheID, TheCode) values ('t', '101')"_s);
        DB().exec(u"insert into Expense (ExpenseID, TheID, PayLevelID, State) values ('e', 't', ?, 1)"_s,
                  {open});
        for (const QString& id : {used, open}) {
            const Refused r = PayLevelService::remove(id);
            QCOMPARE(r ? r->message : QString(), u"不能删除此数据，因为它已经使用！"_s);
        }
        QVERIFY(!PayLevelService::remove(spare));
        QCOMPARE(count(u"select count(*) from PayLevel where PayLevelID in (?,?,?)"_s, {used, open, spare}),
                 2);
    }

    void editorWindow() {
        NEW_VENUE(v);
        frmPayLevel dlg;
        dlg.prepare(QString());
        dlg.show();
        auto* name = child<QLineEdit>(dlg, "txtPayLevelName");
        auto* end1 = child<QComboBox>(dlg, "cmbEnd1");
        auto* end2 = child<QComboBox>(dlg, "cmbEnd2");
        auto* unit = child<QLineEdit>(dlg, "txtUnit");
        auto* tabs = child<QTabWidget>(dlg, "ctbThis");
        QCOMPARE(texts(dlg, {"txtStart1"}), u"0"_s);
        QCOMPARE(end1->count(), 24);
        // The grace minutes show only with rule 1.
        child<QRadioButton>(dlg, "optNotOne1")->setChecked(true);
        QVERIFY(child<QLineEdit>(dlg, "txtPrivilegeTime")->isVisible());
        child<QRadioButton>(dlg, "optNotOne2")->setChecked(true);
        QVERIFY(!child<QLineEdit>(dlg, "txtPrivilegeTime")->isVisible());

        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{u"请计费标准名称！"_s});
        QCOMPARE(dlg.focusWidget(), name);
        name->insert(u"白天场"_s);
        choose(end1, u"12"_s);
        QCOMPARE(texts(dlg, {"txtStart2"}) + u'|' + end2->itemText(0), u"12|13"_s);
        choose(end2, u"24"_s);
        QCOMPARE(child<QComboBox>(dlg, "cmbEnd3")->count(), 0);
        // A new first end clears the chain, and 24 must be chosen again.
        choose(end1, u"18"_s);
        QCOMPARE(end2->currentIndex(), -1);
        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{u"必须设置一个时段的结束时间为24点！"_s});
        choose(end2, u"24"_s);
        unit->setText(u"0"_s);
        tabs->setCurrentIndex(0);
        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{u"请输入计费单位！"_s});
        QVERIFY(tabs->currentIndex() == 1 && dlg.focusWidget() == unit);
        unit->setText(u"15"_s);
        child<QLineEdit>(dlg, "txtPrice2")->setText(u"99.5"_s);
        tabs->setCurrentIndex(0);
        QVERIFY(dlg.cmdOK_Click());
        QCOMPARE(dump(u"select PayLevelName, payType, Unit, NotOne, end1, start2, end2, Price2 from PayLevel "
                      "where PayLevelID=?"_s,
                      {dlg.savedId()}),
                 u"白天场|0|15|2|18|18|24|99.5"_s);

        // Editing shows what was stored.
        frmPayLevel edit;
        edit.prepare(dlg.savedId());
        QCOMPARE(texts(edit, {"txtPayLevelName", "cmbEnd2"}), u"白天场|24"_s);
        QCOMPARE(child<QTabWidget>(edit, "ctbThis")->currentIndex(), 0);
        QVERIFY(child<QRadioButton>(edit, "optNotOne2")->isChecked());
    }
};

QTEST_MAIN(TestPayLevel)
#include "test_paylevel.moc"
