#include "frmSetupMember.h"
#include "Format.h"
#include "ListSort.h"
#include "MemberClassService.h"
#include "MessageBox.h"
#include "Puissance.h"
#include "RefusalShow.h"
#include "frmMemberSetup.h"
#include "ui_frmSetupMember.h"

frmSetupMember::frmSetupMember(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmSetupMember>()) {
    ui->setupUi(this);
    ui->lvwMemberSetup->header()->resizeSection(0, 180);
    ui->lvwMemberSetup->header()->resizeSection(1, 90);
    ui->lvwMemberSetup->header()->resizeSection(2, 90);
    SortListOnHeaderClick(ui->lvwMemberSetup);
    connect(ui->cmdMemberSetupAdd, &QPushButton::clicked, this, &frmSetupMember::cmdMemberSetupAdd_Click);
    connect(ui->cmdMemberSetupEdit, &QPushButton::clicked, this, &frmSetupMember::cmdMemberSetupEdit_Click);
    connect(ui->cmdMemberSetupDel, &QPushButton::clicked, this, &frmSetupMember::cmdMemberSetupDel_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->lvwMemberSetup, &QTreeWidget::itemDoubleClicked, this,
            &frmSetupMember::cmdMemberSetupEdit_Click);
}

frmSetupMember::~frmSetupMember() = default;

void frmSetupMember::ShowMe() {
    LoadData();
    exec();
}

void frmSetupMember::LoadData() {
    ui->lvwMemberSetup->clear();
    try {
        for (const Row r : MemberClassService().list()) {
            auto* it = new QTreeWidgetItem(ui->lvwMemberSetup);
            it->setText(0, r.text(QStringLiteral("SetupName")));
            it->setData(0, Qt::UserRole, QString(QStringLiteral("K") + r.text(QStringLiteral("SetupID"))));
            it->setText(1, FormatNumber(r.num(QStringLiteral("discount")), QStringLiteral("0.00")));
            it->setText(2, QString::number(r.num(QStringLiteral("InitValue")), 'g', 15));
            it->setText(3, QString::number(r.num(QStringLiteral("StepValue")), 'g', 15));
        }
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadData"), QStringLiteral("frmSetupMember")));
    }
}

QString frmSetupMember::selectedID() const {
    const QTreeWidgetItem* it = ui->lvwMemberSetup->currentItem();
    return it ? it->data(0, Qt::UserRole).toString().mid(1) : QString();
}

void frmSetupMember::cmdMemberSetupAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdMemberSetupAdd"))) return;
    frmMemberSetup dlg(this);
    if (dlg.Add()) LoadData();
}

void frmSetupMember::cmdMemberSetupEdit_Click() {
    if (!CheckButton(this, QStringLiteral("cmdMemberSetupEdit"))) return;
    const QString id = selectedID();
    if (id.isEmpty()) return;
    frmMemberSetup dlg(this);
    if (dlg.Edit(id)) LoadData();
}

void frmSetupMember::cmdMemberSetupDel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdMemberSetupDel"))) return;
    const QString id = selectedID();
    if (id.isEmpty()) return;
    bool gone = false;
    if (const Refused r = MemberClassService().remove(id, &gone)) return ShowRefusal(this, *r);
    if (gone) LoadData();
}
