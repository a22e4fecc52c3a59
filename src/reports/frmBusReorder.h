#pragma once
#include "ReportControls.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmBusReorder;
}
class QTreeView;
class ReportQuery;

// "销售排行": what sold best over a period, by goods or goods type, and by the employee
// credited with the commission.
class frmBusReorder : public QDialog {
    Q_OBJECT
  public:
    explicit frmBusReorder(QWidget* parent = nullptr);
    ~frmBusReorder() override;

    // Modal, on the preset period `period` (0 today, 1 this week, 2 this month).
    void ShowMe(int period = 0);
    // Ranks for the tab in front.
    void cmdFind_Click();
    ReportQuery& query() const { return *m_query; }

  private:
    void showRanking(QTreeView* list, const QString& name, const Rows& rows);

    std::unique_ptr<Ui::frmBusReorder> ui;
    ReportQuery* m_query;
    PeriodControls m_period;
};
