#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmLog;
}

// "系统操作日志": the log of a period, searched, exported and deleted under its right.
class frmLog : public QDialog {
    Q_OBJECT
  public:
    explicit frmLog(QWidget* parent = nullptr);
    ~frmLog() override;

    void ShowMe();
    void cmdFind_Click();
    void cmdDel_Click();
    void cmdSetup_Click();

  private:
    std::unique_ptr<Ui::frmLog> ui;
};
