#include "frmMemberList.h"
#include "EnterMovesOn.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "ListSort.h"
#include "MemberService.h"
#include "MessageBox.h"
#include "Puissance.h"
#include "frmChangePw.h"
#include "frmChongzhi.h"
#include "frmMember.h"
#include "frmQNDisplayCase.h"
#include "frmSetupMember.h"
#include "ui_frmMemberList.h"
#include <QMenu>

namespace {
const QString ListThis = QStringLiteral("frmMemberList.lvwThis");
const QString ListChongzhi = QStringLiteral("frmMemberList.lvwChongzhi");
const QString ListExpense = QStringLiteral("frmMemberList.lvwExpense");
const QString Form = QStringLiteral("frmMemberList");
} // namespace

frmMemberList::frmMemberList(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmMemberList>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    ui->splThis->setStretchFactor(0, 3);
    ui->splThis->setStretchFactor(1, 2);
    for (QTreeWidget* list : {ui->lvwThis, ui->lvwChongzhi, ui->lvwExpense})
        SortListOnHeaderClick(list);
    connect(ui->cmdFind, &QPushButton::clicked, this, &frmMemberList::LoadMemberList);
    connect(ui->cmdAdd, &QPushButton::clicked, this, &frmMemberList::cmdAdd_Click);
    connect(ui->cmdEdit, &QPushButton::clicked, this, &frmMemberList::cmdEdit_Click);
    connect(ui->cmdDel, &QPushButton::clicked, this, &frmMemberList::DeleteMember);
    connect(ui->cmdOutExcel, &QPushButton::clicked, this, [this] { ExportExcel(ui->lvwThis); });
    connect(ui->cmdClearPw, &QPushButton::clicked, this, &frmMemberList::cmdClearPw_Click);
    connect(ui->cmdChangePw, &QPushButton::clicked, this, &frmMemberList::cmdChangePw_Click);
    connect(ui->cmdChongzhi, &QPushButton::clicked, this, &frmMemberList::cmdChongzhi_Click);
    connect(ui->cmdSetup, &QPushButton::clicked, this, &frmMemberList::cmdSetup_Click);
    connect(ui->cmdSelect, &QPushButton::clicked, this, &frmMemberList::cmdSelect_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, [this] {
        m_picked.clear();
        reject();
    });
    connect(ui->Command1, &QPushButton::clicked, this, &frmMemberList::Command1_Click);
    connect(ui->lvwThis, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* now) {
        if (now) ShowMemberRecords(selectedCode());
    });
    connect(ui->lvwThis, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (ui->fraSelect->isVisible())
            cmdSelect_Click();
        else
            cmdEdit_Click();
    });
    connect(ui->ctbRecord, &QTabWidget::currentChanged, this, [this](int index) {
        if (index == 1 && ui->lvwExpense->topLevelItemCount() == 0) LoadChongzhiExpense();
    });
    const std::pair<QTreeWidget*, QString> lists[] = {
        {ui->lvwThis, ListThis}, {ui->lvwChongzhi, ListChongzhi}, {ui->lvwExpense, ListExpense}};
    for (const auto& [list, name] : lists)
        connect(list, &QWidget::customContextMenuRequested, this, [this, list, name](const QPoint& pos) {
            QMenu mnuSetup(this);
            QAction* show = mnuSetup.addAction(QStringLiteral("显示栏目"));
            if (mnuSetup.exec(list->viewport()->mapToGlobal(pos)) == show) showColumns(list, name);
        });
}

frmMemberList::~frmMemberList() = default;

void frmMemberList::prepare(bool picking) {
    m_picked.clear();
    m_recordsOf.clear();
    ui->fraEdit->setVisible(!picking);
    ui->fraSelect->setVisible(picking);
    for (QTreeWidget* list : {ui->lvwThis, ui->lvwChongzhi, ui->lvwExpense})
        list->clear();
    // The members at once; the boxes narrow them down.
    LoadMemberList();
    ui->txtName->setFocus();
}

void frmMemberList::ShowMe() {
    prepare(false);
    exec();
}

QString frmMemberList::SelectMember() {
    prepare(true);
    exec();
    return m_picked;
}

void frmMemberList::LoadMemberList() {
    ui->lvwThis->clear();
    ui->lvwChongzhi->clear();
    try {
        ShowList(ui->lvwThis, ListThis, MemberService().search(ui->txtName->text(), ui->txtCode->text()),
                 true);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadMemberList"), Form));
    }
}

QString frmMemberList::selectedCode() const {
    const QTreeWidgetItem* it = ui->lvwThis->currentItem();
    if (!it) return {};
    // The code column wherever the user put it; the item's key when it is hidden.
    const int c = ListColumn(ui->lvwThis, QStringLiteral("MemberCode"));
    return c >= 0 ? it->text(c) : it->data(0, Qt::UserRole).toString().mid(1);
}

// Top-ups newest first, as they are read.
void frmMemberList::fillRecords(QTreeWidget* list, const QString& name, bool chongzhi) {
    MemberService s;
    ShowList(list, name, chongzhi ? s.chongzhiRecords(m_recordsOf) : s.chongzhiExpenses(m_recordsOf), false);
    const int when = ListColumn(list, QStringLiteral("OperatorTime"));
    if (chongzhi && when >= 0) SortListBy(list, when, Qt::DescendingOrder);
}

void frmMemberList::ShowMemberRecords(const QString& code) {
    ui->lvwChongzhi->clear();
    ui->lvwExpense->clear();
    m_recordsOf = code;
    if (code.isEmpty()) return;
    {
        const QSignalBlocker quiet(ui->ctbRecord);
        ui->ctbRecord->setCurrentIndex(0);
    }
    try {
        fillRecords(ui->lvwChongzhi, ListChongzhi, true);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("ShowMemberRecords"), Form));
    }
}

void frmMemberList::LoadChongzhiExpense() {
    if (m_recordsOf.isEmpty()) return;
    try {
        fillRecords(ui->lvwExpense, ListExpense, false);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadChongzhiExpense"), Form));
    }
}

void frmMemberList::cmdAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdAdd"))) return;
    frmMember dlg(this);
    if (dlg.Add()) LoadMemberList();
}

void frmMemberList::cmdEdit_Click() {
    if (!CheckButton(this, QStringLiteral("cmdEdit"))) return;
    const QString code = selectedCode();
    if (code.isEmpty()) return;
    frmMember dlg(this);
    if (dlg.Edit(code)) LoadMemberList();
}

void frmMemberList::DeleteMember() {
    if (!CheckButton(this, QStringLiteral("cmdDel"))) return;
    const QString code = selectedCode();
    if (code.isEmpty()) return;
    MemberService s;
    MemberDelete r = s.remove(code, false);
    const bool asked = r == MemberDelete::NeedsQuestion;
    if (asked) {
        if (!Msg::confirm(
                this,
                QStringLiteral("如果您删除此会员的资料，那么此会员相关的消费、储值卡等记录也会被删除，您真打"
                               "算这样做吗？\n"
                               "提示：如果您打算保留此会员的资料，您可以将其状态设置为“暂停服务”。"),
                QMessageBox::Cancel))
            return;
        r = s.remove(code, true);
    }
    if (r == MemberDelete::Refused)
        return Msg::warn(this, QStringLiteral("不能删除此数据，因为它已经使用！"));
    // After the question the list is searched again whatever went.
    if (asked || r == MemberDelete::Deleted) LoadMemberList();
}

void frmMemberList::cmdClearPw_Click() {
    const QString code = selectedCode();
    if (code.isEmpty()) return;
    if (!Msg::confirm(this, QStringLiteral("您真打算消除此会员的密码吗？"), QMessageBox::Cancel)) return;
    try {
        MemberService().ClearPassword(code);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("cmdClearPw_Click"), Form));
    }
}

void frmMemberList::cmdChangePw_Click() {
    const QString code = selectedCode();
    if (code.isEmpty()) return;
    frmChangePw dlg(this);
    dlg.ShowMe(2, code);
}

void frmMemberList::cmdChongzhi_Click() {
    if (!CheckButton(this, QStringLiteral("cmdChongzhi"))) return;
    const QString code = selectedCode();
    if (code.isEmpty()) return;
    frmChongzhi dlg(this);
    if (!dlg.Add(code)) return;
    // The new balance on the member's row, and the top-up among the records.
    LoadMemberList();
    for (int i = 0; i < ui->lvwThis->topLevelItemCount(); ++i)
        if (ui->lvwThis->topLevelItem(i)->data(0, Qt::UserRole).toString().mid(1) == code)
            ui->lvwThis->setCurrentItem(ui->lvwThis->topLevelItem(i));
    ShowMemberRecords(code);
}

void frmMemberList::cmdSetup_Click() {
    if (!CheckButton(this, QStringLiteral("cmdSetup"))) return;
    frmSetupMember dlg(this);
    dlg.ShowMe();
}

void frmMemberList::cmdSelect_Click() {
    m_picked = selectedCode();
    if (!m_picked.isEmpty()) accept();
}

void frmMemberList::showColumns(QTreeWidget* list, const QString& name) {
    if (!frmQNDisplayCase::ShowSetup(name, this)) return;
    if (list == ui->lvwThis) return LoadMemberList();
    if (list == ui->lvwChongzhi) return ShowMemberRecords(m_recordsOf);
    ui->lvwExpense->clear();
    LoadChongzhiExpense();
}

void frmMemberList::Command1_Click() {
    if (ui->ctbRecord->currentIndex() == 1)
        showColumns(ui->lvwExpense, ListExpense);
    else
        showColumns(ui->lvwChongzhi, ListChongzhi);
}
