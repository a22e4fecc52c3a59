#pragma once
#include "ReservationService.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmEditReservation;
}

// "顾客预订": a reservation made, changed or looked at. With "立即预留" its room is reserved
// at once.
class frmEditReservation : public QDialog {
    Q_OBJECT
  public:
    explicit frmEditReservation(QWidget* parent = nullptr);
    ~frmEditReservation() override;

    // Modal. The new reservation's id, or empty when cancelled; `isNow` goes in as the
    // "立即预留" box and comes back as it was left.
    QString Add(bool& isNow, const QString& theID);
    // Modal. The id when saved ("False" when the row was gone), or empty.
    QString Edit(const QString& reservationID);
    // Modal, nothing can be changed.
    void View(const QString& reservationID);

    // The dialog before its modal loop (tests drive it from here).
    void prepare(ReservationMode mode, const QString& theID, const QString& reservationID, bool isNow);
    void SaveData();
    QString answer() const { return m_result; }
    bool isNow() const;

    // The cancel button, Esc and the title bar all cancel: the answer is empty.
    void reject() override;

  private:
    void fillAssorts();
    void fillRooms(const QString& assortID);
    ReservationInput input() const;

    std::unique_ptr<Ui::frmEditReservation> ui;
    ReservationMode m_mode = ReservationMode::Add;
    QString m_id;
    QString m_result;
};
