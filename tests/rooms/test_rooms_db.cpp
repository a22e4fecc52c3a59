#include "TestKit.h"
#include "fExpense.h"
#include "fThe.h"

namespace {
const QString MissingTariff = u"没有找到相关的计费标准！请检查计费标准是否已被删除！"_s;

// Writes a tariff from "start-end:price:minimum:buyOutHours:buyOutPrice" periods; the fields
// of unused periods stay null.
void addTariff(const QString& id, const QString& periods, int unit, int notOne) {
    QString columns = u"PayLevelID, PayLevelName, payType, AfterTime, Unit, NotOne, PrivilegeTime"_s;
    QString marks = u"?, ?, 1, 5, ?, ?, 10"_s;
    Params values{id, id, unit, notOne};
    const QStringList list = periods.split(u' ', Qt::SkipEmptyParts);
    for (int p = 0; p < list.size(); ++p) {
        const QStringList f = list[p].split(u':');
        const QStringList hours = f[0].split(u'-');
        const QString n = QString::number(p + 1);
        const QStringList names{u"Price"_s, u"MinMoney"_s, u"PriceA"_s, u"MinMoneyA"_s};
        columns += u", start"_s + n + u", end"_s + n;
        marks += u", ?, ?"_s;
        values << hours[0].toDouble() << hours[1].toDouble();
        for (int c = 1; c < f.size(); ++c) {
            columns += u", "_s + names[c - 1] + n;
            marks += u", ?"_s;
            values << f[c].toDouble();
        }
    }
    DB().exec(u"insert into PayLevel ("_s + columns + u") values ("_s + marks + u')', values);
}

void addRoomRow(const QString& id, const QString& code, const QString& assortID = {}) {
    DB().exec(u"insert into The (TheID, TheCode, AssortID) values (?, ?, ?)"_s,
              {id, code, assortID.isEmpty() ? Param(nullptr) : Param(assortID)});
}

void addBill(const QString& id, const QString& theID, const QString& payLevelID, const QString& openTime,
             int payLevelType, bool useMinMoney = false, Money oldMoney = {}, int state = 0) {
    DB().exec(u"insert into Expense (ExpenseID, TheID, PayLevelID, OpenTime, payLevelType, "
              "IsUseMinMoney, oldMoney, State) values (?, ?, ?, ?, ?, ?, ?, ?)"_s,
              {id, theID, payLevelID, openTime, payLevelType, useMinMoney ? 1 : 0, oldMoney, state});
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

QString day(const QString& time) {
    return u"2026-11-21 "_s + time;
}
} // namespace

class TestRoomsDb : public QObject {
    Q_OBJECT
    std::unique_ptr<TestVenue> m_venue;
    int m_bill = 0;

  private Q_SLOTS:
    void initTestCase() {
        m_venue = std::make_unique<TestVenue>();
        OPEN_VENUE(*m_venue);
        const QString a = u"0-18:60 18-24:100"_s;
        addTariff(u"A0"_s, a, 30, 0);
        addTariff(u"A1"_s, a, 30, 1);
        addTariff(u"A2"_s, a, 30, 2);
        addTariff(u"AMin"_s, u"0-18:60:300 18-24:100"_s, 30, 1);
        addTariff(u"B"_s, u"0-18:60:0:3:150 18-24:80:0:3:200"_s, 60, 2);
        addTariff(u"B0"_s, u"0-24:80:0:0:200"_s, 60, 2);
        addTariff(u"Dec"_s, u"0-12:88.5 12-24:89.5"_s, 60, 1);
        DB().exec(u"insert into TheAssort (AssortID, AssortName, PayLevelID) values ('T1', '大包', 'A1')"_s);
        addRoomRow(u"R1"_s, u"101"_s, u"T1"_s);
        addRoomRow(u"R2"_s, u"O'Neil \\ 2"_s, u"T1"_s);
        addRoomRow(u"R3"_s, u"099"_s);
    }
    void cleanupTestCase() { m_venue.reset(); }

    void currency_data() { // clang-format off
        columns<QString, int, QString, QString, QString, bool, double, QString, QString, int>("tariff", "payLevelType", "open", "close", "lines", "useMinMoney", "oldMoney", "goods", "room", "messages");
        // The worked examples, read back from stored rows.
        QTest::newRow("by time over the period change") << "A1" << 1 << "17:20" << "19:35" << "" << false << 0.0 << "0" << "210" << 0;
        QTest::newRow("free minutes") << "A1" << 1 << "17:20" << "17:24" << "" << false << 0.0 << "0" << "0" << 0;
        QTest::newRow("tail within the grace") << "A1" << 1 << "17:20" << "17:59" << "" << false << 0.0 << "0" << "30" << 0;
        QTest::newRow("rule 0 hour floor") << "A0" << 1 << "17:20" << "17:45" << "" << false << 0.0 << "0" << "60" << 0;
        QTest::newRow("rule 2 by the minute") << "A2" << 1 << "17:20" << "18:05" << "" << false << 0.0 << "0" << "45" << 0;
        QTest::newRow("minimum spend") << "AMin" << 1 << "17:20" << "18:20" << "60 40" << true << 0.0 << "100" << "200" << 0;
        QTest::newRow("buy-out and overtime") << "B" << 0 << "20:00" << "23:30" << "" << false << 0.0 << "0" << "240" << 0;
        QTest::newRow("buy-out without hours") << "B0" << 0 << "20:00" << "2026-11-22 08:00" << "" << false << 0.0 << "0" << "200" << 0;
        // What the stored row contributes.
        QTest::newRow("minimum not asked for") << "AMin" << 1 << "17:20" << "18:20" << "100" << false << 0.0 << "100" << "60" << 0;
        QTest::newRow("voided lines don't count") << "A1" << 1 << "17:20" << "17:59" << "12.3456 x50 0.0001"
            << false << 0.0 << "12.3457" << "30" << 0;
        QTest::newRow("old money") << "A1" << 1 << "17:20" << "17:59" << "" << false << 5.5 << "0" << "35.5" << 0;
        QTest::newRow("mode other than 0 or 1 is fixed") << "B" << 2 << "20:00" << "23:00" << "" << false << 0.0 << "0" << "200" << 0;
        QTest::newRow("stored decimals round to even") << "Dec" << 1 << "11:00" << "13:00" << "" << false << 0.0 << "0" << "178" << 0;
        QTest::newRow("closing time with seconds") << "A1" << 1 << "17:20" << "18:50:59" << "" << false << 0.0 << "0" << "110" << 0;
        QTest::newRow("tariff gone, by time") << "gone" << 1 << "17:20" << "19:35" << "8" << true << 0.0 << "8" << "0" << 1;
        QTest::newRow("tariff gone, fixed") << "gone" << 0 << "17:20" << "19:35" << "" << false << 5.0 << "0" << "5" << 1; // clang-format on
    }
    void currency() {
        auto [tariff, payLevelType, open, close, lines, useMinMoney, oldMoney, goods, room, messages] =
            fetch<QString, int, QString, QString, QString, bool, double, QString, QString, int>(
                "tariff", "payLevelType", "open", "close", "lines", "useMinMoney", "oldMoney", "goods",
                "room", "messages");
        const QString id = u"E%1"_s.arg(++m_bill);
        addBill(id, u"R1"_s, tariff, day(open), payLevelType, useMinMoney, Money::fromDouble(oldMoney));
        addLines(id, lines);
        Msg::taken();
        Money goodsMoney = Money::yuan(-99), roomMoney = Money::yuan(-99);
        const QDateTime closeTime = close.size() > 8 ? ParseTime(close) : ParseTime(day(close));
        fExpense().GetByIDCurrency(id, closeTime, goodsMoney, roomMoney);
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

    void billQueries() {
        addRoomRow(u"R9"_s, u"909"_s, u"T1"_s);
        addBill(u"Q1"_s, u"R9"_s, u"AMin"_s, day(u"19:00"_s), 1);
        addBill(u"Q2"_s, u"R9"_s, u"A1"_s, day(u"09:00"_s), 1, false, {}, 1);
        addLines(u"Q2"_s, u"10.005 20 x7"_s, Money::fromText(u"2.5"_s));
        fExpense e;

        // The room's open bill, with the names joined in.
        const Rows open = e.GetLinkByTheID(u"R9"_s);
        QCOMPARE(open.count(), 1);
        QStringList fields;
        for (const char* c : {"ExpenseID", "TheCode", "AssortName", "PayLevelName", "PayType"})
            fields << open.first().text(QLatin1String(c));
        QCOMPARE(fields, L({"Q2", "909", "大包", "A1", "1"}));

        const Rows both = e.GetAll(u"Expense.TheID=?"_s, {u"R9"_s});
        QCOMPARE(both.count(), 2);
        QCOMPARE(both[0].text(u"ExpenseID"_s), u"Q2"_s); // earlier opening first

        // Two live lines owe 10.005 + 20 with 2.50 paid on each: 25.005, shown half up.
        QCOMPARE(e.GetProcurePriceByID(u"Q2"_s), u"25.01"_s);
        QCOMPARE(e.GetProcurePriceByID(u"Q1"_s), u"0.00"_s);
    }

    void roomQueries() {
        fThe t;
        const Rows quoted = t.GetLinkByHouseCode(u"O'Neil \\ 2"_s);
        QCOMPARE(quoted.count(), 1);
        QCOMPARE(quoted.first().text(u"PayLevelID"_s), u"A1"_s);
        QCOMPARE(quoted.first().num(u"Price1"_s), 60.0);
        // A room without a type is kept, with empty tariff fields.
        QCOMPARE(t.GetLinkByID(u"R3"_s).first().text(u"PayLevelName"_s), QString());
        QCOMPARE(t.GetLinkAll().count(), t.GetAll().count());
        QCOMPARE(t.GetAllByAssortType(u"T1"_s).first().text(u"TheCode"_s), u"101"_s);
    }

    void roomStatus_data() { // clang-format off
        columns<int, QString, QString, QString>("state", "other1", "key", "label");
        // Now is 2026-11-21 20:00.
        QTest::newRow("free") << 0 << "" << "Common" << "空闲";
        QTest::newRow("in use") << 1 << "" << "Use" << "使用";
        QTest::newRow("stopped") << 2 << "" << "Stop" << "停用";
        QTest::newRow("reserved") << 3 << "" << "Reservation" << "预定";
        QTest::newRow("locked until later") << 4 << "2026-11-21 20:30" << "Lock" << "锁定";
        QTest::newRow("lock ends this minute") << 4 << "2026-11-21 20:00" << "Lock" << "锁定";
        QTest::newRow("lock ended a minute ago") << 4 << "2026-11-21 19:59" << "Common" << "空闲";
        QTest::newRow("lock end empty") << 4 << "" << "Common" << "空闲";
        QTest::newRow("lock end damaged") << 4 << "明天" << "Common" << "空闲";
        QTest::newRow("unknown state") << 9 << "2026-11-21 20:30" << "Common" << "空闲"; // clang-format on
    }
    void roomStatus() {
        auto [state, other1, key, label] =
            fetch<int, QString, QString, QString>("state", "other1", "key", "label");
        qint64 stored = state;
        QString lockEnd = other1;
        // The table holds only the known states; others are checked on the values alone.
        if (state >= 0 && state <= 4) {
            DB().exec(u"update The set State=?, Other1=? where TheID='R3'"_s, {state, other1});
            const Row r = fThe().GetByID(u"R3"_s).first();
            stored = r.integer(u"State"_s);
            lockEnd = r.text(u"Other1"_s);
        }
        const RoomStatusText s = RoomStatus(stored, lockEnd, Now());
        QCOMPARE(s.key + u'|' + s.label, key + u'|' + label);
    }
};

QTEST_MAIN(TestRoomsDb)
#include "test_rooms_db.moc"
