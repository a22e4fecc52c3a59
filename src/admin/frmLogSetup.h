#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmLogSetup;
}

// "设置日志": keep the last days or the last rows of the operation log.
class frmLogSetup : public QDialog {
    Q_OBJECT
  public:
    explicit frmLogSetup(QWidget* parent = nullptr);
    ~frmLogSetup() override;

    void ShowMe();
    void load();
    void OKButton_Click();

  private:
    std::unique_ptr<Ui::frmLogSetup> ui;
};
