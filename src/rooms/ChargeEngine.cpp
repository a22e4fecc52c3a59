#include "ChargeEngine.h"
#include "Val.h"
#include <QtNumeric>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>

namespace {
constexpr qint64 SecsPerDay = 86400;
constexpr int NoPeriod = 4;
// Largest amount in yuan the engine hands to Money; beyond it the charge is an error.
constexpr double MoneyLimit = 9e14;

// Stored times and the tariff's hours are wall-clock readings, so the engine counts on the
// wall clock: a daylight-saving change neither adds nor removes minutes of a stay, and a
// unit's hour of day is what the clock on the wall showed.
qint64 wallSecs(const QDateTime& t) {
    if (!t.isValid()) throw std::range_error("invalid time");
    return t.date().toJulianDay() * SecsPerDay + t.time().msecsSinceStartOfDay() / 1000;
}

qint64 floorDiv(qint64 a, qint64 b) {
    qint64 q = a / b;
    if (a % b != 0 && (a < 0) != (b < 0)) --q;
    return q;
}

// Whole minutes between two wall times; the seconds of both are ignored.
qint64 minutesBetween(qint64 from, qint64 to) {
    return floorDiv(to, 60) - floorDiv(from, 60);
}

int periodOfHour(qint64 hour, const PeriodGrid& g) {
    for (int i = 0; i < NoPeriod; ++i)
        if (hour >= g.at(i, PeriodGrid::Start) && hour < g.at(i, PeriodGrid::End)) return i;
    return NoPeriod;
}

int periodAt(qint64 wall, const PeriodGrid& g) {
    return periodOfHour((wall - floorDiv(wall, SecsPerDay) * SecsPerDay) / 3600, g);
}

Money money(double yuan) {
    if (!std::isfinite(yuan) || std::abs(yuan) >= MoneyLimit) throw std::range_error("charge out of range");
    return Money::fromDouble(yuan);
}

Money plus(Money a, Money b) {
    qint64 r = 0;
    if (qAddOverflow(a.raw(), b.raw(), &r)) throw std::range_error("charge out of range");
    return Money::fromRaw(r);
}

Money times(Money a, qint64 n) {
    qint64 r = 0;
    if (qMulOverflow(a.raw(), n, &r)) throw std::range_error("charge out of range");
    return Money::fromRaw(r);
}

Money hourMoney(qint64 start, qint64 close, int unit, int notOne, int privilegeTime, const PeriodGrid& g) {
    if (unit <= 0) return {};
    const qint64 unitSecs = qint64(unit) * 60;
    // A unit costs its period's hourly price for `unit` minutes, rounded at each unit.
    std::array<Money, PeriodGrid::Periods> unitMoney;
    std::array<bool, PeriodGrid::Periods> known{};
    const auto unitOf = [&](int p) {
        if (!known[size_t(p)]) {
            unitMoney[size_t(p)] = money(double(g.at(p, PeriodGrid::Price)) / 60 * unit);
            known[size_t(p)] = true;
        }
        return unitMoney[size_t(p)];
    };
    const auto sumUnits = [&](qint64 count) {
        Money s;
        for (qint64 k = 0; k < count; ++k)
            s = plus(s, unitOf(periodAt(start + k * unitSecs, g)));
        return s;
    };

    // Every unit that ends by the closing time is charged whole, by the period it starts in.
    const qint64 units = close > start ? (close - start) / unitSecs : 0;
    // The units' times of day repeat after `cycle` units (at most a day's worth of minutes),
    // so a stay of any length costs whole cycles plus a rest, and the work stays bounded.
    const qint64 cycle = SecsPerDay / std::gcd(unitSecs, SecsPerDay);
    Money total;
    if (units > cycle)
        total = plus(times(sumUnits(cycle), units / cycle), sumUnits(units % cycle));
    else
        total = sumUnits(units);

    const qint64 t = start + units * unitSecs;
    if (t == close) return total;

    // The last stretch is shorter than a unit.
    const qint64 m = minutesBetween(t, close);
    switch (notOne) {
    case 0: {
        if (total > Money()) return total;
        // Nothing charged yet: the floor is a full hour at the price of the last period seen.
        const int p = periodAt(units > 0 ? t - unitSecs : start, g);
        return money(double(g.at(p, PeriodGrid::Price)));
    }
    case 1:
        return m > privilegeTime ? plus(total, unitOf(periodAt(t, g))) : total;
    default:
        return money(double(m) * (double(g.at(periodAt(t, g), PeriodGrid::Price)) / 60) + total.toDouble());
    }
}
} // namespace

void PeriodGrid::set(int period, int column, double value) {
    Q_ASSERT(period >= 0 && period < Periods && column >= 0 && column < Columns);
    if (!std::isfinite(value)) value = 0;
    m_v[size_t(period)][size_t(column)] = RoundEven(std::clamp(value, -Limit, Limit));
}

int FindPeriod(const QDateTime& time, const PeriodGrid& periods) {
    return time.isValid() ? periodOfHour(time.time().hour(), periods) : NoPeriod;
}

Money CalcHourMoney(const QDateTime& startTime, const QDateTime& closeTime, int unit, int notOne,
                    int privilegeTime, int afterTime, const PeriodGrid& periods) {
    Q_UNUSED(afterTime);
    if (unit <= 0) return {};
    return hourMoney(wallSecs(startTime), wallSecs(closeTime), unit, notOne, privilegeTime, periods);
}

Money CalcRoomMoney(const QDateTime& openTime, const QDateTime& closeTime, int payType, int unit, int notOne,
                    int privilegeTime, int afterTime, Money oldMoney, Money goodsMoney,
                    const PeriodGrid& periods, bool useMinMoney, int payLevelType) {
    Q_UNUSED(payType);
    try {
        const qint64 open = wallSecs(openTime);
        const qint64 close = wallSecs(closeTime);
        const qint64 minutes = minutesBetween(open, close);
        // Within the free minutes (the last one included) nothing is charged, in any mode.
        if (!(minutes > afterTime)) return oldMoney;

        const int p = periodAt(open, periods);
        if (payLevelType == 1) {
            Money charge = plus(hourMoney(open, close, unit, notOne, privilegeTime, periods), oldMoney);
            if (useMinMoney) {
                // Only the minimum of the opening period counts; it tops the room charge up so
                // that room and goods together reach it.
                const Money minimum = Money::yuan(periods.at(p, PeriodGrid::MinMoney));
                if (plus(goodsMoney, charge) < minimum) charge = plus(minimum, -goodsMoney);
            }
            return charge;
        }

        // Fixed rate: the buy-out of the opening period, then overtime by the hourly rules
        // from the instant the buy-out ends.
        const qint64 hours = periods.at(p, PeriodGrid::BuyOutHours);
        Money charge = Money::yuan(periods.at(p, PeriodGrid::BuyOutPrice));
        if (hours > 0 && minutes - hours * 60 >= 1)
            charge =
                plus(charge, hourMoney(open + hours * 3600, close, unit, notOne, privilegeTime, periods));
        return plus(charge, oldMoney);
    } catch (const std::range_error&) {
        return Money::yuan(-1);
    }
}

QString GetExpendTimeText(const QDateTime& openTime, const QDateTime& closeTime) {
    if (!openTime.isValid() || !closeTime.isValid()) return QStringLiteral("未知");
    const qint64 m = minutesBetween(wallSecs(openTime), wallSecs(closeTime));
    if (m < 0) return QStringLiteral("未知");
    if (m < 60) return QString::number(m) + QStringLiteral("分钟");
    return QString::number(m / 60) + QStringLiteral("小时") + QString::number(m % 60) +
           QStringLiteral("分钟");
}
