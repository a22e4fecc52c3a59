#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmSupplierList;
}

// "供应商资料管理": the suppliers in a configured list, to manage them or to pick one.
class frmSupplierList : public QDialog {
    Q_OBJECT
  public:
    explicit frmSupplierList(QWidget* parent = nullptr);
    ~frmSupplierList() override;

    void ShowMe();
    // Pick mode; the chosen SupplierID, or empty text.
    QString SelectSupplier();

    void prepare(bool picking);
    void LoadData();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdDel_Click();
    QString selectedID() const;

  private:
    std::unique_ptr<Ui::frmSupplierList> ui;
    QString m_picked;
};
