#pragma once
#include "ReportControls.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmFindIncome;
}
class ReportQuery;
struct FindTotals;

// "营业利润统计": the profit settlement stored on each bill and counter sale of a period.
class frmFindIncome : public QDialog {
    Q_OBJECT
  public:
    explicit frmFindIncome(QWidget* parent = nullptr);
    ~frmFindIncome() override;

    // Modal, on the preset period `period` (0 today, 1 this week, 2 this month).
    void ShowMe(int period = 0);
    void cmdFind_Click();
    ReportQuery& query() const { return *m_query; }

  private:
    void showTotals(const FindTotals& t);

    std::unique_ptr<Ui::frmFindIncome> ui;
    ReportQuery* m_query;
    PeriodControls m_period;
};
