#include "frmSupplierList.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "ListSort.h"
#include "MessageBox.h"
#include "Puissance.h"
#include "RefusalShow.h"
#include "SupplierService.h"
#include "frmQNDisplayCase.h"
#include "frmSupplier.h"
#include "ui_frmSupplierList.h"
#include <QMenu>

namespace {
const QString ListName = QStringLiteral("frmSupplierList.lvwThis");
}

frmSupplierList::frmSupplierList(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmSupplierList>()) {
    ui->setupUi(this);
    SortListOnHeaderClick(ui->lvwThis);
    QMenu* mnuExport = ExportMenu(this, ui->lvwThis);
    connect(ui->cmdOutExcel, &QPushButton::clicked, this, [this, mnuExport] {
        mnuExport->popup(ui->cmdOutExcel->mapToGlobal(QPoint(0, ui->cmdOutExcel->height())));
    });
    const auto chooseColumns = [this] {
        if (frmQNDisplayCase::ShowSetup(ListName, this)) LoadData();
    };
    connect(ui->Command1, &QPushButton::clicked, this, chooseColumns);
    connect(ui->cmdAdd, &QPushButton::clicked, this, &frmSupplierList::cmdAdd_Click);
    connect(ui->cmdEdit, &QPushButton::clicked, this, &frmSupplierList::cmdEdit_Click);
    connect(ui->cmdDel, &QPushButton::clicked, this, &frmSupplierList::cmdDel_Click);
    connect(ui->cmdExit, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    const auto pick = [this] {
        m_picked = selectedID();
        if (!m_picked.isEmpty()) accept();
    };
    connect(ui->cmdSelect, &QPushButton::clicked, this, pick);
    connect(ui->lvwThis, &QTreeWidget::itemDoubleClicked, this, [this, pick] {
        if (ui->fraSelect->isVisible())
            pick();
        else
            cmdEdit_Click();
    });
}

frmSupplierList::~frmSupplierList() = default;

void frmSupplierList::prepare(bool picking) {
    m_picked.clear();
    ui->fraEdit->setVisible(!picking);
    ui->fraSelect->setVisible(picking);
    LoadData();
}

void frmSupplierList::ShowMe() {
    prepare(false);
    exec();
}

QString frmSupplierList::SelectSupplier() {
    prepare(true);
    exec();
    return m_picked;
}

void frmSupplierList::LoadData() {
    try {
        ShowListInQueryOrder(ui->lvwThis, ListName, SupplierService().list(), true);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadData"), QStringLiteral("frmSupplierList")));
    }
}

QString frmSupplierList::selectedID() const {
    const QTreeWidgetItem* it = ui->lvwThis->currentItem();
    return it && it->isSelected() ? it->data(0, Qt::UserRole).toString().mid(1) : QString();
}

void frmSupplierList::cmdAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdAdd"))) return;
    frmSupplier dlg(this);
    if (dlg.Add()) LoadData();
}

void frmSupplierList::cmdEdit_Click() {
    if (!CheckButton(this, QStringLiteral("cmdEdit"))) return;
    const QString id = selectedID();
    if (id.isEmpty()) return;
    frmSupplier dlg(this);
    if (dlg.Edit(id)) LoadData();
}

void frmSupplierList::cmdDel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdDel"))) return;
    const QString id = selectedID();
    if (id.isEmpty() || !Msg::confirm(this, QStringLiteral("您真要删除这个数据吗？"), QMessageBox::Cancel)) return;
    bool removed = false;
    if (const Refused r = SupplierService().remove(id, &removed)) return ShowRefusal(this, *r);
    if (removed) LoadData();
}
