#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmHouseAddBat;
}

// A run of rooms of one type, coded marker + number from a start to an end number.
class frmHouseAddBat : public QDialog {
    Q_OBJECT
  public:
    explicit frmHouseAddBat(QWidget* parent = nullptr);
    ~frmHouseAddBat() override;

    // Modal; true when the rooms were added.
    bool Add();

    // The half of Add before the modal loop.
    void startAdd();
    void cmdOK_Click();

    bool saved() const { return m_added > 0; }
    int added() const { return m_added; }

  private:
    void showSample();
    std::unique_ptr<Ui::frmHouseAddBat> ui;
    int m_added = 0;
};
