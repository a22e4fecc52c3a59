#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmHouseAssort;
}

// A room type: its name and the tariff all its rooms are billed by.
class frmHouseAssort : public QDialog {
    Q_OBJECT
  public:
    explicit frmHouseAssort(QWidget* parent = nullptr);
    ~frmHouseAssort() override;

    // Modal; true when a type was saved.
    bool Add();
    bool Edit(const QString& assortID);

    // The two halves of Add and Edit around the modal loop.
    void startAdd();
    bool startEdit(const QString& assortID);
    void cmdOK_Click();

    bool saved() const { return m_saved; }
    QString savedID() const { return m_id; }

  private:
    void fillTariffs();
    std::unique_ptr<Ui::frmHouseAssort> ui;
    int m_mode = 0; // 0 new, 1 edit
    QString m_id;
    bool m_saved = false;
};
