#include "frmFindIncome.h"
#include "BusinessQueries.h"
#include "Format.h"
#include "MessageBox.h"
#include "ReportQuery.h"
#include "RowsList.h"
#include "ScreenFit.h"
#include "ui_frmFindIncome.h"

namespace {
const QString Form = QStringLiteral("frmFindIncome");

QString plain(Money m) {
    return m.toString2();
}
} // namespace

frmFindIncome::frmFindIncome(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmFindIncome>()) {
    ui->setupUi(this);
    ScreenFit::install(this, QSize(1200, 700));
    m_query = new ReportQuery(ui->cmdFind, ui->prgFind, this);
    FillStateList(ui->lstState, true);
    m_period = {{ui->optDay0, ui->optDay1, ui->optDay2}, ui->dtpStart, ui->dtpEnd};
    m_period.install(this);
    InstallBillTabs(ui->ctbThis, ui->lvwExpense, ui->lvwOutSale, ui->cmdOutExcel);
    connect(ui->cmdFind, &QPushButton::clicked, this, &frmFindIncome::cmdFind_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

frmFindIncome::~frmFindIncome() = default;

void frmFindIncome::ShowMe(int period) {
    m_period.choose(period);
    exec();
}

void frmFindIncome::cmdFind_Click() {
    if (m_query->busy()) return;
    for (QLabel* l : {ui->lblThisSumExpenseMoney, ui->lblThisSumMoney, ui->lblThisSumIncome})
        l->setText(QStringLiteral("0"));
    for (QLabel* l : {ui->lblSumNum, ui->lblSumStartMoney, ui->lblSumExpenseMoney, ui->lblSumMoney, ui->lblSumIncome,
                      ui->lblSumExpenseMoneyOutsale, ui->lblSumMoneyOutsale, ui->lblSumIncomeOutsale})
        l->clear();
    ClearRows(ui->lvwExpense);
    ClearRows(ui->lvwOutSale);
    const QDateTime start = ui->dtpStart->dateTime(), end = ui->dtpEnd->dateTime();
    const VoucherChoice choice = ChoiceOf(ui->lstState);
    auto result = std::make_shared<PeriodLists>();
    m_query->run(
        [=](Db& db) {
            const IncomeService s(db);
            const Rows bills = s.bills(start, end, choice);
            const Rows sales = s.sales(start, end);
            result->bills = PrepareRows(QStringLiteral("frmFindIncome.lvwExpense"), bills, db);
            result->sales = PrepareRows(QStringLiteral("frmFindIncome.lvwOutSale"), sales, db);
            result->totals = FindService::totals(bills, sales);
        },
        [this, result] {
            ShowPeriodLists(ui->lvwExpense, ui->lvwOutSale, *result);
            showTotals(result->totals);
        },
        [this](const DbError& e) { Msg::critical(this, e.message(QStringLiteral("cmdFind_Click"), Form)); });
}

void frmFindIncome::showTotals(const FindTotals& t) {
    ui->lblSumNum->setText(FormatNumber(double(t.customers), QStringLiteral("0.00")));
    ui->lblSumStartMoney->setText(plain(t.startMoney));
    ui->lblSumExpenseMoney->setText(plain(t.oughtMoney));
    ui->lblSumMoney->setText(plain(t.factPay));
    ui->lblSumIncome->setText(plain(t.income));
    ui->lblSumExpenseMoneyOutsale->setText(plain(t.saleOught));
    ui->lblSumMoneyOutsale->setText(plain(t.saleFact));
    ui->lblSumIncomeOutsale->setText(plain(t.saleIncome));
    ui->lblThisSumExpenseMoney->setText(plain(t.oughtMoney + t.saleOught));
    ui->lblThisSumMoney->setText(plain(t.factPay + t.saleFact));
    ui->lblThisSumIncome->setText(plain(t.income + t.saleIncome));
}
