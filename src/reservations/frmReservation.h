#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmReservation;
}

// "预订管理": the live reservations by arrival, with how far off each is.
class frmReservation : public QDialog {
    Q_OBJECT
  public:
    explicit frmReservation(QWidget* parent = nullptr);
    ~frmReservation() override;

    static void ShowMe(QWidget* parent);
    void LoadReservation();
    void cmdNew_Click();
    void cmdReservationEdit_Click();
    void cmdReservationCancel_Click();
    void cmdReservationDel_Click();

  private:
    QString selectedID() const;

    std::unique_ptr<Ui::frmReservation> ui;
};
