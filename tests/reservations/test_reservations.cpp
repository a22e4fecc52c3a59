#include "ReservationService.h"
#include "RoomUse.h"
#include "TestKit.h"
#include "Together.h"
#include "frmEditReservation.h"

namespace {
const QDateTime Now0 = TestVenue::fixedNow(); // 2026-11-21 20:00

ReservationInput booking(const QString& theID = u"r1"_s, bool now = false) {
    ReservationInput in;
    in.customerName = u"O'Neil 张"_s;
    in.customerPhone = u"13800138000"_s;
    in.customerNum = u"6"_s;
    in.assortID = u"a"_s;
    in.theID = theID;
    in.start = Now0.addSecs(3600);
    in.end = Now0.addSecs(7200);
    in.description = u"生日"_s;
    in.isNow = now;
    return in;
}
void venue() {
    addRoomType(u"a"_s, u"中包"_s);
    addRoom(u"r1"_s, u"B01"_s, u"a"_s);
    addRoom(u"r2"_s, u"B02"_s, u"a"_s);
}
QString room(const QString& id) {
    return dump(u"select State, ExpenseID from The where TheID=?"_s, {id});
}
} // namespace

class TestReservations : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // The checks come in their order; whole minutes count.
    void checks_data() { // clang-format off
        columns<QString, QString, QString, int, int, QString, QString>("num", "assort", "room", "startMin", "endMin", "message", "focus");
        QTest::newRow("guests not a number") << "六" << "" << "" << -5 << -9 << "顾客人数只能输入数字，请重新输入！" << "imgcmbAssort";
        QTest::newRow("guests beyond a count") << "99999999999999999999" << "a" << "r1" << 60 << 120 << "顾客人数只能输入数字，请重新输入！" << "imgcmbAssort";
        QTest::newRow("no type") << "2" << "" << "r1" << 60 << 120 << "请选择包厢的类型！" << "imgcmbAssort";
        QTest::newRow("no room") << "2" << "a" << "" << 60 << 120 << "请选择要预订的包厢！" << "imgcmbHouse";
        QTest::newRow("arrival passed") << "2" << "a" << "r1" << -1 << 60 << "您输入的预抵时间在当前时间以前，请检查输入是否有误！" << "dtpStartTime";
        QTest::newRow("end before arrival") << "2" << "a" << "r1" << 60 << 59 << "保留时间不能在预抵时间之前，请重新输入！" << "dtpEndTime";
        QTest::newRow("this minute, end equal to arrival") << "2" << "a" << "r1" << 0 << 0 << "" << ""; // clang-format on
    }
    void checks() {
        auto [num, assort, room, startMin, endMin, message, focus] =
            fetch<QString, QString, QString, int, int, QString, QString>("num", "assort", "room", "startMin",
                                                                         "endMin", "message", "focus");
        ReservationInput in = booking(room);
        in.customerNum = num;
        in.assortID = assort;
        in.start = Now0.addSecs(startMin * 60);
        in.end = Now0.addSecs(endMin * 60);
        // A few seconds into the minute: the current minute still passes.
        const Refused r = CheckReservation(in, Now0.addSecs(40));
        QCOMPARE(r ? r->message + u'|' + r->field : QString(),
                 message.isEmpty() ? QString() : message + u'|' + focus);
    }

    void hoursAway_data() { // clang-format off
        columns<QString, QString, QString, bool>("now", "start", "text", "bold");
        QTest::newRow("within this hour") << "20:00" << "20:59" << "0小时" << true;
        QTest::newRow("one minute, one boundary") << "20:59" << "21:00" << "1小时" << true;
        QTest::newRow("eleven hours") << "20:10" << "07:50+" << "11小时" << true;
        QTest::newRow("twelve hours is not soon") << "20:00" << "08:00+" << "12小时" << false;
        QTest::newRow("past") << "20:00" << "19:59" << "-1小时" << false; // clang-format on
    }
    void hoursAway() {
        auto [now, start, text, bold] =
            fetch<QString, QString, QString, bool>("now", "start", "text", "bold");
        const QDate day = Now0.date();
        const QDateTime n(day, QTime::fromString(now, u"HH:mm"_s));
        const QDateTime s(start.endsWith(u'+') ? day.addDays(1) : day,
                          QTime::fromString(start.left(5), u"HH:mm"_s));
        QCOMPARE(HoursAwayText(n, s), text);
        QCOMPARE(IsSoon(HoursAway(n, s)), bold);
    }

    // Reserving now, opening the reserved room, and the independence of the two records.
    void reserveOpenAndFree() {
        NEW_VENUE(v);
        venue();
        ReservationService s;
        const ReservationSaved later = s.save(booking(u"r2"_s), ReservationMode::Add, {});
        QVERIFY(!later.refusal && !later.id.isEmpty());
        QCOMPARE(room(u"r2"_s), u"0|"_s); // a plain reservation leaves the room alone
        const ReservationSaved now = s.save(booking(u"r1"_s, true), ReservationMode::Add, {});
        QVERIFY(!now.refusal);
        QCOMPARE(room(u"r1"_s), u"3|"_s + now.id);
        QCOMPARE(text(u"select CustomerName from Reservation where ReservationID=?"_s, {now.id}),
                 u"O'Neil 张"_s);
        QCOMPARE(s.list(false, Now0).count(), 2);

        // Cancelled in the list: the room stays reserved. Freed only with its own reservation.
        QVERIFY(s.cancel(now.id));
        QCOMPARE(s.list(true, Now0).count(), 1);
        QVERIFY(s.freeRoom(u"r1"_s, later.id));
        QCOMPARE(room(u"r1"_s), u"3|"_s + now.id);
        QVERIFY(!s.freeRoom(u"r1"_s, now.id));
        QCOMPARE(room(u"r1"_s), u"0|"_s + now.id);

        // A reserved room opens as a free one does; the reservation stays listed.
        QVERIFY(!s.save(booking(u"r1"_s, true), ReservationMode::Add, {}).refusal);
        const Opened o = RoomUseService().open({u"r1"_s, {}, u"2"_s, {}, u"0"_s, true, 1});
        QVERIFY(!o.refusal);
        QCOMPARE(room(u"r1"_s), u"1|"_s + o.expenseID);
        QCOMPARE(s.list(false, Now0).count(), 2);

        // A change to a row deleted meanwhile answers "False"; an arrival now passed is refused.
        bool removed = false;
        QVERIFY(!s.remove(later.id, &removed) && removed);
        QCOMPARE(s.save(booking(u"r2"_s), ReservationMode::Edit, later.id).id, u"False"_s);
        ReservationInput past = booking(u"r2"_s);
        past.start = Now0.addSecs(-60);
        QVERIFY(s.save(past, ReservationMode::Edit, now.id).refusal);
    }

    // Two tills reserve the same free room now: one gets it, the other is refused and
    // writes nothing, its reservation included.
    void reserveNowRace() {
        NEW_VENUE(v);
        venue();
        QStringList answers(2);
        together(v.config(), 2, [&](Db& db, int n) {
            const ReservationSaved r =
                ReservationService(db).save(booking(u"r1"_s, true), ReservationMode::Add, {});
            answers[n - 1] = r.refusal ? r.refusal->message : u"ok"_s;
        });
        answers.sort();
        QCOMPARE(answers, (QStringList{u"ok"_s, ReservationText::roomTaken()}));
        QCOMPARE(count(u"select count(*) from Reservation"_s), 1);
        QCOMPARE(room(u"r1"_s), u"3|"_s + text(u"select ReservationID from Reservation"_s));
        // A room taken since the dialog opened: refused the same way, the dialog stays open.
        frmEditReservation dlg;
        dlg.prepare(ReservationMode::Add, u"r1"_s, {}, true);
        dlg.show();
        dlg.SaveData();
        QCOMPARE(messages(), QStringList{ReservationText::roomTaken()});
        QVERIFY(dlg.isVisible() && dlg.answer().isEmpty());
        // Closed by its title bar: a cancel.
        dlg.close();
        QVERIFY(dlg.answer().isEmpty());
        QCOMPARE(count(u"select count(*) from Reservation"_s), 1);
    }
};

QTEST_MAIN(TestReservations)
#include "test_reservations.moc"
