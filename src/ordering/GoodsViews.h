#pragma once
#include "OrderEntry.h"
#include "WarePrice.h"
#include <QHash>
#include <QIcon>
#include <QStringList>
#include <functional>

class QTreeWidget;
class QWidget;
class QTreeWidgetItem;

// The goods list and the goods tree that the order window and the counter till share.
namespace GoodsViews {
// Data of the items: a list row holds "K" + WareID and its index in the priced goods; a type
// node "T" + its id; a goods node "K" + WareID and the decided price.
enum Role { KeyRole = Qt::UserRole, IndexRole, PriceRole };

// Fills both views from one priced reading of the goods. `rowTexts` gives a list row's
// columns (those from the third on are numbers, right-aligned), `nodeText` a goods node's
// text. Goods of a type that is gone have no place in the tree; the list still has them.
// Returns each WareID's row of the list.
QHash<QString, QTreeWidgetItem*> Fill(QTreeWidget* list, QTreeWidget* tree, const QList<WareTypeNode>& types,
                                      const QList<PricedWare>& goods,
                                      const std::function<QStringList(const PricedWare&)>& rowTexts,
                                      const std::function<QString(const PricedWare&)>& nodeText);

// The goods dialog in add mode, then the goods priced again at the present hour, like a fresh
// opening of `form`; a database error is told as one of `form`. The caller fills its views.
void AddWare(QWidget* form, OrderEntry& entry);

// Marks a line added in this opening of the window.
QIcon NewLineIcon();
} // namespace GoodsViews
