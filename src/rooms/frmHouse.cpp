#include "frmHouse.h"
#include "EnterMovesOn.h"
#include "MessageBox.h"
#include "RefusalShow.h"
#include "RoomService.h"
#include "ui_frmHouse.h"

frmHouse::frmHouse(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmHouse>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmHouse::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmHouse::~frmHouse() = default;

void frmHouse::fillTypes() {
    ui->imgcmbAssort->clear();
    for (const Row r : RoomService().roomTypes())
        ui->imgcmbAssort->addItem(r.text(QStringLiteral("AssortName")), r.text(QStringLiteral("AssortID")));
    ui->imgcmbAssort->setCurrentIndex(-1);
}

void frmHouse::startAdd() {
    m_mode = 0;
    m_id.clear();
    m_saved = false;
    fillTypes();
    ui->txtHouseCode->clear();
    ui->txtDesc->clear();
    ui->chkClear->setVisible(true);
    ui->txtHouseCode->setFocus();
}

bool frmHouse::startEdit(const QString& theID) {
    m_saved = false;
    const std::optional<RoomInput> room = RoomService().loadRoom(theID);
    if (!room) {
        Msg::warn(parentWidget(), RoomText::roomGone());
        return false;
    }
    m_mode = 1;
    m_id = room->theID;
    fillTypes();
    ui->txtHouseCode->setText(room->theCode);
    ui->imgcmbAssort->setCurrentIndex(ui->imgcmbAssort->findData(room->assortID));
    ui->txtDesc->setText(room->theDesc);
    // Clearing for the next room means nothing when editing one.
    ui->chkClear->setVisible(false);
    ui->txtHouseCode->setFocus();
    ui->txtHouseCode->selectAll();
    return true;
}

bool frmHouse::Add() {
    try {
        startAdd();
    } catch (const DbError& e) {
        Msg::critical(parentWidget(), e.message(QStringLiteral("Form_Load"), QStringLiteral("frmHouse")));
        return false;
    }
    exec();
    return m_saved;
}

bool frmHouse::Edit(const QString& theID) {
    try {
        if (!startEdit(theID)) return false;
    } catch (const DbError& e) {
        Msg::critical(parentWidget(), e.message(QStringLiteral("Form_Load"), QStringLiteral("frmHouse")));
        return false;
    }
    exec();
    return m_saved;
}

void frmHouse::cmdOK_Click() {
    ui->cmdOK->setEnabled(false);
    const Saved s = RoomService().saveRoom({m_mode == 1 ? m_id : QString(), ui->txtHouseCode->text(),
                                            ui->imgcmbAssort->currentData().toString(), ui->txtDesc->text()});
    ui->cmdOK->setEnabled(true);
    if (!s.ok()) return ShowRefusal(this, *s.refusal);
    m_saved = true;
    if (m_mode == 1) return accept();
    // Ready for the next room.
    if (ui->chkClear->isChecked()) {
        ui->txtHouseCode->clear();
        ui->imgcmbAssort->setCurrentIndex(-1);
        ui->txtDesc->clear();
    }
    ui->txtHouseCode->setFocus();
    ui->txtHouseCode->selectAll();
}
