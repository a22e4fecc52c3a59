#pragma once
#include <QString>

// The process-wide values every screen reads; written at start, at sign-in and by the
// settings screens.
struct AppState {
    int IsNetVersion = 0; // 1 exactly when connected to a PostgreSQL server
    QString AppKey = QStringLiteral("QnNovaSing");
    QString AppTitle = QStringLiteral("星澜KTV");
    QString AppPath; // the venue folder, no trailing separator
    QString AppVersion;
    QString AppVersionText;

    QString CurrentOperatorID;
    QString CurrentOperatorName;
    double CurrentDiscountLimit = 1.0;
    double CurrentCloseTimeLimit = 0.0;

    double AllDiscount = 0.0;
    int IsAllDiscount = 0;
    int IsUseWareHouse = 0;
    int IsPrintEndBill = 0;
    int IsPrintStartBill = 0;
    int IsPrintChongzhi = 0;
    int IsDBBackup = 0;
    int LockTime = 0;

    QString CompanyName, CompanyAddress, CompanyPhone;
    QString DefaultPrinterName;
    bool IsDynamicHelp = false;
};

AppState& App();
