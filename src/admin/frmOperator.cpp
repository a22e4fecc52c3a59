#include "frmOperator.h"
#include "EnterMovesOn.h"
#include "RefusalShow.h"
#include "ui_frmOperator.h"
#include <QHeaderView>

frmOperator::frmOperator(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmOperator>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    ui->lvwSysPuissance->header()->resizeSection(0, 180);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmOperator::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->chkAll, &QCheckBox::clicked, this, [this](bool on) {
        for (int i = 0; i < ui->lvwSysPuissance->topLevelItemCount(); ++i)
            ui->lvwSysPuissance->topLevelItem(i)->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
    });
}

frmOperator::~frmOperator() = default;

void frmOperator::showRights(const QList<OperatorRight>& rights) {
    ui->lvwSysPuissance->clear();
    for (const OperatorRight& r : rights) {
        auto* it = new QTreeWidgetItem(ui->lvwSysPuissance, {r.name, r.description});
        it->setData(0, Qt::UserRole, QString(QStringLiteral("K") + r.code));
        it->setCheckState(0, r.granted ? Qt::Checked : Qt::Unchecked);
    }
}

void frmOperator::startAdd() {
    m_id.clear();
    m_saved = false;
    const OperatorInput fresh;
    for (QLineEdit* e : findChildren<QLineEdit*>())
        e->clear();
    ui->txtDiscount->setText(fresh.discount);
    ui->txtCloseTimeSet->setText(fresh.closeTimeSet);
    ui->cmbState->setCurrentIndex(0);
    ui->txtLoginName->setEnabled(true);
    ui->cmbState->setEnabled(true);
    ui->txtPW->setPlaceholderText(QString());
    showRights(OperatorService().rights(QString()));
    ui->txtOperatorName->setFocus();
}

bool frmOperator::startEdit(const QString& operatorID) {
    m_saved = false;
    const std::optional<OperatorInput> o = OperatorService().load(operatorID);
    if (!o) return false;
    m_id = operatorID;
    ui->txtOperatorName->setText(o->operatorName);
    ui->txtLoginName->setText(o->loginName);
    // Only a hash is stored: empty boxes keep the password.
    ui->txtPW->clear();
    ui->txtPw1->clear();
    ui->txtPW->setPlaceholderText(QStringLiteral("不修改请留空"));
    ui->txtDiscount->setText(o->discount);
    ui->txtCloseTimeSet->setText(o->closeTimeSet);
    ui->txtDesc->setText(o->description);
    ui->cmbState->setCurrentIndex(o->state == 1 ? 1 : 0);
    const bool builtIn = operatorID == BuiltInAdminID;
    ui->txtLoginName->setEnabled(!builtIn);
    ui->cmbState->setEnabled(!builtIn);
    showRights(o->rights);
    ui->txtOperatorName->setFocus();
    return true;
}

bool frmOperator::Add() {
    startAdd();
    exec();
    return m_saved;
}

bool frmOperator::Edit(const QString& operatorID) {
    if (!startEdit(operatorID)) return false;
    exec();
    return m_saved;
}

OperatorInput frmOperator::input() const {
    OperatorInput in;
    in.operatorName = ui->txtOperatorName->text();
    in.loginName = ui->txtLoginName->text();
    in.pw = ui->txtPW->text();
    in.pwRepeat = ui->txtPw1->text();
    in.discount = ui->txtDiscount->text();
    in.closeTimeSet = ui->txtCloseTimeSet->text();
    in.description = ui->txtDesc->text();
    in.state = ui->cmbState->currentIndex() == 1 ? 1 : 0;
    for (int i = 0; i < ui->lvwSysPuissance->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* it = ui->lvwSysPuissance->topLevelItem(i);
        in.rights << OperatorRight{it->data(0, Qt::UserRole).toString().mid(1), it->text(0), it->text(1),
                                   it->checkState(0) == Qt::Checked};
    }
    return in;
}

void frmOperator::OKButton_Click() {
    ui->OKButton->setEnabled(false);
    const OperatorSaved s = OperatorService().save(m_id, input());
    ui->OKButton->setEnabled(true);
    if (!s.ok()) {
        // The rights refusals point at the manage-operators item.
        if (s.refusal->field == QLatin1String("lvwSysPuissance"))
            for (int i = 0; i < ui->lvwSysPuissance->topLevelItemCount(); ++i)
                if (QTreeWidgetItem* it = ui->lvwSysPuissance->topLevelItem(i);
                    it->data(0, Qt::UserRole).toString() == QStringLiteral("K") + ManageOperatorsRight)
                    ui->lvwSysPuissance->setCurrentItem(it);
        return ShowRefusal(this, *s.refusal);
    }
    if (s.id.isEmpty()) return reject(); // deleted meanwhile
    m_id = s.id;
    m_saved = true;
    accept();
}
