#include "ChargeEngine.h"
#include "TestKit.h"
#include "fExpense.h"
#include "fThe.h"

namespace {
const QString MissingTariff = u"没有找到相关的计费标准！请检查计费标准是否已被删除！"_s;

// Day periods as "start-end:price:minimum:buyOutHours:buyOutPrice" separated by blanks: the
// values of each period in the order of the grid's columns, those left out unused.
QList<QList<double>> periodValues(const QString& periods) {
    QList<QList<double>> out;
    for (QString period : periods.split(u' ', Qt::SkipEmptyParts)) {
        QList<double> values;
        for (const QString& v : period.replace(u'-', u':').split(u':'))
            values << v.toDouble();
        out << values;
    }
    return out;
}

PeriodGrid grid(const QString& periods) {
    PeriodGrid g;
    const QList<QList<double>> values = periodValues(periods);
    for (int p = 0; p < values.size(); ++p)
        for (int c = 0; c < values[p].size(); ++c)
            g.set(p, c, values[p][c]);
    return g;
}

// The same periods as a stored tariff (free minutes 5, grace 10); the fields of unused periods
// stay null.
void addTariff(const QString& id, const QString& periods, int unit, int notOne) {
    const QStringList names{u"start"_s, u"end"_s, u"Price"_s, u"MinMoney"_s, u"PriceA"_s, u"MinMoneyA"_s};
    QString columns = u"PayLevelID, PayLevelName, payType, AfterTime, Unit, NotOne, PrivilegeTime"_s;
    QString marks = u"?, ?, 1, 5, ?, ?, 10"_s;
    Params params{id, id, unit, notOne};
    const QList<QList<double>> values = periodValues(periods);
    for (int p = 0; p < values.size(); ++p)
        for (int c = 0; c < values[p].size(); ++c) {
            columns += u", "_s + names[c] + QString::number(p + 1);
            marks += u", ?"_s;
            params << values[p][c];
        }
    DB().exec(u"insert into PayLevel ("_s + columns + u") values ("_s + marks + u')', params);
}

// "HH:mm[:ss]" on the day of the tests, or a full "yyyy-MM-dd HH:mm[:ss]".
QDateTime at(const QString& text) {
    if (text.size() <= 8) {
        const QTime t = QTime::fromString(text, text.size() == 5 ? u"HH:mm"_s : u"HH:mm:ss"_s);
        return QDateTime(QDate(2026, 11, 21), t);
    }
    return ParseTime(text);
}

// Tariff A of the worked examples: 60 an hour until 18:00, 100 after.
const QString TariffA = u"0-18:60 18-24:100"_s;

// The hourly rules spelt out unit by unit on QDateTime, to check the engine's shortcuts.
Money slowHourMoney(QDateTime t, const QDateTime& close, int unit, int notOne, int privilegeTime,
                    const PeriodGrid& g) {
    Money total;
    int p = FindPeriod(t, g);
    while (t.addSecs(unit * 60) <= close) {
        p = FindPeriod(t, g);
        total += Money::fromDouble(double(g.at(p, PeriodGrid::Price)) / 60 * unit);
        t = t.addSecs(unit * 60);
    }
    if (t == close) return total;
    const qint64 m = MinutesBetween(t, close);
    const double price = double(g.at(FindPeriod(t, g), PeriodGrid::Price));
    if (notOne == 0) return total > Money() ? total : Money::yuan(g.at(p, PeriodGrid::Price));
    if (notOne == 1) return m > privilegeTime ? total + Money::fromDouble(price / 60 * unit) : total;
    return Money::fromDouble(double(m) * (price / 60) + total.toDouble());
}

void addRoomRow(const QString& id, const QString& code, const QString& assortID = {}) {
    DB().exec(u"insert into The (TheID, TheCode, AssortID) values (?, ?, ?)"_s,
              {id, code, assortID.isEmpty() ? Param(nullptr) : Param(assortID)});
}

void addBill(const QString& id, const QString& theID, const QString& payLevelID, const QString& openTime,
             int payLevelType, bool useMinMoney = false, Money oldMoney = {}) {
    DB().exec(u"insert into Expense (ExpenseID, TheID, PayLevelID, OpenTime, payLevelType, "
              "IsUseMinMoney, oldMoney, State) values (?, ?, ?, ?, ?, ?, ?, 0)"_s,
              {id, theID, payLevelID, openTime, payLevelType, useMinMoney ? 1 : 0, oldMoney});
}

// Lines as blank-separated amounts owed; an "x" in front marks a voided line.
void addLines(const QString& expenseID, const QString& lines, Money income = {}) {
    int n = 0;
    for (QString line : lines.split(u' ', Qt::SkipEmptyParts)) {
        const bool voided = line.startsWith(u'x');
        if (voided) line.remove(0, 1);
        DB().exec(u"insert into ExpenseDetail (DetailID, ExpenseID, oughtMoney, Income, isdel) "
                  "values (?, ?, ?, ?, ?)"_s,
                  {expenseID + u'-' + QString::number(++n), expenseID, Money::fromText(line), income,
                   voided ? 1 : 0});
    }
}
} // namespace

class TestChargeEngine : public QObject {
    Q_OBJECT
    std::unique_ptr<TestVenue> m_venue;
    int m_bill = 0;

    static void row(const char* name, const QString& periods, int unit, int notOne, const char* open,
                    const char* close, int payLevelType, const char* expected, double goods = 0,
                    bool useMinMoney = false, double oldMoney = 0) {
        QTest::newRow(name) << periods << unit << notOne << QString::fromLatin1(open)
                            << QString::fromLatin1(close) << payLevelType << goods << useMinMoney << oldMoney
                            << QString::fromLatin1(expected);
    }

  private Q_SLOTS:
    // The stored bills below share one venue; the engine's own cases need none.
    void initTestCase() {
        m_venue = std::make_unique<TestVenue>();
        OPEN_VENUE(*m_venue);
        addTariff(u"A0"_s, TariffA, 30, 0);
        addTariff(u"A1"_s, TariffA, 30, 1);
        addTariff(u"AMin"_s, u"0-18:60:300 18-24:100"_s, 30, 1);
        addTariff(u"B"_s, u"0-18:60:0:3:150 18-24:80:0:3:200"_s, 60, 2);
        addTariff(u"Dec"_s, u"0-12:88.5 12-24:89.5"_s, 60, 1);
        addRoomType(u"T1"_s, u"大包"_s, u"A1"_s);
        addRoom(u"R1"_s, u"101"_s, u"T1"_s);
        addRoomRow(u"R3"_s, u"099"_s);
    }
    void cleanupTestCase() { m_venue.reset(); }

    void roomMoney_data() { // clang-format off
        columns<QString, int, int, QString, QString, int, double, bool, double, QString>("periods", "unit", "notOne", "open", "close", "payLevelType", "goods", "useMinMoney", "oldMoney", "expected");
        const QString withMinimum = u"0-18:60:300 18-24:100"_s;
        const QString fixedB = u"0-18:60:0:3:150 18-24:80:0:3:200"_s;
        const QString noBuyOut = u"0-24:80:0:0:200"_s;

        // The worked examples (free minutes 5, grace 10 throughout).
        row("units across the 18:00 change, tail charged", TariffA, 30, 1, "17:20", "19:35", 1, "210");
        row("no whole unit under rule 0 costs an hour", TariffA, 30, 0, "17:20", "17:45", 1, "60");
        row("tail by the minute", TariffA, 30, 2, "17:20", "18:05", 1, "45");
        row("minimum tops the room up", withMinimum, 30, 1, "17:20", "18:20", 1, "200", 100, true);
        row("buy-out then overtime by the minute", fixedB, 60, 2, "20:00", "23:30", 0, "240");
        row("buy-out without hours, any length", noBuyOut, 60, 2, "20:00", "2026-11-22 09:10", 0, "200");

        // Free minutes and the start of billing.
        row("last free minute", TariffA, 30, 2, "17:20", "17:25", 1, "0");
        row("first billed minute counts from opening", TariffA, 30, 2, "17:20", "17:26", 1, "6");
        row("free minutes are free for a fixed rate too", fixedB, 60, 2, "20:00", "20:05", 0, "0");
        row("closing before opening", TariffA, 30, 0, "17:20", "16:00", 1, "0");
        row("seconds are ignored for the free minutes", TariffA, 30, 2, "17:20:50", "17:26:10", 1, "6");

        // Exactly three units, the closing time with seconds: a tail of 0 minutes, not of half a one.
        row("tail of 0 minutes, rule 2", TariffA, 30, 2, "17:20", "18:50:30", 1, "110");
        row("tail equal to the grace is free", TariffA, 30, 1, "17:20", "18:00", 1, "30");
        row("tail one over the grace", TariffA, 30, 1, "17:20", "18:01", 1, "60");
        row("rule 0 floor takes the tail's period", TariffA, 30, 0, "18:10", "18:30", 1, "100");
        row("rounded at each unit", u"0-24:100"_s, 1, 1, "10:00", "10:07", 1, "11.6669");
        row("tail rounded once", u"0-24:100"_s, 30, 2, "10:00", "10:07", 1, "11.6667");

        // Periods.
        row("a unit is priced by the period it starts in", TariffA, 30, 1, "17:50", "18:20", 1, "30");
        row("hours in no period cost nothing", u"10-24:60"_s, 30, 1, "02:00", "03:00", 1, "0");
        row("rule 0 floor in no period", u"10-24:60"_s, 30, 0, "02:00", "02:20", 1, "0");
        row("thirty hours pass the periods twice", TariffA, 30, 1, "12:00", "2026-11-22 18:00", 1, "2040");
        row("decimals in the tariff round to even", u"0-12:88.5 12-24:89.5"_s, 60, 1, "11:00", "13:00", 1,
            "178");
        row("prices beyond 16 bits", u"0-24:40000"_s, 60, 1, "10:00", "12:00", 1, "80000");

        // Minimum spend.
        row("minimum off", withMinimum, 30, 1, "17:20", "18:20", 1, "60", 0, false);
        row("goods above the minimum", withMinimum, 30, 1, "17:20", "18:20", 1, "60", 400, true);
        row("only the opening period's minimum", withMinimum, 30, 1, "18:20", "19:20", 1, "100", 0, true);
        row("minimum ignored by a fixed rate", u"0-24:60:300:3:200"_s, 60, 1, "17:20", "18:20", 0, "200", 0,
            true);
        row("no minimum within the free minutes", withMinimum, 30, 1, "17:20", "17:22", 1, "0", 0, true);

        // Fixed rate.
        row("buy-out ends exactly", fixedB, 60, 2, "20:00", "23:00", 0, "200");
        row("one minute of overtime", fixedB, 60, 2, "20:00", "23:01", 0, "201.3333");
        row("one minute of overtime within the grace", fixedB, 60, 1, "20:00", "23:01", 0, "200");
        row("buy-out of the opening period", fixedB, 60, 2, "17:30", "20:30", 0, "150");
        row("overtime in the period the buy-out ends in", fixedB, 60, 2, "16:00", "20:00", 0, "230");
        row("another mode counts as fixed", fixedB, 60, 2, "20:00", "23:00", 7, "200");

        // Money brought in is added in every path.
        row("old money, free minutes", TariffA, 30, 1, "17:20", "17:22", 1, "5", 0, false, 5);
        row("old money, by time", TariffA, 30, 1, "17:20", "17:59", 1, "35", 0, false, 5);
        row("old money, fixed", fixedB, 60, 2, "20:00", "23:00", 0, "205", 0, false, 5);
        row("old money counts toward the minimum", withMinimum, 30, 1, "17:20", "18:20", 1, "200", 100, true,
            50);

        // A unit of 0 charges no time instead of looping.
        row("unit 0", TariffA, 0, 1, "17:20", "19:35", 1, "0"); // clang-format on
    }
    void roomMoney() {
        auto [periods, unit, notOne, open, close, payLevelType, goods, useMinMoney, oldMoney, expected] =
            fetch<QString, int, int, QString, QString, int, double, bool, double, QString>(
                "periods", "unit", "notOne", "open", "close", "payLevelType", "goods", "useMinMoney",
                "oldMoney", "expected");
        const Money m = CalcRoomMoney(at(open), at(close), 1 - payLevelType, unit, notOne, 10, 5,
                                      Money::fromDouble(oldMoney), Money::fromDouble(goods), grid(periods),
                                      useMinMoney, payLevelType);
        QCOMPARE(m.toPlain(), expected);
    }

    // Long stays are summed by whole days of units; they must cost what unit-by-unit does.
    void longStays_data() { // clang-format off
        columns<int, int, QString, QString>("unit", "notOne", "open", "close");
        QTest::newRow("1 minute, 3 days") << 1 << 2 << "09:13" << "2026-11-24 11:07";
        QTest::newRow("7 minutes, 20 days") << 7 << 1 << "17:20" << "2026-12-11 03:41";
        QTest::newRow("45 minutes, 9 days") << 45 << 0 << "23:59" << "2026-11-30 23:58";
        QTest::newRow("13 minutes, with seconds") << 13 << 2 << "06:00:30" << "2026-11-29 05:59:10";
        QTest::newRow("unit longer than a day") << 1500 << 1 << "12:00" << "2026-12-03 00:00";
        QTest::newRow("whole days of units") << 1 << 2 << "05:00" << "2026-11-23 05:00"; // clang-format on
    }
    void longStays() {
        auto [unit, notOne, open, close] =
            fetch<int, int, QString, QString>("unit", "notOne", "open", "close");
        const PeriodGrid g = grid(u"0-2:37 2-18:60 18-23:101 23-24:0"_s);
        QCOMPARE(CalcHourMoney(at(open), at(close), unit, notOne, 10, 5, g),
                 slowHourMoney(at(open), at(close), unit, notOne, 10, g));
    }

    void expendTimeText_data() { // clang-format off
        columns<QString, QString, QString>("open", "close", "text");
        QTest::newRow("negative") << "17:20" << "17:19" << "未知";
        QTest::newRow("none") << "17:20" << "17:20" << "0分钟";
        QTest::newRow("seconds ignored") << "10:00:50" << "10:01:10" << "1分钟";
        QTest::newRow("under an hour") << "17:20" << "18:19" << "59分钟";
        QTest::newRow("over a day") << "17:20" << "2026-11-22 18:25" << "25小时5分钟"; // clang-format on
    }
    void expendTimeText() {
        auto [open, close, text] = fetch<QString, QString, QString>("open", "close", "text");
        QCOMPARE(GetExpendTimeText(at(open), at(close)), text);
    }

    void uncomputableChargeIsMinusOne() {
        const QDateTime open = at(u"00:00"_s);
        QCOMPARE(CalcRoomMoney(QDateTime(), open, 1, 30, 1, 10, 5, {}, {}, grid(TariffA), false, 1),
                 Money::yuan(-1));
        QCOMPARE(GetExpendTimeText(QDateTime(), open), u"未知"_s);
        // A price at the grid's limit for a year leaves the range of Money.
        const PeriodGrid g = grid(u"0-24:1e13"_s);
        QCOMPARE(g.at(0, PeriodGrid::Price), qint64(PeriodGrid::Limit));
        QCOMPARE(CalcRoomMoney(open, open.addYears(1), 1, 60, 1, 10, 5, {}, {}, g, false, 1),
                 Money::yuan(-1));
    }

    void currency_data() { // clang-format off
        columns<QString, int, QString, QString, QString, bool, double, QString, QString, int>("tariff", "payLevelType", "open", "close", "lines", "useMinMoney", "oldMoney", "goods", "room", "messages");
        // Worked examples again, now read from stored rows: each field of the tariff and the bill.
        QTest::newRow("by time over the period change") << "A1" << 1 << "17:20" << "19:35" << "" << false << 0.0 << "0" << "210" << 0;
        QTest::newRow("free minutes, before the hour floor") << "A0" << 1 << "17:20" << "17:24" << "" << false << 0.0 << "0" << "0" << 0;
        QTest::newRow("rule 0 hour floor") << "A0" << 1 << "17:20" << "17:45" << "" << false << 0.0 << "0" << "60" << 0;
        QTest::newRow("minimum spend") << "AMin" << 1 << "17:20" << "18:20" << "60 40" << true << 0.0 << "100" << "200" << 0;
        QTest::newRow("buy-out and overtime") << "B" << 0 << "20:00" << "23:30" << "" << false << 0.0 << "0" << "240" << 0;
        // What the stored row contributes.
        QTest::newRow("minimum not asked for") << "AMin" << 1 << "17:20" << "18:20" << "100" << false << 0.0 << "100" << "60" << 0;
        QTest::newRow("voided lines don't count") << "A1" << 1 << "17:20" << "17:59" << "12.3456 x50 0.0001"
            << false << 0.0 << "12.3457" << "30" << 0;
        QTest::newRow("stored decimals round to even") << "Dec" << 1 << "11:00" << "13:00" << "" << false << 0.0 << "0" << "178" << 0;
        QTest::newRow("tariff gone, by time") << "gone" << 1 << "17:20" << "19:35" << "8" << true << 0.0 << "8" << "0" << 1;
        QTest::newRow("tariff gone, fixed") << "gone" << 0 << "17:20" << "19:35" << "" << false << 5.0 << "0" << "5" << 1; // clang-format on
    }
    void currency() {
        auto [tariff, payLevelType, open, close, lines, useMinMoney, oldMoney, goods, room, messages] =
            fetch<QString, int, QString, QString, QString, bool, double, QString, QString, int>(
                "tariff", "payLevelType", "open", "close", "lines", "useMinMoney", "oldMoney", "goods",
                "room", "messages");
        const QString id = u"E%1"_s.arg(++m_bill);
        addBill(id, u"R1"_s, tariff, TimeText(at(open)), payLevelType, useMinMoney,
                Money::fromDouble(oldMoney));
        addLines(id, lines);
        Msg::taken();
        Money goodsMoney = Money::yuan(-99), roomMoney = Money::yuan(-99);
        fExpense().GetByIDCurrency(id, at(close), goodsMoney, roomMoney);
        QCOMPARE(goodsMoney.toPlain() + u'|' + roomMoney.toPlain(), goods + u'|' + room);
        const QList<Msg::Shown> shown = Msg::taken();
        QCOMPARE(shown.size(), messages);
        if (messages) QVERIFY(shown[0].text == MissingTariff && shown[0].icon == Msg::Icon::Exclamation);
    }

    void unknownBillCostsNothing() {
        Msg::taken();
        Money goodsMoney = Money::yuan(1), roomMoney = Money::yuan(1);
        fExpense().GetByIDCurrency(u"no such bill"_s, Now(), goodsMoney, roomMoney);
        QCOMPARE(goodsMoney.toPlain() + u'|' + roomMoney.toPlain(), u"0|0"_s);
        // Without a bill there is no tariff either, and that is what is said.
        QCOMPARE(Msg::taken().size(), 1);
    }

    // What the checkout and the board read besides the charge: the cost of a bill's live lines,
    // and a room without a type, kept with empty tariff fields.
    void queries() {
        addBill(u"Q2"_s, u"R1"_s, u"A1"_s, TimeText(at(u"09:00"_s)), 1);
        addLines(u"Q2"_s, u"10.005 20 x7"_s, Money::fromText(u"2.5"_s));
        // Two live lines owe 10.005 + 20 with 2.50 paid on each: 25.005, shown half up.
        QCOMPARE(fExpense().GetProcurePriceByID(u"Q2"_s), u"25.01"_s);
        QCOMPARE(fExpense().GetProcurePriceByID(u"Q1"_s), u"0.00"_s);
        QCOMPARE(fThe().GetLinkByID(u"R3"_s).first().text(u"PayLevelName"_s), QString());
    }

    // The other states and the end of a lock are read through the board and the options' room
    // list; here the states those never show. Now is 2026-11-21 20:00.
    void roomStatus_data() { // clang-format off
        columns<int, QString, QString, QString>("state", "other1", "key", "label");
        QTest::newRow("reserved") << 3 << "" << "Reservation" << "预定";
        QTest::newRow("lock end damaged") << 4 << "明天" << "Common" << "空闲";
        QTest::newRow("unknown state") << 9 << "2026-11-21 20:30" << "Common" << "空闲"; // clang-format on
    }
    void roomStatus() {
        auto [state, other1, key, label] =
            fetch<int, QString, QString, QString>("state", "other1", "key", "label");
        const RoomStatusText s = RoomStatus(state, other1, Now());
        QCOMPARE(s.key + u'|' + s.label, key + u'|' + label);
    }
};

QTEST_GUILESS_MAIN(TestChargeEngine)
#include "test_charge_engine.moc"
