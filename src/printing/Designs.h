#pragma once
#include "Receipt.h"

// The slips of the venue, one function per design, from the texts their labels get. They
// read no database: BillPrinting fills the data, the bill query and the samples of the
// options window fill it their own way. Money and times come as the texts to print.

struct CompanyHead {
    QString name, address, phone;
};

// The bill of a room: DREndExpense and its brief (_c) and room-less (NoHouse) forms.
struct BillData {
    CompanyHead company;
    QString ym; // heading of the bills (setting PrinterYM)
    QString expenseID, theCode, openTime, closeTime, expendTime;
    QString payLevel, oughtMoney, noMoney, factPay, closeOperator;
    QList<QStringList> lines; // WareName, num, oughtMoney
};
enum class BillStyle { Detailed, Brief }; // setting IndustryCategory: 0, anything else

// The design a bill prints with: a room charge of zero leaves the room line out, the brief
// style the opening time and the length of the stay.
QString BillDesignName(bool roomCharge, BillStyle style);
Receipt DesignBill(const BillData& d, bool roomCharge, BillStyle style);

struct StartTicketData {
    CompanyHead company;
    QString id, openTime, openOperator, theCode, startMoney;
};
Receipt DesignStartExpense(const StartTicketData& d);

struct OutSaleData {
    QString companyName, id, closeTime, closeOperator, factPay;
    QList<QStringList> lines; // WareName, price, num, oughtMoney
};
Receipt DesignOutSale(const OutSaleData& d);

struct ChongzhiData {
    CompanyHead company;
    QString memberCode, memberName, operatorTime, operatorName, thisMemoney, factPay, chongzhi;
};
Receipt DesignChongzhi(const ChongzhiData& d);

// The order slip and the bar ticket (DRExpenseThis), the kitchen ticket (DRExpenseThisHC).
struct ThisTicketData {
    QString companyName, theCode, expenseID, thisSum, operatorName;
    QList<QStringList> lines; // WareName, Num, oughtMoney; for the kitchen WareName, Num, Description
};
Receipt DesignExpenseThis(const ThisTicketData& d, const QString& caption);
Receipt DesignExpenseThisHC(const ThisTicketData& d);

// The bill query's list of bills and its one-page summary.
struct CloseHouseData {
    QString companyName, time;
    // ExpenseID, TheCode, OpenTime, OpenOperator, CloseTime, CloseOperator, CustomerNum, FactPay
    QList<QStringList> rows;
    QString sumNum, sumMoney;
};
Receipt DesignCloseHouse(const CloseHouseData& d);

struct FindPrintData {
    QString companyName, time;
    QString sumMoney, sumChongzhi, sumFreePay, cashPay, sumMoneyOutSale;
    QString operatorName, now;
};
Receipt DesignFindPrint(const FindPrintData& d);
