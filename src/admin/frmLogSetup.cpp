#include "frmLogSetup.h"
#include "LogService.h"
#include "MessageBox.h"
#include "RefusalShow.h"
#include "ui_frmLogSetup.h"

frmLogSetup::frmLogSetup(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmLogSetup>()) {
    ui->setupUi(this);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmLogSetup::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmLogSetup::~frmLogSetup() = default;

void frmLogSetup::load() {
    try {
        const LogRetention r = LogService().retention();
        (r.type == 0 ? ui->optSet0 : ui->optSet1)->setChecked(true);
        ui->Text10->setText(r.days);
        ui->Text11->setText(r.rows);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Form_Load"), QStringLiteral("frmLogSetup")));
    }
}

void frmLogSetup::ShowMe() {
    load();
    exec();
}

void frmLogSetup::OKButton_Click() {
    LogRetention r;
    r.type = ui->optSet0->isChecked() ? 0 : 1;
    r.days = ui->Text10->text();
    r.rows = ui->Text11->text();
    if (const Refused no = LogService().saveRetention(r)) return ShowRefusal(this, *no);
    accept();
}
