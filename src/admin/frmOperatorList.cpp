#include "frmOperatorList.h"
#include "ListSort.h"
#include "MessageBox.h"
#include "OperatorService.h"
#include "Puissance.h"
#include "RefusalShow.h"
#include "frmOperator.h"
#include "ui_frmOperatorList.h"

frmOperatorList::frmOperatorList(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmOperatorList>()) {
    ui->setupUi(this);
    SortListOnHeaderClick(ui->lvwOperator);
    connect(ui->cmdOperatorAdd, &QPushButton::clicked, this, &frmOperatorList::cmdOperatorAdd_Click);
    connect(ui->cmdOperatorEdit, &QPushButton::clicked, this, &frmOperatorList::cmdOperatorEdit_Click);
    connect(ui->cmdOperatorDel, &QPushButton::clicked, this, &frmOperatorList::cmdOperatorDel_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->lvwOperator, &QTreeWidget::itemDoubleClicked, this, &frmOperatorList::cmdOperatorEdit_Click);
}

frmOperatorList::~frmOperatorList() = default;

void frmOperatorList::ShowMe() {
    LoadData();
    exec();
}

void frmOperatorList::embed() {
    setWindowFlags(Qt::Widget);
    ui->cmdClose->hide();
    LoadData();
}

void frmOperatorList::LoadData() {
    try {
        const QString keep = selectedID();
        ui->lvwOperator->clear();
        for (const Row r : OperatorService().list()) {
            auto* it = new QTreeWidgetItem(ui->lvwOperator, {r.text(QStringLiteral("LoginName")),
                                                             r.text(QStringLiteral("operatorname"))});
            const QString id = r.text(QStringLiteral("OperatorID"));
            it->setData(0, Qt::UserRole, QString(QStringLiteral("K") + id));
            if (id == keep) ui->lvwOperator->setCurrentItem(it);
        }
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadData"), QStringLiteral("frmOperatorList")));
    }
}

QString frmOperatorList::selectedID() const {
    const QTreeWidgetItem* it = ui->lvwOperator->currentItem();
    return it ? it->data(0, Qt::UserRole).toString().mid(1) : QString();
}

void frmOperatorList::cmdOperatorAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdOperatorAdd"))) return;
    frmOperator dlg(this);
    if (dlg.Add()) LoadData();
}

void frmOperatorList::cmdOperatorEdit_Click() {
    if (!CheckButton(this, QStringLiteral("cmdOperatorEdit"))) return;
    const QString id = selectedID();
    if (id.isEmpty()) return;
    frmOperator dlg(this);
    if (dlg.Edit(id)) LoadData();
}

void frmOperatorList::cmdOperatorDel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdOperatorDel"))) return;
    const QTreeWidgetItem* it = ui->lvwOperator->currentItem();
    if (!it) return;
    if (const Refused r = OperatorService().remove(selectedID(), it->text(0))) return ShowRefusal(this, *r);
    LoadData();
}
