#pragma once
#include "Db.h"
#include <QString>

// Whether the operator holds the right: a Puissance row whose isHave is numerically 1.
// Asked of the database each time; nothing is cached.
bool HasPuissance(const QString& operatorID, const QString& code, Db& db = DB());

// The one rights check of the program: true silently, or "您没有操作此项业务的权限！".
bool CheckPuissance(const QString& code);

// The buttons inside windows that need a right: the window's objectName, the button's, and the
// code. The windows check through this table, and the rights sweep reads it, so a code is
// written in one place.
struct GuardedButton {
    QString form;
    QString button;
    QString right;
};
const QList<GuardedButton>& GuardedButtons();

// CheckPuissance for button `button` of `form` (found by the form's objectName); true when
// the table has no row for it.
bool CheckButton(const QObject* form, const QString& button);
