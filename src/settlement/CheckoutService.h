#pragma once
#include "CheckoutModel.h"
#include "Db.h"
#include "Money.h"
#include "Refusal.h"
#include "fExpense.h"
#include <QDateTime>
#include <QString>
#include <optional>

// A bill as the checkout window shows it, priced for a closing time.
struct CheckoutBill {
    QString expenseID, theID, theCode, assortName, payLevelName;
    QString markerCode, description, jzr, customerCode;
    qint64 customerNum = 0;
    QDateTime openTime;
    QDateTime closeTime; // the stored closing time: that of deferring, for a deferred bill
    qint64 state = 1, voucherState = 0;
    Money goods, room;
    Money cost; // what the live lines cost the venue, in cents
    BillSnapshot seen; // what the window shows, for the commit to compare
};

// What the window commits for a bill.
struct CheckoutInput {
    QString expenseID;
    bool deferredBill = false; // the bill was loaded as a deferred one
    QDateTime closeTime;
    QString customerCode; // as typed
    QString jzr, closeDesc;
    Money theMoney; // the room charge shown
    CheckoutAmounts amounts;
    QString memberCode; // the member found for the typed code, credited at the commit; empty: none
    // The bill as the window loaded it: the commit refuses when its lines, room or tariff
    // changed since. Nothing: not compared.
    std::optional<BillSnapshot> seen;
    bool print = false; // queue the settled bill's slip with the commit
};

struct CheckoutDone {
    bool saved = false;
    Refused refusal;
    // The bill was closed or deferred elsewhere, or is gone: nothing was written and the
    // window has nothing left to do.
    bool billChanged = false;
    // The bill's room was not found: nothing was written.
    bool roomMissing = false;
    // The bill's lines, room or tariff changed since the window loaded it: nothing was
    // written, the window loads the bill again.
    bool billAltered = false;
    // The card no longer holds the stored value to be paid: nothing was written, the window
    // reads the balance again.
    bool balanceShort = false;
    QString printJob; // the queued slip of the settled bill, sent after the commit
    QString theID;
    int roomState = -1; // 0 free, 4 locked, -1 left alone (it no longer pointed at the bill)
};

// Reading and closing bills at the till.
class CheckoutService {
  public:
    explicit CheckoutService(Db& db = DB()) : m_db(db) {}

    // The bill priced as if it closed at `closeTime`; a deferred bill keeps its stored room
    // charge. Nothing when the bill is gone.
    std::optional<CheckoutBill> load(const QString& expenseID, const QDateTime& closeTime,
                                     bool deferred) const;
    // The bill's live goods of types that take no member discount.
    Money excludedGoods(const QString& expenseID) const;
    std::optional<CheckoutMember> member(const QString& code) const;
    bool CheckMemberPassword(const QString& code, const QString& typed) const;
    // Deferred bills whose settling person's name contains `jzr` (all when blank), oldest
    // opening first.
    Rows deferredBills(const QString& jzr) const;

    // Closes the bill in one transaction: the bill's closing fields, its room freed or
    // locked for LockTime minutes, the member's points, spending and stored value, and the
    // bill's slip in the print queue when asked. The bill is written only while it is still
    // open (or still deferred, for a deferred bill) and still what the window saw; its room
    // only while the room still points at the bill; the card only while it holds the
    // stored value paid.
    CheckoutDone close(const CheckoutInput& in);

    // How the bill a window loaded stands now, as the commit would find it: still to settle
    // and unchanged, changed (lines, room or tariff), or no longer to settle here.
    enum class Standing { Same, Altered, Closed };
    Standing standing(const QString& expenseID, bool deferred, const BillSnapshot& seen) const;

  private:
    Db& m_db;
};

namespace CheckoutText {
// Said as soon as another till closes the bill on the window.
inline QString closedElsewhere() {
    return QStringLiteral("这张单据已经在别处结帐或已被删除！");
}
inline QString billChanged() {
    return QStringLiteral("这张单据已经在别处结帐或已被删除，本次结帐没有保存！");
}
} // namespace CheckoutText
