#include "ReportControls.h"
#include "Clock.h"
#include "ListExport.h"
#include "ListSort.h"
#include "RowsList.h"
#include "StoredValueService.h"
#include <QDateTimeEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeView>

void PeriodControls::install(QWidget* owner, int period) {
    for (int i = 0; i < 3; ++i)
        QObject::connect(days[i], &QRadioButton::clicked, owner, [this, i] { choose(i); });
    choose(period);
}

void PeriodControls::choose(int period) {
    const int index = period >= 0 && period <= 2 ? period : 0;
    days[index]->setChecked(true);
    const ChongzhiPeriod p = StoredValueService::period(index, Now().date());
    start->setDateTime(p.start);
    end->setDateTime(p.end);
}

void FillStateList(QListWidget* list, bool withDeferred) {
    list->clear();
    list->addItem(QStringLiteral("现结帐单"));
    list->addItem(QStringLiteral("免费帐单 "));
    if (withDeferred) list->addItem(QStringLiteral("挂帐帐单"));
    list->selectAll();
    list->setFixedHeight(list->sizeHintForRow(0) + 2 * list->frameWidth() + 4);
    int width = 2 * list->frameWidth() + 8;
    for (int i = 0; i < list->count(); ++i)
        width += list->sizeHintForColumn(0) + 4;
    list->setFixedWidth(width);
}

VoucherChoice ChoiceOf(const QListWidget* list) {
    const auto on = [list](int i) { return i < list->count() && list->item(i)->isSelected(); };
    return {on(0), on(1), on(2)};
}

void InstallBillTabs(QTabWidget* tabs, QTreeView* bills, QTreeView* sales, QPushButton* exportButton) {
    for (QTreeView* list : {bills, sales}) {
        list->setModel(new RowsModel(list));
        SortListOnHeaderClick(list);
    }
    ExportButton(exportButton, [tabs, bills, sales] { return tabs->currentWidget()->isAncestorOf(sales) ? sales : bills; });
}

void ShowPeriodLists(QTreeView* bills, QTreeView* sales, const PeriodLists& lists) {
    ShowPreparedRows(bills, lists.bills, true);
    ShowPreparedRows(sales, lists.sales, true);
}
