#pragma once
#include "Db.h"
#include "Money.h"
#include "Refusal.h"
#include <QDateTime>
#include <QString>
#include <optional>

// The member a top-up is for, as the dialog shows it.
struct ChongzhiMember {
    QString code, name;
    Money balance;
};

struct ChongzhiMemberLoad {
    std::optional<ChongzhiMember> member;
    Refused refusal;
};

// A top-up as typed. The member is the one the dialog holds, not the text of the code box.
struct ChongzhiInput {
    QString currentMember;
    QString factPay;     // money received
    QString thisMemoney; // money credited to the card
    QString description;
};

struct ChongzhiSaved {
    QString chongzhiID; // the row written; empty when nothing was
    QString operatorTime;
    Refused refusal; // why nothing was written
    Refused warning; // the row stands but the member was gone
    bool ok() const { return !refusal; }
};

// A span of the top-up list, the end excluded.
struct ChongzhiPeriod {
    QDateTime start, end;
};

struct ChongzhiTotals {
    Rows rows;
    Money factPay, thisMemoney;
};

// Stored value: topping up a member's card and the list of top-ups.
class StoredValueService {
  public:
    explicit StoredValueService(Db& db = DB()) : m_db(db) {}

    // The member for a top-up; a stopped member (state exactly 1) is refused.
    ChongzhiMemberLoad loadMember(const QString& code) const;
    static Refused validate(const ChongzhiInput& in);
    // Writes the top-up row and raises the balance by the credited amount in one
    // transaction. The two amounts are independent and may be negative.
    ChongzhiSaved save(const ChongzhiInput& in);

    // Index 0 today, 1 this week (Sunday to Saturday), 2 this month; anything else is today.
    static ChongzhiPeriod period(int index, const QDate& today);
    // Top-ups in the span, newest first, with the member's name and the two sums.
    // Equal ends match that one minute only.
    ChongzhiTotals search(const QDateTime& start, const QDateTime& end) const;

  private:
    Db& m_db;
};
