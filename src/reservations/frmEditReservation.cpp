#include "frmEditReservation.h"
#include "Clock.h"
#include "EnterMovesOn.h"
#include "Format.h"
#include "MessageBox.h"
#include "RefusalShow.h"
#include "ui_frmEditReservation.h"

namespace {
QString keyed(const QString& id) {
    return QStringLiteral("K") + id;
}
QString unkeyed(const QVariant& key) {
    return key.toString().mid(1);
}
void select(QComboBox* box, const QString& id) {
    const int i = box->findData(keyed(id));
    if (i >= 0) box->setCurrentIndex(i);
}
} // namespace

frmEditReservation::frmEditReservation(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmEditReservation>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmEditReservation::SaveData);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->imgcmbAssort, &QComboBox::activated, this,
            [this] { fillRooms(unkeyed(ui->imgcmbAssort->currentData())); });
    // A new arrival time holds the room an hour by default.
    connect(ui->dtpStartTime, &QDateTimeEdit::dateTimeChanged, this,
            [this](const QDateTime& t) { ui->dtpEndTime->setDateTime(t.addSecs(3600)); });
}

frmEditReservation::~frmEditReservation() = default;

void frmEditReservation::fillAssorts() {
    ui->imgcmbAssort->clear();
    for (const Row r : ReservationService().assorts())
        ui->imgcmbAssort->addItem(r.text(QStringLiteral("AssortName")), keyed(r.text(QStringLiteral("AssortID"))));
    ui->imgcmbAssort->setCurrentIndex(ui->imgcmbAssort->count() > 0 ? 0 : -1);
}

void frmEditReservation::fillRooms(const QString& assortID) {
    ui->imgcmbHouse->clear();
    for (const Row r : ReservationService().rooms(assortID))
        ui->imgcmbHouse->addItem(r.text(QStringLiteral("TheCode")), keyed(r.text(QStringLiteral("TheID"))));
    ui->imgcmbHouse->setCurrentIndex(-1);
}

void frmEditReservation::prepare(ReservationMode mode, const QString& theID, const QString& reservationID,
                                 bool isNow) {
    m_mode = mode;
    m_id = reservationID;
    m_result.clear();
    const QDateTime now = ToMinute(Now());
    ui->dtpStartTime->setDateTime(now);
    ui->dtpEndTime->setDateTime(now);
    ui->chkIsNow->setChecked(isNow);
    ui->fraThis->setEnabled(mode != ReservationMode::View);
    try {
        fillAssorts();
        if (mode == ReservationMode::Add) {
            if (!theID.isEmpty()) select(ui->imgcmbAssort, ReservationService().assortOf(theID));
            fillRooms(unkeyed(ui->imgcmbAssort->currentData()));
            select(ui->imgcmbHouse, theID);
        } else if (const std::optional<ReservationInput> r = ReservationService().load(reservationID)) {
            ui->txtCustomerName->setText(r->customerName);
            ui->txtCustomerPhone->setText(r->customerPhone);
            ui->txtCustomerNum->setText(r->customerNum);
            ui->txtDesc->setText(r->description);
            select(ui->imgcmbAssort, r->assortID);
            fillRooms(unkeyed(ui->imgcmbAssort->currentData()));
            select(ui->imgcmbHouse, r->theID);
            ui->dtpStartTime->setDateTime(r->start);
            ui->dtpEndTime->setDateTime(r->end);
        }
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Form_Load"), QStringLiteral("frmEditReservation")));
    }
    ui->txtCustomerName->setFocus();
}

QString frmEditReservation::Add(bool& isNow, const QString& theID) {
    prepare(ReservationMode::Add, theID, {}, isNow);
    exec();
    isNow = this->isNow();
    return m_result;
}

QString frmEditReservation::Edit(const QString& reservationID) {
    prepare(ReservationMode::Edit, {}, reservationID, false);
    exec();
    return m_result;
}

void frmEditReservation::View(const QString& reservationID) {
    prepare(ReservationMode::View, {}, reservationID, false);
    exec();
}

bool frmEditReservation::isNow() const {
    return ui->chkIsNow->isChecked();
}

ReservationInput frmEditReservation::input() const {
    ReservationInput in;
    in.customerName = ui->txtCustomerName->text();
    in.customerPhone = ui->txtCustomerPhone->text();
    in.customerNum = ui->txtCustomerNum->text();
    in.assortID = ui->imgcmbAssort->currentIndex() < 0 ? QString() : unkeyed(ui->imgcmbAssort->currentData());
    in.theID = ui->imgcmbHouse->currentIndex() < 0 ? QString() : unkeyed(ui->imgcmbHouse->currentData());
    in.start = ui->dtpStartTime->dateTime();
    in.end = ui->dtpEndTime->dateTime();
    in.description = ui->txtDesc->text();
    in.isNow = ui->chkIsNow->isChecked();
    return in;
}

void frmEditReservation::SaveData() {
    const ReservationSaved s = ReservationService().save(input(), m_mode, m_id);
    if (s.refusal) {
        m_result.clear();
        ShowRefusal(this, *s.refusal);
        return;
    }
    m_result = s.id;
    accept();
}

void frmEditReservation::reject() {
    m_result.clear();
    QDialog::reject();
}
