#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QDateTime>
#include <QString>
#include <optional>

// A reservation as the dialog holds it.
struct ReservationInput {
    QString customerName, customerPhone;
    QString customerNum = QStringLiteral("1"); // as typed
    QString assortID, theID;                   // the room type and the room chosen
    QDateTime start, end;                      // expected arrival, held until
    QString description;
    bool isNow = false; // "立即预留": put the room into the reserved state at once
};

// How the dialog was opened: a new reservation, a change of one, or a look at one.
enum class ReservationMode { Add = 0, Edit = 1, View = 2 };

struct ReservationSaved {
    QString id; // the reservation's key; "False" when the row to change was gone; empty when refused
    Refused refusal;
};

// The checks of a reservation, in their order, each answered in an information box.
Refused CheckReservation(const ReservationInput& in, const QDateTime& now);

// Clock-hour boundaries from `now` to `start`: negative for a past arrival.
qint64 HoursAway(const QDateTime& now, const QDateTime& start);
// "3小时": how the list shows it.
QString HoursAwayText(const QDateTime& now, const QDateTime& start);
// A coming arrival within twelve hours shows in bold.
bool IsSoon(qint64 hoursAway);

class ReservationService {
  public:
    explicit ReservationService(Db& db = DB()) : m_db(db) {}

    Rows assorts() const;
    // The rooms of one type, or of every type when `assortID` is empty.
    Rows rooms(const QString& assortID) const;
    // The type of a room; empty when the room is not there.
    QString assortOf(const QString& theID) const;
    std::optional<ReservationInput> load(const QString& id) const;
    // The live reservations by arrival; without `showOld` only those still to come.
    Rows list(bool showOld, const QDateTime& now) const;

    // Checks, then writes the reservation and, with "立即预留", reserves its room, in one
    // transaction. The room is taken only while it is still free: a room opened, stopped or
    // reserved meanwhile at another till is refused, and nothing is written.
    ReservationSaved save(const ReservationInput& in, ReservationMode mode, const QString& id);
    // Marks the reservation cancelled; false when no row changed. Its room stays as it is.
    bool cancel(const QString& id);
    // Deletes the reservation; false when no row went. Its room stays as it is.
    Refused remove(const QString& id, bool* removed);
    // Frees a reserved room, only while it still holds this reservation. The reservation
    // stays as it is.
    Refused freeRoom(const QString& theID, const QString& reservationID);

  private:
    Db& m_db;
};

namespace ReservationText {
inline QString roomTaken() {
    return QStringLiteral("您现在要预留的手牌已被占用或停用，请重新选择手牌！");
}
inline QString roomGone() {
    return QStringLiteral("没有找到这包厢，请检查这个包厢是否被别人删除了！");
}
} // namespace ReservationText
