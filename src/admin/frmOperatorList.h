#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmOperatorList;
}

// "操作员及权限": the operators, added, edited and deleted under the right to manage them.
class frmOperatorList : public QDialog {
    Q_OBJECT
  public:
    explicit frmOperatorList(QWidget* parent = nullptr);
    ~frmOperatorList() override;

    void ShowMe();
    // As a page of another window: no frame, no close button, loaded at once.
    void embed();
    void LoadData();
    void cmdOperatorAdd_Click();
    void cmdOperatorEdit_Click();
    void cmdOperatorDel_Click();
    QString selectedID() const;

  private:
    std::unique_ptr<Ui::frmOperatorList> ui;
};
