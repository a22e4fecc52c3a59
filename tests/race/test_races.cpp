#include "RaceVenue.h"
#include "TestKit.h"
#include <QRandomGenerator>
#include <vector>

// Several tills at once, as separate processes on one database: each scenario's rounds are
// played by eight workers in shared time slots, then the outcomes and the data are checked.
class TestRaces : public QObject {
    Q_OBJECT

    static constexpr int Workers = 8;
    static constexpr int Rounds = 15;

    QString dbArg(const TestVenue& v) const {
        return TestVenue::isPg() ? u"pg:"_s + qEnvironmentVariable("SINGBOX_TEST_PG")
                                 : u"sqlite:"_s + v.config().file;
    }
    QString schemaArg(const TestVenue& v) const {
        return v.config().schema.isEmpty() ? u"-"_s : v.config().schema;
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
        NEW_VENUE(v);
        Race::prepare(DB(), scenario, Rounds, Workers);
        const qint64 begin = QDateTime::currentMSecsSinceEpoch() + 1500;
        std::vector<std::unique_ptr<QProcess>> tills;
        for (int w = 0; w < Workers; ++w)
            tills.push_back(
                start({dbArg(v), schemaArg(v), scenario, QString::number(w), QString::number(Workers),
                       QString::number(Rounds), QString::number(begin), u"100"_s}));
        QList<int> wins(Rounds, 0);
        QStringList raw;
        for (auto& p : tills) {
            QVERIFY(p->waitForFinished(60000));
            QCOMPARE(p->exitCode(), 0);
            const QStringList lines =
                QString::fromUtf8(p->readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
            QCOMPARE(lines.size(), Rounds);
            for (const QString& l : lines) {
                const QString said = l.section(u'\t', 1);
                if (said == u"OK"_s)
                    ++wins[l.section(u'\t', 0, 0).toInt()];
                else if (Race::isRawError(said) || said.isEmpty())
                    raw << said;
            }
        }
        QVERIFY2(raw.isEmpty(), qPrintable(raw.join(u'\n')));
        const int expected = Race::expectedWins(scenario, Workers);
        for (int r = 0; r < Rounds; ++r)
            if (expected >= 0)
                QCOMPARE(wins[r], expected);
            else
                QVERIFY(wins[r] >= 1);
        QCOMPARE(Race::brokenInvariants(DB()), QStringList());
        if (scenario == u"topup"_s)
            QCOMPARE(count(u"select chongzhi from Member where MemberCode='T'"_s),
                     Money::yuan(10 * Workers * Rounds).raw());
        if (scenario == u"lines"_s)
            QCOMPARE(count(u"select count(*) from ExpenseDetail where ExpenseID='E-L'"_s),
                     1 + Workers * Rounds);
    }

    // Tills killed at random moments of a mixed load: after every kill the data still holds
    // together and every settled bill has its slip. SINGBOX_CRASH_SECONDS makes the run longer.
    void crash_loop() {
        NEW_VENUE(v);
        Race::prepareMixed(DB());
        const int seconds = qEnvironmentVariableIntValue("SINGBOX_CRASH_SECONDS") > 0
                                ? qEnvironmentVariableIntValue("SINGBOX_CRASH_SECONDS")
                                : 15;
        QRandomGenerator g(20261123);
        quint32 seed = 1;
        const auto till = [&] {
            return start({dbArg(v), schemaArg(v), u"mixed"_s, QString::number(seed++ * 100000)});
        };
        std::vector<std::unique_ptr<QProcess>> tills;
        for (int i = 0; i < 3; ++i)
            tills.push_back(till());
        QStringList raw;
        const auto collect = [&](QProcess& p) {
            raw << QString::fromUtf8(p.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
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
            QVERIFY2(broken.isEmpty(), qPrintable(u"after kill %1: "_s.arg(kills) + broken.join(u'\n')));
            victim = till();
        }
        for (auto& p : tills) {
            p->kill();
            p->waitForFinished(5000);
            collect(*p);
        }
        QVERIFY2(raw.isEmpty(), qPrintable(raw.join(u'\n')));
        QCOMPARE(Race::brokenInvariants(DB()), QStringList());
        const qint64 settled = count(u"select count(*) from Expense where State=0"_s);
        QVERIFY(settled > 0);
        qInfo("%d kills, %lld bills settled", kills, settled);
    }
};

QTEST_GUILESS_MAIN(TestRaces)
#include "test_races.moc"
