#pragma once
#include "Money.h"
#include <QDateTime>
#include <QString>
#include <array>

// A tariff's day periods as the engine sees them: periods 0 to 3 from start1..end4 and so on,
// period 4 all zero for the hours no period holds. Values are whole numbers, rounded ties to
// even when set: the engine prices whole money per hour, whatever the dialog kept.
class PeriodGrid {
public:
    enum Column { Start = 0, End = 1, Price = 2, MinMoney = 3, BuyOutHours = 4, BuyOutPrice = 5 };
    static constexpr int Periods = 5;
    static constexpr int Columns = 6;
    // No tariff value comes near this; it keeps the arithmetic inside 64 bits.
    static constexpr double Limit = 1e12;

    void set(int period, int column, double value);
    qint64 at(int period, int column) const { return m_v[size_t(period)][size_t(column)]; }

private:
    std::array<std::array<qint64, Columns>, Periods> m_v{};
};

// The period (0 to 3) whose hours hold the hour of day of `time`, else 4. Minutes and the
// date play no part.
int FindPeriod(const QDateTime& time, const PeriodGrid& periods);

// The hourly charge from `startTime` to `closeTime`: whole units, each priced by the period
// it starts in, then the last part-unit by the `notOne` rule. A unit of 0 or less charges
// nothing. `afterTime` is unused here: the free minutes are decided by CalcRoomMoney.
// Throws std::range_error for an invalid time or money beyond the range of Money.
Money CalcHourMoney(const QDateTime& startTime, const QDateTime& closeTime, int unit, int notOne,
                    int privilegeTime, int afterTime, const PeriodGrid& periods);

// The room charge of a bill from its opening to `closeTime`. The mode comes from the
// bill's `payLevelType` (1 by time, anything else fixed rate); `payType`, the tariff's
// default mode, is unused because the operator may have changed it at opening.
// `oldMoney` is added in every path. A charge that cannot be computed is -1.
Money CalcRoomMoney(const QDateTime& openTime, const QDateTime& closeTime, int payType, int unit, int notOne,
                    int privilegeTime, int afterTime, Money oldMoney, Money goodsMoney,
                    const PeriodGrid& periods, bool useMinMoney, int payLevelType);

// The length of a stay as bills show it: "未知", "25分钟", "2小时5分钟".
QString GetExpendTimeText(const QDateTime& openTime, const QDateTime& closeTime);
