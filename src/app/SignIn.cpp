#include "SignIn.h"
#include "AppState.h"
#include "Clock.h"
#include "Log.h"
#include "Password.h"
#include "Val.h"

namespace {
void logAttempt(const QString& login, bool ok, Db& db) {
    try {
        WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("系统管理"), QStringLiteral("登录系统"), 4, ok,
                 QStringLiteral("操作员") + login + (ok ? QStringLiteral("登录系统成功！") : QStringLiteral("登录系统失败！")),
                 db);
    } catch (const DbError&) {
        // A log line never stops a sign-in.
    }
}

bool passwordMatches(const QString& stored, const QString& typed) {
    if (stored.startsWith(QLatin1String("$argon2"))) return Password::verify(stored, typed);
    // A row written by hand or brought from elsewhere holds the typed text.
    return stored == typed;
}
} // namespace

void LogSignInFailure(const QString& loginName, Db& db) {
    if (db.isOpen()) logAttempt(loginName, false, db);
}

SignInOutcome SignIn(const QString& loginName, const QString& password, Db& db) {
    // Names compare without regard to case; a name typed exactly as stored comes first.
    const Rows r = db.query(QStringLiteral("select * from Operator where lower(LoginName)=lower(?) "
                                           "order by case when LoginName=? then 0 else 1 end"),
                            {loginName, loginName});
    if (r.isEmpty()) {
        logAttempt(loginName, false, db);
        return SignInOutcome::Invalid;
    }
    const Row op = r.first();
    if (Val(op.text(QStringLiteral("State"))) == 1.0) return SignInOutcome::Disabled;
    const QString stored = op.text(QStringLiteral("pw"));
    if (!passwordMatches(stored, password)) {
        logAttempt(loginName, false, db);
        return SignInOutcome::Invalid;
    }
    AppState& a = App();
    a.CurrentOperatorID = op.text(QStringLiteral("OperatorID"));
    a.CurrentOperatorName = op.text(QStringLiteral("operatorname"));
    a.CurrentDiscountLimit = op.num(QStringLiteral("discount"));
    a.CurrentCloseTimeLimit = op.num(QStringLiteral("Closetimeset"));
    if (!stored.startsWith(QLatin1String("$argon2")) || Password::needsRehash(stored)) {
        try {
            db.exec(QStringLiteral("UPDATE Operator SET pw=? WHERE OperatorID=?"),
                    {Password::hash(password), a.CurrentOperatorID});
        } catch (const DbError&) {
            // The old hash keeps working; it is made anew at a later sign-in.
        }
    }
    logAttempt(loginName, true, db);
    return SignInOutcome::Ok;
}
