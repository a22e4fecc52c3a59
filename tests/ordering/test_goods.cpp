#include "Mnemonic.h"
#include "TestKit.h"
#include "WareLevel.h"
#include "WarePrice.h"
#include "WareService.h"
#include <QRegularExpression>

namespace {

// Types 01 with periods 0-18 at 1 and 18-24 at 0.8, 02 with periods allowed but none set,
// 03 without periods; goods with and without codes, one without a type.
void addGoods() {
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName, isDoDiscount) values "
              "('01', '酒水', 1), ('02', '小吃', 1), ('03', '果盘', 0)"_s);
    DB().exec(u"insert into WareLevel (WareLevelID, start1, end1, start2, end2, Discount2) values "
              "('01', 0, 18, 18, 24, 0.8)"_s);
    DB().exec(u"insert into Ware (WareID, WareTypeID, WareCode, WareName, Price) values "
              "('w1', '01', 'B2', '啤酒', 100000), ('w2', '02', 'A1', '花生', 80000), "
              "('w3', '03', null, '果盘', 305000), ('w4', null, 'C3', '无分类', 20000), "
              "('w5', '02', 'A2', '瓜子', 60000)"_s);
}
} // namespace

class TestGoods : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void mnemonic_data() { // clang-format off
        columns<QString, QString>("name", "expected");
        QTest::newRow("case kept, blank skipped") << "K歌 2" << "Kg2";
        QTest::newRow("punctuation skipped") << "A-1" << "A1";
        QTest::newRow("empty") << "" << "";
        QTest::newRow("mixed") << "青岛Beer（大）" << "qdBeerd";
        // Both ends of every range of the table, a to z.
        QTest::newRow("table ends") << "啊澳芭怖擦错搭堕蛾贰发咐噶过哈祸击骏喀阔垃络妈穆拿诺哦沤啪瀑期群然弱撒所塌唾挖误昔褕褖孕匝座" << "aabbccddeeffgghhjjkkllmmnnooppqqrrssttwwxxyyzz";
        // The boundary as the table has it: 玄 D0FE x; 选 D1A1, 学 D1A7 and 迅 D1B8 y.
        QTest::newRow("x/y boundary") << "玄选学迅压" << "xyyyy";
        QTest::newRow("below the table") << "盃" << ""; // B0A0
        QTest::newRow("extension code inside a range") << "盄" << "b"; // B140
        QTest::newRow("second level only") << "亍亓" << "";
        QTest::newRow("full-width, symbols, no GBK code") << "Ａ１　。€é🍺倗" << ""; // clang-format on
    }
    void mnemonic() {
        auto [name, expected] = fetch<QString, QString>("name", "expected");
        QCOMPARE(GetMnemonic(name), expected);
    }

    void price_data() { // clang-format off
        columns<QString, bool>("price", "flag");
        QTest::addColumn<QString>("periods"); // "start-end@factor,...", or "none" for no row
        columns<bool, float, int, QString>("allOn", "rate", "hour", "expected");
        const char* evening = "0-18@1,18-24@0.8";
        QTest::newRow("catalogue") << "12.5" << false << evening << false << 1.0f << 20 << "12.50";
        QTest::newRow("start inclusive") << "10" << true << evening << false << 1.0f << 18 << "8.00";
        QTest::newRow("end exclusive") << "10" << true << evening << false << 1.0f << 17 << "10.00";
        QTest::newRow("end 24 holds 23") << "10" << true << evening << false << 1.0f << 23 << "8.00";
        QTest::newRow("nothing after 24") << "10" << true << "0-24@0.5,18-24@0.8" << false << 1.0f << 20 << "5.00";
        QTest::newRow("end 0 never holds") << "10" << true << "0-0@0.5" << false << 1.0f << 0 << "10.00";
        QTest::newRow("overlap: lowest wins") << "10" << true << "0-24@0.9,0-24@0.5" << false << 1.0f << 3 << "9.00";
        QTest::newRow("factor above 1") << "10" << true << "0-24@1.5" << false << 1.0f << 10 << "15.00";
        QTest::newRow("no period row") << "10" << true << "none" << false << 1.0f << 10 << "";
        QTest::newRow("venue rate ignores the flag") << "10" << false << evening << true << 0.9f << 10 << "9.00";
        QTest::newRow("venue rate first") << "10" << true << evening << true << 0.5f << 20 << "5.00";
        QTest::newRow("venue rate, no row, no message") << "10" << true << "none" << true << 0.9f << 10 << "9.00";
        QTest::newRow("venue rate 0") << "10" << false << evening << true << 0.0f << 10 << "0.00";
        // 0.9 as a single is 0.89999998: 0.05 x it is below the half cent.
        QTest::newRow("single-precision rate") << "0.05" << false << evening << true << 0.9f << 10 << "0.04";
        QTest::newRow("half away from zero") << "-2.675" << false << evening << false << 1.0f << 10 << "-2.68";
        QTest::newRow("product rounded once") << "0.125" << true << "0-24@0.5" << false << 1.0f << 10 << "0.06"; // clang-format on
    }
    void price() {
        auto [price, flag, periods, allOn, rate, hour, expected] =
            fetch<QString, bool, QString, bool, float, int, QString>("price", "flag", "periods", "allOn",
                                                                     "rate", "hour", "expected");
        WarePriceRow row{Money::fromText(price), flag, std::nullopt, u"酒水"_s};
        if (periods != u"none"_s) {
            WarePeriods p;
            const QStringList parts = periods.split(u',');
            for (size_t i = 0; i < size_t(parts.size()); ++i) {
                const QStringList f = parts[qsizetype(i)].split(QRegularExpression(u"[-@]"_s));
                p.start[i] = f[0].toDouble();
                p.end[i] = f[1].toDouble();
                p.discount[i] = f[2].toDouble();
            }
            row.level = p;
        }
        const WarePrice d = DecideWarePrice(row, {allOn, rate}, hour);
        QCOMPARE(d.text, expected);
        QCOMPARE(d.warning, expected.isEmpty()
                                ? u"对不起，您设置 酒水 类商品使用时段折扣，但没有设置此类商品的具体"
                                  "折扣数值，请在“营业设置”的“商品分类”中设置此类商品的“折扣时段”！"_s
                                : QString());
        QCOMPARE(AllDiscountCaption({allOn, rate}),
                 allOn ? u"当前全场商品折扣: "_s + QString::number(rate, 'f', 2) : QString());
    }

    void goodsListPricedAtTheHour() {
        NEW_VENUE(v);
        addGoods();
        auto priced = [](int hour, AllDiscountRate all) {
            QStringList out;
            for (const PricedWare& w :
                 WareCatalog::FillWareList(QDateTime(QDate(2026, 11, 21), QTime(hour, 59)), all))
                out << w.wareID + u'=' + w.decided.text + (w.decided.warning.isEmpty() ? QString() : u"!"_s);
            return out;
        };
        // Goods without a code first, then by code; the message once per article of the type.
        QCOMPARE(priced(20, {}).join(u' '), u"w3=30.50 w2=! w5=! w1=8.00 w4=2.00"_s);
        QCOMPARE(priced(9, {true, 0.5f}).join(u' '), u"w3=15.25 w2=4.00 w5=3.00 w1=5.00 w4=1.00"_s);
    }

    void wareTypeSaveAndLoad() {
        NEW_VENUE(v);
        WareService s;
        WareTypeInput in{u"O'01"_s, u"酒水 \"进口\""_s, true, false, true, false};
        QVERIFY(s.saveWareType(in, true).ok());
        // A taken key: one message, the store's reason on its own line.
        const WareSaved again = s.saveWareType(in, true);
        QVERIFY(again.refusal &&
                again.refusal->message.startsWith(u"您输入的分类编号已存在，请重新输入！\n错误信息： "_s));
        in.isNomember = true;
        QVERIFY(s.saveWareType(in, false).ok());
        const WareTypeInput back = *s.loadWareType(in.wareTypeID);
        QCOMPARE(back.wareTypeName, in.wareTypeName);
        QCOMPARE((QList<bool>{back.isDoDiscount, back.isNomember, back.isHC, back.isBT}),
                 (QList<bool>{true, true, true, false}));
        QVERIFY(s.saveWareType({u"99"_s, u"无"_s}, false).refusal); // gone
        QCOMPARE(count(u"select count(*) from WareType"_s), 1);
    }

    void wareChecks_data() { // clang-format off
        columns<QString, QString, QString>("what", "message", "field");
        QTest::newRow("price 0") << "price0" << "请输入品项单价！" << "txtPrice";
        QTest::newRow("cost empty") << "cost" << "品项成本只能输入数字！" << "txtProcurePrice";
        QTest::newRow("no type") << "type" << "请选择品项所属分类！" << "imgcmbWareType";
        QTest::newRow("negatives pass") << "negative" << "" << ""; // clang-format on
    }
    void wareChecks() {
        auto [what, message, field] = fetch<QString, QString, QString>("what", "message", "field");
        WareInput in;
        in.wareTypeID = u"01"_s;
        in.wareName = u"青岛啤酒"_s;
        in.price = what == u"price0"_s ? u"0.00"_s : u"12.5"_s;
        if (what == u"cost"_s) in.procurePrice = QString();
        if (what == u"type"_s) in.wareTypeID.clear();
        if (what == u"negative"_s) in.price = in.procurePrice = in.tiCheng = u"-3"_s;
        const Refused r = WareService::validateWare(in);
        QCOMPARE(refusal(r), refusal(message, field));
    }

    void wareSaveLoad() {
        NEW_VENUE(v);
        DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水')"_s);
        WareService s;
        WareInput in;
        in.wareTypeID = u"01"_s;
        in.wareName = u"O'Neil's 黑啤"_s;
        in.price = u"12.345"_s;
        in.procurePrice = u"4.5"_s;
        in.tiCheng = u" 0.5 "_s;
        in.minNum = u"6箱"_s;
        const WareSaved added = s.saveWare(QString(), in);
        QVERIFY(added.ok());
        const Row r = DB().query(u"select * from Ware where WareID=?"_s, {added.id}).first();
        QCOMPARE(r.money(u"Price"_s).raw(), qint64(123450));
        QCOMPARE(r.money(u"tiCheng"_s).raw(), qint64(5000));
        QCOMPARE(r.num(u"minnum"_s), 6.0);
        // Stock on hand is never written by the dialog's save.
        DB().exec(u"update Ware set nownum=7 where WareID=?"_s, {added.id});
        in.price = u"15"_s;
        QCOMPARE(s.saveWare(added.id, in).id, added.id);
        const WareInput back = *s.loadWare(added.id);
        QCOMPARE(QStringList({back.wareName, back.price, back.procurePrice, back.nowNum}),
                 QStringList({in.wareName, u"15"_s, u"4.5"_s, u"7"_s}));
        // An edited row that went away is not made again.
        QVERIFY(!s.deleteWare(added.id));
        const WareSaved gone = s.saveWare(added.id, in);
        QVERIFY(gone.gone && !gone.refusal);
        QCOMPARE(count(u"select count(*) from Ware"_s), 0);
    }

    void wareLevelSave() {
        NEW_VENUE(v);
        QVERIFY(!WareLevelService::load(u"01"_s));
        WareLevelInput in;
        in.name = u"夜场"_s;
        in.start = {u"0"_s, u"18"_s, u"24"_s, QString()};
        in.end = {u"18"_s, u"24"_s, QString(), QString()};
        in.description = u"  周末 "_s;
        WareLevelService::save(u"01"_s, in);
        in.discount[0] = u"九折"_s; // not a number: stored as 0
        in.discount[1] = u"0.875"_s;
        WareLevelService::save(u"01"_s, in);
        QCOMPARE(count(u"select count(*) from WareLevel"_s), 1);
        QCOMPARE(count(u"select count(*) from s_log where theModel='营业设置' and "
                       "theDoName='商品折扣时段设置' and Dotype='修改'"_s),
                 2);
        const Row r = DB().query(u"select * from WareLevel"_s).first();
        QCOMPARE(r.num(u"Discount1"_s), 0.0);
        QCOMPARE(r.num(u"end3"_s), 0.0);
        QCOMPARE(r.text(u"Description"_s), u"周末"_s);
        const WareLevelInput back = *WareLevelService::load(u"01"_s);
        QCOMPARE(back.discount[1], u"0.88"_s); // shown "0.00"
    }
};

QTEST_MAIN(TestGoods)
#include "test_goods.moc"
