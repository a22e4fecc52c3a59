#pragma once
#include <Qt>

class QTreeView;

// Sorts a list on a click of a column header: the column it is already sorted by turns
// round, another column sorts ascending. Values compare as text.
void SortList(QTreeView* list, int column);

// Sorts a list by a column in an order and shows that on the header.
void SortListBy(QTreeView* list, int column, Qt::SortOrder order);

// Shows on the header that a list is sorted so, without sorting it (it came in that order).
void MarkListSorted(QTreeView* list, int column, Qt::SortOrder order);

// Forgets the sort of a list: no indicator, and the next click sorts ascending.
void ClearListSort(QTreeView* list);

// Makes the headers of a list clickable and sorts the list on each click.
void SortListOnHeaderClick(QTreeView* list);
