#include "frmFind.h"
#include "AppState.h"
#include "Clock.h"
#include "FindService.h"
#include "Format.h"
#include "ListColumns.h"
#include "MessageBox.h"
#include "PrintUi.h"
#include "Printing.h"
#include "ReportQuery.h"
#include "RowsList.h"
#include "ScreenFit.h"
#include "ui_frmFind.h"

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
    FillStateList(ui->lstState, true);
    m_period = {{ui->optDay0, ui->optDay1, ui->optDay2}, ui->dtpStart, ui->dtpEnd};
    m_period.install(this);
    connect(ui->cmdFind, &QPushButton::clicked, this, &frmFind::cmdFind_Click);
    connect(ui->cmdPrint, &QPushButton::clicked, this, &frmFind::cmdPrint_Click);
    connect(ui->cmdFindPrintOK, &QPushButton::clicked, this, &frmFind::cmdFindPrintOK_Click);
    connect(ui->cmdReprint, &QPushButton::clicked, this, &frmFind::cmdReprint_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    // The two long lists show a whole year without filling a widget per row.
    InstallBillTabs(ui->ctbThis, ui->lvwExpense, ui->lvwOutSale, ui->cmdOutExcel);
    connect(ui->lvwExpense->selectionModel(), &QItemSelectionModel::currentChanged, this, &frmFind::LoadDetail);
    connect(ui->chkShowAll, &QCheckBox::toggled, this, &frmFind::LoadDetail);
    connect(ui->lvwOutSale->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmFind::LoadDataOutsaleDetail);
}

frmFind::~frmFind() = default;

void frmFind::ShowMe(int period) {
    m_period.choose(period);
    exec();
}

void frmFind::optDay_Click(int index) {
    m_period.choose(index);
}

void frmFind::clearTotals() {
    for (QLabel* l : {ui->lblSumNum, ui->lblSumStartMoney, ui->lblSumExpenseMoney, ui->lblSumMoney, ui->lblCashPay,
                      ui->lblSumChongzhi, ui->lblSumFreePay, ui->lblSumExpenseMoneyOutsale, ui->lblSumMoneyOutsale})
        l->clear();
}

void frmFind::cmdFind_Click() {
    if (m_query->busy()) return;
    clearTotals();
    ui->lvwDetail->clear();
    ui->lvwOutSaleDetail->clear();
    m_bills = Rows();
    ClearRows(ui->lvwExpense);
    ClearRows(ui->lvwOutSale);
    const QDateTime start = ui->dtpStart->dateTime(), end = ui->dtpEnd->dateTime();
    const VoucherChoice choice = ChoiceOf(ui->lstState);
    auto result = std::make_shared<PeriodLists>();
    auto stage = std::make_shared<QString>(QStringLiteral("LoadExpense"));
    m_query->run(
        [=](Db& db) {
            const FindService s(db);
            const Rows bills = s.bills(start, end, choice);
            result->bills = PrepareRows(QStringLiteral("frmFind.lvwExpense"), bills, db);
            *stage = QStringLiteral("LoadOutsale");
            const Rows sales = s.sales(start, end);
            result->sales = PrepareRows(QStringLiteral("frmFind.lvwOutSale"), sales, db);
            result->totals = FindService::totals(bills, sales);
        },
        [this, result] {
            ShowPeriodLists(ui->lvwExpense, ui->lvwOutSale, *result);
            m_bills = result->bills.rows;
            showTotals(result->totals);
        },
        [this, stage](const DbError& e) { Msg::critical(this, e.message(*stage, Form)); });
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

void frmFind::LoadDetail() {
    ui->lvwDetail->clear();
    const QString id = CurrentRowKey(ui->lvwExpense);
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
    const QString id = CurrentRowKey(ui->lvwOutSale);
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
    const QString id = CurrentRowKey(ui->lvwExpense);
    if (id.isEmpty()) return Msg::info(this, QStringLiteral("请先选择要重打的帐单！"));
    RunPrint(this, QStringLiteral("cmdReprint_Click"), Form, [&] { return ReprintBill(id); });
}
