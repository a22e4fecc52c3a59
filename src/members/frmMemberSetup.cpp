#include "frmMemberSetup.h"
#include "EnterMovesOn.h"
#include "MemberClassService.h"
#include "RefusalShow.h"
#include "ui_frmMemberSetup.h"

frmMemberSetup::frmMemberSetup(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmMemberSetup>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmMemberSetup::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmMemberSetup::~frmMemberSetup() = default;

void frmMemberSetup::showClass(const MemberClassInput& in) {
    ui->txtSetupName->setText(in.name);
    ui->txtInitValue->setText(in.initValue);
    ui->txtStepValue->setText(in.stepValue);
    ui->txtDiscount->setText(in.discount);
    ui->txtDesc->setText(in.description);
    ui->txtSetupName->setFocus();
}

void frmMemberSetup::startAdd() {
    m_id.clear();
    m_saved = false;
    showClass(MemberClassInput{});
}

bool frmMemberSetup::startEdit(const QString& setupID) {
    m_saved = false;
    std::optional<MemberClassInput> in;
    try {
        in = MemberClassService().load(setupID);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Init"), QStringLiteral("frmMemberSetup")));
    }
    if (!in) return false;
    m_id = setupID;
    showClass(*in);
    return true;
}

bool frmMemberSetup::Add() {
    startAdd();
    exec();
    return m_saved;
}

bool frmMemberSetup::Edit(const QString& setupID) {
    if (!startEdit(setupID)) return false;
    exec();
    return m_saved;
}

void frmMemberSetup::OKButton_Click() {
    MemberClassInput in;
    in.name = ui->txtSetupName->text();
    in.initValue = ui->txtInitValue->text();
    in.stepValue = ui->txtStepValue->text();
    in.discount = ui->txtDiscount->text();
    in.description = ui->txtDesc->text();
    ui->OKButton->setEnabled(false);
    const MemberClassSaved s = MemberClassService().save(m_id, in);
    ui->OKButton->setEnabled(true);
    if (!s.ok()) return ShowRefusal(this, *s.refusal);
    if (s.id.isEmpty()) return reject(); // deleted meanwhile
    m_id = s.id;
    m_saved = true;
    accept();
}
