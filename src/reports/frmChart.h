#pragma once
#include "ReportControls.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmChart;
}
class QChart;
class ReportQuery;

// "统计图表": takings by day, week or month over a period, as a table and as three lines.
class frmChart : public QDialog {
    Q_OBJECT
  public:
    explicit frmChart(QWidget* parent = nullptr);
    ~frmChart() override;

    void ShowMe();
    void LoadExpense();
    ReportQuery& query() const { return *m_query; }
    // The chart's rows and its three lines as text: one line per row label with its values.
    QString seriesText() const;

  private:
    void showRows(const Rows& rows);
    void buildChart();

    std::unique_ptr<Ui::frmChart> ui;
    ReportQuery* m_query;
    PeriodControls m_period;
};
