#include "frmSupplier.h"
#include "EnterMovesOn.h"
#include "MessageBox.h"
#include "RefusalShow.h"
#include "SupplierService.h"
#include "ui_frmSupplier.h"

frmSupplier::frmSupplier(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmSupplier>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmSupplier::SaveData);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmSupplier::~frmSupplier() = default;

bool frmSupplier::prepare(const QString& supplierID) {
    m_id = supplierID;
    m_saved = false;
    std::optional<SupplierInput> in = SupplierInput{{QStringLiteral("WEb"), QStringLiteral("http://")}};
    if (!supplierID.isEmpty()) {
        try {
            in = SupplierService().load(supplierID);
        } catch (const DbError& e) {
            Msg::critical(this, e.message(QStringLiteral("Form_Load"), QStringLiteral("frmSupplier")));
            return false;
        }
        if (!in) return false;
    }
    for (const SupplierField& f : SupplierFields())
        findChild<QLineEdit*>(f.control)->setText(in->value(f.column));
    ui->txtSupplierName->setFocus();
    return true;
}

bool frmSupplier::Add() {
    prepare({});
    exec();
    return m_saved;
}

bool frmSupplier::Edit(const QString& supplierID) {
    if (!prepare(supplierID)) return false;
    exec();
    return m_saved;
}

void frmSupplier::SaveData() {
    SupplierInput in;
    for (const SupplierField& f : SupplierFields())
        in.insert(f.column, findChild<QLineEdit*>(f.control)->text());
    const SupplierSaved s = SupplierService().save(m_id, in);
    if (!s.ok()) return ShowRefusal(this, *s.refusal);
    // Deleted meanwhile at another till: nothing was saved.
    m_saved = !s.id.isEmpty();
    m_saved ? accept() : reject();
}
