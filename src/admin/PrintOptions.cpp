#include "PrintOptions.h"
#include "AppState.h"
#include "AutoRun.h"
#include "Clock.h"
#include "Dialect.h"
#include "Ini.h"
#include "Log.h"
#include "Settings.h"
#include "Val.h"

namespace {
QString flag(bool on) {
    return on ? QStringLiteral("1") : QStringLiteral("0");
}
QString paper(const QString& p) {
    return p.trimmed() == QLatin1String("58") ? QStringLiteral("58") : QStringLiteral("80");
}
} // namespace

namespace PrintOptionsService {
PrintOptions load() {
    PrintOptions o;
    const Rows company = DB().query(QStringLiteral("select * from CompanyInfo"));
    if (!company.isEmpty()) {
        o.companyName = company.first().text(QStringLiteral("CompanyName"));
        o.companyAddress = company.first().text(QStringLiteral("companyaddress"));
        o.phone = company.first().text(QStringLiteral("phone"));
    }
    o.industryCategory = Val(GetSetup(QStringLiteral("IndustryCategory"))) == 0 ? 0 : 1;
    o.printer = GetSetup(QStringLiteral("Printer"));
    o.printerPaper = paper(GetSetup(QStringLiteral("PrinterPaper")));
    o.ym = GetSetup(QStringLiteral("PrinterYM"));
    const QString endBillNum = GetSetup(QStringLiteral("EndBillNum"));
    o.endBillNum = Val(endBillNum) <= 1 ? QStringLiteral("1") : endBillNum;
    o.printStartBill = IsFlagOn(GetSetup(QStringLiteral("PrintStartBill")));
    o.printEndBill = IsFlagOn(GetSetup(QStringLiteral("PrintEndBill")));
    o.printChongzhi = IsFlagOn(GetSetup(QStringLiteral("PrintChongzhi")));
    o.printOutSale = GetSetup(QStringLiteral("PrintOutSale")) == QLatin1String("1");
    o.printExpenseEndBill = GetSetup(QStringLiteral("PrintExpenseEndBill")) == QLatin1String("1");
    o.hc = IsFlagOn(GetSetup(QStringLiteral("IsHC")));
    o.printerHC = GetSetup(QStringLiteral("PrinterHC"));
    o.hcPaper = paper(GetSetup(QStringLiteral("PrinterHCPaper")));
    o.hcNum = GetSetup(QStringLiteral("HCNum"));
    o.bt = IsFlagOn(GetSetup(QStringLiteral("IsBT")));
    o.printerBT = GetSetup(QStringLiteral("PrinterBT"));
    o.btPaper = paper(GetSetup(QStringLiteral("PrinterBTPaper")));
    o.btNum = GetSetup(QStringLiteral("BTNum"));
    const int web = int(Val(GetIni(QStringLiteral("ThisTopWeb"))));
    o.topWeb = web == 1 || web == 2 ? web : 0;
    o.dbBackup = App().IsNetVersion != 1 && App().IsDBBackup == 1;
    o.autoRun = AutoRun::isSet();
    o.useWarehouse = App().IsUseWareHouse == 1;
    return o;
}

Refused CheckPrintData(PrintOptions& o) {
    if (o.hc) {
        // The bill's copies are mended here only, with the kitchen on.
        if (Val(o.endBillNum) < 1) o.endBillNum = QStringLiteral("1");
        if (Val(o.hcNum) <= 0) o.hcNum = QStringLiteral("1");
        if (!o.hcPrinterChosen) return Refusal{QStringLiteral("请选择后厨打印机！"), QStringLiteral("cmbHC")};
    }
    if (o.bt) {
        if (Val(o.btNum) <= 0) o.btNum = QStringLiteral("1");
        if (!o.btPrinterChosen) return Refusal{QStringLiteral("请选择吧台打印机！"), QStringLiteral("cmbBT")};
    }
    return std::nullopt;
}

Refused save(const PrintOptions& o, const QString& program) {
    AppState& a = App();
    AutoRun::set(o.autoRun ? program : QString());
    SetIni(QStringLiteral("ThisTopWeb"), QString::number(o.topWeb));

    DB().write([&] {
        if (DB().scalar(QStringLiteral("select count(*) from CompanyInfo")).toInt() == 0)
            DB().exec(QStringLiteral(
                "insert into CompanyInfo (CompanyName, companyaddress, phone) values ('', '', '')"));
        // The first row is the venue's; any further row stays as it is.
        DB().exec(QStringLiteral("update CompanyInfo set CompanyName=?, companyaddress=?, phone=? where ") +
                      DB().dialect().firstRowOf(QStringLiteral("CompanyInfo")),
                  {o.companyName, o.companyAddress, o.phone});
    });
    a.CompanyName = o.companyName;
    a.CompanyAddress = o.companyAddress;
    a.CompanyPhone = o.phone;

    SetSetup(QStringLiteral("PrintStartBill"), flag(o.printStartBill));
    a.IsPrintStartBill = o.printStartBill ? 1 : 0;
    SetSetup(QStringLiteral("PrintEndBill"), flag(o.printEndBill));
    a.IsPrintEndBill = o.printEndBill ? 1 : 0;
    SetSetup(QStringLiteral("PrintChongzhi"), flag(o.printChongzhi));
    a.IsPrintChongzhi = o.printChongzhi ? 1 : 0;
    SetSetup(QStringLiteral("PrintOutSale"), flag(o.printOutSale));
    SetSetup(QStringLiteral("PrintExpenseEndBill"), flag(o.printExpenseEndBill));
    SetSetup(QStringLiteral("Printer"), o.printer.trimmed());
    SetSetup(QStringLiteral("PrinterPaper"), paper(o.printerPaper));
    SetSetup(QStringLiteral("PrinterYM"), o.ym);
    SetSetup(QStringLiteral("IsHC"), flag(o.hc));
    SetSetup(QStringLiteral("PrinterHC"), o.printerHC.trimmed());
    SetSetup(QStringLiteral("PrinterHCPaper"), paper(o.hcPaper));
    SetSetup(QStringLiteral("HCNum"), o.hcNum.trimmed());
    SetSetup(QStringLiteral("EndBillNum"), o.endBillNum.trimmed());
    SetSetup(QStringLiteral("IsBT"), flag(o.bt));
    SetSetup(QStringLiteral("PrinterBT"), o.printerBT.trimmed());
    SetSetup(QStringLiteral("PrinterBTPaper"), paper(o.btPaper));
    SetSetup(QStringLiteral("btNum"), o.btNum.trimmed());
    SetSetup(QStringLiteral("IndustryCategory"), QString::number(o.industryCategory == 0 ? 0 : 1));

    Refused refused;
    QString stockText;
    const bool stockSaved = SetSetup(QStringLiteral("IsUseWareHouse"), flag(o.useWarehouse));
    if (stockSaved) {
        a.IsUseWareHouse = o.useWarehouse ? 1 : 0;
        stockText =
            o.useWarehouse ? QStringLiteral(" 选择使用库存管理等") : QStringLiteral(" 选择不使用库存管理等");
    } else {
        refused =
            Refusal{QStringLiteral("库存管理设置未成功，请稍候再试！"), QString(), Msg::Icon::Exclamation};
    }
    const QString model = QStringLiteral("营业设置");
    WriteLog(Now(), a.CurrentOperatorName, model, QStringLiteral("库存设置"), 2, stockSaved, stockText);

    SetSetup(QStringLiteral("IsDBBackup"), flag(o.dbBackup));
    a.IsDBBackup = o.dbBackup ? 1 : 0;
    WriteLog(Now(), a.CurrentOperatorName, model, QStringLiteral("其它设置"), 2, true, QString());
    return refused;
}
} // namespace PrintOptionsService
