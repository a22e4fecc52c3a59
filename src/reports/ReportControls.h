#pragma once
#include "FindService.h"
#include "RowsList.h"

class QDateTimeEdit;
class QPushButton;
class QTabWidget;
class QTreeView;
class QListWidget;
class QRadioButton;
class QWidget;

// The controls the report windows share: the preset periods (0 today, 1 this week, 2 this
// month, each with its end exclusive) and the list of settlements.
struct PeriodControls {
    QRadioButton* days[3];
    QDateTimeEdit* start;
    QDateTimeEdit* end;
    // Connects the presets and sets `period` (out of range: today).
    void install(QWidget* owner, int period = 0);
    void choose(int period);
};

// "现结帐单", "免费帐单 " and, with `withDeferred`, "挂帐帐单", all selected.
void FillStateList(QListWidget* list, bool withDeferred);
VoucherChoice ChoiceOf(const QListWidget* list);

// The bills and counter sales tabs of the bill and income queries: both lists on the lazy
// model, sorted by a header click; the export button exports the list of the tab in front.
void InstallBillTabs(QTabWidget* tabs, QTreeView* bills, QTreeView* sales, QPushButton* exportButton);

// A period's bills and counter sales as the two tabs will show them, and the period's totals:
// made ready on the query's thread, then shown at once.
struct PeriodLists {
    PreparedRows bills, sales;
    FindTotals totals;
};
void ShowPeriodLists(QTreeView* bills, QTreeView* sales, const PeriodLists& lists);
