#pragma once
#include "Refusal.h"
#include <QString>

// The business rules of the options window: the all-goods discount with the settlement
// format, changing to a cheaper room, and the checkout start field with the lock time.
namespace BusinessRules {
struct Discount {
    bool on = false;
    QString rate;   // as typed
    int payMoneyFormat = 0;
};
Refused applyDiscount(const Discount& d);
void applyAllowHigh2Low(bool allow);
// `closeFirst` is the list index: 0 member number, 1 cash. The lock keeps the whole minutes typed.
Refused saveCheckout(int closeFirst, const QString& lockMinutes);
} // namespace BusinessRules
