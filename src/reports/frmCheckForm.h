#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmCheckForm;
}

// "收银员对帐": the signed-in cashier's unreconciled bills and retail sales, totalled, and
// reconciled as a whole.
class frmCheckForm : public QDialog {
    Q_OBJECT
  public:
    explicit frmCheckForm(QWidget* parent = nullptr);
    ~frmCheckForm() override;

    // Modal; the id is not used: a cashier reconciles himself.
    void Edit(const QString& operatorID);
    void LoadData();
    void SaveData();

  private:
    std::unique_ptr<Ui::frmCheckForm> ui;
};
