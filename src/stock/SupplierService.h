#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QHash>
#include <QList>

// A field of a supplier and the box that edits it.
struct SupplierField {
    QString column, control;
};
// Every field of a supplier, in the dialog's order; all are free text.
const QList<SupplierField>& SupplierFields();
// A supplier as typed: column -> text.
using SupplierInput = QHash<QString, QString>;

struct SupplierSaved {
    QString id; // empty when the supplier to change was gone
    Refused refusal;
    bool ok() const { return !refusal; }
};

class SupplierService {
  public:
    explicit SupplierService(Db& db = DB()) : m_db(db) {}

    // By name, as the list shows them.
    Rows list() const;
    std::optional<SupplierInput> load(const QString& id) const;
    // A new supplier when `id` is empty; the name is required.
    SupplierSaved save(const QString& id, const SupplierInput& in);
    // Refused while receipts name the supplier; `removed` tells whether a row went.
    Refused remove(const QString& id, bool* removed);

  private:
    Db& m_db;
};
