#include "Clock.h"
#include "Format.h"
#include "MessageBox.h"
#include "TestVenue.h"
#include "fExpense.h"
#include "fThe.h"
#include <QTest>
#include <memory>

namespace {
const QString MissingTariff = QStringLiteral("没有找到相关的计费标准！请检查计费标准是否已被删除！");

// Writes a tariff from "start-end:price:minimum:buyOutHours:buyOutPrice" periods; the fields
// of unused periods stay null.
void addTariff(const QString& id, const QString& periods, int unit, int notOne) {
    QString columns =
        QStringLiteral("PayLevelID, PayLevelName, payType, AfterTime, Unit, NotOne, PrivilegeTime");
    QString marks = QStringLiteral("?, ?, 1, 5, ?, ?, 10");
    Params values{id, id, unit, notOne};
    const QStringList list = periods.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (int p = 0; p < list.size(); ++p) {
        const QStringList f = list[p].split(QLatin1Char(':'));
        const QStringList hours = f[0].split(QLatin1Char('-'));
        const QString n = QString::number(p + 1);
        const QStringList names{QStringLiteral("Price"), QStringLiteral("MinMoney"), QStringLiteral("PriceA"),
                                QStringLiteral("MinMoneyA")};
        columns += QStringLiteral(", start") + n + QStringLiteral(", end") + n;
        marks += QStringLiteral(", ?, ?");
        values << hours[0].toDouble() << hours[1].toDouble();
        for (int c = 1; c < f.size(); ++c) {
            columns += QStringLiteral(", ") + names[c - 1] + n;
            marks += QStringLiteral(", ?");
            values << f[c].toDouble();
        }
    }
    DB().exec(QStringLiteral("insert into PayLevel (") + columns + QStringLiteral(") values (") + marks +
                  QLatin1Char(')'),
              values);
}

void addRoom(const QString& id, const QString& code, const QString& assortID = {}) {
    DB().exec(QStringLiteral("insert into The (TheID, TheCode, AssortID) values (?, ?, ?)"),
              {id, code, assortID.isEmpty() ? Param(nullptr) : Param(assortID)});
}

void addBill(const QString& id, const QString& theID, const QString& payLevelID, const QString& openTime,
             int payLevelType, bool useMinMoney = false, Money oldMoney = {}, int state = 0) {
    DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, PayLevelID, OpenTime, payLevelType, "
                             "IsUseMinMoney, oldMoney, State) values (?, ?, ?, ?, ?, ?, ?, ?)"),
              {id, theID, payLevelID, openTime, payLevelType, useMinMoney ? 1 : 0, oldMoney, state});
}

// Lines as blank-separated amounts owed; an "x" in front marks a voided line.
void addLines(const QString& expenseID, const QString& lines, Money income = {}) {
    int n = 0;
    for (QString line : lines.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const bool voided = line.startsWith(QLatin1Char('x'));
        if (voided) line.remove(0, 1);
        DB().exec(QStringLiteral("insert into ExpenseDetail (DetailID, ExpenseID, oughtMoney, Income, isdel) "
                                 "values (?, ?, ?, ?, ?)"),
                  {expenseID + QLatin1Char('-') + QString::number(++n), expenseID, Money::fromText(line),
                   income, voided ? 1 : 0});
    }
}

QString day(const QString& time) {
    return QStringLiteral("2026-11-21 ") + time;
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
        const QString a = QStringLiteral("0-18:60 18-24:100");
        addTariff(QStringLiteral("A0"), a, 30, 0);
        addTariff(QStringLiteral("A1"), a, 30, 1);
        addTariff(QStringLiteral("A2"), a, 30, 2);
        addTariff(QStringLiteral("AMin"), QStringLiteral("0-18:60:300 18-24:100"), 30, 1);
        addTariff(QStringLiteral("B"), QStringLiteral("0-18:60:0:3:150 18-24:80:0:3:200"), 60, 2);
        addTariff(QStringLiteral("B0"), QStringLiteral("0-24:80:0:0:200"), 60, 2);
        addTariff(QStringLiteral("Dec"), QStringLiteral("0-12:88.5 12-24:89.5"), 60, 1);
        DB().exec(QStringLiteral(
            "insert into TheAssort (AssortID, AssortName, PayLevelID) values ('T1', '大包', 'A1')"));
        addRoom(QStringLiteral("R1"), QStringLiteral("101"), QStringLiteral("T1"));
        addRoom(QStringLiteral("R2"), QStringLiteral("O'Neil \\ 2"), QStringLiteral("T1"));
        addRoom(QStringLiteral("R3"), QStringLiteral("099"));
    }
    void cleanupTestCase() { m_venue.reset(); }

    void currency_data() {
        QTest::addColumn<QString>("tariff");
        QTest::addColumn<int>("payLevelType");
        QTest::addColumn<QString>("open");
        QTest::addColumn<QString>("close");
        QTest::addColumn<QString>("lines");
        QTest::addColumn<bool>("useMinMoney");
        QTest::addColumn<double>("oldMoney");
        QTest::addColumn<QString>("goods");
        QTest::addColumn<QString>("room");
        QTest::addColumn<int>("messages");
        // clang-format off
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
        QTest::newRow("voided lines don't count") << "A1" << 1 << "17:20" << "17:59" << "12.3456 x50 0.0001" << false << 0.0 << "12.3457" << "30" << 0;
        QTest::newRow("old money") << "A1" << 1 << "17:20" << "17:59" << "" << false << 5.5 << "0" << "35.5" << 0;
        QTest::newRow("mode other than 0 or 1 is fixed") << "B" << 2 << "20:00" << "23:00" << "" << false << 0.0 << "0" << "200" << 0;
        QTest::newRow("stored decimals round to even") << "Dec" << 1 << "11:00" << "13:00" << "" << false << 0.0 << "0" << "178" << 0;
        QTest::newRow("closing time with seconds") << "A1" << 1 << "17:20" << "18:50:59" << "" << false << 0.0 << "0" << "110" << 0;
        QTest::newRow("tariff gone, by time") << "gone" << 1 << "17:20" << "19:35" << "8" << true << 0.0 << "8" << "0" << 1;
        QTest::newRow("tariff gone, fixed") << "gone" << 0 << "17:20" << "19:35" << "" << false << 5.0 << "0" << "5" << 1;
        // clang-format on
    }
    void currency() {
        QFETCH(QString, tariff);
        QFETCH(int, payLevelType);
        QFETCH(QString, open);
        QFETCH(QString, close);
        QFETCH(QString, lines);
        QFETCH(bool, useMinMoney);
        QFETCH(double, oldMoney);
        QFETCH(QString, goods);
        QFETCH(QString, room);
        QFETCH(int, messages);
        const QString id = QStringLiteral("E%1").arg(++m_bill);
        addBill(id, QStringLiteral("R1"), tariff, day(open), payLevelType, useMinMoney,
                Money::fromDouble(oldMoney));
        addLines(id, lines);
        Msg::taken();
        Money goodsMoney = Money::yuan(-99), roomMoney = Money::yuan(-99);
        const QDateTime closeTime = close.size() > 8 ? ParseTime(close) : ParseTime(day(close));
        fExpense().GetByIDCurrency(id, closeTime, goodsMoney, roomMoney);
        QCOMPARE(goodsMoney.toPlain(), goods);
        QCOMPARE(roomMoney.toPlain(), room);
        const QList<Msg::Shown> shown = Msg::taken();
        QCOMPARE(shown.size(), messages);
        if (messages) {
            QCOMPARE(shown[0].text, MissingTariff);
            QCOMPARE(shown[0].icon, Msg::Icon::Exclamation);
        }
    }

    void unknownBillCostsNothing() {
        Msg::taken();
        Money goodsMoney = Money::yuan(1), roomMoney = Money::yuan(1);
        fExpense().GetByIDCurrency(QStringLiteral("no such bill"), Now(), goodsMoney, roomMoney);
        QCOMPARE(goodsMoney, Money());
        QCOMPARE(roomMoney, Money());
        // Without a bill there is no tariff either, and that is what is said.
        QCOMPARE(Msg::taken().size(), 1);
    }

    void billQueries() {
        addRoom(QStringLiteral("R9"), QStringLiteral("909"), QStringLiteral("T1"));
        addBill(QStringLiteral("Q1"), QStringLiteral("R9"), QStringLiteral("AMin"),
                day(QStringLiteral("19:00")), 1);
        addBill(QStringLiteral("Q2"), QStringLiteral("R9"), QStringLiteral("A1"),
                day(QStringLiteral("09:00")), 1, false, {}, 1);
        addLines(QStringLiteral("Q2"), QStringLiteral("10.005 20 x7"),
                 Money::fromText(QStringLiteral("2.5")));
        fExpense e;

        // The room's open bill, with the names joined in.
        const Rows open = e.GetLinkByTheID(QStringLiteral("R9"));
        QCOMPARE(open.count(), 1);
        QCOMPARE(open.first().text(QStringLiteral("ExpenseID")), QStringLiteral("Q2"));
        QCOMPARE(open.first().text(QStringLiteral("TheCode")), QStringLiteral("909"));
        QCOMPARE(open.first().text(QStringLiteral("AssortName")), QStringLiteral("大包"));
        QCOMPARE(open.first().text(QStringLiteral("PayLevelName")), QStringLiteral("A1"));
        QCOMPARE(open.first().integer(QStringLiteral("PayType")), qint64(1));

        const Rows both = e.GetAll(QStringLiteral("Expense.TheID=?"), {QStringLiteral("R9")});
        QCOMPARE(both.count(), 2);
        QCOMPARE(both[0].text(QStringLiteral("ExpenseID")), QStringLiteral("Q2")); // earlier opening first

        // Two live lines owe 10.005 + 20 with 2.50 paid on each: 25.005, shown half up.
        QCOMPARE(e.GetProcurePriceByID(QStringLiteral("Q2")), QStringLiteral("25.01"));
        QCOMPARE(e.GetProcurePriceByID(QStringLiteral("Q1")), QStringLiteral("0.00"));
    }

    void roomQueries() {
        fThe t;
        const Rows quoted = t.GetLinkByHouseCode(QStringLiteral("O'Neil \\ 2"));
        QCOMPARE(quoted.count(), 1);
        QCOMPARE(quoted.first().text(QStringLiteral("PayLevelID")), QStringLiteral("A1"));
        QCOMPARE(quoted.first().num(QStringLiteral("Price1")), 60.0);
        // A room without a type is kept, with empty tariff fields.
        QCOMPARE(t.GetLinkByID(QStringLiteral("R3")).first().text(QStringLiteral("PayLevelName")), QString());
        QCOMPARE(t.GetLinkAll().count(), t.GetAll().count());
        QCOMPARE(t.GetAllByAssortType(QStringLiteral("T1")).first().text(QStringLiteral("TheCode")),
                 QStringLiteral("101"));
    }

    void roomStatus_data() {
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("other1");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("label");
        // Now is 2026-11-21 20:00.
        // clang-format off
        QTest::newRow("free") << 0 << "" << "Common" << "空闲";
        QTest::newRow("in use") << 1 << "" << "Use" << "使用";
        QTest::newRow("stopped") << 2 << "" << "Stop" << "停用";
        QTest::newRow("reserved") << 3 << "" << "Reservation" << "预定";
        QTest::newRow("locked until later") << 4 << "2026-11-21 20:30" << "Lock" << "锁定";
        QTest::newRow("lock ends this minute") << 4 << "2026-11-21 20:00" << "Lock" << "锁定";
        QTest::newRow("lock ended a minute ago") << 4 << "2026-11-21 19:59" << "Common" << "空闲";
        QTest::newRow("lock end empty") << 4 << "" << "Common" << "空闲";
        QTest::newRow("lock end damaged") << 4 << "明天" << "Common" << "空闲";
        QTest::newRow("unknown state") << 9 << "2026-11-21 20:30" << "Common" << "空闲";
        // clang-format on
    }
    void roomStatus() {
        QFETCH(int, state);
        QFETCH(QString, other1);
        QFETCH(QString, key);
        QFETCH(QString, label);
        qint64 stored = state;
        QString lockEnd = other1;
        // The table holds only the known states; others are checked on the values alone.
        if (state >= 0 && state <= 4) {
            DB().exec(QStringLiteral("update The set State=?, Other1=? where TheID='R3'"), {state, other1});
            const Row r = fThe().GetByID(QStringLiteral("R3")).first();
            stored = r.integer(QStringLiteral("State"));
            lockEnd = r.text(QStringLiteral("Other1"));
        }
        const RoomStatusText s = RoomStatus(stored, lockEnd, Now());
        QCOMPARE(s.key, key);
        QCOMPARE(s.label, label);
    }
};

QTEST_MAIN(TestRoomsDb)
#include "test_rooms_db.moc"
