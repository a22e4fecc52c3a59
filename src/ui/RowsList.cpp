#include "RowsList.h"
#include "ListSort.h"
#include <QHeaderView>
#include <QTreeView>
#include <algorithm>
#include <numeric>

void RowsModel::reset(const QList<ListColumnDef>& shown, const Rows& rows, bool keyed) {
    beginResetModel();
    m_columns = shown;
    m_rows = rows;
    m_keyed = keyed;
    m_source.clear();
    const QStringList fields = rows.columns();
    for (const ListColumnDef& c : shown) {
        const bool has = std::any_of(fields.begin(), fields.end(),
                                     [&](const QString& f) { return f.compare(c.colname, Qt::CaseInsensitive) == 0; });
        m_source << (has ? rows.column(c.colname) : -1);
    }
    m_order.resize(size_t(rows.count()));
    std::iota(m_order.begin(), m_order.end(), 0);
    endResetModel();
}

int RowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_order.size());
}

int RowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_columns.size());
}

QString RowsModel::text(int record, int column) const {
    const int field = m_source[column];
    if (field < 0) return {};
    return FormatShowValue(m_columns[column].showValue, m_rows.at(record, field));
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const int record = m_order[size_t(index.row())];
    if (role == Qt::DisplayRole) return text(record, index.column());
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

QString CurrentRowKey(const QTreeView* view) {
    const QModelIndex i = view->currentIndex();
    if (!i.isValid()) return {};
    return view->model()->index(i.row(), 0).data(Qt::UserRole).toString().mid(1);
}
