#include "GoodsViews.h"
#include "Clock.h"
#include "MessageBox.h"
#include "Val.h"
#include "frmWare.h"
#include <QPainter>
#include <QStyle>
#include <QTreeWidget>

namespace GoodsViews {
namespace {
// An icon that looks otherwise while its item is selected.
QIcon pairIcon(const QStyle* style, QStyle::StandardPixmap normal, QStyle::StandardPixmap selected) {
    QIcon icon = style->standardIcon(normal);
    icon.addPixmap(style->standardIcon(selected).pixmap(16, 16), QIcon::Selected);
    return icon;
}
} // namespace

QHash<QString, QTreeWidgetItem*> Fill(QTreeWidget* list, QTreeWidget* tree, const QList<WareTypeNode>& types,
                                      const QList<PricedWare>& goods,
                                      const std::function<QStringList(const PricedWare&)>& rowTexts,
                                      const std::function<QString(const PricedWare&)>& nodeText) {
    list->clear();
    tree->clear();
    const QIcon folder = pairIcon(tree->style(), QStyle::SP_DirClosedIcon, QStyle::SP_DirOpenIcon);
    const QIcon file = pairIcon(tree->style(), QStyle::SP_FileIcon, QStyle::SP_FileLinkIcon);
    QHash<QString, QTreeWidgetItem*> typeNodes;
    QList<QTreeWidgetItem*> roots;
    for (const WareTypeNode& t : types) {
        auto* node = new QTreeWidgetItem({t.name});
        node->setData(0, KeyRole, QString(QStringLiteral("T") + t.id));
        node->setIcon(0, folder);
        typeNodes.insert(t.id, node);
        roots << node;
    }
    QHash<QString, QTreeWidgetItem*> rowsByWare;
    QList<QTreeWidgetItem*> rows;
    rows.reserve(goods.size());
    for (int i = 0; i < goods.size(); ++i) {
        const PricedWare& w = goods[i];
        const QString key = QStringLiteral("K") + w.wareID;
        auto* it = new QTreeWidgetItem(rowTexts(w));
        it->setData(0, KeyRole, key);
        it->setData(0, IndexRole, i);
        for (int c = 2; c < it->columnCount(); ++c)
            it->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
        rows << it;
        rowsByWare.insert(w.wareID, it);
        if (QTreeWidgetItem* parent = typeNodes.value(w.wareTypeID)) {
            auto* node = new QTreeWidgetItem(parent, {nodeText(w)});
            node->setData(0, KeyRole, key);
            node->setData(0, PriceRole, Val(w.decided.text));
            node->setIcon(0, file);
        }
    }
    list->addTopLevelItems(rows);
    tree->addTopLevelItems(roots);
    tree->expandAll();
    return rowsByWare;
}

void AddWare(QWidget* form, OrderEntry& entry) {
    frmWare dlg(form);
    dlg.Add();
    try {
        entry.buildGoods(Now(), AllDiscountRate::current());
    } catch (const DbError& e) {
        Msg::show(form, e.message(QStringLiteral("cmdWareAdd_Click"), form->objectName()),
                  Msg::Icon::Critical);
    }
}

QIcon NewLineIcon() {
    static const QIcon icon = [] {
        QPixmap pix(16, 16);
        pix.fill(Qt::transparent);
        QPainter p(&pix);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0x2e, 0x7d, 0x32));
        p.drawEllipse(QRectF(3, 3, 10, 10));
        return QIcon(pix);
    }();
    return icon;
}
} // namespace GoodsViews
