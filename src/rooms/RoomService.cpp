#include "RoomService.h"
#include "AppState.h"
#include "Clock.h"
#include "Dialect.h"
#include "Gateway.h"
#include "Log.h"
#include "NewID.h"
#include "Val.h"
#include "fThe.h"
#include <cmath>

namespace {
const QString fAssortName = QStringLiteral("txtAssortName");
const QString fAssort = QStringLiteral("imgcmbAssort");
const QString fHouseCode = QStringLiteral("txtHouseCode");
const QString fEndCode = QStringLiteral("txtEndCode");

// One batch may not run away on a mistyped end number.
constexpr qint64 MaxBatch = 1000;

// An unset key is stored as null: the foreign keys refuse empty text.
Param keyOrNull(const QString& key) {
    return key.isEmpty() ? Param(nullptr) : Param(key);
}
} // namespace

QString BatchCode(const QString& markerText, double n) {
    if (std::floor(n) == n && std::fabs(n) < 1e15) return markerText + QString::number(qint64(n));
    return markerText + QString::number(n, 'g', 15);
}

Rows RoomService::tariffs() const {
    return m_db.query(
        QStringLiteral("select PayLevelID, PayLevelName from PayLevel order by PayLevelName, PayLevelID"));
}

Rows RoomService::roomTypes() const {
    return m_db.query(
        QStringLiteral("select AssortID, AssortName from TheAssort order by AssortName, AssortID"));
}

bool RoomService::codeTaken(const QString& code, const QString& exceptID) const {
    return m_db.scalar(QStringLiteral("select count(*) from The where lower(TheCode)=lower(?) and TheID<>?"),
                       {code, exceptID})
               .toLongLong() > 0;
}

// ---- room types

std::optional<RoomTypeInput> RoomService::loadRoomType(const QString& assortID) const {
    const Rows r = m_db.query(QStringLiteral("select * from TheAssort where AssortID=?"), {assortID});
    if (r.isEmpty()) return std::nullopt;
    const Row row = r.first();
    return RoomTypeInput{row.text(QStringLiteral("AssortID")), row.text(QStringLiteral("AssortName")),
                         row.text(QStringLiteral("PayLevelID"))};
}

Saved RoomService::saveRoomType(const RoomTypeInput& in) {
    if (in.assortName.trimmed().isEmpty())
        return {{}, Refusal(QStringLiteral("请输入分类名称！"), fAssortName)};
    if (in.payLevelID.isEmpty()) return {{}, Refusal(QStringLiteral("请选择包厢所属分类！"), fAssort)};
    try {
        return m_db.write([&]() -> Saved {
            QString id = in.assortID;
            if (id.isEmpty()) {
                id = FreshKey(QStringLiteral("TheAssort"), QStringLiteral("AssortID"), m_db);
                m_db.exec(QStringLiteral(
                              "insert into TheAssort (AssortID, AssortName, PayLevelID) values (?, ?, ?)"),
                          {id, in.assortName, keyOrNull(in.payLevelID)});
            } else if (m_db.exec(
                           QStringLiteral("update TheAssort set AssortName=?, PayLevelID=? where AssortID=?"),
                           {in.assortName, keyOrNull(in.payLevelID), id}) == 0) {
                return m_db.discard(Saved{{}, Refusal::warning(RoomText::typeGone())});
            }
            return Saved{id, {}};
        });
    } catch (const DbError& e) {
        return {{}, Refusal::error(e.message(QStringLiteral("SaveData"), QStringLiteral("frmHouseAssort")))};
    }
}

Refused RoomService::deleteRoomType(const QString& assortID) {
    try {
        return m_db.write([&]() -> Refused {
            if (m_db.scalar(QStringLiteral("select count(*) from The where AssortID=?"), {assortID})
                    .toLongLong() > 0)
                return m_db.discard(Refused(Refusal::warning(RoomText::inUse())));
            m_db.exec(QStringLiteral("delete from TheAssort where AssortID=?"), {assortID});
            return Refused();
        });
    } catch (const DbError&) {
        // A room given the type meanwhile: the foreign key refuses.
        return Refusal::warning(RoomText::inUse());
    }
}

// ---- rooms

std::optional<RoomInput> RoomService::loadRoom(const QString& theID) const {
    const Rows r = fThe(m_db).GetByID(theID);
    if (r.isEmpty()) return std::nullopt;
    const Row row = r.first();
    return RoomInput{row.text(QStringLiteral("TheID")), row.text(QStringLiteral("TheCode")),
                     row.text(QStringLiteral("AssortID")), row.text(QStringLiteral("theDesc"))};
}

Saved RoomService::saveRoom(const RoomInput& in) {
    const QString code = in.theCode.trimmed();
    if (code.isEmpty()) return {{}, Refusal(QStringLiteral("请输入手牌编号！"), fHouseCode)};
    if (in.assortID.isEmpty()) return {{}, Refusal(QStringLiteral("请选择包厢的类型！"), fAssort)};
    try {
        return m_db.write([&]() -> Saved {
            if (codeTaken(code, in.theID))
                return m_db.discard(Saved{{}, Refusal::warning(RoomText::duplicateCode(), fHouseCode)});
            QString id = in.theID;
            if (id.isEmpty()) {
                id = FreshKey(QStringLiteral("The"), QStringLiteral("TheID"), m_db);
                m_db.exec(
                    QStringLiteral("insert into The (TheID, TheCode, AssortID, theDesc) values (?, ?, ?, ?)"),
                    {id, code, keyOrNull(in.assortID), in.theDesc});
            } else if (m_db.exec(
                           QStringLiteral("update The set TheCode=?, AssortID=?, theDesc=? where TheID=?"),
                           {code, keyOrNull(in.assortID), in.theDesc, id}) == 0) {
                return m_db.discard(Saved{{}, Refusal::warning(RoomText::roomGone())});
            }
            WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("营业设置"), QStringLiteral("设置包厢"),
                     2, true, QStringLiteral("编辑包厢数据，包厢号：") + code, m_db);
            return Saved{id, {}};
        });
    } catch (const DbError& e) {
        // The same code saved on another workstation meanwhile (a key collision is retried).
        if (m_db.dialect().isUniqueViolation(e))
            return {{}, Refusal::warning(RoomText::duplicateCode(), fHouseCode)};
        return {{}, Refusal::error(e.message(QStringLiteral("SaveData"), QStringLiteral("frmHouse")))};
    }
}

BatchAdded RoomService::addRooms(const RoomBatchInput& in) {
    if (in.startCode.trimmed().isEmpty()) return {0, Refusal(QStringLiteral("请输入手牌编号！"), fHouseCode)};
    if (!ReadNumber(in.startCode, Range::Int32))
        return {0, Refusal(QStringLiteral("手牌编号只能输入数字！"), fHouseCode)};
    if (!ReadNumber(in.endCode, Range::Int32))
        return {0, Refusal(QStringLiteral("手牌的结束编号只能输入数字！"), fEndCode)};
    const double start = Val(in.startCode), end = Val(in.endCode);
    if (!(end > start)) return {0, Refusal(QStringLiteral("手牌的结束编号应大于开始编号！"), fEndCode)};
    if (end - start >= double(MaxBatch))
        return {
            0, Refusal(QStringLiteral("一次最多只能增加%1个包厢，请缩小编号范围！").arg(MaxBatch), fEndCode)};
    if (in.assortID.isEmpty()) return {0, Refusal(QStringLiteral("请选择包厢的类型！"), fAssort)};

    const qint64 count = qint64(std::floor(end - start)) + 1;
    try {
        return m_db.write([&]() -> BatchAdded {
            for (qint64 i = 0; i < count; ++i) {
                const QString code = BatchCode(in.markerText, start + double(i));
                if (codeTaken(code))
                    return m_db.discard(
                        BatchAdded{0, Refusal::warning(RoomText::duplicateCode(), fHouseCode)});
                m_db.exec(
                    QStringLiteral("insert into The (TheID, TheCode, AssortID, theDesc) values (?, ?, ?, ?)"),
                    {FreshKey(QStringLiteral("The"), QStringLiteral("TheID"), m_db), code,
                     keyOrNull(in.assortID), in.theDesc});
            }
            return BatchAdded{int(count), std::nullopt};
        });
    } catch (const DbError& e) {
        if (m_db.dialect().isUniqueViolation(e))
            return {0, Refusal::warning(RoomText::duplicateCode(), fHouseCode)};
        return {0, Refusal::error(e.message(QStringLiteral("SaveData"), QStringLiteral("frmHouseAddBat")))};
    }
}

Refused RoomService::deleteRoom(const QString& theID) {
    try {
        return m_db.write([&]() -> Refused {
            if (m_db.scalar(QStringLiteral("select count(*) from Expense where TheID=?"), {theID})
                    .toLongLong() > 0)
                return m_db.discard(Refused(Refusal::warning(RoomText::inUse())));
            // Conditional, so a room opened meanwhile on another workstation stays.
            if (m_db.exec(QStringLiteral("delete from The where TheID=? and State<>1"), {theID}) == 0 &&
                !fThe(m_db).GetByID(theID).isEmpty())
                return m_db.discard(Refused(Refusal::warning(RoomText::inUse())));
            return Refused();
        });
    } catch (const DbError&) {
        return Refusal::warning(RoomText::inUse());
    }
}

// ---- out of service and back

Refused RoomService::missingOrChanged(const QString& theID) const {
    return fThe(m_db).GetByID(theID).isEmpty() ? Refusal::warning(RoomText::roomGone())
                                               : Refusal::warning(RoomText::stateChanged());
}

Refused RoomService::HouseStop(const QString& theID) {
    try {
        return m_db.write([&]() -> Refused {
            const Rows r = fThe(m_db).GetByID(theID);
            if (r.isEmpty()) return m_db.discard(Refused(Refusal::warning(RoomText::roomGone())));
            const qint64 state = r.first().integer(QStringLiteral("State"));
            const QString other1 = r.first().text(QStringLiteral("Other1"));
            // Free is what the board shows as free: a lock that has run out included.
            if (RoomStatus(state, other1, Now()).key != QLatin1String("Common"))
                return m_db.discard(Refused(Refusal::warning(RoomText::stateChanged())));
            // Only if nobody changed the row since it was read.
            if (m_db.exec(QStringLiteral(
                              "update The set State=2 where TheID=? and State=? and coalesce(Other1,'')=?"),
                          {theID, state, other1}) == 0)
                return m_db.discard(missingOrChanged(theID));
            m_db.announceRoom(theID);
            return Refused();
        });
    } catch (const DbError& e) {
        return Refusal::error(e.message(QStringLiteral("HouseStop"), QStringLiteral("frmMain")));
    }
}

Refused RoomService::HouseResume(const QString& theID) {
    try {
        return m_db.write([&]() -> Refused {
            if (m_db.exec(
                    QStringLiteral("update The set State=0, Other1='' where TheID=? and State in (2, 4)"),
                    {theID}) == 0)
                return m_db.discard(missingOrChanged(theID));
            m_db.announceRoom(theID);
            return Refused();
        });
    } catch (const DbError& e) {
        return Refusal::error(e.message(QStringLiteral("HouseResume"), QStringLiteral("frmMain")));
    }
}
