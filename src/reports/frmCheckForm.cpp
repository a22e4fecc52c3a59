#include "frmCheckForm.h"
#include "AppState.h"
#include "ListColumns.h"
#include "MessageBox.h"
#include "Reconcile.h"
#include "RefusalShow.h"
#include "ScreenFit.h"
#include "ui_frmCheckForm.h"

namespace {
QStringList keysOf(const QTreeWidget* list) {
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->data(0, Qt::UserRole).toString().mid(1);
    return out;
}
} // namespace

frmCheckForm::frmCheckForm(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmCheckForm>()) {
    ui->setupUi(this);
    ScreenFit::install(this, QSize(900, 600));
    connect(ui->OKButton, &QPushButton::clicked, this, &frmCheckForm::SaveData);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmCheckForm::~frmCheckForm() = default;

void frmCheckForm::Edit(const QString&) {
    LoadData();
    exec();
}

void frmCheckForm::LoadData() {
    const QString name = App().CurrentOperatorName;
    ui->txtName->setText(name);
    ui->txtTotal->clear();
    ui->lvwThis->clear();
    ui->lvwOutSale->clear();
    try {
        const ReconcileService s;
        const Rows bills = s.bills(name), sales = s.sales(name);
        ShowListInQueryOrder(ui->lvwThis, QStringLiteral("frmCheckForm.lvwThis"), bills, true);
        ShowListInQueryOrder(ui->lvwOutSale, QStringLiteral("frmCheckForm.lvwOutSale"), sales, true);
        const ReconcileTotals t = ReconcileService::totals(bills, sales);
        ui->txtTotal->setText(t.factPay.toString2());
        ui->txtCashPay->setText(t.cashPay.toString2());
        ui->txtTotalFreepay->setText(t.freePay.toString2());
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Form_Load"), QStringLiteral("frmCheckForm")));
    }
}

void frmCheckForm::SaveData() {
    // Exactly what the window lists and counts.
    if (const Refused r = ReconcileService().reconcile(App().CurrentOperatorName, keysOf(ui->lvwThis),
                                                       keysOf(ui->lvwOutSale), Money::fromText(ui->txtTotal->text()))) {
        ShowRefusal(this, *r);
    } else {
        Msg::info(this, QStringLiteral("完成对帐工作！"));
    }
    accept();
}
