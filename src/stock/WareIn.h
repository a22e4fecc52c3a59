#pragma once
#include "Db.h"
#include "Money.h"
#include "Refusal.h"
#include <QDate>
#include <QList>

// The moving-average cost of an article after a receipt line, computed the way the venue's
// books always have: the stock counted in single precision; stock of no units is worth its
// last cost once, stock of no cost is worth 1 a unit; the new cost is kept to two decimals,
// and 0 when nothing is left.
struct WareCost {
    double newNum = 0;
    Money newPrice;
};
WareCost UpdateWareCost(double oldNum, Money oldPrice, double num, Money theMoney);

// The unit price shown from the typed quantity and total: "0.00", or "0" for no quantity.
QString ReceiptPriceText(const QString& num, const QString& theMoney);

// A line of a receipt as the entry list shows it: returns negative in quantity and amount.
struct WareInLine {
    QString wareID, wareName, wareUnit;
    double num = 0;
    Money price, theMoney;
    QString wareDesc, supplierID, supplierName;
};

struct WareInHeader {
    QDate inTime;
    QString theJB, theDesc, theCode, supplierID;
};

// An article found by its mnemonic, exactly, with its selling price.
struct WareInGoods {
    QString wareID, wareName, wareUnit;
    Money price;
};

class QTreeWidget;
// The entry list of a receipt or an adjustment holds its lines: the article's name, then
// quantity, unit price, amount, note and, for receipts, the supplier's key and name.
void AddStockLine(QTreeWidget* list, const WareInLine& line);
QList<WareInLine> StockLines(const QTreeWidget* list);

// The checks before a line joins the list, in their order.
Refused CheckReceiptLine(const QString& supplierID, const QString& wareID, const QString& num,
                         const QString& theMoney);
// The line as the list holds it; a return (`out`) negates quantity and amount, never the price.
WareInLine MakeReceiptLine(const WareInGoods& ware, const QString& num, const QString& theMoney,
                            const QString& desc, bool out, const QString& supplierID, const QString& supplierName);

// An adjustment's amount: selling price times quantity, "0.00", or "0" for no quantity.
QString LossMoneyText(const QString& price, const QString& num);
Refused CheckLossLine(const QString& wareID, const QString& num);
// The line with the quantity's sign as typed, valued at the selling price.
WareInLine MakeLossLine(const WareInGoods& ware, const QString& num, const QString& desc);

class ReceiptService {
  public:
    explicit ReceiptService(Db& db = DB()) : m_db(db) {}

    Rows suppliers() const;
    std::optional<WareInGoods> findWare(const QString& mnemonic) const;
    // The receipt, its lines and, with stock keeping on, each line's stock and cost in turn,
    // in one transaction. Each article's row is held while its cost is read and written, so
    // a sale committing meanwhile at another till is never lost. Returns the receipt's id.
    QString save(const WareInHeader& header, const QList<WareInLine>& lines); // throws DbError
    // An adjustment (surplus or loss): the document, its lines and, with stock keeping on,
    // each article's stock moved by the line's signed quantity in one relative update; the
    // cost stays. One transaction.
    QString saveLoss(const WareInHeader& header, const QList<WareInLine>& lines); // throws DbError

  private:
    Db& m_db;
};
