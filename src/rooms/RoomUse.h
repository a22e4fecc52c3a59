#pragma once
#include "Db.h"
#include "Money.h"
#include "Refusal.h"
#include <QString>
#include <optional>

// What the opening dialog shows of a room before anything is typed.
struct OpenHouseView {
    QString theID;
    QString theCode;
    QString assortName;
    QString payLevelID;
    int payType = 0; // the tariff's own mode: 0 fixed rate, else by time
};

// The opening dialog's boxes as typed.
struct OpenHouseInput {
    QString theID;
    QString description;
    QString customerNum; // text, checked for numeric form only
    QString markerCode;
    QString startMoney;
    bool useMinMoney = true;
    int payLevelType = 1; // 0 fixed rate, 1 by time
};

struct Opened {
    QString expenseID;
    Refused refusal;
    bool ok() const { return !refusal; }
};

struct HouseChangeView {
    QString expenseID;
    QString oldHouseCode;
    QString description;
};

struct HouseChangeInput {
    QString expenseID;
    QString oldHouseCode;
    QString newHouseCode;
    QString description; // added to the bill's remark on a new line
};

// Opening a room, moving a running bill to another room and folding one bill into another.
// Each runs in one transaction and changes a room only while its stored state still allows
// it, so two workstations cannot open one room twice or move two bills into one room.
class RoomUseService {
  public:
    explicit RoomUseService(Db& db = DB()) : m_db(db) {}

    std::optional<OpenHouseView> loadOpen(const QString& theID) const;
    Opened open(const OpenHouseInput& in);

    std::optional<HouseChangeView> loadChange(const QString& expenseID) const;
    Refused change(const HouseChangeInput& in);

    // Folds the running bill of room `fromCode` into that of room `intoCode`.
    Refused merge(const QString& fromCode, const QString& intoCode);

    // Whether moving to room `newHouseCode` would go from a dearer to a cheaper fixed rate.
    bool isHigh2Low(const QString& newHouseCode, Money oldPrice) const;

  private:
    Db& m_db;
};

namespace RoomUseText {
inline QString mergeCaption() {
    return QStringLiteral("错误的包厢号");
}
inline QString mergeFromWrong() {
    return QStringLiteral("请检查要并台的包厢号是否正确，或者是此包厢并没有开台消费！");
}
inline QString mergeIntoWrong() {
    return QStringLiteral("请检查要并入的包厢号是否正确，或者是此包厢并没有开台消费！");
}
inline QString newRoomTaken() {
    return QStringLiteral("您要更换的包厢已被占用或暂停使用，请重新输入！");
}
inline QString billClosed() {
    return QStringLiteral("这张消费单已被其它收银台结帐或并台，请刷新后再试！");
}
} // namespace RoomUseText
