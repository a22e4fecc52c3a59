#include "OutSaleService.h"
#include "TestKit.h"

namespace {
struct Line {
    const char* price;
    const char* num;
    bool free = false;
    double procure = 0;
};

// The boxes and amounts of a sale as one text.
QString shown(const OutSaleModel& m) {
    return QStringList{m.expenseMoney(),
                       m.oughtMoney(),
                       m.noMoney(),
                       m.discount(),
                       m.factPay(),
                       m.chongzhiD(),
                       m.temp(),
                       m.tempRed() ? u"red"_s : u"blue"_s,
                       m.margin().toPlain(),
                       m.incomeAmount().toPlain(),
                       m.cashPayAmount().toPlain()}
        .join(u'|');
}

// Beer at 10 costing 4, cigarettes at 20 costing 15, both kept in stock.
void addGoods() {
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水')"_s);
    DB().exec(u"insert into Ware (WareID, WareTypeID, WareCode, WareName, Mnemonics, Price, ProcurePrice, "
              "nownum) values ('beer', '01', 'A1', '啤酒', 'pj', 100000, 40000, 100), "
              "('cig', '01', 'B1', '中华', 'zh', 200000, 150000, 50)"_s);
}

// Two beers, a gift of cigarettes, paid 50 in cash.
OutSaleInput threeLines(bool print = false) {
    OutSaleModel m;
    m.addLine(u"beer"_s, u"啤酒"_s, u"10.00"_s, true, Money::yuan(4), u"2"_s, false);
    m.addLine(u"cig"_s, u"中华"_s, u"20.00"_s, true, Money::yuan(15), u"1"_s, true);
    m.addLine(u"gone"_s, u"旧货"_s, u"5.00"_s, false, Money(), u"1"_s, false);
    m.setFactPay(u"50"_s);
    return OutSaleService::fromModel(m, u"柜台 'A'"_s, print);
}
} // namespace

class TestOutSale : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // The lines, the boxes that follow them and what they make of the sale's amounts.
    void amounts_data() {
        QTest::addColumn<QList<Line>>("lines");
        QTest::addColumn<QString>("ought"); // typed settlement, or null for none
        QTest::addColumn<QString>("factPay");
        QTest::addColumn<QString>("chongzhiD");
        QTest::addColumn<QString>("expected"); // shown() then the check's refusal
        const QString none;
        QTest::newRow("empty sale of 0 passes") << QList<Line>{} << none << u"0.00"_s << u"0.00"_s
                                                << u"0.00|0.00|0|10.00|0.00|0.00|0.00|blue|0|0|0|"_s;
        QTest::newRow("gift counts 0 but keeps its margin")
            << QList<Line>{{"10.00", "2", false, 4}, {"20.00", "1", true, 15}} << none << u"50"_s << u"0.00"_s
            << u"20.00|20.00|0|10.00|50|0.00|30.00|blue|17|3|20|"_s;
        QTest::newRow("a settlement typed drops the payments")
            << QList<Line>{{"10.00", "2", false, 4}} << u"18"_s << u"0.00"_s << u"0.00"_s
            << u"20.00|18|2|9.00|0.00|0.00|-18.00|red|12|6|18|"_s
               u"实收金额不能小于结算金额，请检查输入是否正确！ @txtFactPay"_s;
        QTest::newRow("stored value counts in the check only")
            << QList<Line>{{"10.00", "2", false, 4}} << none << u"10"_s << u"10"_s
            << u"20.00|20.00|0|10.00|10|10|0.00|blue|12|8|10|"_s;
        QTest::newRow("whole quantities: 0.4 is 0, 2.5 is 2, 40000 stays")
            << QList<Line>{{"1.50", "0.4", false, 1}, {"1.50", "2.5", false, 1}, {"1.50", "40000", false, 1}}
            << none << u"60003"_s << u"0"_s
            << u"60003.00|60003.00|0|10.00|60003|0|0.00|blue|20001|40002|60003|"_s;
        QTest::newRow("a return goes negative")
            << QList<Line>{{"10.00", "-1", false, 4}} << none << u"0"_s << u"0"_s
            << u"-10.00|-10.00|0|10.00|0|0|10.00|blue|-6|-4|-10|"_s;
        QTest::newRow("raised settlement") << QList<Line>{{"10.00", "1", false, 4}} << u"12"_s << u"12"_s
                                           << u"0"_s << u"10.00|12|-2|12.00|12|0|0.00|blue|6|6|12|"_s;
        QTest::newRow("cash not a number")
            << QList<Line>{{"10.00", "1", false, 4}} << none << u"12元"_s << u"0"_s
            << u"10.00|10.00|0|10.00|12元|0|2.00|blue|6|4|10|您输入的顾客支付金额有误，请重新输入！ @txtFactPay"_s;
        QTest::newRow("cash beyond any amount")
            << QList<Line>{{"10.00", "1", false, 4}} << none << u"1e13"_s << u"0"_s
            << u"10.00|10.00|0|10.00|1e13|0|9999999999990.00|blue|6|4|10|您输入的顾客支付金额有误，请重新输入！ @txtFactPay"_s;
    }
    void amounts() {
        QFETCH(QList<Line>, lines);
        QFETCH(QString, ought);
        QFETCH(QString, factPay);
        QFETCH(QString, chongzhiD);
        OutSaleModel m;
        for (const Line& l : lines)
            QCOMPARE(refusal(m.addLine(u"w"_s, u"货"_s, QString::fromUtf8(l.price), true,
                                       Money::fromDouble(l.procure), QString::fromUtf8(l.num), l.free)),
                     QString());
        if (!ought.isNull()) m.setOughtMoney(ought);
        m.setFactPay(factPay);
        m.setChongzhiD(chongzhiD);
        QTEST(QString(shown(m) + u'|' + refusal(m.CheckForm())), "expected");
    }
    // A quantity the line cannot take changes nothing.
    void refused_quantities_data() {
        QTest::addColumn<QString>("num");
        QTest::addColumn<QString>("expected");
        QTest::newRow("blank") << u"  "_s << u"请输入消费数量！ @txtNum"_s;
        QTest::newRow("zero") << u"0"_s << u"消费数量不能输入0，请重新输入！ @txtNum"_s;
        QTest::newRow("beyond 64 bits") << u"1e30"_s << u"您输入1e30数量有误，请重新输入！ @txtNum"_s;
        QTest::newRow("amount beyond any till")
            << u"900000000"_s << u"您输入900000000数量有误，请重新输入！ @txtNum"_s;
    }
    void refused_quantities() {
        QFETCH(QString, num);
        OutSaleModel m;
        QTEST(refusal(m.addLine(u"w"_s, u"货"_s, u"9999.00"_s, true, Money(), num, false)), "expected");
        QVERIFY(m.lines().isEmpty());
        QCOMPARE(m.thisSumCaption(), QString());
    }
    // Deleting a line takes its amount and margin off; the window shows the limit and clearing.
    void delete_and_limit() {
        OutSaleModel m;
        m.addLine(u"a"_s, u"甲"_s, u"10.00"_s, true, Money::yuan(4), u"1"_s, false);
        m.addLine(u"a"_s, u"甲"_s, u"10.00"_s, true, Money::yuan(4), u"1"_s, false);
        QCOMPARE(m.lines().size(), 2); // two lines of one article stay two
        m.setOughtMoney(u"17"_s);
        QVERIFY(m.deleteLine(m.lines().first().key));
        QCOMPARE(m.thisSumCaption() + u'|' + shown(m),
                 u"本次消费: 10.00|10.00|10.00|0|10.00|0.00|0.00|-10.00|red|6|4|10"_s);
        m.setOughtMoney(u"9"_s);
        QVERIFY(m.exceedsDiscountLimit(0.99));
    }

    // The sale, its lines, its number, the stock, the counter entry, the log and its receipt in
    // one go; the next sale, not printed, takes the next number.
    void sale_is_stored_whole() {
        NEW_VENUE(v);
        addGoods();
        App().IsUseWareHouse = 1;
        const OutSaleDone first = OutSaleService().SaveData(threeLines(true));
        QVERIFY(first.saved);
        QCOMPARE(first.expenseID, u"20261121-00001"_s);
        QCOMPARE(
            dump(u"select ExpenseID, OpenTime, CloseTime, Description, openOperator, CloseOperator, State, "
                 "VoucherState, ExpenseMoney, oughtMoney, NoMoney, factpay, CashPay, Income from Outsale"_s),
            u"20261121-00001|2026-11-21 20:00|2026-11-21 20:00|柜台 'A'|系统管理员|系统管理员|0|0|"
            "250000|250000|0|250000|250000|80000"_s);
        QCOMPARE(dump(u"select WareID, num, Price, thePrice, oughtMoney, ExpenseMoney, Income, isFree, isdel "
                      "from OutsaleDetail where ExpenseID=? order by WareID"_s,
                      {first.expenseID}),
                 u"beer|2|100000|100000|200000|0|120000|0|0\ncig|1|200000|200000|0|0|50000|1|0\n"
                 "gone|1|50000|0|50000|0|0|0|0"_s);
        QCOMPARE(dump(u"select nownum from Ware order by WareID"_s), u"98\n49"_s);
        QCOMPARE(dump(u"select theModel, theDoName, Dotype, dook, theContent from s_log"_s),
                 u"外卖|外卖|新增|成功|单据编号：20261121-00001 结算金额：25.00"_s);
        QCOMPARE(text(u"select setupvalue from pSetup where setupname='NextNo_20261121-00001'"_s),
                 u"20261121-00001"_s);

        App().IsUseWareHouse = 0;
        const OutSaleDone second = OutSaleService().SaveData(threeLines());
        QCOMPARE(second.expenseID, u"20261121-00002"_s);
        QCOMPARE(dump(u"select nownum from Ware order by WareID"_s), u"98\n49"_s);
        QCOMPARE(count(u"select count(*) from OutsaleDetail"_s), 6);
        QCOMPARE(count(u"select count(*) from PrintJob where SourceID=?"_s, {first.expenseID}), 1);
        QCOMPARE(count(u"select count(*) from PrintJob"_s), 1);
    }
    // A failure halfway leaves nothing: no sale, no number taken, no stock moved, no log.
    void failure_leaves_nothing() {
        NEW_VENUE(v);
        addGoods();
        App().IsUseWareHouse = 1;
        DB().exec(u"alter table OutsaleDetail rename to OutsaleDetailGone"_s);
        QVERIFY_THROWS_EXCEPTION(DbError, OutSaleService().SaveData(threeLines(true)));
        QCOMPARE(count(u"select count(*) from Outsale"_s), 0);
        QCOMPARE(count(u"select count(*) from pSetup where setupname like 'NextNo_%'"_s), 0);
        QCOMPARE(count(u"select count(*) from s_log"_s), 0);
        QCOMPARE(count(u"select count(*) from PrintJob"_s), 0);
        QCOMPARE(dump(u"select nownum from Ware order by WareID"_s), u"100\n50"_s);
    }
};

QTEST_MAIN(TestOutSale)
#include "test_outsale.moc"
