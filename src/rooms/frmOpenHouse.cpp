#include "frmOpenHouse.h"
#include "AppState.h"
#include "EnterMovesOn.h"
#include "MessageBox.h"
#include "Puissance.h"
#include "RefusalShow.h"
#include "RoomPrinting.h"
#include "RoomService.h"
#include "RoomUse.h"
#include "ui_frmOpenHouse.h"
#include <QKeyEvent>
#include <QShortcut>

frmOpenHouse::frmOpenHouse(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmOpenHouse>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    ui->chkPrint->installEventFilter(this);
    ui->chkUseMinMoney->installEventFilter(this);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmOpenHouse::OKButton_Click);
    connect(ui->cmdExpense, &QPushButton::clicked, this, &frmOpenHouse::cmdExpense_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(new QShortcut(QKeySequence(Qt::Key_F2), this), &QShortcut::activated, this,
            &frmOpenHouse::OKButton_Click);
    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, this,
            &frmOpenHouse::cmdExpense_Click);
}

frmOpenHouse::~frmOpenHouse() = default;

bool frmOpenHouse::prepare(const QString& theID) {
    m_result.clear();
    m_wantsExpense = false;
    std::optional<OpenHouseView> v;
    try {
        v = RoomUseService().loadOpen(theID);
    } catch (const DbError& e) {
        Msg::critical(parentWidget(), e.message(QStringLiteral("Form_Load"), QStringLiteral("frmOpenHouse")));
        return false;
    }
    if (!v) {
        Msg::warn(parentWidget(), RoomText::roomGone());
        return false;
    }
    m_theID = v->theID;
    ui->txtHouseCode->setText(v->theCode);
    ui->txtHouseAssortName->setText(v->assortName);
    // The bill may be billed otherwise than its tariff says.
    (v->payType == 0 ? ui->optPayType0 : ui->optPayType1)->setChecked(true);
    ui->txtOperator->setText(App().CurrentOperatorName);
    ui->chkPrint->setChecked(App().IsPrintStartBill == 1);
    ui->txtDesc->setFocus();
    return true;
}

QString frmOpenHouse::Add(const QString& theID) {
    if (!prepare(theID)) return {};
    exec();
    return m_result;
}

bool frmOpenHouse::SaveData() {
    ui->OKButton->setEnabled(false);
    ui->cmdExpense->setEnabled(false);
    const Opened o = RoomUseService().open(
        {m_theID, ui->txtDesc->text(), ui->txtNum->text(), ui->txtMarkerCode->text(),
         ui->txtStartMoney->text(), ui->chkUseMinMoney->isChecked(), ui->optPayType0->isChecked() ? 0 : 1});
    ui->OKButton->setEnabled(true);
    ui->cmdExpense->setEnabled(true);
    if (!o.ok()) {
        ShowRefusal(this, *o.refusal);
        return false;
    }
    m_result = o.expenseID;
    if (ui->chkPrint->isChecked()) RoomPrinting::PrintStartTicket(this, m_result);
    return true;
}

void frmOpenHouse::OKButton_Click() {
    if (SaveData()) accept();
}

void frmOpenHouse::cmdExpense_Click() {
    if (!SaveData()) return;
    // The room is open either way; without the right it just has no lines yet.
    if (CheckPuissance(QStringLiteral("D002")))
        m_wantsExpense = true;
    else
        Msg::info(this, QStringLiteral("您没有增加顾客消费权限！"));
    accept();
}

bool frmOpenHouse::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (watched == ui->chkUseMinMoney) {
                ui->OKButton->click();
                return true;
            }
            if (watched == ui->chkPrint) {
                focusNextChild();
                return true;
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}
