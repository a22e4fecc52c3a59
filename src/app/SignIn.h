#pragma once
#include "Db.h"
#include <QString>

enum class SignInOutcome { Ok, Disabled, Invalid };

// Checks a login against Operator. On success fills the operator values of the
// application state, makes the password hash anew when its limits changed, and logs
// "登录系统成功！"; a wrong name or password logs "登录系统失败！"; a disabled account
// is refused before its password is looked at and is not logged.
SignInOutcome SignIn(const QString& loginName, const QString& password, Db& db = DB());

// The log line of a failed attempt when the database could not even be opened.
void LogSignInFailure(const QString& loginName, Db& db = DB());
