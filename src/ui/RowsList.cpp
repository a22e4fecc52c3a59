#include "RowsList.h"
#include "Format.h"
#include "ListSort.h"
#include <QHeaderView>
#include <QTreeView>
#include <algorithm>
#include <numeric>

void RowsModel::reset(const QList<ListColumnDef>& shown, const Rows& rows, bool keyed) {
    std::vector<int> order(size_t(rows.count()));
    std::iota(order.begin(), order.end(), 0);
    reset(shown, rows, keyed, std::move(order));
}

namespace {
QList<int> sourcesOf(const QList<ListColumnDef>& shown, const Rows& rows) {
    QList<int> out;
    const QStringList fields = rows.columns();
    for (const ListColumnDef& c : shown) {
        const bool has = std::any_of(fields.begin(), fields.end(),
                                     [&](const QString& f) { return f.compare(c.colname, Qt::CaseInsensitive) == 0; });
        out << (has ? rows.column(c.colname) : -1);
    }
    return out;
}
} // namespace

void RowsModel::reset(const QList<ListColumnDef>& shown, const Rows& rows, bool keyed, std::vector<int> order) {
    beginResetModel();
    m_columns = shown;
    m_rows = rows;
    m_keyed = keyed;
    m_source = sourcesOf(shown, rows);
    m_order = std::move(order);
    endResetModel();
}

void RowsModel::clearRows() {
    beginResetModel();
    m_rows = Rows();
    m_order.clear();
    m_source = QList<int>(m_columns.size(), -1);
    endResetModel();
}

int RowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_order.size());
}

int RowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_columns.size());
}

QString RowsModel::text(const QList<ListColumnDef>& columns, const QList<int>& source, const Rows& rows, int record,
                        int column) {
    const int field = source[column];
    if (field < 0) return {};
    return FormatShowValue(columns[column].showValue, rows.at(record, field));
}

QString RowsModel::text(int record, int column) const {
    const QString t = text(m_columns, m_source, m_rows, record, column);
    return padded(column) ? FormatText(t, QStringLiteral("@@@@@@@@")) : t;
}

bool RowsModel::padded(int column) const {
    return m_padded.contains(m_columns[column].colname, Qt::CaseInsensitive);
}

std::vector<int> RowsModel::sortedOrder(const QList<ListColumnDef>& shown, const Rows& rows, int column,
                                        Qt::SortOrder order) {
    std::vector<int> out(size_t(rows.count()));
    std::iota(out.begin(), out.end(), 0);
    if (column < 0 || column >= shown.size()) return out;
    const QList<int> source = sourcesOf(shown, rows);
    std::vector<QString> keys(out.size());
    for (int r = 0; r < rows.count(); ++r)
        keys[size_t(r)] = text(shown, source, rows, r, column);
    std::stable_sort(out.begin(), out.end(), [&](int a, int b) {
        return order == Qt::AscendingOrder ? keys[size_t(a)] < keys[size_t(b)] : keys[size_t(b)] < keys[size_t(a)];
    });
    return out;
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const int record = m_order[size_t(index.row())];
    if (role == Qt::DisplayRole) return text(record, index.column());
    if (role == Qt::TextAlignmentRole && padded(index.column())) return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::UserRole && index.column() == 0 && m_keyed) {
        const int field = m_source[0];
        return QString(QStringLiteral("k") + (field < 0 ? QString() : ListPlainText(m_rows.at(record, field))));
    }
    return {};
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= m_columns.size()) return {};
    switch (role) {
    case Qt::DisplayRole: return m_columns[section].coltitle;
    case ListColNameRole: return m_columns[section].colname;
    case ListTwipsRole: return m_columns[section].colWidth;
    default: return {};
    }
}

void RowsModel::sort(int column, Qt::SortOrder order) {
    if (column < 0 || column >= m_columns.size()) return;
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<QString> keys(size_t(m_rows.count()));
    for (int r = 0; r < m_rows.count(); ++r)
        keys[size_t(r)] = text(r, column);
    // From the order shown, so that equal texts keep it.
    std::stable_sort(m_order.begin(), m_order.end(), [&](int a, int b) {
        return order == Qt::AscendingOrder ? keys[size_t(a)] < keys[size_t(b)] : keys[size_t(b)] < keys[size_t(a)];
    });
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

namespace {
RowsModel* fill(QTreeView* view, const QString& name, const Rows& rows, bool keyed, Db& db) {
    auto* model = qobject_cast<RowsModel*>(view->model());
    if (!model) {
        model = new RowsModel(view);
        view->setModel(model);
    }
    const QList<ListColumnDef> shown = ShownListColumns(name, rows, db);
    model->reset(shown, rows, keyed);
    view->setUniformRowHeights(true);
    SizeListColumns(view, shown);
    return model;
}
} // namespace

void ShowRows(QTreeView* view, const QString& name, const Rows& rows, bool keyed, Db& db) {
    if (fill(view, name, rows, keyed, db)->columnCount() > 0) SortListBy(view, 0, Qt::AscendingOrder);
}

void ShowRowsInQueryOrder(QTreeView* view, const QString& name, const Rows& rows, bool keyed, Db& db) {
    fill(view, name, rows, keyed, db);
    ClearListSort(view);
}

PreparedRows PrepareRows(const QString& name, const Rows& rows, Db& db) {
    PreparedRows p{ShownListColumns(name, rows, db), rows, {}};
    p.order = RowsModel::sortedOrder(p.shown, rows, 0, Qt::AscendingOrder);
    return p;
}

void ShowPreparedRows(QTreeView* view, const PreparedRows& prepared, bool keyed) {
    auto* model = qobject_cast<RowsModel*>(view->model());
    if (!model) {
        model = new RowsModel(view);
        view->setModel(model);
    }
    model->reset(prepared.shown, prepared.rows, keyed, prepared.order);
    view->setUniformRowHeights(true);
    SizeListColumns(view, prepared.shown);
    if (!prepared.shown.isEmpty()) MarkListSorted(view, 0, Qt::AscendingOrder);
}

void ClearRows(QTreeView* view) {
    if (auto* model = qobject_cast<RowsModel*>(view->model())) model->clearRows();
}

QString CurrentRowKey(const QTreeView* view) {
    const QModelIndex i = view->currentIndex();
    if (!i.isValid()) return {};
    return view->model()->index(i.row(), 0).data(Qt::UserRole).toString().mid(1);
}
