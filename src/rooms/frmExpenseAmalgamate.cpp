#include "frmExpenseAmalgamate.h"
#include "EnterMovesOn.h"
#include "MessageBox.h"
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
    // Two bills made one cannot be parted again: ask first, once the two rooms are told apart.
    const QString from = ui->txt1->text().trimmed(), into = ui->txt2->text().trimmed();
    if (!from.isEmpty() && !into.isEmpty() && from.compare(into, Qt::CaseInsensitive) != 0 &&
        !Msg::confirm(
            this, QStringLiteral("并台后不能撤销。确定要把包厢 %1 的消费并入包厢 %2 吗？").arg(from, into),
            QMessageBox::Ok))
        return;
    ui->OKButton->setEnabled(false);
    const Refused r = RoomUseService().merge(ui->txt1->text(), ui->txt2->text());
    ui->OKButton->setEnabled(true);
    if (r) return ShowRefusal(this, *r);
    m_merged = true;
    m_summary = QStringLiteral("已并台：%1 并入 %2").arg(from, into);
    accept();
}
