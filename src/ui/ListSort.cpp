#include "ListSort.h"
#include <QHeaderView>
#include <QTreeView>

namespace {
// The sort a list was last given, kept on the list itself: the header flips its own
// indicator on a click before it tells of the click, so it can't be asked.
constexpr const char* SortColumn = "singboxSortColumn";
constexpr const char* SortOrder = "singboxSortOrder";
} // namespace

void SortListBy(QTreeView* list, int column, Qt::SortOrder order) {
    if (list->model()) list->model()->sort(column, order);
    MarkListSorted(list, column, order);
}

void MarkListSorted(QTreeView* list, int column, Qt::SortOrder order) {
    list->header()->setSortIndicatorShown(true);
    list->header()->setSortIndicator(column, order);
    list->setProperty(SortColumn, column);
    list->setProperty(SortOrder, int(order));
}

void ClearListSort(QTreeView* list) {
    list->header()->setSortIndicatorShown(false);
    list->setProperty(SortColumn, QVariant());
    list->setProperty(SortOrder, QVariant());
}

void SortList(QTreeView* list, int column) {
    if (!list->model() || column < 0 || column >= list->model()->columnCount()) return;
    const QVariant current = list->property(SortColumn);
    const bool again = current.isValid() && current.toInt() == column &&
                       list->property(SortOrder).toInt() == int(Qt::AscendingOrder);
    SortListBy(list, column, again ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void SortListOnHeaderClick(QTreeView* list) {
    list->header()->setSectionsClickable(true);
    QObject::connect(list->header(), &QHeaderView::sectionClicked, list,
                     [list](int column) { SortList(list, column); });
}
