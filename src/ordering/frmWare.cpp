#include "frmWare.h"
#include "EnterMovesOn.h"
#include "Mnemonic.h"
#include "RefusalShow.h"
#include "WareService.h"
#include "ui_frmWare.h"
#include <QTimer>

frmWare::frmWare(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmWare>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    ui->txtMnemonics->installEventFilter(this);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmWare::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmWare::~frmWare() = default;

bool frmWare::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui->txtMnemonics && event->type() == QEvent::FocusIn) {
        // Made from the name only when empty, so a mnemonic typed by the user stays.
        if (ui->txtMnemonics->text().trimmed().isEmpty())
            ui->txtMnemonics->setText(GetMnemonic(ui->txtWareName->text()));
        // After the click that gave the focus has placed the cursor.
        QTimer::singleShot(0, ui->txtMnemonics, &QLineEdit::selectAll);
    }
    return QDialog::eventFilter(watched, event);
}

void frmWare::fillTypes() {
    ui->imgcmbWareType->clear();
    for (const Row r : WareService().wareTypes())
        ui->imgcmbWareType->addItem(r.text(QStringLiteral("wareTypeName")),
                                    r.text(QStringLiteral("WareTypeID")));
    ui->imgcmbWareType->setCurrentIndex(ui->imgcmbWareType->count() > 0 ? 0 : -1);
}

// Stock figures belong to stock management; with it on, receipts keep the cost too.
void frmWare::showStock() {
    const bool on = WareService::stockManaged();
    for (QWidget* w : {static_cast<QWidget*>(ui->lblNowNum), static_cast<QWidget*>(ui->txtNowNum),
                       static_cast<QWidget*>(ui->lblMinNum), static_cast<QWidget*>(ui->txtMinNum)})
        w->setVisible(on);
    ui->txtProcurePrice->setEnabled(!on);
}

void frmWare::startAdd() {
    m_mode = 0;
    m_id.clear();
    m_saved = false;
    fillTypes();
    showStock();
    const WareInput blank;
    ui->txtWareName->clear();
    ui->txtMnemonics->clear();
    ui->txtPrice->setText(blank.price);
    ui->txtProcurePrice->setText(blank.procurePrice);
    ui->txtWareUnit->clear();
    ui->txtNowNum->setText(blank.nowNum);
    ui->txtMinNum->setText(blank.minNum);
    ui->txtTicheng->setText(blank.tiCheng);
    ui->chkClear->setVisible(true);
    ui->txtWareName->setFocus();
}

bool frmWare::startEdit(const QString& id) {
    m_saved = false;
    const std::optional<WareInput> w = WareService().loadWare(id);
    if (!w) return false;
    m_mode = 1;
    m_id = id;
    fillTypes();
    showStock();
    ui->imgcmbWareType->setCurrentIndex(ui->imgcmbWareType->findData(w->wareTypeID));
    ui->txtWareName->setText(w->wareName);
    ui->txtMnemonics->setText(w->mnemonics);
    ui->txtPrice->setText(w->price);
    ui->txtProcurePrice->setText(w->procurePrice);
    ui->txtWareUnit->setText(w->wareUnit);
    ui->txtNowNum->setText(w->nowNum);
    ui->txtMinNum->setText(w->minNum);
    ui->txtTicheng->setText(w->tiCheng);
    // Clearing for the next article means nothing when editing one.
    ui->chkClear->setVisible(false);
    ui->txtWareName->setFocus();
    ui->txtWareName->selectAll();
    return true;
}

bool frmWare::Add() {
    startAdd();
    exec();
    return m_saved;
}

bool frmWare::Edit(const QString& id) {
    if (!startEdit(id)) return false;
    exec();
    return m_saved;
}

void frmWare::cmdOK_Click() {
    WareInput in;
    in.wareTypeID =
        ui->imgcmbWareType->currentIndex() >= 0 ? ui->imgcmbWareType->currentData().toString() : QString();
    in.wareName = ui->txtWareName->text();
    in.mnemonics = ui->txtMnemonics->text();
    in.price = ui->txtPrice->text();
    in.procurePrice = ui->txtProcurePrice->text();
    in.wareUnit = ui->txtWareUnit->text();
    in.minNum = ui->txtMinNum->text();
    in.tiCheng = ui->txtTicheng->text();
    ui->cmdOK->setEnabled(false);
    const WareSaved s = WareService().saveWare(m_mode == 1 ? m_id : QString(), in);
    ui->cmdOK->setEnabled(true);
    if (s.refusal) return ShowRefusal(this, *s.refusal);
    if (s.gone) return reject(); // edited meanwhile out of existence: nothing to save into
    m_saved = true;
    m_id = s.id;
    if (m_mode == 1) return accept();
    // Ready for the next article of the same type.
    ui->txtPrice->setText(QStringLiteral("0"));
    ui->txtProcurePrice->setText(QStringLiteral("0"));
    ui->txtTicheng->setText(QStringLiteral("0"));
    if (ui->chkClear->isChecked()) {
        ui->txtWareName->clear();
        ui->txtMnemonics->clear();
        ui->txtWareUnit->clear();
        ui->txtMinNum->clear();
    }
    ui->txtWareName->setFocus();
}
