#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QString>
#include <array>
#include <optional>

// A goods type's discount periods as the editor shows them: texts as in the boxes.
struct WareLevelInput {
    QString name;
    std::array<QString, 4> start{QStringLiteral("0"), QString(), QString(), QString()};
    std::array<QString, 4> end; // "" when not chosen
    std::array<QString, 4> discount{QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("1"),
                                    QStringLiteral("1")};
    QString description;
};

namespace WareLevelService {
// The row the options window edits besides the types' own: no type joins it unless a type
// is given this key.
inline QString venueWideID() {
    return QStringLiteral("The");
}

// The stored periods of the key, discounts shown "0.00"; none when there is no row yet.
std::optional<WareLevelInput> load(const QString& id, Db& db = DB());
// The editor's checks in their order.
Refused validate(const WareLevelInput& in);
// Writes the row of the key (made when missing) and the log row, in one transaction.
// Every number is the numeric prefix of its box, so a discount that is not a number is 0.
// Throws DbError.
void save(const QString& id, const WareLevelInput& in, Db& db = DB());
// "修改为：0-18折扣：1.00，18-24折扣：0.80，…": the log's account of the four periods.
QString logText(const WareLevelInput& in);
} // namespace WareLevelService
