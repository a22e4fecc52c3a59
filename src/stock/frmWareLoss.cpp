#include "frmWareLoss.h"
#include "Clock.h"
#include "EnterMovesOn.h"
#include "MessageBox.h"
#include "RefusalShow.h"
#include "ScreenFit.h"
#include "ui_frmWareLoss.h"
#include <QSignalBlocker>

frmWareLoss::frmWareLoss(QWidget* parent) : StockEntry(parent), ui(std::make_unique<Ui::frmWareLoss>()) {
    ui->setupUi(this);
    bindEntry();
    ScreenFit::install(this, QSize(820, 580));
    EnterMovesOn::install(this, {ui->txtMnemonics});
    // The amount follows price and quantity; typing in it is undone at once.
    connect(ui->txtNum, &QLineEdit::textChanged, this, &frmWareLoss::showMoney);
    connect(ui->txtTheMoney, &QLineEdit::textChanged, this, &frmWareLoss::showMoney);
    connect(ui->cmdAdd, &QPushButton::clicked, this, &frmWareLoss::addLine);
    connect(ui->cmdDel, &QPushButton::clicked, this, &StockEntry::cmdDel_Click);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmWareLoss::SaveData);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmWareLoss::~frmWareLoss() = default;

QList<QLineEdit*> frmWareLoss::entryBoxes() const {
    return {ui->txtNum, ui->txtTheMoney, ui->txtPrice, ui->txtWareDesc};
}

void frmWareLoss::wareFound() {
    ui->txtPrice->setText(m_currentWare->price.toString2());
    showMoney();
}

void frmWareLoss::showMoney() {
    const QSignalBlocker quiet(ui->txtTheMoney);
    ui->txtTheMoney->setText(LossMoneyText(ui->txtPrice->text(), ui->txtNum->text()));
}

bool frmWareLoss::Add() {
    prepare();
    exec();
    return m_saved;
}

void frmWareLoss::prepare() {
    m_saved = false;
    ui->lvwThis->clear();
    ui->dtpInTime->setDate(Now().date());
    clearEntry();
}

void frmWareLoss::addLine() {
    if (const Refused r = CheckLossLine(m_currentWare ? m_currentWare->wareID : QString(), ui->txtNum->text()))
        return ShowRefusal(this, *r);
    AddStockLine(ui->lvwThis, MakeLossLine(*m_currentWare, ui->txtNum->text(), ui->txtWareDesc->text()));
    clearEntry();
}

void frmWareLoss::SaveData() {
    WareInHeader h;
    h.inTime = ui->dtpInTime->date();
    h.theJB = ui->txtTheJB->text();
    h.theDesc = ui->txttheDesc->text();
    h.theCode = ui->txtTheCode->text();
    try {
        ReceiptService().saveLoss(h, StockLines(ui->lvwThis));
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("SaveData"), QStringLiteral("frmWareLoss")));
        return;
    }
    m_saved = true;
    accept();
}
