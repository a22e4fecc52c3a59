#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QString>
#include <optional>

// A member class as its editor shows it: the numbers are the boxes' texts.
struct MemberClassInput {
    QString name;
    QString initValue = QStringLiteral("0");
    QString stepValue = QStringLiteral("0");
    QString discount = QStringLiteral("1");
    QString description;
};

struct MemberClassSaved {
    QString id;
    Refused refusal;
    bool ok() const { return !refusal; }
};

// Member classes: starting points, money per point and the checkout discount factor.
class MemberClassService {
  public:
    explicit MemberClassService(Db& db = DB()) : m_db(db) {}

    // In the store's own order.
    Rows list() const;
    // The discount shows with two decimals and the money per point as a whole number.
    std::optional<MemberClassInput> load(const QString& id) const;
    static Refused validate(const MemberClassInput& in);
    // An empty id adds a class. A class deleted meanwhile is not written back: the id
    // comes back empty.
    MemberClassSaved save(const QString& id, const MemberClassInput& in);
    // The store refuses a class that members still belong to. `gone` tells whether a row went.
    Refused remove(const QString& id, bool* gone = nullptr);
    // The points a member of the class starts with, or nothing when the class is gone.
    std::optional<double> initValue(const QString& id) const;

  private:
    Db& m_db;
};
