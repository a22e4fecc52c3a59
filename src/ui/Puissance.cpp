#include "Puissance.h"
#include "AppState.h"
#include "MessageBox.h"
#include "Val.h"

bool HasPuissance(const QString& operatorID, const QString& code, Db& db) {
    const Rows r =
        db.query(QStringLiteral("select isHave from Puissance where OperatorID=? And sysPuissanceID=?"),
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

const QList<GuardedButton>& GuardedButtons() {
    static const QList<GuardedButton> table{
        {QStringLiteral("frmOption"), QStringLiteral("cmdOutExcel"), QStringLiteral("S010")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdDataImportWare"), QStringLiteral("S011")},
        // The window opens from the upgrade menu item as well; its free statement always asks.
        {QStringLiteral("frmUpdate"), QStringLiteral("cmdSQL"), QStringLiteral("S050")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdPayLevelAdd"), QStringLiteral("C001")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdPayLevelEdit"), QStringLiteral("C001")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdPayLevelDel"), QStringLiteral("C001")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdAllDiscount"), QStringLiteral("C001")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdAllowLow2High"), QStringLiteral("C001")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdHouseAssortAdd"), QStringLiteral("C002")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdHouseAssortEdit"), QStringLiteral("C002")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdHouseAssortDel"), QStringLiteral("C002")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdHouseAdd"), QStringLiteral("C003")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdHouseAddBat"), QStringLiteral("C003")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdHouseEdit"), QStringLiteral("C003")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdHouseDel"), QStringLiteral("C003")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdWareTypeAdd"), QStringLiteral("C004")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdWareTypeEdit"), QStringLiteral("C004")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdWareTypeDel"), QStringLiteral("C004")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdWareLevel"), QStringLiteral("C006")},
        {QStringLiteral("frmOption"), QStringLiteral("Command1"), QStringLiteral("C006")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdWareAdd"), QStringLiteral("C005")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdWareEdit"), QStringLiteral("C005")},
        {QStringLiteral("frmOption"), QStringLiteral("cmdWareDel"), QStringLiteral("C005")},
        {QStringLiteral("tabPrint"), QStringLiteral("cmdSave"), QStringLiteral("C013")},
        {QStringLiteral("frmLog"), QStringLiteral("cmdDel"), QStringLiteral("F012")},
        {QStringLiteral("frmOperatorList"), QStringLiteral("cmdOperatorAdd"), QStringLiteral("S01")},
        {QStringLiteral("frmOperatorList"), QStringLiteral("cmdOperatorEdit"), QStringLiteral("S01")},
        {QStringLiteral("frmOperatorList"), QStringLiteral("cmdOperatorDel"), QStringLiteral("S01")},
        {QStringLiteral("frmExpenseDetail"), QStringLiteral("cmdWareAdd"), QStringLiteral("C005")},
        {QStringLiteral("frmOutSale"), QStringLiteral("cmdWareAdd"), QStringLiteral("C005")},
        {QStringLiteral("frmCloseHouse"), QStringLiteral("cmdFreeMoney"), QStringLiteral("D007")},
        {QStringLiteral("frmCloseHouse"), QStringLiteral("cmdPayAfter"), QStringLiteral("D008")},
        {QStringLiteral("frmEmployeeList"), QStringLiteral("cmdAdd"), QStringLiteral("C012")},
        {QStringLiteral("frmEmployeeList"), QStringLiteral("cmdEdit"), QStringLiteral("C012")},
        {QStringLiteral("frmEmployeeList"), QStringLiteral("cmdDel"), QStringLiteral("C012")},
        {QStringLiteral("frmMemberList"), QStringLiteral("cmdAdd"), QStringLiteral("C008")},
        {QStringLiteral("frmMemberList"), QStringLiteral("cmdEdit"), QStringLiteral("C008")},
        {QStringLiteral("frmMemberList"), QStringLiteral("cmdDel"), QStringLiteral("C008")},
        {QStringLiteral("frmMemberList"), QStringLiteral("cmdChongzhi"), QStringLiteral("C015")},
        {QStringLiteral("frmMemberList"), QStringLiteral("cmdSetup"), QStringLiteral("C007")},
        {QStringLiteral("frmChongzhiList"), QStringLiteral("cmdChongzhi"), QStringLiteral("C015")},
        {QStringLiteral("frmSetupMember"), QStringLiteral("cmdMemberSetupAdd"), QStringLiteral("C007")},
        {QStringLiteral("frmSetupMember"), QStringLiteral("cmdMemberSetupEdit"), QStringLiteral("C007")},
        {QStringLiteral("frmSetupMember"), QStringLiteral("cmdMemberSetupDel"), QStringLiteral("C007")},
        {QStringLiteral("frmSupplierList"), QStringLiteral("cmdAdd"), QStringLiteral("C012")},
        {QStringLiteral("frmSupplierList"), QStringLiteral("cmdEdit"), QStringLiteral("C012")},
        {QStringLiteral("frmSupplierList"), QStringLiteral("cmdDel"), QStringLiteral("C012")},
        {QStringLiteral("frmReservation"), QStringLiteral("cmdNew"), QStringLiteral("C010")},
        {QStringLiteral("frmReservation"), QStringLiteral("cmdReservationEdit"), QStringLiteral("C010")},
        {QStringLiteral("frmReservation"), QStringLiteral("cmdReservationCancel"), QStringLiteral("C010")},
        {QStringLiteral("frmReservation"), QStringLiteral("cmdReservationDel"), QStringLiteral("C010")},
    };
    return table;
}

bool CheckButton(const QObject* form, const QString& button) {
    const QString name = form->objectName();
    for (const GuardedButton& g : GuardedButtons())
        if (g.form == name && g.button == button) return CheckPuissance(g.right);
    return true;
}
