#include "Settings.h"
#include "AppState.h"
#include "Val.h"

AppState& App() {
    static AppState state;
    return state;
}

QString GetSetup(const QString& name, Db& db) {
    return db.scalar(QStringLiteral("SELECT setupvalue FROM pSetup WHERE lower(setupname)=lower(?)"), {name}).toString();
}

bool SetSetup(const QString& name, const QString& value, Db& db) {
    try {
        db.write([&] {
            const int n = db.exec(QStringLiteral("UPDATE pSetup SET setupvalue=? WHERE lower(setupname)=lower(?)"),
                                  {value, name});
            if (n == 0)
                db.exec(QStringLiteral("INSERT INTO pSetup (setupname, setupvalue) VALUES (?, ?)"), {name, value});
        });
        return true;
    } catch (const DbError&) {
        return false;
    }
}

bool IsFlagOn(const QString& value) { return Val(value) == 1.0; }

std::optional<DbError> LoadSetupValue(Db& db) {
    AppState& a = App();
    try {
        a.AllDiscount = Val(GetSetup(QStringLiteral("AllDiscount"), db));
        const QString lock = GetSetup(QStringLiteral("LockTime"), db);
        a.LockTime = ValFits(lock, Range::Int32) ? int(RoundEven(Val(lock))) : 0;
        a.IsAllDiscount = IsFlagOn(GetSetup(QStringLiteral("IsAllDiscount"), db));
        a.IsUseWareHouse = IsFlagOn(GetSetup(QStringLiteral("IsUseWareHouse"), db));
        a.IsDBBackup = IsFlagOn(GetSetup(QStringLiteral("IsDBBackup"), db));
        a.IsPrintStartBill = IsFlagOn(GetSetup(QStringLiteral("printStartBill"), db));
        a.IsPrintEndBill = IsFlagOn(GetSetup(QStringLiteral("printEndBill"), db));
        a.IsPrintChongzhi = IsFlagOn(GetSetup(QStringLiteral("printChongzhi"), db));
    } catch (const DbError& e) {
        return e;
    }
    return std::nullopt;
}

void LoadCompanyInfo(Db& db) {
    AppState& a = App();
    const Rows r = db.query(QStringLiteral("select * from CompanyInfo"));
    if (r.isEmpty()) {
        a.CompanyName.clear();
        a.CompanyAddress.clear();
        a.CompanyPhone.clear();
        return;
    }
    a.CompanyName = r.first().text(QStringLiteral("CompanyName"));
    a.CompanyAddress = r.first().text(QStringLiteral("companyaddress"));
    a.CompanyPhone = r.first().text(QStringLiteral("phone"));
}
