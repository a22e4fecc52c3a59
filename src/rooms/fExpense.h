#pragma once
#include "Db.h"
#include "Money.h"
#include <QDateTime>
#include <QString>

// What a window saw of a bill: its room, its tariff and its lines (every line ever written,
// the live ones and what those are owed). A commit that depends on what the window showed
// compares this again inside its transaction, after the bill row is held.
struct BillSnapshot {
    QString theID, payLevelID;
    qint64 lines = 0, liveLines = 0;
    Money owed;
    bool operator==(const BillSnapshot&) const = default;
};

// The bills (Expense) and what a bill costs so far. Stateless: make one where needed.
// A condition is SQL text with ? placeholders; its values come in `params`, never in the text.
class fExpense {
public:
    explicit fExpense(Db& db = DB()) : m_db(db) {}

    // Bills, oldest opening first.
    Rows GetAll(const QString& condition = {}, const Params& params = {}) const;
    // The bill view: bill, room type name, tariff name, tariff mode as PayType, tariff
    // MinMoney and room code.
    Rows GetLinkAll(const QString& condition = {}, const Params& params = {}) const;
    Rows GetLinkByID(const QString& id) const;
    // The open bill of a room.
    Rows GetLinkByTheID(const QString& theID) const;
    // What the bill's live lines are still owed above their income, as "0.00".
    QString GetProcurePriceByID(const QString& id) const;

    // The bill as it stands now; an empty snapshot when it is gone.
    BillSnapshot Snapshot(const QString& id) const;

    // Goods and room charge of bill `id` if it closed at `closeTime`. The room charge is
    // computed afresh from the bill's opening time and its tariff; nothing is stored. A
    // missing tariff is reported once and then charges no time; `reportNoTariff` false keeps
    // quiet about it (the board's tiles, read at every refresh).
    void GetByIDCurrency(const QString& id, const QDateTime& closeTime, Money& goodsMoney, Money& roomMoney,
                         bool reportNoTariff = true) const;

  private:
    Db& m_db;
};
