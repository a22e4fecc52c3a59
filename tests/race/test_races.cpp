#include "RaceVenue.h"
#include "TestVenue.h"
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>
#include <memory>
#include <vector>

// Several tills at once, as separate processes on one database: each scenario's rounds are
// played by eight workers in shared time slots, then the outcomes and the data are checked.
class TestRaces : public QObject {
    Q_OBJECT

    static constexpr int Workers = 8;
    static constexpr int Rounds = 15;

    QString dbArg(const TestVenue& v) const {
        return TestVenue::isPg() ? QStringLiteral("pg:") + qEnvironmentVariable("SINGBOX_TEST_PG")
                                 : QStringLiteral("sqlite:") + v.config().file;
    }
    QString schemaArg(const TestVenue& v) const {
        return v.config().schema.isEmpty() ? QStringLiteral("-") : v.config().schema;
    }
    std::unique_ptr<QProcess> start(const QStringList& args) const {
        auto p = std::make_unique<QProcess>();
        p->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        p->start(QStringLiteral(RACE_WORKER), args);
        return p;
    }

  private Q_SLOTS:
    void races_data() {
        QTest::addColumn<QString>("scenario");
        for (const QString& s : Race::scenarios())
            QTest::newRow(s.toUtf8().constData()) << s;
    }

    void races() {
        QFETCH(QString, scenario);
        TestVenue v;
        OPEN_VENUE(v);
        Race::prepare(DB(), scenario, Rounds, Workers);
        const qint64 begin = QDateTime::currentMSecsSinceEpoch() + 1500;
        std::vector<std::unique_ptr<QProcess>> tills;
        for (int w = 0; w < Workers; ++w)
            tills.push_back(
                start({dbArg(v), schemaArg(v), scenario, QString::number(w), QString::number(Workers),
                       QString::number(Rounds), QString::number(begin), QStringLiteral("100")}));
        QList<int> wins(Rounds, 0);
        QStringList raw;
        for (auto& p : tills) {
            QVERIFY(p->waitForFinished(60000));
            QCOMPARE(p->exitCode(), 0);
            const QStringList lines =
                QString::fromUtf8(p->readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
            QCOMPARE(lines.size(), Rounds);
            for (const QString& l : lines) {
                const QString round = l.section(QLatin1Char('\t'), 0, 0),
                              said = l.section(QLatin1Char('\t'), 1);
                if (said == QLatin1String("OK"))
                    ++wins[round.toInt()];
                else if (Race::isRawError(said) || said.isEmpty())
                    raw << said;
            }
        }
        QVERIFY2(raw.isEmpty(), qPrintable(raw.join(QLatin1Char('\n'))));
        const int expected = Race::expectedWins(scenario, Workers);
        for (int r = 0; r < Rounds; ++r)
            if (expected >= 0)
                QCOMPARE(wins[r], expected);
            else
                QVERIFY(wins[r] >= 1);
        const QStringList broken = Race::brokenInvariants(DB());
        QVERIFY2(broken.isEmpty(), qPrintable(broken.join(QLatin1Char('\n'))));
        if (scenario == QLatin1String("topup"))
            QCOMPARE(DB().query(QStringLiteral("select chongzhi from Member where MemberCode='T'"))
                         .first()
                         .money(QStringLiteral("chongzhi")),
                     Money::yuan(10 * Workers * Rounds));
        if (scenario == QLatin1String("lines"))
            QCOMPARE(DB().scalar(QStringLiteral("select count(*) from ExpenseDetail where ExpenseID='E-L'"))
                         .toInt(),
                     1 + Workers * Rounds);
    }

    // Tills killed at random moments of a mixed load: after every kill the data still holds
    // together and every settled bill has its slip. SINGBOX_CRASH_SECONDS makes the run longer.
    void crash_loop() {
        TestVenue v;
        OPEN_VENUE(v);
        Race::prepareMixed(DB());
        const int seconds = qEnvironmentVariableIntValue("SINGBOX_CRASH_SECONDS") > 0
                                ? qEnvironmentVariableIntValue("SINGBOX_CRASH_SECONDS")
                                : 15;
        QRandomGenerator g(20261123);
        quint32 seed = 1;
        const auto till = [&] {
            return start({dbArg(v), schemaArg(v), QStringLiteral("mixed"), QString::number(seed++ * 100000)});
        };
        std::vector<std::unique_ptr<QProcess>> tills;
        for (int i = 0; i < 3; ++i)
            tills.push_back(till());
        QStringList raw;
        const auto collect = [&](QProcess& p) {
            for (const QString& l :
                 QString::fromUtf8(p.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts))
                raw << l;
        };
        QDeadlineTimer end(qint64(seconds) * 1000);
        int kills = 0;
        while (!end.hasExpired()) {
            QTest::qWait(int(g.bounded(80, 400)));
            auto& victim = tills[size_t(g.bounded(3))];
            victim->kill();
            victim->waitForFinished(5000);
            collect(*victim);
            ++kills;
            const QStringList broken = Race::brokenInvariants(DB());
            QVERIFY2(broken.isEmpty(), qPrintable(QStringLiteral("after kill %1: ").arg(kills) +
                                                  broken.join(QLatin1Char('\n'))));
            victim = till();
        }
        for (auto& p : tills) {
            p->kill();
            p->waitForFinished(5000);
            collect(*p);
        }
        QVERIFY2(raw.isEmpty(), qPrintable(raw.join(QLatin1Char('\n'))));
        const QStringList broken = Race::brokenInvariants(DB());
        QVERIFY2(broken.isEmpty(), qPrintable(broken.join(QLatin1Char('\n'))));
        QVERIFY(DB().scalar(QStringLiteral("select count(*) from Expense where State=0")).toInt() > 0);
        qInfo("%d kills, %d bills settled", kills,
              DB().scalar(QStringLiteral("select count(*) from Expense where State=0")).toInt());
    }
};

QTEST_GUILESS_MAIN(TestRaces)
#include "test_races.moc"
