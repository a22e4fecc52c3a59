#include "OptionPrintPage.h"
#include "AppState.h"
#include "MessageBox.h"
#include "PrintOptions.h"
#include "Puissance.h"
#include "RefusalShow.h"
#include "frmPrintQueue.h"
#include "frmSeePrintType.h"
#include "ui_OptionPrintPage.h"
#include <QCoreApplication>

namespace {
void fillPaper(QComboBox* list) {
    list->addItem(QStringLiteral("80毫米"), QStringLiteral("80"));
    list->addItem(QStringLiteral("58毫米"), QStringLiteral("58"));
}

void choosePaper(QComboBox* list, const QString& paper) {
    list->setCurrentIndex(std::max(0, list->findData(paper)));
}
} // namespace

OptionPrintPage::OptionPrintPage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::OptionPrintPage>()) {
    ui->setupUi(this);
    ui->cmbIndustryCategory->addItems({QStringLiteral("详细格式"), QStringLiteral("简洁格式")});
    ui->cmbTopWeb->addItems(
        {QStringLiteral("系统导航"), QStringLiteral("日常营业"), QStringLiteral("临时备忘")});
    for (QComboBox* c : {ui->cmbPrinterPaper, ui->cmbHCPaper, ui->cmbBTPaper})
        fillPaper(c);
    for (QCheckBox* c : {ui->chkPrintEndBill, ui->chkhc, ui->chkbt})
        connect(c, &QCheckBox::toggled, this, &OptionPrintPage::enableParts);
    connect(ui->cmdSee, &QPushButton::clicked, this, &OptionPrintPage::cmdSee_Click);
    connect(ui->cmdSave, &QPushButton::clicked, this, [this] {
        if (cmdSave_Click()) Q_EMIT saved();
    });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &OptionPrintPage::cancelled);
    load();
}

OptionPrintPage::~OptionPrintPage() = default;

void OptionPrintPage::load() {
    try {
        const PrintOptions o = PrintOptionsService::load();
        ui->txtCompanyName->setText(o.companyName);
        ui->txtCompanyAddress->setText(o.companyAddress);
        ui->txtPhone->setText(o.phone);
        ui->cmbIndustryCategory->setCurrentIndex(o.industryCategory);
        FillPrinterList(ui->cmbPrinter, o.printer);
        choosePaper(ui->cmbPrinterPaper, o.printerPaper);
        ui->txtYM->setText(o.ym);
        ui->txtEndBillNum->setText(o.endBillNum);
        ui->chkPrintStartBill->setChecked(o.printStartBill);
        ui->chkPrintEndBill->setChecked(o.printEndBill);
        ui->chkPrintChongzhi->setChecked(o.printChongzhi);
        ui->chkPrintOutSale->setChecked(o.printOutSale);
        ui->chkPrintExpenseEndBill->setChecked(o.printExpenseEndBill);
        ui->chkhc->setChecked(o.hc);
        // Kitchen and bar tickets need a named printer: no default entry here.
        FillPrinterList(ui->cmbHC, o.printerHC, false);
        choosePaper(ui->cmbHCPaper, o.hcPaper);
        ui->txthcNum->setText(o.hcNum);
        ui->chkbt->setChecked(o.bt);
        FillPrinterList(ui->cmbBT, o.printerBT, false);
        choosePaper(ui->cmbBTPaper, o.btPaper);
        ui->txtbtNum->setText(o.btNum);
        ui->cmbTopWeb->setCurrentIndex(o.topWeb);
        ui->chkDBBackup->setChecked(o.dbBackup);
        ui->chkDBBackup->setEnabled(App().IsNetVersion != 1); // the server keeps its own backups
        ui->chkIsAutoRun->setChecked(o.autoRun);
        ui->chkUseWarehouse->setChecked(o.useWarehouse);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Form_Load"), QStringLiteral("frmOption")));
    }
    enableParts();
}

void OptionPrintPage::enableParts() {
    ui->txtEndBillNum->setEnabled(ui->chkPrintEndBill->isChecked());
    for (QWidget* w : std::initializer_list<QWidget*>{ui->cmbHC, ui->cmbHCPaper, ui->lblhcNum, ui->txthcNum})
        w->setEnabled(ui->chkhc->isChecked());
    for (QWidget* w : std::initializer_list<QWidget*>{ui->cmbBT, ui->cmbBTPaper, ui->lblbtNum, ui->txtbtNum})
        w->setEnabled(ui->chkbt->isChecked());
}

PrintOptions OptionPrintPage::typed() const {
    PrintOptions o;
    o.companyName = ui->txtCompanyName->text();
    o.companyAddress = ui->txtCompanyAddress->text();
    o.phone = ui->txtPhone->text();
    o.industryCategory = ui->cmbIndustryCategory->currentIndex() == 1 ? 1 : 0;
    o.printer = ChosenPrinter(ui->cmbPrinter);
    o.printerPaper = ui->cmbPrinterPaper->currentData().toString();
    o.ym = ui->txtYM->text();
    o.endBillNum = ui->txtEndBillNum->text();
    o.printStartBill = ui->chkPrintStartBill->isChecked();
    o.printEndBill = ui->chkPrintEndBill->isChecked();
    o.printChongzhi = ui->chkPrintChongzhi->isChecked();
    o.printOutSale = ui->chkPrintOutSale->isChecked();
    o.printExpenseEndBill = ui->chkPrintExpenseEndBill->isChecked();
    o.hc = ui->chkhc->isChecked();
    o.hcPrinterChosen = !ChosenPrinter(ui->cmbHC).trimmed().isEmpty();
    o.printerHC = ChosenPrinter(ui->cmbHC);
    o.hcPaper = ui->cmbHCPaper->currentData().toString();
    o.hcNum = ui->txthcNum->text();
    o.bt = ui->chkbt->isChecked();
    o.btPrinterChosen = !ChosenPrinter(ui->cmbBT).trimmed().isEmpty();
    o.printerBT = ChosenPrinter(ui->cmbBT);
    o.btPaper = ui->cmbBTPaper->currentData().toString();
    o.btNum = ui->txtbtNum->text();
    o.topWeb = std::max(0, ui->cmbTopWeb->currentIndex());
    o.dbBackup = ui->chkDBBackup->isChecked();
    o.autoRun = ui->chkIsAutoRun->isChecked();
    o.useWarehouse = ui->chkUseWarehouse->isChecked();
    return o;
}

bool OptionPrintPage::cmdSave_Click() {
    if (!CheckButton(this, QStringLiteral("cmdSave"))) return false;
    PrintOptions o = typed();
    const Refused check = PrintOptionsService::CheckPrintData(o);
    // The mended copies show in their boxes, also when a printer is missing.
    ui->txtEndBillNum->setText(o.endBillNum);
    ui->txthcNum->setText(o.hcNum);
    ui->txtbtNum->setText(o.btNum);
    if (check) {
        ShowRefusal(window(), *check);
        return false;
    }
    ui->cmdSave->setEnabled(false);
    try {
        if (const Refused r = PrintOptionsService::save(o, QCoreApplication::applicationFilePath()))
            ShowRefusal(window(), *r);
    } catch (const DbError& e) {
        ui->cmdSave->setEnabled(true);
        Msg::critical(this, e.message(QStringLiteral("cmdSave_Click"), QStringLiteral("frmOption")));
        return false;
    }
    ui->cmdSave->setEnabled(true);
    return true;
}

void OptionPrintPage::cmdSee_Click() {
    frmSeePrintType::ShowMe(PaperFromSetting(ui->cmbPrinterPaper->currentData().toString()), window());
}
