#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmEmployeeList;
}

// The employees: a configured list to manage them, or to pick one.
class frmEmployeeList : public QDialog {
    Q_OBJECT
  public:
    explicit frmEmployeeList(QWidget* parent = nullptr);
    ~frmEmployeeList() override;

    void ShowMe();
    // Pick mode; the chosen EmployeeID, or empty text.
    QString SelectEmployee();

    void prepare(bool picking);
    void LoadData();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdDel_Click();
    void cmdSelect_Click();
    QString selectedID() const;

  private:
    std::unique_ptr<Ui::frmEmployeeList> ui;
    QString m_picked;
};
