#pragma once
#include "Refusal.h"
#include <QString>

// The page of printing, company and other settings in the options window, as typed.
struct PrintOptions {
    QString companyName, companyAddress, phone;
    int industryCategory = 0; // 0 详细格式, 1 简洁格式
    QString printer, printerPaper, ym, endBillNum;
    bool printStartBill = false, printEndBill = false, printChongzhi = false, printOutSale = false,
         printExpenseEndBill = false;
    bool hc = false;
    bool hcPrinterChosen = true; // false when the kitchen list shows nothing
    QString printerHC, hcPaper, hcNum;
    bool bt = false;
    bool btPrinterChosen = true;
    QString printerBT, btPaper, btNum;
    int topWeb = 0; // 0 系统导航, 1 日常营业, 2 临时备忘
    bool dbBackup = false, autoRun = false, useWarehouse = false;
};

namespace PrintOptionsService {
// The page as stored.
PrintOptions load();

// The checks before saving, in their order. With the kitchen on, copies below 1 become 1,
// the bill's too; with the bar on, its copies. A kitchen or bar without a printer is refused.
Refused CheckPrintData(PrintOptions& o);

// Saves the page: start at logon (with `program`), the start page, the company, the print
// settings, the stock setting and the backup flag, with the two log rows. The globals follow.
// A refusal tells that the stock setting was not saved; the rest is saved all the same.
// Throws DbError.
Refused save(const PrintOptions& o, const QString& program);
} // namespace PrintOptionsService
