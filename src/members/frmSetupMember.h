#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmSetupMember;
}

// The member classes.
class frmSetupMember : public QDialog {
    Q_OBJECT
  public:
    explicit frmSetupMember(QWidget* parent = nullptr);
    ~frmSetupMember() override;

    void ShowMe();
    void LoadData();
    void cmdMemberSetupAdd_Click();
    void cmdMemberSetupEdit_Click();
    void cmdMemberSetupDel_Click();
    QString selectedID() const;

  private:
    std::unique_ptr<Ui::frmSetupMember> ui;
};
