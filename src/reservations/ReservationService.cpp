#include "ReservationService.h"
#include "AppState.h"
#include "Clock.h"
#include "Format.h"
#include "Gateway.h"
#include "RoomService.h"
#include "Val.h"

Refused CheckReservation(const ReservationInput& in, const QDateTime& now) {
    // The focus goes to the room type, as it always has.
    if (!ReadNumber(in.customerNum, Range::Int32))
        return Refusal(QStringLiteral("顾客人数只能输入数字，请重新输入！"), QStringLiteral("imgcmbAssort"));
    if (in.assortID.isEmpty()) return Refusal(QStringLiteral("请选择包厢的类型！"), QStringLiteral("imgcmbAssort"));
    if (in.theID.isEmpty()) return Refusal(QStringLiteral("请选择要预订的包厢！"), QStringLiteral("imgcmbHouse"));
    // Whole minutes: the current minute passes, and an end equal to the start.
    if (ToMinute(in.start) < ToMinute(now))
        return Refusal(QStringLiteral("您输入的预抵时间在当前时间以前，请检查输入是否有误！"),
                       QStringLiteral("dtpStartTime"));
    if (ToMinute(in.end) < ToMinute(in.start))
        return Refusal(QStringLiteral("保留时间不能在预抵时间之前，请重新输入！"), QStringLiteral("dtpEndTime"));
    return std::nullopt;
}

qint64 HoursAway(const QDateTime& now, const QDateTime& start) {
    // The clock hours since a fixed day: their difference counts the boundaries crossed.
    const auto hourOf = [](const QDateTime& t) { return QDate(2000, 1, 1).daysTo(t.date()) * 24 + t.time().hour(); };
    return hourOf(start) - hourOf(now);
}

QString HoursAwayText(const QDateTime& now, const QDateTime& start) {
    return QString::number(HoursAway(now, start)) + QStringLiteral("小时");
}

bool IsSoon(qint64 hoursAway) {
    return hoursAway >= 0 && hoursAway < 12;
}

Rows ReservationService::assorts() const {
    return m_db.query(QStringLiteral("select AssortID, AssortName from TheAssort"));
}

Rows ReservationService::rooms(const QString& assortID) const {
    if (assortID.isEmpty()) return m_db.query(QStringLiteral("select TheID, TheCode from The"));
    return m_db.query(QStringLiteral("select TheID, TheCode from The where AssortID=?"), {assortID});
}

QString ReservationService::assortOf(const QString& theID) const {
    return m_db.scalar(QStringLiteral("select AssortID from The where TheID=?"), {theID}).toString();
}

std::optional<ReservationInput> ReservationService::load(const QString& id) const {
    const Rows r = m_db.query(QStringLiteral("select * from Reservation where ReservationID=?"), {id});
    if (r.isEmpty()) return std::nullopt;
    const Row row = r.first();
    ReservationInput in;
    in.customerName = row.text(QStringLiteral("CustomerName"));
    in.customerPhone = row.text(QStringLiteral("CustomerPhone"));
    in.customerNum = QString::number(row.integer(QStringLiteral("CustomerNum")));
    in.assortID = row.text(QStringLiteral("HouseAssortID"));
    in.theID = row.text(QStringLiteral("HouseID"));
    in.start = ParseTime(row.text(QStringLiteral("startTime")));
    in.end = ParseTime(row.text(QStringLiteral("endtime")));
    in.description = row.text(QStringLiteral("Description"));
    return in;
}

Rows ReservationService::list(bool showOld, const QDateTime& now) const {
    QString sql = QStringLiteral(
        "select Reservation.*,TheAssort.AssortName,The.TheCode from (Reservation Left join The on "
        "Reservation.HouseID=The.Theid) left join TheAssort on Reservation.HouseAssortID=TheAssort.AssortID "
        "where Reservation.state>=0 ");
    Params params;
    if (!showOld) {
        sql += QStringLiteral(" and Reservation.startTime>=? ");
        params << TimeText(now);
    }
    return m_db.query(sql + QStringLiteral("ORDER BY Reservation.StartTime"), params);
}

ReservationSaved ReservationService::save(const ReservationInput& in, ReservationMode mode, const QString& id) {
    if (Refused r = CheckReservation(in, Now())) return {{}, r};
    try {
        return m_db.write([&]() -> ReservationSaved {
            QString key = id;
            const Params fields{in.customerName,
                                in.customerPhone,
                                qint64(*ReadNumber(in.customerNum, Range::Int32)),
                                in.assortID,
                                in.theID,
                                TimeText(in.start),
                                TimeText(in.end),
                                in.description,
                                TimeText(Now()),
                                App().CurrentOperatorName};
            if (mode == ReservationMode::Add) {
                key = FreshKey(QStringLiteral("Reservation"), QStringLiteral("ReservationID"), m_db);
                Params values = fields;
                values << key;
                m_db.exec(QStringLiteral("insert into Reservation (CustomerName, CustomerPhone, CustomerNum, "
                                         "HouseAssortID, HouseID, startTime, endtime, Description, "
                                         "ReservationTime, operatorname, ReservationID) values "
                                         "(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                          values);
            } else {
                Params values = fields;
                values << key;
                // The row is gone: the caller hears "False", as it always has.
                if (m_db.exec(QStringLiteral("update Reservation set CustomerName=?, CustomerPhone=?, "
                                             "CustomerNum=?, HouseAssortID=?, HouseID=?, startTime=?, endtime=?, "
                                             "Description=?, ReservationTime=?, operatorname=? where "
                                             "ReservationID=?"),
                              values) == 0)
                    return m_db.discard(ReservationSaved{QStringLiteral("False"), std::nullopt});
            }
            if (in.isNow) {
                const Rows room =
                    m_db.query(QStringLiteral("select State from The where TheID=?"), {in.theID});
                if (room.isEmpty())
                    return m_db.discard(ReservationSaved{{}, Refusal::warning(ReservationText::roomGone())});
                // Only while the room is still free: another till may have taken it since.
                if (room.first().integer(QStringLiteral("State")) != 0 ||
                    m_db.exec(QStringLiteral("update The set State=3, ExpenseID=? where TheID=? and State=0"),
                              {key, in.theID}) == 0)
                    return m_db.discard(
                        ReservationSaved{{}, Refusal(ReservationText::roomTaken(), QStringLiteral("imgcmbHouse"))});
                m_db.announceRoom(in.theID);
            }
            return ReservationSaved{key, std::nullopt};
        });
    } catch (const DbError& e) {
        return {{}, Refusal(e.message(QStringLiteral("SaveData"), QStringLiteral("frmHouseAssort")), {},
                            Msg::Icon::None)};
    }
}

bool ReservationService::cancel(const QString& id) {
    return m_db.write([&] {
        return m_db.exec(QStringLiteral("Update Reservation Set state=-1 where ReservationID=?"), {id}) > 0;
    });
}

Refused ReservationService::remove(const QString& id, bool* removed) {
    *removed = false;
    try {
        *removed = m_db.write([&] {
            return m_db.exec(QStringLiteral("delete from Reservation where ReservationID=?"), {id}) > 0;
        });
    } catch (const DbError&) {
        return Refusal(QStringLiteral("不能删除此数据，因为它已经使用！"));
    }
    return std::nullopt;
}

Refused ReservationService::freeRoom(const QString& theID, const QString& reservationID) {
    try {
        return m_db.write([&]() -> Refused {
            // The bill or reservation the room holds stays written in it.
            if (m_db.exec(QStringLiteral("update The set State=0 where TheID=? and State=3 and ExpenseID=?"),
                          {theID, reservationID}) == 0)
                return m_db.discard(Refused(Refusal::warning(RoomText::stateChanged())));
            m_db.announceRoom(theID);
            return Refused();
        });
    } catch (const DbError& e) {
        return Refusal::error(e.message(QStringLiteral("CancelReservation"), QStringLiteral("frmMain")));
    }
}
