#include "ExpenseLines.h"
#include "Format.h"
#include "Money.h"
#include <QHeaderView>
#include <QTreeWidget>

Rows ExpenseLines(const QString& expenseID, bool withVoids, Db& db) {
    const QString sql =
        QStringLiteral("select ExpenseDetail.*,Ware.WareCode,Ware.WareName from ExpenseDetail "
                       "left join Ware on ExpenseDetail.WareID=Ware.WareID where ExpenseID=?") +
        (withVoids ? QString() : QStringLiteral(" and ExpenseDetail.isdel<>1")) +
        QStringLiteral(" order by ExpenseDetail.ExpenseTime");
    return db.query(sql, {expenseID});
}

void SetupExpenseDetailList(QTreeWidget* list) {
    list->setColumnCount(8);
    list->setHeaderLabels({QStringLiteral("消费项目"), QStringLiteral("数量"), QStringLiteral("单价"),
                           QStringLiteral("金额"), QStringLiteral("提成员工"), QStringLiteral("消费时间"),
                           QStringLiteral("记帐人"), QStringLiteral("备注")});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAlternatingRowColors(true);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    const int widths[] = {150, 50, 70, 80, 80, 70, 80, 120};
    for (int c = 0; c < 8; ++c)
        list->setColumnWidth(c, widths[c]);
    for (int c : {1, 2, 3})
        list->headerItem()->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
}

void LoadDataExpenseDetail(const QString& expenseID, QTreeWidget* list, bool withVoids, Db& db) {
    list->clear();
    if (expenseID.isEmpty()) return;
    const Rows rows = ExpenseLines(expenseID, withVoids, db);
    QList<QTreeWidgetItem*> items;
    items.reserve(rows.count());
    for (const Row r : rows) {
        auto* it = new QTreeWidgetItem;
        it->setText(0, r.text(QStringLiteral("WareName")));
        it->setData(0, ExpenseLineRole::Key,
                    QString(QStringLiteral("K") + r.text(QStringLiteral("DetailID"))));
        it->setData(0, ExpenseLineRole::WareID, r.text(QStringLiteral("WareID")));
        it->setText(1, FormatNumber(r.num(QStringLiteral("num")), QStringLiteral("0")));
        it->setText(2, r.money(QStringLiteral("Price")).toString2());
        it->setText(3, r.money(QStringLiteral("oughtMoney")).toString2());
        it->setText(4, r.text(QStringLiteral("Other1")));
        it->setText(5, FormatDate(ParseTime(r.text(QStringLiteral("ExpenseTime"))), QStringLiteral("HH:mm")));
        it->setText(6, r.text(QStringLiteral("operatorname")));
        it->setText(ExpenseLineNoteColumn, r.text(QStringLiteral("Description")));
        for (int c : {1, 2, 3})
            it->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
        QColor colour;
        if (r.integer(QStringLiteral("isdel")) == 1)
            colour = QColor(255, 0, 0);
        else if (r.integer(QStringLiteral("isFree")) == 1)
            colour = QColor(0, 0, 255);
        if (colour.isValid())
            for (int c = 0; c < 8; ++c)
                it->setForeground(c, colour);
        items << it;
    }
    list->addTopLevelItems(items);
}
