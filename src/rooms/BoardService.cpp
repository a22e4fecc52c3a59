#include "BoardService.h"
#include "Format.h"
#include "Money.h"
#include "fExpense.h"

// Keys are made in time order, so the tabs come in the order the types were made.
QList<BoardTab> BoardService::tabs() const {
    QList<BoardTab> out;
    const Rows rows = m_db.query(QStringLiteral(
        "select TheAssort.AssortID, TheAssort.AssortName, PayLevel.PayLevelName from TheAssort "
        "left join PayLevel on TheAssort.PayLevelID=PayLevel.PayLevelID order by TheAssort.AssortID"));
    out.reserve(rows.count());
    for (const Row r : rows)
        out.append({r.text(QStringLiteral("AssortID")), r.text(QStringLiteral("AssortName"))});
    return out;
}

QList<BoardRoom> BoardService::rooms(const QString& assortID, ShowMode mode, const QDateTime& now,
                                    const QStringList& only) const {
    QList<BoardRoom> out;
    QString sql = QStringLiteral(
        "select The.TheID, The.TheCode, The.State, The.ExpenseID, The.Other1, Expense.OpenTime "
        "from The left join Expense on Expense.ExpenseID=The.ExpenseID and The.State=1 "
        "where The.AssortID=?");
    Params params{assortID};
    if (!only.isEmpty()) {
        QStringList marks;
        for (const QString& id : only) {
            marks << QStringLiteral("?");
            params << id;
        }
        sql += QStringLiteral(" and The.TheID in (") + marks.join(QLatin1Char(',')) + QLatin1Char(')');
    }
    const Rows rows = m_db.query(sql + QStringLiteral(" order by The.TheCode"), params);
    out.reserve(rows.count());
    for (const Row r : rows) {
        BoardRoom room{r.text(QStringLiteral("TheID")),
                       r.text(QStringLiteral("TheCode")),
                       r.text(QStringLiteral("ExpenseID")),
                       RoomStatus(r.integer(QStringLiteral("State")), r.text(QStringLiteral("Other1")), now),
                       r.text(QStringLiteral("OpenTime")),
                       {}};
        const bool inUse = room.status.key == QLatin1String("Use");
        if ((mode == ShowMode::Use && !inUse) || (mode == ShowMode::NoUse && inUse)) continue;
        if (!inUse) {
            room.expenseID.clear();
        } else if (!room.openTime.isEmpty()) {
            Money goods, roomMoney;
            fExpense(m_db).GetByIDCurrency(room.expenseID, now, goods, roomMoney, false);
            room.oughtMoney = (goods + roomMoney).toYuan();
        }
        out.append(room);
    }
    return out;
}

QList<FoundRoom> BoardService::findRooms(const QString& text) const {
    QList<FoundRoom> exact, starts;
    if (text.isEmpty()) return exact;
    const Rows rows =
        m_db.query(QStringLiteral("select TheID, TheCode, AssortID from The order by TheCode, TheID"));
    for (const Row r : rows) {
        FoundRoom f{r.text(QStringLiteral("TheID")), r.text(QStringLiteral("TheCode")),
                    r.text(QStringLiteral("AssortID"))};
        if (f.theCode.compare(text, Qt::CaseInsensitive) == 0)
            exact.append(f);
        else if (f.theCode.startsWith(text, Qt::CaseInsensitive))
            starts.append(f);
    }
    return exact + starts;
}

QString ExpendTimeText(qint64 minutes) {
    return QString::number(minutes / 60) + QStringLiteral("小时") + QString::number(minutes % 60) +
           QStringLiteral("分钟");
}

BoardPanel BoardService::panel(const QString& theID, const QString& statusKey, const QString& expenseID,
                               const QDateTime& now) const {
    BoardPanel p;
    const Rows room = fThe(m_db).GetLinkByID(theID);
    if (room.isEmpty()) return p;
    p.house = room.first().text(QStringLiteral("AssortName")) + QLatin1Char(' ') +
              room.first().text(QStringLiteral("TheCode"));
    p.payLevelName = room.first().text(QStringLiteral("PayLevelName"));
    if (statusKey != QLatin1String("Use") || expenseID.isEmpty()) return p;

    fExpense bills(m_db);
    const Rows bill = bills.GetLinkByID(expenseID);
    if (bill.isEmpty()) return p;
    Money goods, roomMoney;
    bills.GetByIDCurrency(expenseID, now, goods, roomMoney);
    const Row b = bill.first();
    const QDateTime open = ParseTime(b.text(QStringLiteral("OpenTime")));
    p.openTime = FormatDate(open, QStringLiteral("yyyy年MM月dd日 HH:mm"));
    p.expendTime = ExpendTimeText(open.isValid() ? qMax<qint64>(0, MinutesBetween(open, now)) : 0);
    p.expenseMoney = goods.toYuan();
    p.houseMoney = roomMoney.toYuan();
    p.oughtMoney = (goods + roomMoney).toYuan();
    p.customerNum = b.text(QStringLiteral("CustomerNum"));
    p.description = b.text(QStringLiteral("Description"));
    p.isUseMinMoney =
        b.integer(QStringLiteral("IsUseMinMoney")) == 1 ? QStringLiteral("使用") : QStringLiteral("不使用");
    p.payLevelType = b.integer(QStringLiteral("payLevelType")) == 0 ? QStringLiteral("固定费率")
                                                                    : QStringLiteral("按时间计费");
    return p;
}
