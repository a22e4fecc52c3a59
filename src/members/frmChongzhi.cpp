#include "frmChongzhi.h"
#include "AppState.h"
#include "EnterMovesOn.h"
#include "Format.h"
#include "MemberPrinting.h"
#include "RefusalShow.h"
#include "StoredValueService.h"
#include "ui_frmChongzhi.h"
#include <QKeyEvent>

frmChongzhi::frmChongzhi(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmChongzhi>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this, {ui->txtMemberCode});
    ui->txtMemberCode->installEventFilter(this);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmChongzhi::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmChongzhi::~frmChongzhi() = default;

bool frmChongzhi::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui->txtMemberCode && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            txtMemberCode_Enter();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmChongzhi::prepare(const QString& memberCode) {
    m_saved = false;
    m_currentMember = memberCode;
    ui->chkPrint->setChecked(App().IsPrintChongzhi == 1);
    ui->txtMemberCode->setText(memberCode);
    ui->txtMemberCode->setReadOnly(!memberCode.isEmpty());
    ui->txtMemberCode->setFocusPolicy(memberCode.isEmpty() ? Qt::StrongFocus : Qt::NoFocus);
    if (memberCode.isEmpty()) {
        ui->txtMemberCode->setFocus();
        return;
    }
    LoadMember();
    ui->txtFactPay->setFocus();
}

bool frmChongzhi::Add(const QString& memberCode) {
    prepare(memberCode);
    exec();
    return m_saved;
}

// The code box takes the focus only while it can be typed in.
void frmChongzhi::refuse(const Refusal& r) {
    if (r.field == QLatin1String("txtMemberCode") && ui->txtMemberCode->isReadOnly())
        return void(Msg::show(this, r.message, r.icon));
    ShowRefusal(this, r);
}

void frmChongzhi::txtMemberCode_Enter() {
    m_currentMember.clear();
    LoadMember();
}

void frmChongzhi::LoadMember() {
    for (QLineEdit* box : {ui->txtMemberName, ui->txtchongzhi, ui->txtChongzhiNew, ui->txtThisMemoney,
                           ui->txtFactPay, ui->txtDesc})
        box->clear();
    const QString code = m_currentMember.isEmpty() ? ui->txtMemberCode->text() : m_currentMember;
    ChongzhiMemberLoad load;
    try {
        load = StoredValueService().loadMember(code);
    } catch (const DbError& e) {
        return Msg::critical(this, e.message(QStringLiteral("LoadMember"), QStringLiteral("frmChongzhi")));
    }
    if (load.refusal) return refuse(*load.refusal);
    m_currentMember = load.member->code;
    ui->txtMemberCode->setText(load.member->code);
    ui->txtMemberName->setText(load.member->name);
    ui->txtchongzhi->setText(FormatNumber(load.member->balance.toDouble(), QStringLiteral("0")));
    if (ui->txtMemberCode->hasFocus()) focusNextChild();
}

void frmChongzhi::OKButton_Click() {
    ui->OKButton->setEnabled(false);
    const ChongzhiSaved s = StoredValueService().save(
        {m_currentMember, ui->txtFactPay->text(), ui->txtThisMemoney->text(), ui->txtDesc->text()});
    ui->OKButton->setEnabled(true);
    if (s.refusal) return refuse(*s.refusal);
    if (s.warning) Msg::show(this, s.warning->message, s.warning->icon);
    // The receipt follows the commit; a printer problem never undoes the top-up.
    if (ui->chkPrint->isChecked())
        MemberPrinting::PrintChongzhi({s.chongzhiID, m_currentMember, ui->txtMemberName->text(),
                                       ui->txtchongzhi->text(), ui->txtThisMemoney->text(),
                                       ui->txtFactPay->text(), App().CurrentOperatorName, s.operatorTime});
    m_saved = true;
    accept();
}
