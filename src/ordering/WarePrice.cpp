#include "WarePrice.h"
#include "AppState.h"
#include "Format.h"

namespace {
const QString TwoDecimals = QStringLiteral("0.00");

QString col(const char* base, int i) {
    return QString::fromLatin1(base) + QString::number(i + 1);
}
} // namespace

AllDiscountRate AllDiscountRate::current() {
    return {App().IsAllDiscount == 1, float(App().AllDiscount)};
}

WarePrice GetWarePrice(const WarePriceRow& row, int hour) {
    if (!row.level)
        return {QString(),
                QStringLiteral("对不起，您设置 ") + row.wareTypeName +
                    QStringLiteral(
                        " 类商品使用时段折扣，但没有设置此类商品的具体折扣数值，请在“营业设置”的“商品分"
                        "类”中设置此类商品的“折扣时段”！")};
    const WarePeriods& p = *row.level;
    double price = row.price.toDouble();
    for (size_t i = 0; i < 4; ++i) {
        if (p.start[i] <= hour && p.end[i] > hour) {
            price = row.price.toDouble() * p.discount[i];
            break;
        }
    }
    return {FormatNumber(price, TwoDecimals), QString()};
}

WarePrice DecideWarePrice(const WarePriceRow& row, const AllDiscountRate& all, int hour) {
    if (all.on) return {FormatNumber(row.price.toDouble() * double(all.rate), TwoDecimals), QString()};
    if (row.isDoDiscount) return GetWarePrice(row, hour);
    return {FormatNumber(row.price.toDouble(), TwoDecimals), QString()};
}

QString AllDiscountCaption(const AllDiscountRate& all) {
    if (!all.on) return QString();
    return QStringLiteral("当前全场商品折扣: ") + FormatNumber(double(all.rate), TwoDecimals);
}

namespace WareCatalog {
QList<PricedWare> FillWareList(const QDateTime& at, const AllDiscountRate& all, Db& db) {
    // Every article, with its type's flag and period row when they exist.
    const Rows rows = db.query(QStringLiteral(
        "SELECT Ware.*, WareType.WareTypeName, WareType.IsDoDiscount, WareLevel.WareLevelID, "
        "WareLevel.start1, WareLevel.start2, WareLevel.start3, WareLevel.start4, WareLevel.end1, "
        "WareLevel.end2, "
        "WareLevel.end3, WareLevel.end4, WareLevel.Discount1, WareLevel.Discount2, WareLevel.Discount3, "
        "WareLevel.Discount4 FROM (Ware LEFT JOIN WareType ON WareType.WareTypeID = Ware.WareTypeID) "
        "LEFT JOIN WareLevel ON WareType.WareTypeID = WareLevel.WareLevelID ORDER BY COALESCE(Ware.WareCode, "
        "''), Ware.WareID"));
    const int hour = at.time().hour();
    QList<PricedWare> out;
    out.reserve(rows.count());
    for (const Row r : rows) {
        PricedWare w;
        w.wareID = r.text(QStringLiteral("WareID"));
        w.wareTypeID = r.text(QStringLiteral("WareTypeID"));
        w.wareTypeName = r.text(QStringLiteral("WareTypeName"));
        w.wareCode = r.text(QStringLiteral("WareCode"));
        w.wareName = r.text(QStringLiteral("WareName"));
        w.mnemonics = r.text(QStringLiteral("Mnemonics"));
        w.wareUnit = r.text(QStringLiteral("wareUnit"));
        w.price = r.money(QStringLiteral("Price"));
        w.procurePrice = r.money(QStringLiteral("ProcurePrice"));
        w.tiCheng = r.money(QStringLiteral("tiCheng"));
        WarePriceRow p;
        p.price = w.price;
        p.isDoDiscount = r.num(QStringLiteral("IsDoDiscount")) == 1;
        p.wareTypeName = w.wareTypeName;
        if (!r.isNull(QStringLiteral("WareLevelID"))) {
            WarePeriods level;
            for (int i = 0; i < 4; ++i) {
                level.start[size_t(i)] = r.num(col("start", i));
                level.end[size_t(i)] = r.num(col("end", i));
                level.discount[size_t(i)] = r.num(col("Discount", i));
            }
            p.level = level;
        }
        w.decided = DecideWarePrice(p, all, hour);
        out << w;
    }
    return out;
}

Rows wareTypesByName(Db& db) {
    return db.query(QStringLiteral("select * from WareType Order by WareTypeName, WareTypeID"));
}
} // namespace WareCatalog
