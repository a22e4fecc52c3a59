#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QString>

// A password change of the one dialog that serves operators and member cards.
struct PasswordChangeInput {
    int kind = 1; // 2 a member card by its code; anything else an operator by id
    QString id;
    QString nowPw, newPw, repeatPw;
};

// Checks the repeat, then the current password, then stores the new one as a hash.
// A member's card with an empty new password is left without one. Refusals name the box
// that gets the focus.
Refused ChangePassword(const PasswordChangeInput& in, Db& db = DB());
