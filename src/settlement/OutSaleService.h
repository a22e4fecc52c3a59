#pragma once
#include "Db.h"
#include "Money.h"
#include "OutSaleModel.h"
#include "Refusal.h"
#include <QList>
#include <QString>

// A counter sale as the till commits it.
struct OutSaleInput {
    QList<OutSaleLine> lines;
    QString description;
    Money expenseMoney, noMoney, factPay, cashPay, income;
    QString oughtMoneyText; // the settlement as shown, for the log
    bool print = false;     // queue the receipt with the sale
};

struct OutSaleDone {
    bool saved = false;
    QString expenseID;
    QString printJob; // the queued receipt, sent after the commit
    Refused refusal;
};

// Counter sales: a sale, its lines, the stock they take and the log row, in one transaction.
class OutSaleService {
  public:
    explicit OutSaleService(Db& db = DB()) : m_db(db) {}

    // The input of the window's boxes and lines.
    static OutSaleInput fromModel(const OutSaleModel& m, const QString& description, bool print);

    // Stores the sale under the day's next "Out" number. With stock keeping on, every line
    // takes its quantity off the goods, gifts too. Throws DbError; nothing is written then.
    OutSaleDone SaveData(const OutSaleInput& in);

  private:
    Db& m_db;
};
