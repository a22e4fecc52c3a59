#include "frmWareIn.h"
#include "Clock.h"
#include "EnterMovesOn.h"
#include "MessageBox.h"
#include "RefusalShow.h"
#include "ScreenFit.h"
#include "ui_frmWareIn.h"

frmWareIn::frmWareIn(QWidget* parent) : StockEntry(parent), ui(std::make_unique<Ui::frmWareIn>()) {
    ui->setupUi(this);
    bindEntry();
    ScreenFit::install(this, QSize(860, 600));
    EnterMovesOn::install(this, {ui->txtMnemonics});
    ui->lvwThis->setColumnHidden(5, true); // the supplier's key, kept with the line
    const auto showPrice = [this] { ui->txtPrice->setText(ReceiptPriceText(ui->txtNum->text(), ui->txtTheMoney->text())); };
    connect(ui->txtNum, &QLineEdit::textChanged, this, showPrice);
    connect(ui->txtTheMoney, &QLineEdit::textChanged, this, showPrice);
    connect(ui->cmdAdd, &QPushButton::clicked, this, [this] { addLine(false); });
    connect(ui->cmdWareOut, &QPushButton::clicked, this, [this] { addLine(true); });
    connect(ui->cmdDel, &QPushButton::clicked, this, &StockEntry::cmdDel_Click);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmWareIn::SaveData);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmWareIn::~frmWareIn() = default;

QList<QLineEdit*> frmWareIn::entryBoxes() const {
    return {ui->txtNum, ui->txtTheMoney, ui->txtPrice, ui->txtWareDesc};
}

bool frmWareIn::Add() {
    prepare();
    exec();
    return m_saved;
}

void frmWareIn::prepare() {
    m_saved = false;
    ui->lvwThis->clear();
    ui->dtpInTime->setDate(Now().date());
    ui->imgcmbSupplier->clear();
    try {
        for (const Row r : ReceiptService().suppliers())
            ui->imgcmbSupplier->addItem(r.text(QStringLiteral("SupplierName")),
                                        QString(QStringLiteral("K") + r.text(QStringLiteral("SupplierID"))));
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Form_Load"), QStringLiteral("frmWareIn")));
    }
    ui->imgcmbSupplier->setCurrentIndex(ui->imgcmbSupplier->count() > 0 ? 0 : -1);
    clearEntry();
}

void frmWareIn::addLine(bool out) {
    const QString supplierID =
        ui->imgcmbSupplier->currentIndex() < 0 ? QString() : ui->imgcmbSupplier->currentData().toString().mid(1);
    if (const Refused r = CheckReceiptLine(supplierID, m_currentWare ? m_currentWare->wareID : QString(),
                                           ui->txtNum->text(), ui->txtTheMoney->text()))
        return ShowRefusal(this, *r);
    const WareInLine l = MakeReceiptLine(*m_currentWare, ui->txtNum->text(), ui->txtTheMoney->text(),
                                          ui->txtWareDesc->text(), out, supplierID, ui->imgcmbSupplier->currentText());
    AddStockLine(ui->lvwThis, l);
    clearEntry();
}

void frmWareIn::SaveData() {
    WareInHeader h;
    h.inTime = ui->dtpInTime->date();
    h.theJB = ui->txtTheJB->text();
    h.theDesc = ui->txttheDesc->text();
    h.theCode = ui->txtTheCode->text();
    h.supplierID =
        ui->imgcmbSupplier->currentIndex() < 0 ? QString() : ui->imgcmbSupplier->currentData().toString().mid(1);
    try {
        ReceiptService().save(h, StockLines(ui->lvwThis));
    } catch (const DbError& e) {
        // Nothing of the receipt was kept; the lines stay in the window.
        Msg::critical(this, e.message(QStringLiteral("SaveData"), QStringLiteral("frmWareIn")));
        return;
    }
    m_saved = true;
    accept();
}
