#pragma once
#include "Db.h"
#include "Money.h"
#include "Refusal.h"
#include <QDate>
#include <QDateTime>
#include <QString>
#include <optional>

// A member as the member dialog edits it. Balances are not here: only top-ups and
// checkout move them.
struct MemberInput {
    QString code, name;
    bool male = true;
    QDateTime addDate;
    QString setupID;     // the class; empty when none is chosen
    int state = 0;       // 0 可用, 1 停用
    QString memberValue; // the points box as typed
    QString nationality, idCard, address, phone, movePhone, fax, postCode, email;
    QString comName, comAddress, comPostCode, theFunction, description, sms;
    QDate birthday; // invalid when none
};

// What to do with the stored photo: keep it, clear it, or replace it by a picture file or
// by picture bytes (pasted).
struct MemberPhoto {
    enum Kind { Keep, Clear, File, Data } kind = Keep;
    QString path;
    QByteArray data;
};

struct MemberSaved {
    bool saved = false;
    Refused refusal;
};

enum class MemberDelete {
    Deleted,       // the member row went
    NothingGone,   // no such member any more
    NeedsQuestion, // bills carry the member: ask before deleting with the top-ups
    Refused,       // the store refused
};

// A member as checkout sees it, with the class's terms.
struct MemberCard {
    QString code, name;
    qint64 state = 0;
    QString setupID, setupName;
    double discount = 0;  // factor; 0 when the member has no class
    double stepValue = 0; // money per point; 0 earns none
    double points = 0;
    Money chongzhi, sumValue;
};

// Points earned by a payment: the payment divided by the class's money per point, to
// the nearest whole point, a half to the even neighbour. A class with 0 earns none.
qint64 MemberPoints(Money paid, double stepValue);

// Whether a typed password opens a stored one: an Argon2id hash is verified; any other
// stored text (empty for no password, or a value written by hand) must equal the typed one.
bool PasswordMatches(const QString& stored, const QString& typed);

// The member registry.
class MemberService {
  public:
    explicit MemberService(Db& db = DB()) : m_db(db) {}

    // Members whose name and code contain the texts (blank texts match all), by code.
    Rows search(const QString& name, const QString& code) const;
    std::optional<MemberInput> load(const QString& code) const;
    QByteArray photo(const QString& code) const;
    static Refused validate(const MemberInput& in);
    // An empty original code adds a member; otherwise the member of that code is written,
    // its code included (renaming leaves its top-ups and bills on the old code).
    // A member deleted meanwhile is not written back: saved stays false.
    MemberSaved save(const QString& originalCode, const MemberInput& in, const MemberPhoto& photo);

    // Bills that carry the member.
    qint64 billCount(const QString& code) const;
    // A member with bills is deleted only when `confirmed`, and then its top-ups go with it
    // (the bills stay). A member without bills goes alone, without a question, leaving
    // any top-ups behind.
    MemberDelete remove(const QString& code, bool confirmed);
    // True when the member's card password was cleared.
    bool ClearPassword(const QString& code);

    // Top-ups of the member, newest first, and the bills paid with its stored value.
    Rows chongzhiRecords(const QString& code) const;
    Rows chongzhiExpenses(const QString& code) const;

    // For checkout: the member with its class, or nothing.
    std::optional<MemberCard> card(const QString& code) const;
    // True when the member exists and the typed password opens its card.
    bool CheckMemberPassword(const QString& code, const QString& typed) const;
    // Checkout's credit: points by the class, spending, and the stored value used, each by
    // a relative update so that a top-up made meanwhile is kept. The stored value is taken
    // only while the card still holds it, in the same statement, so two tills can't both
    // spend one balance. Runs inside the caller's transaction. Throws DbError.
    enum class Settled { Done, MemberGone, BalanceShort };
    Settled settle(const QString& code, Money paid, Money cardPay);

  private:
    Db& m_db;
};
