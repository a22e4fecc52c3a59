#pragma once
#include "Db.h"
#include "Designs.h"
#include <QDateTime>
#include <optional>

// The venue's slips filled from the database, as they will be printed. Company texts come
// from the application state (loaded at sign-in, kept by the options window).

// The bill of a room: final (isEnd, from the settled amounts) or running (priced now).
// Lines of one article are summed into one, voided lines left out. Nothing when the bill
// is not there.
std::optional<Receipt> BillSlip(const QString& expenseID, bool isEnd, Db& db = DB());
// The copies a final bill prints: EndBillNum, at least 1.
int EndBillCopies(Db& db = DB());

std::optional<Receipt> StartTicketSlip(const QString& expenseID, Db& db = DB());
std::optional<Receipt> OutSaleSlip(const QString& outsaleID, Db& db = DB());
std::optional<Receipt> ChongzhiSlip(const QString& chongzhiID, Db& db = DB());

// The three slips of one round of ordering. The room and the sum are what the order
// window shows; the bar ticket's sum is the whole round's, like the slip's.
struct ThisSlips {
    std::optional<Receipt> slip, kitchen, bar;
    int kitchenCopies = 0, barCopies = 0;
};
ThisSlips ThisTicketSlips(const QString& thisCode, bool printSlip, const QString& theCode,
                          const QString& thisSum, Db& db = DB());

// Texts as the slips show them.
QString MoneyText(double value);          // "0.00"
QString GroupedWhole(double value);       // "#,##0": thousands marked, decimals dropped
QString QuantityText(double value);       // 2, 1.5, -1
QString ShortTime(const QString& stored); // "MM-dd hh:mm" of a stored time, empty when none
