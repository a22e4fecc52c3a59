#include "frmFind.h"
#include "AppState.h"
#include "Clock.h"
#include "FindService.h"
#include "Format.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "MessageBox.h"
#include "PrintUi.h"
#include "Printing.h"
#include "ReportQuery.h"
#include "ScreenFit.h"
#include "StoredValueService.h"
#include "ui_frmFind.h"
#include <QMenu>

namespace {
const QString Form = QStringLiteral("frmFind");

QString moneyText(Money m) {
    return FormatShowValue(QStringLiteral("3,#,##0.00"), m.raw());
}
} // namespace

frmFind::frmFind(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmFind>()) {
    ui->setupUi(this);
    ScreenFit::install(this, QSize(1200, 700));
    m_query = new ReportQuery(ui->cmdFind, ui->prgFind, this);
    for (const char* text : {"现结帐单", "免费帐单 ", "挂帐帐单"})
        ui->lstState->addItem(QString::fromUtf8(text));
    ui->lstState->selectAll();
    ui->lstState->setFixedHeight(ui->lstState->sizeHintForRow(0) + 2 * ui->lstState->frameWidth() + 4);
    const QRadioButton* days[] = {ui->optDay0, ui->optDay1, ui->optDay2};
    for (int i = 0; i < 3; ++i)
        connect(days[i], &QRadioButton::clicked, this, [this, i] { optDay_Click(i); });
    connect(ui->cmdFind, &QPushButton::clicked, this, &frmFind::cmdFind_Click);
    connect(ui->cmdPrint, &QPushButton::clicked, this, &frmFind::cmdPrint_Click);
    connect(ui->cmdFindPrintOK, &QPushButton::clicked, this, &frmFind::cmdFindPrintOK_Click);
    connect(ui->cmdReprint, &QPushButton::clicked, this, &frmFind::cmdReprint_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->lvwExpense, &QTreeWidget::currentItemChanged, this, &frmFind::LoadDetail);
    connect(ui->chkShowAll, &QCheckBox::toggled, this, &frmFind::LoadDetail);
    connect(ui->lvwOutSale, &QTreeWidget::currentItemChanged, this, &frmFind::LoadDataOutsaleDetail);
    // The export menu exports the list of the tab in front.
    QMenu* mnuExport = ExportMenu(this, [this] {
        return ui->ctbThis->currentWidget() == ui->tabOutSale ? ui->lvwOutSale : ui->lvwExpense;
    });
    connect(ui->cmdOutExcel, &QPushButton::clicked, this, [this, mnuExport] {
        mnuExport->popup(ui->cmdOutExcel->mapToGlobal(QPoint(0, ui->cmdOutExcel->height())));
    });
    optDay_Click(0);
}

frmFind::~frmFind() = default;

void frmFind::ShowMe(int period) {
    const int index = period >= 0 && period <= 2 ? period : 0;
    QRadioButton* days[] = {ui->optDay0, ui->optDay1, ui->optDay2};
    days[index]->setChecked(true);
    optDay_Click(index);
    exec();
}

void frmFind::optDay_Click(int index) {
    const ChongzhiPeriod p = StoredValueService::period(index, Now().date());
    ui->dtpStart->setDateTime(p.start);
    ui->dtpEnd->setDateTime(p.end);
}

void frmFind::clearTotals() {
    for (QLabel* l : {ui->lblSumNum, ui->lblSumStartMoney, ui->lblSumExpenseMoney, ui->lblSumMoney, ui->lblCashPay,
                      ui->lblSumChongzhi, ui->lblSumFreePay, ui->lblSumExpenseMoneyOutsale, ui->lblSumMoneyOutsale})
        l->clear();
}

void frmFind::cmdFind_Click() {
    if (m_query->busy()) return;
    clearTotals();
    for (QTreeWidget* l : {ui->lvwExpense, ui->lvwDetail, ui->lvwOutSale, ui->lvwOutSaleDetail})
        l->clear();
    m_bills = Rows();
    const QDateTime start = ui->dtpStart->dateTime(), end = ui->dtpEnd->dateTime();
    VoucherChoice choice{ui->lstState->item(0)->isSelected(), ui->lstState->item(1)->isSelected(),
                         ui->lstState->item(2)->isSelected()};
    auto bills = std::make_shared<Rows>();
    auto sales = std::make_shared<Rows>();
    auto stage = std::make_shared<QString>(QStringLiteral("LoadExpense"));
    m_query->run(
        [=](Db& db) {
            const FindService s(db);
            *bills = s.bills(start, end, choice);
            *stage = QStringLiteral("LoadOutsale");
            *sales = s.sales(start, end);
        },
        [this, bills, sales] { showResults(*bills, *sales); },
        [this, stage](const DbError& e) { Msg::critical(this, e.message(*stage, Form)); });
}

void frmFind::showResults(const Rows& bills, const Rows& sales) {
    try {
        ShowList(ui->lvwExpense, QStringLiteral("frmFind.lvwExpense"), bills, true);
        m_bills = bills;
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadExpense"), Form));
        return;
    }
    try {
        ShowList(ui->lvwOutSale, QStringLiteral("frmFind.lvwOutSale"), sales, true);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadOutsale"), Form));
    }
    showTotals(FindService::totals(bills, sales));
}

void frmFind::showTotals(const FindTotals& t) {
    // A period without bills, or without sales, leaves its labels empty.
    if (t.bills > 0) {
        ui->lblSumNum->setText(QString::number(t.customers));
        ui->lblSumStartMoney->setText(moneyText(t.startMoney));
        ui->lblSumExpenseMoney->setText(moneyText(t.oughtMoney));
        ui->lblSumMoney->setText(moneyText(t.factPay));
        ui->lblCashPay->setText(moneyText(t.cashPay));
        ui->lblSumChongzhi->setText(moneyText(t.chongzhiPay));
        ui->lblSumFreePay->setText(moneyText(t.freePay));
    }
    if (t.sales > 0) {
        ui->lblSumExpenseMoneyOutsale->setText(moneyText(t.saleOught));
        ui->lblSumMoneyOutsale->setText(moneyText(t.saleFact));
    }
}

QString frmFind::selectedKey(const QTreeWidget* list) const {
    const QTreeWidgetItem* it = list->currentItem();
    return it ? it->data(0, Qt::UserRole).toString().mid(1) : QString();
}

void frmFind::LoadDetail() {
    ui->lvwDetail->clear();
    const QString id = selectedKey(ui->lvwExpense);
    if (id.isEmpty()) return;
    try {
        ShowListInQueryOrder(ui->lvwDetail, QStringLiteral("frmFind.lvwDetail"),
                             FindService().billLines(id, ui->chkShowAll->isChecked()), false);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadDetail"), Form));
    }
}

void frmFind::LoadDataOutsaleDetail() {
    ui->lvwOutSaleDetail->clear();
    const QString id = selectedKey(ui->lvwOutSale);
    if (id.isEmpty()) return;
    try {
        ShowListInQueryOrder(ui->lvwOutSaleDetail, QStringLiteral("frmFind.lvwOutSaleDetail"),
                             FindService().saleLines(id), false);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadDataOutsaleDetail"), Form));
    }
}

void frmFind::cmdPrint_Click() {
    const CloseHouseData data =
        CloseHouseFromBills(App().CompanyName, PrintPeriodText(ui->dtpStart->dateTime(), ui->dtpEnd->dateTime(), false),
                            m_bills, ui->lblSumNum->text(), ui->lblSumMoney->text());
    RunPrint(this, QStringLiteral("cmdPrint_Click"), Form, [&] { return PrintCloseHouse(data); });
}

void frmFind::cmdFindPrintOK_Click() {
    const FindPrintData data{App().CompanyName,
                             PrintPeriodText(ui->dtpStart->dateTime(), ui->dtpEnd->dateTime(), true),
                             ui->lblSumMoney->text(),
                             ui->lblSumChongzhi->text(),
                             ui->lblSumFreePay->text(),
                             ui->lblCashPay->text(),
                             ui->lblSumMoneyOutsale->text(),
                             App().CurrentOperatorName,
                             TimeText(Now())};
    RunPrint(this, QStringLiteral("cmdFindPrintOK_Click"), Form, [&] { return PrintFindPrint(data); });
}

void frmFind::cmdReprint_Click() {
    const QString id = selectedKey(ui->lvwExpense);
    if (id.isEmpty()) return Msg::info(this, QStringLiteral("请先选择要重打的帐单！"));
    RunPrint(this, QStringLiteral("cmdReprint_Click"), Form, [&] { return ReprintBill(id); });
}
