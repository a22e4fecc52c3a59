#include "OrderEntry.h"
#include "RoomUse.h"
#include "TestKit.h"

namespace {
// Beer; a juice and a sausage sharing the mnemonic "dk" in either case (the juice first by
// code); a name with quotes. Stock 10 each. Room A01 with its bill open.
QString openVenue() {
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('01', '酒水'), ('02', '小吃')"_s);
    DB().exec(u"insert into Ware (WareID, WareTypeID, WareCode, WareName, Mnemonics, Price, "
              "ProcurePrice, tiCheng, "
              "nownum) values ('beer', '01', 'A2', '啤酒', 'pj', 100000, 40000, 15000, 10), "
              "('juice', '01', 'A1', '冬瓜茶', 'DK', 33300, 10000, 5000, 10), "
              "('sausage', '02', 'B1', '大烤肠', 'dk', 80000, 20000, 0, 10), "
              "('quote', '02', 'B2', ?, 'o''n', 200000, 50000, 20000, 10)"_s,
              {u"O'Neil \"黑\" 啤\\"_s});
    addRoomType(u"a"_s, u"小包"_s);
    addRoom(u"r1"_s, u"A01"_s, u"a"_s);
    const Opened o = RoomUseService().open({u"r1"_s, {}, u"2"_s, {}, u"0"_s, true, 1});
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
    return DB().scalar(u"select nownum from Ware where WareID=?"_s, {wareID}).toDouble();
}
int lines(const QString& condition = u"1=1"_s) {
    return count(u"select count(*) from ExpenseDetail where "_s + condition);
}
} // namespace

class TestOrderEntry : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void cleanup() { App().IsUseWareHouse = 0; }

    void line_figures_data() { // clang-format off
        columns<QString, QString, QString, bool, double>("ware", "num", "steward", "isFree", "storedNum");
        // In 1/10000 yuan: Price, thePrice, ExpenseMoney, oughtMoney, Income, TiChengMoney.
        QTest::addColumn<QList<qint64>>("money");
        QTest::newRow("1.5 stored as such") << "juice" << "1.5" << "小王" << false << 1.5 << QList<qint64>{33300, 33300, 49950, 49950, 34950, 7500};
        QTest::newRow("gift: nothing owed, profit on the full price, commission kept") << "beer" << "1"
            << "小王" << true << 1.0 << QList<qint64>{100000, 100000, 100000, 0, 60000, 15000};
        QTest::newRow("return goes negative") << "beer" << "-1" << "小王" << false << -1.0
            << QList<qint64>{100000, 100000, -100000, -100000, -60000, -15000};
        QTest::newRow("number prefix, nobody credited") << "beer" << "2瓶" << "" << false << 2.0 << QList<qint64>{100000, 100000, 200000, 200000, 120000, 0}; // clang-format on
    }
    void line_figures() {
        auto [ware, num, steward, isFree, storedNum, money] =
            fetch<QString, QString, QString, bool, double, QList<qint64>>("ware", "num", "steward", "isFree",
                                                                          "storedNum", "money");
        NEW_VENUE(v);
        const QString bill = openVenue();
        order(*window(bill), ware, num, steward, isFree);
        const Rows r = DB().query(u"select * from ExpenseDetail"_s);
        QCOMPARE(r.count(), 1);
        const Row l = r.first();
        QList<qint64> stored;
        for (const char* c : {"Price", "thePrice", "ExpenseMoney", "oughtMoney", "Income", "TiChengMoney"})
            stored << l.money(QLatin1String(c)).raw();
        QCOMPARE(stored, money);
        QCOMPARE(l.num(u"num"_s), storedNum);
        // Nobody credited: the employee's field is not written.
        QCOMPARE(l.isNull(u"Other1"_s), steward.isEmpty());
        QCOMPARE(l.text(u"Other1"_s), steward);
        QCOMPARE(l.text(u"operatorname"_s), u"系统管理员"_s);
        QCOMPARE(l.text(u"ExpenseTime"_s), u"2026-11-21 20:00"_s);
    }

    void refused_data() { // clang-format off
        QTest::addColumn<QString>("num");
        QTest::addColumn<QString>("change"); // applied to the bill after the window opened
        columns<QString, QString>("message", "field");
        QTest::newRow("no quantity") << "  " << "" << "请输入消费数量！" << "txtNum";
        QTest::newRow("zero") << "0.00" << "" << "消费数量不能输入0，请重新输入！" << "txtNum";
        QTest::newRow("settled elsewhere") << "1" << "update Expense set State=0" << OrderText::billClosed() << "";
        QTest::newRow("merged away") << "1" << "delete from Expense" << OrderText::billGone() << "";
        QTest::newRow("return on a printed bill") << "-1" << "update Expense set Other2='1'" << "此单已打印过消费明细，系统不允许删除！\n如果需要进行删除，请在“营业设置”中进行设置！" << ""; // clang-format on
    }
    void refused() {
        auto [num, change, message, field] =
            fetch<QString, QString, QString, QString>("num", "change", "message", "field");
        NEW_VENUE(v);
        const QString bill = openVenue();
        App().IsUseWareHouse = 1;
        SetSetup(u"PrintExpenseEndBill"_s, u"1"_s);
        auto e = window(bill);
        if (!change.isEmpty()) DB().exec(change + u" where ExpenseID=?"_s, {bill});
        const LineSaved s = order(*e, u"beer"_s, num);
        QCOMPARE(refusal(s.refusal), refusal(message, field));
        QCOMPARE(lines(), 0);
        QCOMPARE(stock(u"beer"_s), 10.0);
        QVERIFY(!e->saved());
        QCOMPARE(e->thisCode(), QString());
    }

    void voids_data() { // clang-format off
        columns<bool, QString, bool>("managed", "num", "isFree");
        QTest::addColumn<QString>("setting"); // PrintExpenseEndBill
        QTest::addColumn<QString>("change");  // applied to the bill before the void
        columns<double, double, bool>("afterOrder", "afterVoid", "allowed");
        const QString printed = u"update Expense set Other2='1'"_s;
        QTest::newRow("stock back") << true << "2" << false << "0" << "" << 8.0 << 10.0 << true;
        QTest::newRow("return undone") << true << "-1" << false << "0" << "" << 11.0 << 10.0 << true;
        QTest::newRow("gift takes and gives") << true << "1" << true << "0" << "" << 9.0 << 10.0 << true;
        QTest::newRow("no floor below 0") << true << "12" << false << "0" << "" << -2.0 << 10.0 << true;
        QTest::newRow("stock not managed") << false << "2" << false << "0" << "" << 10.0 << 10.0 << true;
        QTest::newRow("printed, protection off") << true << "2" << false << "0" << printed << 8.0 << 10.0 << true;
        QTest::newRow("printed, protection on") << true << "2" << false << "1" << printed << 8.0 << 8.0 << false;
        QTest::newRow("protection on, another mark") << true << "2" << false << "1" << "update Expense set Other2='2'" << 8.0 << 10.0 << true;
        QTest::newRow("only the text 1 protects") << true << "2" << false << "1.0" << printed << 8.0 << 10.0 << true;
        QTest::newRow("settled elsewhere") << true << "2" << false << "0" << "update Expense set State=0" << 8.0 << 8.0 << false; // clang-format on
    }
    void voids() {
        auto [managed, num, isFree, setting, change, afterOrder, afterVoid, allowed] =
            fetch<bool, QString, bool, QString, QString, double, double, bool>(
                "managed", "num", "isFree", "setting", "change", "afterOrder", "afterVoid", "allowed");
        NEW_VENUE(v);
        const QString bill = openVenue();
        App().IsUseWareHouse = managed ? 1 : 0;
        auto e = window(bill);
        const LineSaved s = order(*e, u"beer"_s, num, {}, isFree);
        QVERIFY(s.ok());
        QCOMPARE(stock(u"beer"_s), afterOrder);
        SetSetup(u"PrintExpenseEndBill"_s, setting);
        if (!change.isEmpty()) DB().exec(change + u" where ExpenseID=?"_s, {bill});

        const Refused r = e->voidLine(s.line->detailID);
        QCOMPARE(!r, allowed);
        QCOMPARE(stock(u"beer"_s), afterVoid);
        QCOMPARE(lines(u"isdel=1"_s), allowed ? 1 : 0);
        if (!allowed) {
            QCOMPARE(r->icon, Msg::Icon::Exclamation);
            return;
        }
        // Voided on another workstation meanwhile: its stock went back there, not twice.
        const Refused again = OrderEntry().service().DeleteDetail(bill, s.line->detailID);
        QCOMPARE(again ? again->message : QString(), OrderText::lineGone());
        QCOMPARE(stock(u"beer"_s), afterVoid);
    }

    // One opening is one batch, coded by its first line; its total adds the amounts as the list
    // shows them (4.995 twice is 10.00). The order window shows a void of this batch.
    void batches_and_running_total() {
        NEW_VENUE(v);
        const QString bill = openVenue();
        const QString old = order(*window(bill), u"beer"_s, u"3"_s).line->detailID;
        auto e = window(bill);
        const QString first = order(*e, u"juice"_s, u"1.5"_s).line->detailID;
        order(*e, u"juice"_s, u"1.5"_s);
        QCOMPARE(lines(u"ThisCode='"_s + first + u'\''), 2);
        QCOMPARE(e->thisSumTag(), u"10.00"_s);
        // A void of an earlier batch leaves the total.
        QVERIFY(!e->voidLine(old));
        QCOMPARE(e->thisSumTag(), u"10.00"_s);
        e->endBatch();
        QCOMPARE(e->thisCode() + e->thisSumTag(), u"0.00"_s);
    }

    void quick_entry_data() { // clang-format off
        columns<QString, bool, int, QString>("text", "autoAdd", "next", "ware");
        QTest::addColumn<QString>("num"); // "-": the box keeps its text
        QTest::addColumn<QString>("message");
        using N = QuickEntry::Next;
        QTest::newRow("dk 2, employee next") << "dk 2" << false << int(N::FocusSteward) << "juice" << "2" << "";
        QTest::newRow("case aside, first by code") << "Dk" << true << int(N::Save) << "juice" << "1" << "";
        QTest::newRow("no quantity, quantity next") << "dk" << false << int(N::FocusNum) << "juice" << "-" << "";
        QTest::newRow("no prefix match") << "d 2" << true << int(N::NotFound) << "" << "-" << "没找到助记符为“d”的商品或服务！";
        QTest::newRow("quote in a mnemonic") << "O'N 1.5" << true << int(N::Save) << "quote" << "1.5" << "";
        QTest::newRow("second blank stays with the quantity") << "pj  3" << true << int(N::Save) << "beer" << " 3" << "";
        QTest::newRow("quantity no number") << "pj 2 3" << true << int(N::BadQuantity) << "beer" << "-" << "您输入2 3数量有误，请重新输入！"; // clang-format on
    }
    void quick_entry() {
        auto [text, autoAdd, next, ware, num, message] = fetch<QString, bool, int, QString, QString, QString>(
            "text", "autoAdd", "next", "ware", "num", "message");
        NEW_VENUE(v);
        const auto e = window(openVenue());
        const QuickEntry q = e->quickEntry(text, autoAdd);
        QCOMPARE(int(q.next), next);
        QCOMPARE(q.index < 0 ? QString() : e->goods()[q.index].wareID, ware);
        QCOMPARE(q.num.value_or(u"-"_s), num);
        QCOMPARE(q.message, message);
    }

    void tree_choice_data() { // clang-format off
        columns<QString, QString>("key", "text");
        columns<QString, double>("ware", "tiCheng");
        QTest::newRow("article") << "Kbeer" << "啤酒   8.00   提 1.50" << "beer" << 1.5;
        // Read back from the text, the first "提 " wins: such a name misleads the commission.
        QTest::newRow("name holding the marker") << "Ktira" << "提 拉米苏   30.00   提 3.00" << "tira" << 0.0; // clang-format on
    }
    void tree_choice() {
        auto [key, text, ware, tiCheng] =
            fetch<QString, QString, QString, double>("key", "text", "ware", "tiCheng");
        const std::optional<WareChoice> c = OrderEntry::treeChoice(key, text, 8.0);
        QVERIFY(c);
        QCOMPARE(c->wareID, ware);
        QCOMPARE(Val(c->tiCheng), tiCheng);
        QCOMPARE(Money::fromText(c->price), Money::yuan(8));
    }

    // The price is the one listed; the catalogue price and cost are those stored at the
    // order, and an article deleted meanwhile still gives its line.
    void price_fixed_when_listed() {
        NEW_VENUE(v);
        const QString bill = openVenue();
        App().AllDiscount = 0.8;
        App().IsAllDiscount = 1;
        auto e = window(bill);
        App().IsAllDiscount = 0;
        QCOMPARE(e->allDiscountCaption(), u"当前全场商品折扣: 0.80"_s);
        DB().exec(u"update Ware set Price=120000, ProcurePrice=50000 where WareID='beer'"_s);
        DB().exec(u"delete from Ware where WareID='sausage'"_s);
        order(*e, u"beer"_s, u"2"_s);
        order(*e, u"sausage"_s, u"1"_s);
        const Rows r = DB().query(u"select Price, thePrice, Income from ExpenseDetail order by WareID"_s);
        QStringList got;
        for (const Row l : r)
            for (const char* c : {"Price", "thePrice", "Income"})
                got << l.money(QLatin1String(c)).toString2();
        QCOMPARE(got.join(u' '), u"8.00 12.00 6.00 6.40 0.00 0.00"_s);
    }

    // Quotes, a backslash, an emoji and a long text are all kept as typed.
    void notes() {
        const QString note = u"O'Neil's \"特调\" \\n 🎂"_s + QString(600, QChar(0x6C34));
        NEW_VENUE(v);
        const QString id = order(*window(openVenue()), u"beer"_s, u"1"_s).line->detailID;
        OrderService s;
        QVERIFY(!s.SaveNote(id, note));
        QVERIFY(!s.SaveNote(id, note)); // remembered once
        QCOMPARE(text(u"select Description from ExpenseDetail"_s), note);
        QCOMPARE(count(u"select count(*) from sys_AutoInput where autoInputType="
                       "'DetailDescription' and thisValue=?"_s,
                       {note}),
                 1);
        const Refused gone = s.SaveNote(u"no-such-line"_s, note);
        QCOMPARE(gone ? gone->message : QString(), OrderText::lineGone());
    }
};

QTEST_MAIN(TestOrderEntry)
#include "test_order_entry.moc"
