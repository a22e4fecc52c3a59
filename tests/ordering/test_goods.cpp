#include "Mnemonic.h"
#include "TestVenue.h"
#include "WareLevel.h"
#include "WarePrice.h"
#include "WareService.h"
#include <QRegularExpression>
#include <QTest>

namespace {
int count(const QString& sql) {
    return DB().scalar(sql).toInt();
}

// Types 01 with periods 0-18 at 1 and 18-24 at 0.8, 02 with periods allowed but none set,
// 03 without periods; goods with and without codes, one without a type.
void addGoods() {
    DB().exec(QStringLiteral("insert into WareType (WareTypeID, wareTypeName, isDoDiscount) values "
                             "('01', '酒水', 1), ('02', '小吃', 1), ('03', '果盘', 0)"));
    DB().exec(
        QStringLiteral("insert into WareLevel (WareLevelID, start1, end1, start2, end2, Discount2) values "
                       "('01', 0, 18, 18, 24, 0.8)"));
    DB().exec(QStringLiteral("insert into Ware (WareID, WareTypeID, WareCode, WareName, Price) values "
                             "('w1', '01', 'B2', '啤酒', 100000), ('w2', '02', 'A1', '花生', 80000), "
                             "('w3', '03', null, '果盘', 305000), ('w4', null, 'C3', '无分类', 20000), "
                             "('w5', '02', 'A2', '瓜子', 60000)"));
}
} // namespace

class TestGoods : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void mnemonic_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("expected");
        QTest::newRow("beer") << "啤酒"
                              << "pj";
        QTest::newRow("case kept, blank skipped") << "K歌 2"
                                                  << "Kg2";
        QTest::newRow("punctuation skipped") << "A-1"
                                             << "A1";
        QTest::newRow("empty") << ""
                               << "";
        QTest::newRow("mixed") << "青岛Beer（大）"
                               << "qdBeerd";
        // Both ends of every range of the table, a to z.
        QTest::newRow("table ends")
            << "啊澳芭怖擦错搭堕蛾贰发咐噶过哈祸击骏喀阔垃络妈穆拿诺哦沤啪瀑期群然弱撒所塌唾挖误昔褕褖孕匝座"
            << "aabbccddeeffgghhjjkkllmmnnooppqqrrssttwwxxyyzz";
        // The boundary as the table has it: 玄 D0FE x; 选 D1A1, 学 D1A7 and 迅 D1B8 y.
        QTest::newRow("x/y boundary") << "玄选学迅压"
                                      << "xyyyy";
        QTest::newRow("below the table") << "盃"
                                         << ""; // B0A0
        QTest::newRow("extension code inside a range") << "盄"
                                                       << "b"; // B140
        QTest::newRow("second level only") << "亍亓"
                                           << "";
        QTest::newRow("full-width, symbols, no GBK code") << "Ａ１　。€é🍺倗"
                                                          << "";
    }
    void mnemonic() {
        QFETCH(QString, name);
        QFETCH(QString, expected);
        QCOMPARE(GetMnemonic(name), expected);
    }

    void price_data() {
        QTest::addColumn<QString>("price");
        QTest::addColumn<bool>("flag");
        QTest::addColumn<QString>("periods"); // "start-end@factor,...", or "none" for no row
        QTest::addColumn<bool>("allOn");
        QTest::addColumn<float>("rate");
        QTest::addColumn<int>("hour");
        QTest::addColumn<QString>("expected");
        const char* evening = "0-18@1,18-24@0.8";
        QTest::newRow("catalogue") << "12.5" << false << evening << false << 1.0f << 20 << "12.50";
        QTest::newRow("start inclusive") << "10" << true << evening << false << 1.0f << 18 << "8.00";
        QTest::newRow("end exclusive") << "10" << true << evening << false << 1.0f << 17 << "10.00";
        QTest::newRow("end 24 holds 23") << "10" << true << evening << false << 1.0f << 23 << "8.00";
        QTest::newRow("nothing after 24")
            << "10" << true << "0-24@0.5,18-24@0.8" << false << 1.0f << 20 << "5.00";
        QTest::newRow("end 0 never holds") << "10" << true << "0-0@0.5" << false << 1.0f << 0 << "10.00";
        QTest::newRow("overlap: lowest wins")
            << "10" << true << "0-24@0.9,0-24@0.5" << false << 1.0f << 3 << "9.00";
        QTest::newRow("outside every period") << "10" << true << "0-6@0.5" << false << 1.0f << 10 << "10.00";
        QTest::newRow("factor above 1") << "10" << true << "0-24@1.5" << false << 1.0f << 10 << "15.00";
        QTest::newRow("no period row") << "10" << true << "none" << false << 1.0f << 10 << "";
        QTest::newRow("venue rate ignores the flag")
            << "10" << false << evening << true << 0.9f << 10 << "9.00";
        QTest::newRow("venue rate first") << "10" << true << evening << true << 0.5f << 20 << "5.00";
        QTest::newRow("venue rate, no row, no message")
            << "10" << true << "none" << true << 0.9f << 10 << "9.00";
        QTest::newRow("venue rate 0") << "10" << false << evening << true << 0.0f << 10 << "0.00";
        // 0.9 as a single is 0.89999998: 0.05 x it is below the half cent.
        QTest::newRow("single-precision rate") << "0.05" << false << evening << true << 0.9f << 10 << "0.04";
        QTest::newRow("half away from zero")
            << "-2.675" << false << evening << false << 1.0f << 10 << "-2.68";
        QTest::newRow("product rounded once")
            << "0.125" << true << "0-24@0.5" << false << 1.0f << 10 << "0.06";
    }
    void price() {
        QFETCH(QString, price);
        QFETCH(bool, flag);
        QFETCH(QString, periods);
        QFETCH(bool, allOn);
        QFETCH(float, rate);
        QFETCH(int, hour);
        QFETCH(QString, expected);
        WarePriceRow row{Money::fromText(price), flag, std::nullopt, QStringLiteral("酒水")};
        if (periods != QLatin1String("none")) {
            WarePeriods p;
            const QStringList parts = periods.split(QLatin1Char(','));
            for (size_t i = 0; i < size_t(parts.size()); ++i) {
                const QStringList f = parts[qsizetype(i)].split(QRegularExpression(QStringLiteral("[-@]")));
                p.start[i] = f[0].toDouble();
                p.end[i] = f[1].toDouble();
                p.discount[i] = f[2].toDouble();
            }
            row.level = p;
        }
        const WarePrice d = DecideWarePrice(row, {allOn, rate}, hour);
        QCOMPARE(d.text, expected);
        QCOMPARE(d.warning,
                 expected.isEmpty()
                     ? QStringLiteral("对不起，您设置 酒水 类商品使用时段折扣，但没有设置此类商品的具体"
                                      "折扣数值，请在“营业设置”的“商品分类”中设置此类商品的“折扣时段”！")
                     : QString());
        QCOMPARE(AllDiscountCaption({allOn, rate}),
                 allOn ? QStringLiteral("当前全场商品折扣: ") + QString::number(rate, 'f', 2) : QString());
    }

    void goodsListPricedAtTheHour() {
        TestVenue v;
        OPEN_VENUE(v);
        addGoods();
        auto priced = [](int hour, AllDiscountRate all) {
            QStringList out;
            for (const PricedWare& w :
                 WareCatalog::FillWareList(QDateTime(QDate(2026, 11, 21), QTime(hour, 59)), all))
                out << w.wareID + QLatin1Char('=') + w.decided.text +
                           (w.decided.warning.isEmpty() ? QString() : QStringLiteral("!"));
            return out;
        };
        // Goods without a code first, then by code; the message once per article of the type.
        QCOMPARE(priced(20, {}).join(QLatin1Char(' ')), QStringLiteral("w3=30.50 w2=! w5=! w1=8.00 w4=2.00"));
        QCOMPARE(priced(17, {}).join(QLatin1Char(' ')),
                 QStringLiteral("w3=30.50 w2=! w5=! w1=10.00 w4=2.00"));
        QCOMPARE(priced(9, {true, 0.5f}).join(QLatin1Char(' ')),
                 QStringLiteral("w3=15.25 w2=4.00 w5=3.00 w1=5.00 w4=1.00"));
    }

    void wareTypeSaveAndDelete() {
        TestVenue v;
        OPEN_VENUE(v);
        WareService s;
        WareTypeInput in{QStringLiteral("O'01"), QStringLiteral("酒水 \"进口\""), true, false, true, false};
        QVERIFY(s.saveWareType(in, true).ok());
        // A taken key: one message, the store's reason on its own line.
        const WareSaved again = s.saveWareType(in, true);
        QVERIFY(again.refusal && again.refusal->message.startsWith(
                                     QStringLiteral("您输入的分类编号已存在，请重新输入！\n错误信息： ")));
        in.isNomember = true;
        QVERIFY(s.saveWareType(in, false).ok());
        const WareTypeInput back = *s.loadWareType(in.wareTypeID);
        QCOMPARE(back.wareTypeName, in.wareTypeName);
        QCOMPARE((QList<bool>{back.isDoDiscount, back.isNomember, back.isHC, back.isBT}),
                 (QList<bool>{true, true, true, false}));
        QVERIFY(s.saveWareType({QStringLiteral("99"), QStringLiteral("无")}, false).refusal); // gone
        QCOMPARE(count(QStringLiteral("select count(*) from WareType")), 1);

        DB().exec(QStringLiteral("insert into Ware (WareID, WareTypeID) values ('w1', ?)"), {in.wareTypeID});
        const Refused inUse = s.deleteWareType(in.wareTypeID);
        QCOMPARE(inUse ? inUse->message : QString(), QStringLiteral("不能删除此数据，因为它已经使用！"));
        QVERIFY(!s.deleteWare(QStringLiteral("w1")));
        QVERIFY(!s.deleteWareType(in.wareTypeID));
        QCOMPARE(count(QStringLiteral("select count(*) from WareType")), 0);
    }

    void wareChecks_data() {
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");
        QTest::newRow("no name, before the price") << "name"
                                                   << "请输入品项名称！"
                                                   << "txtWareName";
        QTest::newRow("price 0") << "price0"
                                 << "请输入品项单价！"
                                 << "txtPrice";
        QTest::newRow("price not a number") << "priceText"
                                            << "请输入品项单价！"
                                            << "txtPrice";
        QTest::newRow("cost empty") << "cost"
                                    << "品项成本只能输入数字！"
                                    << "txtProcurePrice";
        QTest::newRow("commission text") << "ticheng"
                                         << "员工提成只能输入数字！"
                                         << "txtTicheng";
        QTest::newRow("no type") << "type"
                                 << "请选择品项所属分类！"
                                 << "imgcmbWareType";
        QTest::newRow("price beyond money") << "huge"
                                            << "品项单价超出范围！"
                                            << "txtPrice";
        QTest::newRow("negatives pass") << "negative"
                                        << ""
                                        << "";
    }
    void wareChecks() {
        QFETCH(QString, what);
        QFETCH(QString, message);
        QFETCH(QString, field);
        WareInput in;
        in.wareTypeID = QStringLiteral("01");
        in.wareName = what == QLatin1String("name") ? QStringLiteral(" ") : QStringLiteral("青岛啤酒");
        in.price = what == QLatin1String("price0") || what == QLatin1String("name") ? QStringLiteral("0.00")
                   : what == QLatin1String("priceText")                             ? QStringLiteral("十元")
                   : what == QLatin1String("huge")                                  ? QStringLiteral("1e300")
                                                                                    : QStringLiteral("12.5");
        if (what == QLatin1String("cost")) in.procurePrice = QString();
        if (what == QLatin1String("ticheng")) in.tiCheng = QStringLiteral("1元");
        if (what == QLatin1String("type")) in.wareTypeID.clear();
        if (what == QLatin1String("negative")) in.price = in.procurePrice = in.tiCheng = QStringLiteral("-3");
        const Refused r = WareService::validateWare(in);
        QCOMPARE(r ? r->message : QString(), message);
        QCOMPARE(r ? r->field : QString(), field);
    }

    void wareSaveLoad() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(QStringLiteral("insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水')"));
        WareService s;
        WareInput in;
        in.wareTypeID = QStringLiteral("01");
        in.wareName = QStringLiteral("O'Neil's 黑啤");
        in.price = QStringLiteral("12.345");
        in.procurePrice = QStringLiteral("4.5");
        in.tiCheng = QStringLiteral(" 0.5 ");
        in.minNum = QStringLiteral("6箱");
        const WareSaved added = s.saveWare(QString(), in);
        QVERIFY(added.ok());
        const Row r = DB().query(QStringLiteral("select * from Ware where WareID=?"), {added.id}).first();
        QCOMPARE(r.money(QStringLiteral("Price")).raw(), qint64(123450));
        QCOMPARE(r.money(QStringLiteral("tiCheng")).raw(), qint64(5000));
        QCOMPARE(r.num(QStringLiteral("minnum")), 6.0);
        // Stock on hand is never written by the dialog's save.
        DB().exec(QStringLiteral("update Ware set nownum=7 where WareID=?"), {added.id});
        in.price = QStringLiteral("15");
        QCOMPARE(s.saveWare(added.id, in).id, added.id);
        const WareInput back = *s.loadWare(added.id);
        QCOMPARE(
            QStringList({back.wareName, back.price, back.procurePrice, back.nowNum}),
            QStringList({in.wareName, QStringLiteral("15"), QStringLiteral("4.5"), QStringLiteral("7")}));
        // An edited row that went away is not made again.
        QVERIFY(!s.deleteWare(added.id));
        const WareSaved gone = s.saveWare(added.id, in);
        QVERIFY(gone.gone && !gone.refusal);
        QCOMPARE(count(QStringLiteral("select count(*) from Ware")), 0);
    }

    void wareLevelSave() {
        TestVenue v;
        OPEN_VENUE(v);
        QVERIFY(!WareLevelService::load(QStringLiteral("01")));
        WareLevelInput in;
        in.name = QStringLiteral("夜场");
        in.start = {QStringLiteral("0"), QStringLiteral("18"), QStringLiteral("24"), QString()};
        in.end = {QStringLiteral("18"), QStringLiteral("24"), QString(), QString()};
        in.description = QStringLiteral("  周末 ");
        WareLevelService::save(QStringLiteral("01"), in);
        in.discount[0] = QStringLiteral("九折"); // not a number: stored as 0
        in.discount[1] = QStringLiteral("0.875");
        WareLevelService::save(QStringLiteral("01"), in);
        QCOMPARE(count(QStringLiteral("select count(*) from WareLevel")), 1);
        QCOMPARE(count(QStringLiteral("select count(*) from s_log where theModel='营业设置' and "
                                      "theDoName='商品折扣时段设置' and Dotype='修改'")),
                 2);
        const Row r = DB().query(QStringLiteral("select * from WareLevel")).first();
        QCOMPARE(r.num(QStringLiteral("Discount1")), 0.0);
        QCOMPARE(r.num(QStringLiteral("end3")), 0.0);
        QCOMPARE(r.text(QStringLiteral("Description")), QStringLiteral("周末"));
        const WareLevelInput back = *WareLevelService::load(QStringLiteral("01"));
        QCOMPARE(back.discount[1], QStringLiteral("0.88")); // shown "0.00"
        QCOMPARE(QStringList(back.end.begin(), back.end.end()),
                 QStringList({QStringLiteral("18"), QStringLiteral("24"), QString(), QString()}));
    }
};

QTEST_MAIN(TestGoods)
#include "test_goods.moc"
