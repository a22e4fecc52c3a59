#pragma once
#include "Db.h"
#include "Money.h"
#include <QDateTime>
#include <QList>
#include <QString>
#include <array>
#include <optional>

// The four time-of-day periods of a goods type (a WareLevel row). Hours are whole; a
// period holds from its start up to, not including, its end; an end of 0 is unused.
struct WarePeriods {
    std::array<double, 4> start{0, 0, 0, 0};
    std::array<double, 4> end{0, 0, 0, 0};
    std::array<double, 4> discount{1, 1, 1, 1};
};

// What the price decision reads of one goods row.
struct WarePriceRow {
    Money price;                      // the catalogue price
    bool isDoDiscount = false;        // the type's flag is exactly 1
    std::optional<WarePeriods> level; // none when the type has no period row
    QString wareTypeName;
};

// The venue-wide rate as the program holds it: a single-precision factor.
struct AllDiscountRate {
    bool on = false;
    float rate = 1.0f;
    // From the application state (IsAllDiscount, AllDiscount).
    static AllDiscountRate current();
};

// A decided price: the text the ordering lists show ("0.00"), empty when there is none,
// and the message to show for it, if any.
struct WarePrice {
    QString text;
    QString warning;
};

// The period step: the first period holding the hour multiplies the catalogue price by its
// factor; outside every period the catalogue price stands. No period row: no price, and the
// message asking for the type's periods.
WarePrice GetWarePrice(const WarePriceRow& row, int hour);

// The decision made when an ordering window builds its goods list: the venue-wide rate
// first (regardless of the type's flag), then the type's periods if it allows them, else the
// catalogue price. Rounded once, to two decimals, half away from zero.
WarePrice DecideWarePrice(const WarePriceRow& row, const AllDiscountRate& all, int hour);

// "当前全场商品折扣: 0.90" while the venue-wide rate is on, else empty.
QString AllDiscountCaption(const AllDiscountRate& all);

// One article of an ordering window's goods list, priced.
struct PricedWare {
    QString wareID, wareTypeID, wareTypeName, wareCode, wareName, mnemonics, wareUnit;
    Money price;        // catalogue
    Money procurePrice; // cost
    Money tiCheng;      // commission per unit
    WarePrice decided;
};

namespace WareCatalog {
// The goods of the ordering windows in WareCode order, each priced for the hour of `at`
// (goods whose type is gone included, at their catalogue price). Throws DbError.
QList<PricedWare> FillWareList(const QDateTime& at, const AllDiscountRate& all, Db& db = DB());
// The goods types for the tree of an ordering window, by name.
Rows wareTypesByName(Db& db = DB());
} // namespace WareCatalog
