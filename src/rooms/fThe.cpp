#include "fThe.h"
#include "Format.h"

RoomStatusText RoomStatus(qint64 state, const QString& other1, const QDateTime& now) {
    switch (state) {
    case 1:
        return {QStringLiteral("Use"), QStringLiteral("使用")};
    case 2:
        return {QStringLiteral("Stop"), QStringLiteral("停用")};
    case 3:
        return {QStringLiteral("Reservation"), QStringLiteral("预定")};
    case 4: {
        const QDateTime lockEnd = ParseTime(other1);
        if (lockEnd.isValid() && MinutesBetween(lockEnd, now) <= 0)
            return {QStringLiteral("Lock"), QStringLiteral("锁定")};
        break;
    }
    default:
        break;
    }
    return {QStringLiteral("Common"), QStringLiteral("空闲")};
}

Rows fThe::GetAllByAssortType(const QString& assortID) const {
    return m_db.query(QStringLiteral("select * from The where AssortID=? Order by The.TheCode"), {assortID});
}

Rows fThe::GetAll() const {
    return m_db.query(QStringLiteral("select * from The"));
}

Rows fThe::GetLinkAll(const QString& condition, const Params& params) const {
    QString sql =
        QStringLiteral("SELECT The.*,PayLevel.PayLevelName,PayLevel.PayType as PayType,PayLevel.Price1,"
                       "PayLevel.MinMoney,TheAssort.AssortName,TheAssort.PayLevelID "
                       "FROM (The LEFT JOIN TheAssort ON TheAssort.AssortID = The.AssortID) "
                       "LEFT JOIN PayLevel ON PayLevel.PayLevelID = TheAssort.PayLevelID");
    if (!condition.isEmpty()) sql += QStringLiteral(" where ") + condition;
    return m_db.query(sql, params);
}

Rows fThe::GetLinkByID(const QString& theID) const {
    return GetLinkAll(QStringLiteral("The.TheID=?"), {theID});
}

Rows fThe::GetLinkByHouseCode(const QString& code) const {
    // Room codes compare without regard to case, as the finder does ("b02" is B02).
    return GetLinkAll(QStringLiteral("lower(The.TheCode)=lower(?)"), {code});
}

Rows fThe::GetByID(const QString& theID) const {
    return m_db.query(QStringLiteral("select * from The where TheID=?"), {theID});
}
