#pragma once
#include "Db.h"
#include "fThe.h"
#include <QDateTime>
#include <QList>
#include <QString>

struct BoardTab {
    QString assortID;
    QString assortName;
};

struct BoardRoom {
    QString theID;
    QString theCode;
    QString expenseID; // the open bill while in use
    RoomStatusText status;
    QString openTime; // of the open bill, "yyyy-MM-dd HH:mm"
    QString oughtMoney; // of the open bill at the time asked, "￥0.00"; empty when not in use
};

// A room found by its code, wherever it is on the board.
struct FoundRoom {
    QString theID, theCode, assortID;
};

// What the detail panel shows of the selected room; money as "￥0.00".
struct BoardPanel {
    QString house, payLevelName, openTime, expendTime;
    QString expenseMoney = QStringLiteral("￥0.00");
    QString houseMoney = QStringLiteral("￥0.00");
    QString oughtMoney = QStringLiteral("￥0.00");
    QString customerNum, description, isUseMinMoney, payLevelType;
};

// Board filter: 0 all rooms, 1 only rooms in use, 2 only rooms not in use.
enum class ShowMode { All = 0, Use = 1, NoUse = 2 };

// The reads behind the room board.
class BoardService {
  public:
    explicit BoardService(Db& db = DB()) : m_db(db) {}

    QList<BoardTab> tabs() const;
    // The rooms of one type in code order, with their status at `now`, kept by the filter.
    // With `only`, just those of the rooms that are of this type.
    QList<BoardRoom> rooms(const QString& assortID, ShowMode mode, const QDateTime& now,
                           const QStringList& only = {}) const;
    // The panel of a room; the running bill `expenseID` counts only when the status is Use.
    // The rooms of every type whose code starts with `text`, letter case aside: an exact code
    // first, then by code.
    QList<FoundRoom> findRooms(const QString& text) const;
    BoardPanel panel(const QString& theID, const QString& statusKey, const QString& expenseID,
                     const QDateTime& now) const;

  private:
    Db& m_db;
};

// "1小时5分钟": whole hours and the remaining minutes.
QString ExpendTimeText(qint64 minutes);
