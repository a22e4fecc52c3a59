#include "frmExpenseDetailInfo.h"
#include "AutoInput.h"
#include "OrderService.h"
#include "RefusalShow.h"
#include "ui_frmExpenseDetailInfo.h"

namespace {
const QString NoteType = QStringLiteral("DetailDescription");
}

frmExpenseDetailInfo::frmExpenseDetailInfo(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmExpenseDetailInfo>()) {
    ui->setupUi(this);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmExpenseDetailInfo::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->cmdDel, &QToolButton::clicked, this, &frmExpenseDetailInfo::cmdDel_Click);
}

frmExpenseDetailInfo::~frmExpenseDetailInfo() = default;

void frmExpenseDetailInfo::prepare(const QString& detailID) {
    m_detailID = detailID;
    m_saved = false;
    // The line's present note is not offered: what stands in the box replaces it.
    try {
        LoadAutoInput(NoteType, ui->cmbInfo);
    } catch (const DbError& e) {
        Msg::show(this, e.message(QStringLiteral("Form_Load"), QStringLiteral("frmExpenseDetailInfo")),
                  Msg::Icon::Critical);
    }
    if (ui->cmbInfo->count() > 0) ui->cmbInfo->setCurrentIndex(0);
    ui->cmbInfo->setFocus();
    ui->cmbInfo->lineEdit()->selectAll();
}

bool frmExpenseDetailInfo::Edit(const QString& detailID) {
    prepare(detailID);
    exec();
    return m_saved;
}

void frmExpenseDetailInfo::OKButton_Click() {
    ui->OKButton->setEnabled(false);
    const Refused r = OrderService().SaveNote(m_detailID, ui->cmbInfo->currentText());
    ui->OKButton->setEnabled(true);
    if (r) return ShowRefusal(this, *r);
    m_saved = true;
    m_note = ui->cmbInfo->currentText();
    accept();
}

void frmExpenseDetailInfo::cmdDel_Click() {
    const QString text = ui->cmbInfo->currentText();
    if (text.trimmed().isEmpty()) return;
    if (!DeleteAutoInput(NoteType, text)) return;
    const int i = ui->cmbInfo->findText(text);
    if (i >= 0) ui->cmbInfo->removeItem(i);
}
