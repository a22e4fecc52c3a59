#include "frmEmployeeList.h"
#include "EmployeeService.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "ListSort.h"
#include "MessageBox.h"
#include "Puissance.h"
#include "RefusalShow.h"
#include "frmEmployee.h"
#include "frmQNDisplayCase.h"
#include "ui_frmEmployeeList.h"
#include <QMenu>

namespace {
const QString ListName = QStringLiteral("frmEmployeeList.lvwThis");
}

frmEmployeeList::frmEmployeeList(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmEmployeeList>()) {
    ui->setupUi(this);
    SortListOnHeaderClick(ui->lvwThis);
    connect(ui->cmdAdd, &QPushButton::clicked, this, &frmEmployeeList::cmdAdd_Click);
    connect(ui->cmdEdit, &QPushButton::clicked, this, &frmEmployeeList::cmdEdit_Click);
    connect(ui->cmdDel, &QPushButton::clicked, this, &frmEmployeeList::cmdDel_Click);
    connect(ui->cmdOutExcel, &QPushButton::clicked, this, [this] { ExportExcel(ui->lvwThis); });
    connect(ui->cmdExit, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->cmdSelect, &QPushButton::clicked, this, &frmEmployeeList::cmdSelect_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->lvwThis, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (ui->fraSelect->isVisible())
            cmdSelect_Click();
        else
            cmdEdit_Click();
    });
    connect(ui->lvwThis, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        QMenu mnuSetup(this);
        QAction* show = mnuSetup.addAction(QStringLiteral("显示栏目"));
        show->setObjectName(QStringLiteral("mnuShowCase"));
        if (mnuSetup.exec(ui->lvwThis->viewport()->mapToGlobal(pos)) == show &&
            frmQNDisplayCase::ShowSetup(ListName, this))
            LoadData();
    });
}

frmEmployeeList::~frmEmployeeList() = default;

void frmEmployeeList::prepare(bool picking) {
    m_picked.clear();
    ui->fraEdit->setVisible(!picking);
    ui->fraSelect->setVisible(picking);
    LoadData();
}

void frmEmployeeList::ShowMe() {
    prepare(false);
    exec();
}

QString frmEmployeeList::SelectEmployee() {
    prepare(true);
    exec();
    return m_picked;
}

void frmEmployeeList::LoadData() {
    try {
        ShowListInQueryOrder(ui->lvwThis, ListName, EmployeeService().list(), true);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadData"), QStringLiteral("frmEmployeeList")));
    }
}

QString frmEmployeeList::selectedID() const {
    const QTreeWidgetItem* it = ui->lvwThis->currentItem();
    return it ? it->data(0, Qt::UserRole).toString().mid(1) : QString();
}

void frmEmployeeList::cmdAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdAdd"))) return;
    frmEmployee dlg(this);
    if (dlg.Add()) LoadData();
}

void frmEmployeeList::cmdEdit_Click() {
    if (!CheckButton(this, QStringLiteral("cmdEdit"))) return;
    const QString id = selectedID();
    if (id.isEmpty()) return;
    frmEmployee dlg(this);
    if (dlg.Edit(id)) LoadData();
}

void frmEmployeeList::cmdDel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdDel"))) return;
    const QString id = selectedID();
    if (id.isEmpty()) return;
    if (const Refused r = EmployeeService().remove(id)) return ShowRefusal(this, *r);
    LoadData();
}

void frmEmployeeList::cmdSelect_Click() {
    m_picked = selectedID();
    if (!m_picked.isEmpty()) accept();
}
