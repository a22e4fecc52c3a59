#include "RoomUse.h"
#include "AppState.h"
#include "Clock.h"
#include "Dialect.h"
#include "Format.h"
#include "Gateway.h"
#include "Log.h"
#include "RoomService.h"
#include "Val.h"
#include "fExpense.h"
#include "fThe.h"

namespace {
Refusal mergeRefused(const QString& message, const QString& field) {
    return {message, field, Msg::Icon::Exclamation, RoomUseText::mergeCaption()};
}

} // namespace

std::optional<OpenHouseView> RoomUseService::loadOpen(const QString& theID) const {
    const Rows r = fThe(m_db).GetLinkByID(theID);
    if (r.isEmpty()) return std::nullopt;
    const Row row = r.first();
    return OpenHouseView{row.text(QStringLiteral("TheID")), row.text(QStringLiteral("TheCode")),
                         row.text(QStringLiteral("AssortName")), row.text(QStringLiteral("PayLevelID")),
                         row.integer(QStringLiteral("PayType")) == 0 ? 0 : 1};
}

Opened RoomUseService::open(const OpenHouseInput& in) {
    if (!ReadNumber(in.customerNum, Range::Int32))
        return {{}, Refusal(QStringLiteral("请输入顾客人数！"), QStringLiteral("txtNum"))};
    if (!ReadNumber(in.startMoney, Range::Money))
        return {{}, Refusal(QStringLiteral("请输入门票金额！"), QStringLiteral("txtStartMoney"))};

    // The stay starts on the whole minute.
    const QDateTime now = Now();
    const QString openTime = TimeText(now);
    try {
        return m_db.write([&]() -> Opened {
            const Rows room = fThe(m_db).GetLinkByID(in.theID);
            if (room.isEmpty())
                return m_db.discard(Opened{
                    {},
                    Refusal::warning(QStringLiteral("没有找到这包厢，请检查这个包厢是否被别人删除了！"))});
            const Row r = room.first();
            const qint64 state = r.integer(QStringLiteral("State"));
            const QString other1 = r.text(QStringLiteral("Other1"));
            const QString status = RoomStatus(state, other1, now).key;
            if (status != QLatin1String("Common") && status != QLatin1String("Reservation"))
                return m_db.discard(Opened{{}, Refusal::warning(RoomText::stateChanged())});

            const QString id = FreshKey(QStringLiteral("Expense"), QStringLiteral("ExpenseID"), m_db);
            m_db.exec(
                QStringLiteral(
                    "insert into Expense (ExpenseID, TheID, OpenTime, State, Description, openOperator, "
                    "CustomerNum, markerCode, StartMoney, IsUseMinMoney, PayLevelID, payLevelType) "
                    "values (?, ?, ?, 1, ?, ?, ?, ?, ?, ?, ?, ?)"),
                {id, in.theID, openTime, in.description, App().CurrentOperatorName,
                 RoundEven(Val(in.customerNum)), in.markerCode.trimmed(),
                 Money::fromDouble(Val(in.startMoney)), in.useMinMoney ? 1 : 0,
                 r.text(QStringLiteral("PayLevelID")), in.payLevelType == 0 ? 0 : 1});
            // Only while nobody has changed the room since it was read.
            if (m_db.exec(QStringLiteral("update The set State=1, ExpenseID=? where TheID=? and State=? and "
                                         "coalesce(Other1,'')=?"),
                          {id, in.theID, state, other1}) == 0)
                return m_db.discard(Opened{{}, Refusal::warning(RoomText::stateChanged())});
            m_db.announceRoom(in.theID);
            m_db.announceBill(id);
            return Opened{id, std::nullopt};
        });
    } catch (const DbError& e) {
        // The room's one open bill, made on another workstation at the same moment.
        if (m_db.dialect().isUniqueViolation(e)) return {{}, Refusal::warning(RoomText::stateChanged())};
        return {{},
                Refusal{e.message(QStringLiteral("SaveData"), QStringLiteral("frmOpenHouse")),
                        {},
                        Msg::Icon::None}};
    }
}

std::optional<HouseChangeView> RoomUseService::loadChange(const QString& expenseID) const {
    const Rows r = fExpense(m_db).GetLinkByID(expenseID);
    if (r.isEmpty()) return std::nullopt;
    const Row row = r.first();
    return HouseChangeView{expenseID, row.text(QStringLiteral("TheCode")),
                           row.text(QStringLiteral("Description"))};
}

Refused RoomUseService::change(const HouseChangeInput& in) {
    const QString field = QStringLiteral("txtNewHouseCode");
    const QString code = in.newHouseCode.trimmed();
    try {
        if (code.isEmpty()) return Refusal(QStringLiteral("请输入更换的房间编号！"), field);
        const Rows target = fThe(m_db).GetLinkByHouseCode(code);
        if (target.isEmpty()) return Refusal(QStringLiteral("对不起，您要更换的包厢不存在！"), field);
        // The stored state decides: a lock that has run out on the board still counts.
        if (target.first().integer(QStringLiteral("State")) != 0)
            return Refusal(RoomUseText::newRoomTaken(), field);
        const QString newID = target.first().text(QStringLiteral("TheID"));
        const Rows old = fThe(m_db).GetLinkByHouseCode(in.oldHouseCode);
        if (old.isEmpty()) return Refusal::warning(RoomUseText::billClosed());
        const QString oldID = old.first().text(QStringLiteral("TheID"));

        return m_db.write([&]() -> Refused {
            // The bill first: still open and still in the room the dialog showed.
            const Rows bill = m_db.query(
                QStringLiteral("select Description from Expense where ExpenseID=? and State=1 and TheID=?"),
                {in.expenseID, oldID});
            if (bill.isEmpty() ||
                m_db.exec(
                    QStringLiteral("update Expense set State=1 where ExpenseID=? and State=1 and TheID=?"),
                    {in.expenseID, oldID}) == 0)
                return m_db.discard(Refused(Refusal::warning(RoomUseText::billClosed())));
            // Then both rooms, in key order: the old one only while it still holds the bill (it
            // gets no lock), the new one only while it is free.
            const auto freeOld = [&] {
                return m_db.exec(
                           QStringLiteral("update The set State=0, ExpenseID='' where TheID=? and State=1 "
                                          "and ExpenseID=?"),
                           {oldID, in.expenseID}) == 1;
            };
            const auto takeNew = [&] {
                return m_db.exec(
                           QStringLiteral("update The set State=1, ExpenseID=? where TheID=? and State=0"),
                           {in.expenseID, newID}) == 1;
            };
            const bool oldFirst = oldID < newID;
            if (oldFirst && !freeOld())
                return m_db.discard(Refused(Refusal::warning(RoomUseText::billClosed())));
            if (!takeNew()) return m_db.discard(Refused(Refusal(RoomUseText::newRoomTaken(), field)));
            if (!oldFirst && !freeOld())
                return m_db.discard(Refused(Refusal::warning(RoomUseText::billClosed())));

            m_db.announceRoom(oldID);
            m_db.announceRoom(newID);
            m_db.announceBill(in.expenseID);
            const QString oldDesc = bill.first().text(QStringLiteral("Description"));
            const QString desc = in.description.trimmed().isEmpty()
                                     ? oldDesc
                                     : oldDesc + QStringLiteral("\r\n") + in.description;
            m_db.exec(
                QStringLiteral("update Expense set Description=?, TheID=?, PayLevelID=?, openOperator=? "
                               "where ExpenseID=? and State=1"),
                {desc, newID, target.first().text(QStringLiteral("PayLevelID")), App().CurrentOperatorName,
                 in.expenseID});
            WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("日常营业"), QStringLiteral("更换包厢"),
                     2, true,
                     QStringLiteral("消费单(") + in.expenseID + QStringLiteral(")由包厢") + in.oldHouseCode +
                         QStringLiteral("换台为") + target.first().text(QStringLiteral("TheCode")),
                     m_db);
            return std::nullopt;
        });
    } catch (const DbError& e) {
        return Refusal::error(e.message(QStringLiteral("SaveData"), QStringLiteral("frmHouseChange")));
    }
}

Refused RoomUseService::merge(const QString& fromCode, const QString& intoCode) {
    const QString runningRoom =
        QStringLiteral("select TheID, ExpenseID from The where State=1 and lower(TheCode)=lower(?)");
    try {
        return m_db.write([&]() -> Refused {
            const Rows from = m_db.query(runningRoom, {fromCode});
            if (from.isEmpty())
                return m_db.discard(
                    Refused(mergeRefused(RoomUseText::mergeFromWrong(), QStringLiteral("txt1"))));
            const QString fromRoom = from.first().text(QStringLiteral("TheID"));
            const QString source = from.first().text(QStringLiteral("ExpenseID"));
            // The same room in both boxes has nothing to merge into.
            const Rows into = fromCode.trimmed().compare(intoCode.trimmed(), Qt::CaseInsensitive) == 0
                                  ? Rows()
                                  : m_db.query(runningRoom, {intoCode});
            if (into.isEmpty() || into.first().text(QStringLiteral("TheID")) == fromRoom)
                return m_db.discard(
                    Refused(mergeRefused(RoomUseText::mergeIntoWrong(), QStringLiteral("txt2"))));
            const QString target = into.first().text(QStringLiteral("ExpenseID"));

            // Both bills first, in key order, each only while still open in the room read
            // above; two merges crossing each other then queue instead of deadlocking.
            const auto hold = [&](const QString& bill, const QString& room) {
                return m_db.exec(
                           QStringLiteral("update Expense set State=1 where ExpenseID=? and State=1 and "
                                          "TheID=?"),
                           {bill, room}) == 1;
            };
            const QString intoRoom = into.first().text(QStringLiteral("TheID"));
            const bool sourceFirst = source < target;
            if (!hold(sourceFirst ? source : target, sourceFirst ? fromRoom : intoRoom) ||
                !hold(sourceFirst ? target : source, sourceFirst ? intoRoom : fromRoom))
                return m_db.discard(
                    Refused(mergeRefused(RoomUseText::mergeFromWrong(), QStringLiteral("txt1"))));
            // The merged room gets no lock.
            if (m_db.exec(
                    QStringLiteral(
                        "update The set State=0, ExpenseID='' where TheID=? and State=1 and ExpenseID=?"),
                    {fromRoom, source}) == 0)
                return m_db.discard(
                    Refused(mergeRefused(RoomUseText::mergeFromWrong(), QStringLiteral("txt1"))));
            m_db.exec(QStringLiteral("update ExpenseDetail set ExpenseID=? where ExpenseID=?"),
                      {target, source});
            m_db.exec(QStringLiteral("delete from Expense where ExpenseID=? and State=1"), {source});
            m_db.announceRoom(fromRoom);
            m_db.announceRoom(intoRoom);
            m_db.announceBill(source);
            m_db.announceBill(target);
            return std::nullopt;
        });
    } catch (const DbError& e) {
        return Refusal::error(e.message(QStringLiteral("SaveData"), QStringLiteral("frmExpenseAmalgamate")));
    }
}

bool RoomUseService::isHigh2Low(const QString& newHouseCode, Money oldPrice) const {
    try {
        const Rows r = fThe(m_db).GetLinkByHouseCode(newHouseCode);
        if (r.isEmpty() || r.first().integer(QStringLiteral("PayType")) != 0) return false;
        return oldPrice > Money::fromDouble(r.first().num(QStringLiteral("Price1")));
    } catch (const DbError& e) {
        Msg::critical(nullptr, e.message(QStringLiteral("isHigh2Low"), QStringLiteral("frmHouseChange")));
        return false;
    }
}
