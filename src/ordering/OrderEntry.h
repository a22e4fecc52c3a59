#pragma once
#include "Db.h"
#include "Money.h"
#include "OrderService.h"
#include "WarePrice.h"
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

// A goods type node of the tree.
struct WareTypeNode {
    QString id, name;
};

// The goods an order is for, read off the goods list or tree as they show it.
struct WareChoice {
    QString wareID;
    QString price;   // decided price text
    QString tiCheng; // commission per unit text
};

// What Enter in the quick entry box leads to.
struct QuickEntry {
    enum class Next {
        MoveOn,       // nothing typed: on to the next box
        NotFound,     // no goods of that mnemonic; back to the box
        BadQuantity,  // the quantity part is no number
        Save,         // write the line at once
        FocusSteward, // the quantity is set; the employee is next
        FocusNum      // no quantity typed; the quantity box is next
    };
    Next next = Next::MoveOn;
    int index = -1;             // the goods found, an index of goods()
    std::optional<QString> num; // the new text of the quantity box, when it changes
    QString message;
};

// The order window without its widgets: the priced goods, the quick entry, and the batch of
// lines written since the window opened, with its running total.
class OrderEntry {
  public:
    explicit OrderEntry(Db& db = DB()) : m_db(db), m_service(db) {}

    // The bill. False when it is not there (the window stays open all the same).
    bool open(const QString& expenseID);
    QString expenseID() const { return m_expenseID; }
    QString theCode() const { return m_theCode; }
    // "包厢号: " + the room.
    QString theCodeCaption() const;

    // The goods list, priced for the hour of `at`. Throws DbError.
    void buildGoods(const QDateTime& at, const AllDiscountRate& all);
    const QList<PricedWare>& goods() const { return m_goods; }
    // The types of the tree, by name.
    const QList<WareTypeNode>& wareTypes() const { return m_types; }
    // A message for each article of a type that allows periods but has none.
    QStringList priceWarnings() const;
    QString allDiscountCaption() const { return m_allDiscountCaption; }

    // The first goods whose mnemonic is `mnemonic`, letter case aside; -1 when none.
    int FindMnemonic(const QString& mnemonic) const;
    // Enter in the quick entry box: "dk 2", "dk", or nothing. `autoAdd` is chkAdd.
    QuickEntry quickEntry(const QString& text, bool autoAdd) const;

    // The goods of a list row, and of a tree node: a type node ("T" + id) is none, and the
    // commission is what the node's text shows after its first "提 ".
    WareChoice listChoice(int index) const;
    static std::optional<WareChoice> treeChoice(const QString& key, const QString& text, double tag);
    // The text of the tree node of an article.
    static QString treeText(const PricedWare& w);

    // Writes one line into the batch. `in` carries the boxes; bill and batch come from here.
    LineSaved save(const WareChoice& ware, OrderLineInput in);
    // Voids a line of the bill, of this batch or an earlier one.
    Refused voidLine(const QString& detailID);
    Refused CheckCanDelete() { return m_service.CheckCanDelete(m_expenseID); }

    // The code of this opening's lines; empty until the first is written.
    QString thisCode() const { return m_thisCode; }
    // Whether the last write succeeded; an order that stops before writing clears it.
    bool saved() const { return m_saved; }
    void clearSaved() { m_saved = false; }
    // The window closes: the next opening is a new batch.
    void endBatch();
    // Live lines of this batch as the list shows their amounts, added up: a gift counts 0.
    Money thisSum() const;
    QString thisSumCaption() const; // "本次消费: ￥0.00"
    QString thisSumTag() const;     // "0.00"
    const QList<OrderedLine>& batch() const { return m_batch; }

    OrderService& service() { return m_service; }

  private:
    Db& m_db;
    OrderService m_service;
    QString m_expenseID, m_theCode, m_thisCode, m_allDiscountCaption;
    QList<PricedWare> m_goods;
    QList<WareTypeNode> m_types;
    QList<OrderedLine> m_batch;
    bool m_saved = false;
};
