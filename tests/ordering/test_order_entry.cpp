#include "AppState.h"
#include "OrderEntry.h"
#include "RoomUse.h"
#include "Settings.h"
#include "TestVenue.h"
#include "Val.h"
#include <QTest>

namespace {
// Beer; a juice and a sausage sharing the mnemonic "dk" in either case (the juice first by
// code); a name with quotes. Stock 10 each. Room A01 with its bill open.
QString openVenue() {
    DB().exec(QStringLiteral(
        "insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水'), ('02', '小吃')"));
    DB().exec(QStringLiteral("insert into Ware (WareID, WareTypeID, WareCode, WareName, Mnemonics, Price, "
                             "ProcurePrice, tiCheng, "
                             "nownum) values ('beer', '01', 'A2', '啤酒', 'pj', 100000, 40000, 15000, 10), "
                             "('juice', '01', 'A1', '冬瓜茶', 'DK', 33300, 10000, 5000, 10), "
                             "('sausage', '02', 'B1', '大烤肠', 'dk', 80000, 20000, 0, 10), "
                             "('quote', '02', 'B2', ?, 'o''n', 200000, 50000, 20000, 10)"),
              {QStringLiteral("O'Neil \"黑\" 啤\\")});
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values "
                             "('a', '小包', '00000000000000001')"));
    DB().exec(
        QStringLiteral("insert into The (TheID, TheCode, AssortID, State) values ('r1', 'A01', 'a', 0)"));
    const Opened o = RoomUseService().open(
        {QStringLiteral("r1"), {}, QStringLiteral("2"), {}, QStringLiteral("0"), true, 1});
    if (!o.ok()) qFatal("room not opened");
    return o.expenseID;
}

// An order window on the bill, its goods priced at the fixed hour.
std::unique_ptr<OrderEntry> window(const QString& bill) {
    auto e = std::make_unique<OrderEntry>();
    e->buildGoods(TestVenue::fixedNow(), AllDiscountRate::current());
    e->open(bill);
    return e;
}

LineSaved order(OrderEntry& e, const QString& wareID, const QString& num, const QString& steward = {},
                bool isFree = false) {
    int i = 0;
    while (e.goods()[i].wareID != wareID)
        ++i;
    OrderLineInput in;
    in.num = num;
    in.steward = steward;
    in.isFree = isFree;
    return e.save(e.listChoice(i), in);
}

double stock(const QString& wareID) {
    return DB().scalar(QStringLiteral("select nownum from Ware where WareID=?"), {wareID}).toDouble();
}
int lines(const QString& condition = QStringLiteral("1=1")) {
    return DB().scalar(QStringLiteral("select count(*) from ExpenseDetail where ") + condition).toInt();
}
} // namespace

class TestOrderEntry : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void cleanup() { App().IsUseWareHouse = 0; }

    void line_figures_data() {
        QTest::addColumn<QString>("ware");
        QTest::addColumn<QString>("num");
        QTest::addColumn<QString>("steward");
        QTest::addColumn<bool>("isFree");
        QTest::addColumn<double>("storedNum");
        // In 1/10000 yuan: Price, thePrice, ExpenseMoney, oughtMoney, Income, TiChengMoney.
        QTest::addColumn<QList<qint64>>("money");
        QTest::newRow("two, nobody credited")
            << "beer"
            << "2"
            << "" << false << 2.0 << QList<qint64>{100000, 100000, 200000, 200000, 120000, 0};
        QTest::newRow("1.5 stored as such")
            << "juice"
            << "1.5"
            << "小王" << false << 1.5 << QList<qint64>{33300, 33300, 49950, 49950, 34950, 7500};
        QTest::newRow("gift: nothing owed, profit on the full price, commission kept")
            << "beer"
            << "1"
            << "小王" << true << 1.0 << QList<qint64>{100000, 100000, 100000, 0, 60000, 15000};
        QTest::newRow("return goes negative")
            << "beer"
            << "-1"
            << "小王" << false << -1.0 << QList<qint64>{100000, 100000, -100000, -100000, -60000, -15000};
        QTest::newRow("number prefix")
            << "beer"
            << "2瓶"
            << "" << false << 2.0 << QList<qint64>{100000, 100000, 200000, 200000, 120000, 0};
        QTest::newRow("quotes are plain text")
            << "quote"
            << "1"
            << "" << false << 1.0 << QList<qint64>{200000, 200000, 200000, 200000, 150000, 0};
    }
    void line_figures() {
        QFETCH(QString, ware);
        QFETCH(QString, num);
        QFETCH(QString, steward);
        QFETCH(bool, isFree);
        QFETCH(double, storedNum);
        QFETCH(QList<qint64>, money);
        TestVenue v;
        OPEN_VENUE(v);
        const QString bill = openVenue();
        const LineSaved s = order(*window(bill), ware, num, steward, isFree);
        QVERIFY(s.ok());
        const Rows r = DB().query(QStringLiteral("select * from ExpenseDetail"));
        QCOMPARE(r.count(), 1);
        const Row l = r.first();
        QList<qint64> stored;
        for (const char* c : {"Price", "thePrice", "ExpenseMoney", "oughtMoney", "Income", "TiChengMoney"})
            stored << l.money(QLatin1String(c)).raw();
        QCOMPARE(stored, money);
        QCOMPARE(l.num(QStringLiteral("num")), storedNum);
        QCOMPARE(l.text(QStringLiteral("ExpenseID")) + l.text(QStringLiteral("WareID")), bill + ware);
        // Nobody credited: the employee's field is not written.
        QCOMPARE(l.isNull(QStringLiteral("Other1")), steward.isEmpty());
        QCOMPARE(l.text(QStringLiteral("Other1")), steward);
        QCOMPARE(l.integer(QStringLiteral("isFree")) * 10 + l.integer(QStringLiteral("isdel")),
                 isFree ? 10 : 0);
        QCOMPARE(l.text(QStringLiteral("operatorname")), QStringLiteral("系统管理员"));
        QCOMPARE(l.text(QStringLiteral("ExpenseTime")), QStringLiteral("2026-11-21 20:00"));
        QCOMPARE(l.text(QStringLiteral("ThisCode")), s.line->detailID);
        QCOMPARE(stock(ware), 10.0); // stock management off
    }

    void refused_data() {
        QTest::addColumn<QString>("num");
        QTest::addColumn<QString>("change"); // applied to the bill after the window opened
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");
        QTest::newRow("no quantity") << "  "
                                     << ""
                                     << "请输入消费数量！"
                                     << "txtNum";
        QTest::newRow("zero") << "0.00"
                              << ""
                              << "消费数量不能输入0，请重新输入！"
                              << "txtNum";
        QTest::newRow("no number") << "abc"
                                   << ""
                                   << "消费数量不能输入0，请重新输入！"
                                   << "txtNum";
        QTest::newRow("settled elsewhere") << "1"
                                           << "update Expense set State=0" << OrderText::billClosed() << "";
        QTest::newRow("merged away") << "1"
                                     << "delete from Expense" << OrderText::billGone() << "";
        QTest::newRow("return on a printed bill")
            << "-1"
            << "update Expense set Other2='1'"
            << "此单已打印过消费明细，系统不允许删除！\n如果需要进行删除，请在“营业设置”中进行设置！"
            << "";
    }
    void refused() {
        QFETCH(QString, num);
        QFETCH(QString, change);
        QFETCH(QString, message);
        QFETCH(QString, field);
        TestVenue v;
        OPEN_VENUE(v);
        const QString bill = openVenue();
        App().IsUseWareHouse = 1;
        SetSetup(QStringLiteral("PrintExpenseEndBill"), QStringLiteral("1"));
        auto e = window(bill);
        if (!change.isEmpty()) DB().exec(change + QStringLiteral(" where ExpenseID=?"), {bill});
        const LineSaved s = order(*e, QStringLiteral("beer"), num);
        QVERIFY(!s.ok());
        QCOMPARE(s.refusal->message, message);
        QCOMPARE(s.refusal->field, field);
        QCOMPARE(lines(), 0);
        QCOMPARE(stock(QStringLiteral("beer")), 10.0);
        QVERIFY(!e->saved());
        QCOMPARE(e->thisCode(), QString());
    }

    void voids_data() {
        QTest::addColumn<bool>("managed");
        QTest::addColumn<QString>("num");
        QTest::addColumn<bool>("isFree");
        QTest::addColumn<QString>("setting"); // PrintExpenseEndBill
        QTest::addColumn<QString>("change");  // applied to the bill before the void
        QTest::addColumn<double>("afterOrder");
        QTest::addColumn<double>("afterVoid");
        QTest::addColumn<bool>("allowed");
        const QString printed = QStringLiteral("update Expense set Other2='1'");
        QTest::newRow("stock back") << true << "2" << false << "0"
                                    << "" << 8.0 << 10.0 << true;
        QTest::newRow("1.5 shown as 2 gives 2 back") << true << "1.5" << false << "0"
                                                     << "" << 8.5 << 10.5 << true;
        QTest::newRow("return undone") << true << "-1" << false << "0"
                                       << "" << 11.0 << 10.0 << true;
        QTest::newRow("gift takes and gives") << true << "1" << true << "0"
                                              << "" << 9.0 << 10.0 << true;
        QTest::newRow("no floor below 0") << true << "12" << false << "0"
                                          << "" << -2.0 << 10.0 << true;
        QTest::newRow("stock not managed") << false << "2" << false << "0"
                                           << "" << 10.0 << 10.0 << true;
        QTest::newRow("printed, protection off")
            << true << "2" << false << "0" << printed << 8.0 << 10.0 << true;
        QTest::newRow("printed, protection on")
            << true << "2" << false << "1" << printed << 8.0 << 8.0 << false;
        QTest::newRow("protection on, not printed") << true << "2" << false << "1"
                                                    << "" << 8.0 << 10.0 << true;
        QTest::newRow("protection on, another mark")
            << true << "2" << false << "1"
            << "update Expense set Other2='2'" << 8.0 << 10.0 << true;
        QTest::newRow("only the text 1 protects")
            << true << "2" << false << "1.0" << printed << 8.0 << 10.0 << true;
        QTest::newRow("settled elsewhere") << true << "2" << false << "0"
                                           << "update Expense set State=0" << 8.0 << 8.0 << false;
    }
    void voids() {
        QFETCH(bool, managed);
        QFETCH(QString, num);
        QFETCH(bool, isFree);
        QFETCH(QString, setting);
        QFETCH(QString, change);
        QFETCH(double, afterOrder);
        QFETCH(double, afterVoid);
        QFETCH(bool, allowed);
        TestVenue v;
        OPEN_VENUE(v);
        const QString bill = openVenue();
        App().IsUseWareHouse = managed ? 1 : 0;
        auto e = window(bill);
        const LineSaved s = order(*e, QStringLiteral("beer"), num, {}, isFree);
        QVERIFY(s.ok());
        QCOMPARE(stock(QStringLiteral("beer")), afterOrder);
        SetSetup(QStringLiteral("PrintExpenseEndBill"), setting);
        if (!change.isEmpty()) DB().exec(change + QStringLiteral(" where ExpenseID=?"), {bill});

        const Refused r = e->voidLine(s.line->detailID);
        QCOMPARE(!r, allowed);
        QCOMPARE(stock(QStringLiteral("beer")), afterVoid);
        QCOMPARE(lines(QStringLiteral("isdel=1")), allowed ? 1 : 0);
        if (!allowed) {
            QCOMPARE(r->icon, Msg::Icon::Exclamation);
            return;
        }
        // Voided on another workstation meanwhile: its stock went back there, not twice.
        const Refused again = OrderEntry().service().DeleteDetail(bill, s.line->detailID);
        QCOMPARE(again ? again->message : QString(), OrderText::lineGone());
        QCOMPARE(stock(QStringLiteral("beer")), afterVoid);
    }

    // One opening is one batch; its total adds the amounts as the list shows them.
    void batches_and_running_total() {
        TestVenue v;
        OPEN_VENUE(v);
        const QString bill = openVenue();
        const QString old = order(*window(bill), QStringLiteral("beer"), QStringLiteral("3")).line->detailID;
        auto e = window(bill);
        const OrderedLine a = *order(*e, QStringLiteral("juice"), QStringLiteral("1.5")).line;
        const OrderedLine b = *order(*e, QStringLiteral("juice"), QStringLiteral("1.5")).line;
        order(*e, QStringLiteral("beer"), QStringLiteral("1"), {}, true);
        QCOMPARE(b.thisCode, a.detailID);
        QCOMPARE(lines(QStringLiteral("ThisCode='") + a.detailID + QLatin1Char('\'')), 3);
        QVERIFY(a.thisCode != old);
        // 4.995 twice shows as 5.00 twice; the gift counts 0.
        QCOMPARE(e->thisSumCaption(), QStringLiteral("本次消费: ￥10.00"));
        // A void of an earlier batch leaves the total; one of this batch takes its part out.
        QVERIFY(!e->voidLine(old));
        QCOMPARE(e->thisSumTag(), QStringLiteral("10.00"));
        QVERIFY(!e->voidLine(a.detailID));
        QCOMPARE(e->thisSumTag(), QStringLiteral("5.00"));
        e->endBatch();
        QCOMPARE(e->thisCode(), QString());
        QCOMPARE(e->thisSumTag(), QStringLiteral("0.00"));
    }

    void quick_entry_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("autoAdd");
        QTest::addColumn<int>("next");
        QTest::addColumn<QString>("ware");
        QTest::addColumn<QString>("num"); // "-": the box keeps its text
        QTest::addColumn<QString>("message");
        using N = QuickEntry::Next;
        QTest::newRow("nothing typed") << "  " << true << int(N::MoveOn) << ""
                                       << "-"
                                       << "";
        QTest::newRow("dk 2, at once") << "dk 2" << true << int(N::Save) << "juice"
                                       << "2"
                                       << "";
        QTest::newRow("dk 2, employee next") << "dk 2" << false << int(N::FocusSteward) << "juice"
                                             << "2"
                                             << "";
        QTest::newRow("case aside, first by code") << "Dk" << true << int(N::Save) << "juice"
                                                   << "1"
                                                   << "";
        QTest::newRow("no quantity, quantity next") << "dk" << false << int(N::FocusNum) << "juice"
                                                    << "-"
                                                    << "";
        QTest::newRow("no prefix match") << "d 2" << true << int(N::NotFound) << ""
                                         << "-"
                                         << "没找到助记符为“d”的商品或服务！";
        QTest::newRow("quote in a mnemonic") << "O'N 1.5" << true << int(N::Save) << "quote"
                                             << "1.5"
                                             << "";
        QTest::newRow("second blank stays with the quantity") << "pj  3" << true << int(N::Save) << "beer"
                                                              << " 3"
                                                              << "";
        QTest::newRow("quantity no number") << "pj 2 3" << true << int(N::BadQuantity) << "beer"
                                            << "-"
                                            << "您输入2 3数量有误，请重新输入！";
    }
    void quick_entry() {
        QFETCH(QString, text);
        QFETCH(bool, autoAdd);
        QFETCH(int, next);
        QFETCH(QString, ware);
        QFETCH(QString, num);
        QFETCH(QString, message);
        TestVenue v;
        OPEN_VENUE(v);
        const auto e = window(openVenue());
        const QuickEntry q = e->quickEntry(text, autoAdd);
        QCOMPARE(int(q.next), next);
        QCOMPARE(q.index < 0 ? QString() : e->goods()[q.index].wareID, ware);
        QCOMPARE(q.num.value_or(QStringLiteral("-")), num);
        QCOMPARE(q.message, message);
    }

    void tree_choice_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("ware"); // "-": a type node, nothing to order
        QTest::addColumn<double>("tiCheng");
        QTest::newRow("article") << "Kbeer"
                                 << "啤酒   8.00   提 1.50"
                                 << "beer" << 1.5;
        QTest::newRow("type node") << "t01"
                                   << "酒水"
                                   << "-" << 0.0;
        // Read back from the text, the first "提 " wins: such a name misleads the commission.
        QTest::newRow("name holding the marker") << "Ktira"
                                                 << "提 拉米苏   30.00   提 3.00"
                                                 << "tira" << 0.0;
    }
    void tree_choice() {
        QFETCH(QString, key);
        QFETCH(QString, text);
        QFETCH(QString, ware);
        QFETCH(double, tiCheng);
        const std::optional<WareChoice> c = OrderEntry::treeChoice(key, text, 8.0);
        QCOMPARE(c ? c->wareID : QStringLiteral("-"), ware);
        if (c) QCOMPARE(Val(c->tiCheng), tiCheng);
        if (c) QCOMPARE(Money::fromText(c->price), Money::yuan(8));
    }

    // The price is the one listed; the catalogue price and cost are those stored at the
    // order, and an article deleted meanwhile still gives its line.
    void price_fixed_when_listed() {
        TestVenue v;
        OPEN_VENUE(v);
        const QString bill = openVenue();
        App().AllDiscount = 0.8;
        App().IsAllDiscount = 1;
        auto e = window(bill);
        App().IsAllDiscount = 0;
        QCOMPARE(e->allDiscountCaption(), QStringLiteral("当前全场商品折扣: 0.80"));
        DB().exec(QStringLiteral("update Ware set Price=120000, ProcurePrice=50000 where WareID='beer'"));
        DB().exec(QStringLiteral("delete from Ware where WareID='sausage'"));
        order(*e, QStringLiteral("beer"), QStringLiteral("2"));
        order(*e, QStringLiteral("sausage"), QStringLiteral("1"));
        const Rows r =
            DB().query(QStringLiteral("select Price, thePrice, Income from ExpenseDetail order by WareID"));
        QStringList got;
        for (const Row l : r)
            for (const char* c : {"Price", "thePrice", "Income"})
                got << l.money(QLatin1String(c)).toString2();
        QCOMPARE(got.join(QLatin1Char(' ')), QStringLiteral("8.00 12.00 6.00 6.40 0.00 0.00"));
    }

    void notes_data() {
        QTest::addColumn<QString>("note");
        QTest::newRow("plain") << "少冰";
        QTest::newRow("quotes and backslash") << "O'Neil's \"特调\" \\n";
        QTest::newRow("emoji, long") << QStringLiteral("🎂") + QString(600, QChar(0x6C34));
    }
    void notes() {
        QFETCH(QString, note);
        TestVenue v;
        OPEN_VENUE(v);
        const QString id =
            order(*window(openVenue()), QStringLiteral("beer"), QStringLiteral("1")).line->detailID;
        OrderService s;
        QVERIFY(!s.SaveNote(id, note));
        QVERIFY(!s.SaveNote(id, note)); // remembered once
        QCOMPARE(DB().scalar(QStringLiteral("select Description from ExpenseDetail")).toString(), note);
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from sys_AutoInput where autoInputType="
                                            "'DetailDescription' and thisValue=?"),
                             {note})
                     .toInt(),
                 1);
        const Refused gone = s.SaveNote(QStringLiteral("no-such-line"), note);
        QCOMPARE(gone ? gone->message : QString(), OrderText::lineGone());
    }
};

QTEST_MAIN(TestOrderEntry)
#include "test_order_entry.moc"
