#include "frmExpenseAmalgamate.h"
#include "EnterMovesOn.h"
#include "RefusalShow.h"
#include "RoomUse.h"
#include "ui_frmExpenseAmalgamate.h"

frmExpenseAmalgamate::frmExpenseAmalgamate(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmExpenseAmalgamate>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmExpenseAmalgamate::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmExpenseAmalgamate::~frmExpenseAmalgamate() = default;

void frmExpenseAmalgamate::prepare() {
    m_merged = false;
    ui->txt1->clear();
    ui->txt2->clear();
    ui->txt1->setFocus();
}

bool frmExpenseAmalgamate::Add() {
    prepare();
    exec();
    return m_merged;
}

void frmExpenseAmalgamate::OKButton_Click() {
    ui->OKButton->setEnabled(false);
    const Refused r = RoomUseService().merge(ui->txt1->text(), ui->txt2->text());
    ui->OKButton->setEnabled(true);
    if (r) return ShowRefusal(this, *r);
    m_merged = true;
    accept();
}
