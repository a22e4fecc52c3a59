#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QString>
#include <optional>

// A room type as its dialog edits it. An empty AssortID makes a new type.
struct RoomTypeInput {
    QString assortID;
    QString assortName;
    QString payLevelID;
};

// A room as its dialog edits it. An empty TheID makes a new room.
struct RoomInput {
    QString theID;
    QString theCode;
    QString assortID;
    QString theDesc;
};

// A run of rooms: codes are the marker followed by each number from start to end.
// The numbers come as typed, so the service can refuse what is not a number.
struct RoomBatchInput {
    QString markerText;
    QString startCode;
    QString endCode;
    QString assortID;
    QString theDesc;
};

// The code of one room of a run: the marker and the number as people write it (7, not 7.0).
QString BatchCode(const QString& markerText, double number);

// What a save did: the key it wrote, or why it wrote nothing.
struct Saved {
    QString id;
    Refused refusal;
    bool ok() const { return !refusal; }
};

struct BatchAdded {
    int added = 0;
    Refused refusal;
    bool ok() const { return !refusal; }
};

// Room types (TheAssort) and rooms (The): saving, deleting, and taking a room out of
// service and back. Each operation validates in the order its dialog documents and runs
// in its own transaction; the rights are checked by the caller.
class RoomService {
  public:
    explicit RoomService(Db& db = DB()) : m_db(db) {}

    Rows tariffs() const;   // PayLevelID, PayLevelName
    Rows roomTypes() const; // AssortID, AssortName

    std::optional<RoomTypeInput> loadRoomType(const QString& assortID) const;
    Saved saveRoomType(const RoomTypeInput& in);
    // Refused while a room still has the type.
    Refused deleteRoomType(const QString& assortID);

    std::optional<RoomInput> loadRoom(const QString& theID) const;
    // Logs "设置包厢" on success.
    Saved saveRoom(const RoomInput& in);
    // All rooms of the run or none: a code already in use stops it with nothing added.
    BatchAdded addRooms(const RoomBatchInput& in);
    // Refused while the room is open or any bill still names it.
    Refused deleteRoom(const QString& theID);

    // State 2, only from free (a lock that has run out counts as free).
    Refused HouseStop(const QString& theID);
    // State 0 and the lock end cleared, only from stopped or locked.
    Refused HouseResume(const QString& theID);

  private:
    bool codeTaken(const QString& code, const QString& exceptID = {}) const;
    Refused missingOrChanged(const QString& theID) const;

    Db& m_db;
};

// The texts the room operations show.
namespace RoomText {
inline QString inUse() {
    return QStringLiteral("不能删除此数据，因为它已经使用！");
}
inline QString duplicateCode() {
    return QStringLiteral("请检查您输入的手牌编号是否已存在，或输入其它编号。");
}
inline QString roomGone() {
    return QStringLiteral("没有找到这个包厢的数据！可能这个包厢数据已被删除，请返回主窗口刷新现有数据。");
}
inline QString typeGone() {
    return QStringLiteral("没有找到这个包厢类型的数据！可能这个包厢类型已被删除，请返回主窗口刷新现有数据。");
}
inline QString stateChanged() {
    return QStringLiteral("这个包厢的状态已被其它收银台改变，请刷新后再试！");
}
} // namespace RoomText
