#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmUpdate;
}

// "星澜数据管理": the upgrade pack under Update, a free SQL statement, and the recalculation
// of commissions.
class frmUpdate : public QDialog {
    Q_OBJECT
  public:
    explicit frmUpdate(QWidget* parent = nullptr);
    ~frmUpdate() override;

    void ShowMe();
    void LoadData();
    void cmdUpdate_Click();
    void cmdSQL_Click();
    void Command1_Click();

  private:
    std::unique_ptr<Ui::frmUpdate> ui;
};
