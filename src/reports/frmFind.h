#pragma once
#include "Db.h"
#include "ReportControls.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmFind;
}
class ReportQuery;
struct FindTotals;

// "营业查询": the settled bills and the counter sales of a period, their lines and sums, and
// the two printed summaries.
class frmFind : public QDialog {
    Q_OBJECT
  public:
    explicit frmFind(QWidget* parent = nullptr);
    ~frmFind() override;

    // Modal, on the preset period `period` (0 today, 1 this week, 2 this month).
    void ShowMe(int period = 0);
    void optDay_Click(int index);
    // Reads the period off the window's thread; the lists fill when the read is done.
    void cmdFind_Click();
    void cmdPrint_Click();
    void cmdFindPrintOK_Click();
    void cmdReprint_Click();
    ReportQuery& query() const { return *m_query; }

  private:
    void clearTotals();
    void showTotals(const FindTotals& t);
    void LoadDetail();
    void LoadDataOutsaleDetail();

    std::unique_ptr<Ui::frmFind> ui;
    ReportQuery* m_query;
    Rows m_bills; // what the list of bills shows, for its print
    PeriodControls m_period;
};
