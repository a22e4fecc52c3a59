#include "frmWareType.h"
#include "EnterMovesOn.h"
#include "RefusalShow.h"
#include "Settings.h"
#include "WareService.h"
#include "ui_frmWareType.h"

frmWareType::frmWareType(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmWareType>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmWareType::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmWareType::~frmWareType() = default;

// Ticket flags can be set only for the printers the venue has switched on.
void frmWareType::enableTickets() {
    ui->chkhc->setEnabled(IsFlagOn(GetSetup(QStringLiteral("IsHC"))));
    ui->chkbt->setEnabled(IsFlagOn(GetSetup(QStringLiteral("IsBT"))));
}

void frmWareType::startAdd() {
    m_mode = 0;
    m_saved = false;
    enableTickets();
    ui->txtWareTypeID->setEnabled(true);
    ui->txtWareTypeID->setFocus();
}

bool frmWareType::startEdit(const QString& id) {
    m_saved = false;
    const std::optional<WareTypeInput> t = WareService().loadWareType(id);
    if (!t) return false;
    m_mode = 1;
    enableTickets();
    ui->txtWareTypeID->setText(t->wareTypeID);
    ui->txtWareTypeID->setEnabled(false); // the key is typed once
    ui->txtWareTypeName->setText(t->wareTypeName);
    ui->chkisDoDiscount->setChecked(t->isDoDiscount);
    ui->chkIsNoMember->setChecked(t->isNomember);
    ui->chkhc->setChecked(t->isHC);
    ui->chkbt->setChecked(t->isBT);
    ui->txtWareTypeName->setFocus();
    ui->txtWareTypeName->selectAll();
    return true;
}

bool frmWareType::Add() {
    startAdd();
    exec();
    return m_saved;
}

bool frmWareType::Edit(const QString& id) {
    if (!startEdit(id)) return false;
    exec();
    return m_saved;
}

void frmWareType::cmdOK_Click() {
    WareTypeInput in;
    in.wareTypeID = ui->txtWareTypeID->text();
    in.wareTypeName = ui->txtWareTypeName->text();
    in.isDoDiscount = ui->chkisDoDiscount->isChecked();
    in.isNomember = ui->chkIsNoMember->isChecked();
    in.isHC = ui->chkhc->isChecked();
    in.isBT = ui->chkbt->isChecked();
    ui->cmdOK->setEnabled(false);
    const WareSaved s = WareService().saveWareType(in, m_mode == 0);
    ui->cmdOK->setEnabled(true);
    if (s.refusal) return ShowRefusal(this, *s.refusal);
    m_saved = true;
    accept();
}
