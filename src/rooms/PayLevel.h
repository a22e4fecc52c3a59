#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QString>
#include <array>

// A tariff as the editor shows it: texts as typed, the chosen tab and option.
struct PayLevelInput {
    QString name, description;
    int payType = 1; // the tab: 0 fixed rate, 1 by time
    QString afterTime = QStringLiteral("5");
    std::array<QString, 4> end;    // "" when not chosen
    std::array<QString, 4> price, minMoney, priceA, minMoneyA;
    QString unit = QStringLiteral("10");
    int notOne = 0;
    QString privilegeTime = QStringLiteral("0");
};

// The end-hour chain: period i starts where period i-1 ended; ends run from the start + 1 to 24.
struct PeriodChain {
    std::array<int, 4> start{0, 0, 0, 0};
    std::array<int, 4> end{0, 0, 0, 0}; // 0: not chosen
    // Choices for the end of period i (0-based): empty when the period before ends at 24 or is open.
    QList<int> choices(int i) const;
    // Choosing an end clears the later ends and sets the next start.
    void choose(int i, int hour);
};

namespace PayLevelService {
// The checks of the editor in their order; the field names the control to focus.
Refused validate(const PayLevelInput& in);
// Saves (new when id is empty) and logs. Returns the key, or empty when the edited row is gone.
QString save(const QString& id, const PayLevelInput& in, Db& db = DB());
PayLevelInput load(const QString& id, bool* found = nullptr, Db& db = DB());
// Refused while a room type or an open bill uses the tariff.
Refused remove(const QString& id, Db& db = DB());
// Texts of a row of the tariff list: name, minimum, mode, then one per period up to the one ending at 24.
QStringList rowTexts(const Row& row);
} // namespace PayLevelService
