#include "Money.h"
#include "NewID.h"
#include "TestKit.h"

class TestCore : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void val_data() { // clang-format off
        columns<QString, double, bool>("text", "value", "numeric");
        QTest::newRow("prefix") << "12abc" << 12.0 << false;
        QTest::newRow("empty") << "" << 0.0 << false;
        QTest::newRow("blanks around") << "  -3.5  " << -3.5 << true;
        QTest::newRow("leading point") << ".5" << 0.5 << true;
        QTest::newRow("trailing point") << "7." << 7.0 << true;
        QTest::newRow("exponent") << "1e3" << 1000.0 << true;
        QTest::newRow("dangling exponent") << "1e" << 1.0 << false;
        QTest::newRow("signed exponent") << "2.5E-2x" << 0.025 << false;
        QTest::newRow("sign only") << "-" << 0.0 << false;
        QTest::newRow("plus") << "+8" << 8.0 << true;
        QTest::newRow("two points") << "1.2.3" << 1.2 << false; // clang-format on
    }
    void val() {
        auto [text, value, numeric] = fetch<QString, double, bool>("text", "value", "numeric");
        QCOMPARE(Val(text), value);
        QCOMPARE(IsNumeric(text), numeric);
    }

    void moneyFromDouble_data() { // clang-format off
        columns<double, qint64>("value", "raw");
        QTest::newRow("tie to even down") << 0.00005 << qint64(0);
        QTest::newRow("tie to even up") << 0.00015 << qint64(2);
        QTest::newRow("negative") << -1.23456 << qint64(-12346);
        QTest::newRow("large") << 123456789012.0 << qint64(1234567890120000); // clang-format on
    }
    void moneyFromDouble() {
        auto [value, raw] = fetch<double, qint64>("value", "raw");
        QCOMPARE(Money::fromDouble(value).raw(), raw);
    }

    void moneyText_data() { // clang-format off
        columns<qint64, QString, QString>("raw", "twoPlaces", "plain");
        QTest::newRow("zero") << qint64(0) << "0.00" << "0";
        QTest::newRow("half up") << qint64(12350) << "1.24" << "1.235";
        QTest::newRow("half away negative") << qint64(-12350) << "-1.24" << "-1.235";
        QTest::newRow("below half") << qint64(12349) << "1.23" << "1.2349";
        QTest::newRow("tiny negative") << qint64(-40) << "0.00" << "-0.004"; // clang-format on
    }
    void moneyText() {
        auto [raw, twoPlaces, plain] = fetch<qint64, QString, QString>("raw", "twoPlaces", "plain");
        QCOMPARE(Money::fromRaw(raw).toString2(), twoPlaces);
        QCOMPARE(Money::fromRaw(raw).toPlain(), plain);
        QCOMPARE(Money::fromRaw(raw).toYuan(), u"￥"_s + twoPlaces);
    }

    void formatNumber_data() { // clang-format off
        columns<double, QString, QString>("value", "pattern", "text");
        QTest::newRow("decimal text rounds up") << 2.675 << "0.00" << "2.68";
        QTest::newRow("half away from zero") << -2.5 << "0" << "-3";
        QTest::newRow("pad") << 7.0 << "00000" << "00007";
        QTest::newRow("yuan") << 1234.5 << "￥0.00" << "￥1234.50";
        QTest::newRow("negative zero") << -0.001 << "0.00" << "0.00";
        QTest::newRow("carry") << 9.999 << "0.00" << "10.00";
        QTest::newRow("large") << 123456789.125 << "0.00" << "123456789.13"; // clang-format on
    }
    void formatNumber() {
        auto [value, pattern, text] = fetch<double, QString, QString>("value", "pattern", "text");
        QCOMPARE(FormatNumber(value, pattern), text);
    }

    void formatTextAndDates() {
        QCOMPARE(FormatText(u"abc"_s, u"@@@@@@@@"_s), u"     abc"_s);
        QCOMPARE(FormatText(u"123456789"_s, u"@@@@@@@@"_s), u"123456789"_s);
        QVERIFY(!ParseTime(u"gestern"_s).isValid());
    }

    void minutesIgnoreSeconds_data() { // clang-format off
        columns<QDateTime, QDateTime, qint64>("from", "to", "minutes");
        const QDate d(2024, 3, 1);
        QTest::newRow("same minute") << QDateTime(d, QTime(10, 0, 1)) << QDateTime(d, QTime(10, 0, 59)) << qint64(0);
        QTest::newRow("backwards") << QDateTime(d, QTime(10, 5)) << QDateTime(d, QTime(10, 0)) << qint64(-5);
        QTest::newRow("over midnight") << QDateTime(d, QTime(23, 30)) << QDateTime(d.addDays(1), QTime(0, 15)) << qint64(45); // clang-format on
    }
    void minutesIgnoreSeconds() {
        auto [from, to, minutes] = fetch<QDateTime, QDateTime, qint64>("from", "to", "minutes");
        QCOMPARE(MinutesBetween(from, to), minutes);
    }

    void roundEven_data() { // clang-format off
        columns<double, qint64>("value", "rounded");
        QTest::newRow("-2.5") << -2.5 << qint64(-2);
        QTest::newRow("88.51") << 88.51 << qint64(89); // clang-format on
    }
    void roundEven() {
        auto [value, rounded] = fetch<double, qint64>("value", "rounded");
        QCOMPARE(RoundEven(value), rounded);
    }

    void newIdCounterRunsToHundred() {
        Clock::install(std::make_unique<FixedClock>(QDateTime(QDate(2024, 1, 31), QTime(9, 30, 15))));
        // Bring the counter to the start of a run.
        QString id;
        do {
            id = NewID();
        } while (id.size() != 17);
        const QString first = NewID();
        const QString second = NewID();
        QCOMPARE(first, u"2024013109301501"_s);
        QCOMPARE(second, u"2024013109301502"_s);
        for (int i = 3; i < 100; ++i)
            NewID();
        QCOMPARE(NewID(), u"20240131093015100"_s);
        QCOMPARE(NewID(), u"2024013109301501"_s);
        Clock::install(nullptr);
    }

    void passwordHashes() {
        const QString empty = Password::hash(QString());
        QVERIFY(!Password::verify(empty, u" "_s));
        const QString h = Password::hash(u"Ab'c密码"_s);
        QVERIFY(h != Password::hash(u"Ab'c密码"_s)); // salted
        QVERIFY(!Password::verify(u"plain"_s, u"plain"_s));
        QVERIFY(!Password::needsRehash(h));
    }
};

QTEST_GUILESS_MAIN(TestCore)
#include "test_core.moc"
