#include "frmHouseAssort.h"
#include "EnterMovesOn.h"
#include "RefusalShow.h"
#include "RoomService.h"
#include "ui_frmHouseAssort.h"

frmHouseAssort::frmHouseAssort(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmHouseAssort>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmHouseAssort::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmHouseAssort::~frmHouseAssort() = default;

void frmHouseAssort::fillTariffs() {
    ui->imgcmbAssort->clear();
    for (const Row r : RoomService().tariffs())
        ui->imgcmbAssort->addItem(r.text(QStringLiteral("PayLevelName")),
                                  r.text(QStringLiteral("PayLevelID")));
    ui->imgcmbAssort->setCurrentIndex(-1);
}

void frmHouseAssort::startAdd() {
    m_mode = 0;
    m_id.clear();
    m_saved = false;
    fillTariffs();
    ui->txtAssortName->clear();
    ui->txtAssortName->setFocus();
}

bool frmHouseAssort::startEdit(const QString& assortID) {
    m_saved = false;
    const std::optional<RoomTypeInput> type = RoomService().loadRoomType(assortID);
    if (!type) {
        Msg::warn(parentWidget(), RoomText::typeGone());
        return false;
    }
    m_mode = 1;
    m_id = type->assortID;
    fillTariffs();
    ui->txtAssortName->setText(type->assortName);
    ui->imgcmbAssort->setCurrentIndex(ui->imgcmbAssort->findData(type->payLevelID));
    ui->txtAssortName->setFocus();
    ui->txtAssortName->selectAll();
    return true;
}

bool frmHouseAssort::Add() {
    startAdd();
    exec();
    return m_saved;
}

bool frmHouseAssort::Edit(const QString& assortID) {
    if (!startEdit(assortID)) return false;
    exec();
    return m_saved;
}

void frmHouseAssort::cmdOK_Click() {
    ui->cmdOK->setEnabled(false);
    const Saved s = RoomService().saveRoomType({m_mode == 1 ? m_id : QString(), ui->txtAssortName->text(),
                                                ui->imgcmbAssort->currentData().toString()});
    ui->cmdOK->setEnabled(true);
    if (!s.ok()) return ShowRefusal(this, *s.refusal);
    m_id = s.id;
    m_saved = true;
    accept();
}
