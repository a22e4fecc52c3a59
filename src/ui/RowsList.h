#pragma once
#include "Db.h"
#include "ListColumns.h"
#include <QAbstractTableModel>
#include <vector>

class QTreeView;

// A configured list over a whole record set, for lists that may hold a month or a year of
// bills: a row is formatted only when it is on screen, so a long list shows at once. It
// shows, sorts and exports like the lists ShowList fills.
class RowsModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    using QAbstractTableModel::QAbstractTableModel;

    void reset(const QList<ListColumnDef>& shown, const Rows& rows, bool keyed);
    // The same with the rows already in `order` (records by index).
    void reset(const QList<ListColumnDef>& shown, const Rows& rows, bool keyed, std::vector<int> order);
    // Columns of these fields show their text padded to eight places and stand right.
    void setPadded(const QStringList& fields) { m_padded = fields; }
    void clearRows();
    const Rows& rows() const { return m_rows; }
    // The record of a shown row, after sorting.
    int recordOf(int row) const { return m_order[size_t(row)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    // By the texts shown, as the other lists sort; equal texts keep their order.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    // The records in the order of the shown texts of `column`; equal texts keep their order.
    static std::vector<int> sortedOrder(const QList<ListColumnDef>& shown, const Rows& rows, int column,
                                        Qt::SortOrder order);

  private:
    static QString text(const QList<ListColumnDef>& columns, const QList<int>& source, const Rows& rows, int record,
                        int column);
    QString text(int record, int column) const;
    bool padded(int column) const;
    QStringList m_padded;
    QList<ListColumnDef> m_columns;
    QList<int> m_source; // field of each shown column, -1 when the record set lacks it
    Rows m_rows;
    std::vector<int> m_order;
    bool m_keyed = false;
};

// Fills `view` with `rows` by the configured columns of `name`, sorted by its first column,
// as ShowList fills a QTreeWidget (`keyed`: the first column's Qt::UserRole holds "k" + its
// value). The view keeps its model. Throws DbError.
void ShowRows(QTreeView* view, const QString& name, const Rows& rows, bool keyed, Db& db = DB());
// The same, keeping the order of the query until the user clicks a header.
void ShowRowsInQueryOrder(QTreeView* view, const QString& name, const Rows& rows, bool keyed, Db& db = DB());
// A long result made ready for a list off the window's thread: its configured columns, read
// on `db`, and the order of its first column. Throws DbError.
struct PreparedRows {
    QList<ListColumnDef> shown;
    Rows rows;
    std::vector<int> order;
};
PreparedRows PrepareRows(const QString& name, const Rows& rows, Db& db);
// Shows prepared rows as ShowRows would, without formatting a row on the window's thread.
void ShowPreparedRows(QTreeView* view, const PreparedRows& prepared, bool keyed);

// Empties a list filled by ShowRows, keeping its columns.
void ClearRows(QTreeView* view);

// The key of the current row of a list filled with `keyed` (without the "k"), or empty.
QString CurrentRowKey(const QTreeView* view);
