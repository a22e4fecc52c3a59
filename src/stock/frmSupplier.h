#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmSupplier;
}

// "供应商管理": one supplier, new or changed.
class frmSupplier : public QDialog {
    Q_OBJECT
  public:
    explicit frmSupplier(QWidget* parent = nullptr);
    ~frmSupplier() override;

    // Modal; true when saved.
    bool Add();
    bool Edit(const QString& supplierID);
    // The dialog before its modal loop; false when the supplier is gone.
    bool prepare(const QString& supplierID);
    void SaveData();
    bool saved() const { return m_saved; }

  private:
    std::unique_ptr<Ui::frmSupplier> ui;
    QString m_id;
    bool m_saved = false;
};
