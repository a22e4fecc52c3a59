#include "Puissance.h"
#include "AppState.h"
#include "MessageBox.h"
#include "Val.h"

bool HasPuissance(const QString& operatorID, const QString& code, Db& db) {
    const Rows r = db.query(QStringLiteral("select isHave from Puissance where OperatorID=? And sysPuissanceID=?"),
                            {operatorID, code});
    return !r.isEmpty() && Val(r.first().text(QStringLiteral("isHave"))) == 1.0;
}

bool CheckPuissance(const QString& code) {
    bool ok = false;
    try {
        ok = HasPuissance(App().CurrentOperatorID, code);
    } catch (const DbError&) {
        ok = false;
    }
    if (!ok) Msg::warn(nullptr, QStringLiteral("您没有操作此项业务的权限！"));
    return ok;
}
