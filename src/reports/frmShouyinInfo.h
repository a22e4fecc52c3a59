#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmShouyinInfo;
}

// "收银对帐记录": the hand-overs of a period, by cashier.
class frmShouyinInfo : public QDialog {
    Q_OBJECT
  public:
    explicit frmShouyinInfo(QWidget* parent = nullptr);
    ~frmShouyinInfo() override;

    void ShowMe();
    void optDay_Click(int index);
    void cmdFind_Click();

  private:
    std::unique_ptr<Ui::frmShouyinInfo> ui;
};
