#include "frmShouyinInfo.h"
#include "Clock.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "MessageBox.h"
#include "Reconcile.h"
#include "ScreenFit.h"
#include "StoredValueService.h"
#include "ui_frmShouyinInfo.h"

frmShouyinInfo::frmShouyinInfo(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmShouyinInfo>()) {
    ui->setupUi(this);
    ScreenFit::install(this, QSize(900, 560));
    const QRadioButton* days[] = {ui->optDay0, ui->optDay1, ui->optDay2};
    for (int i = 0; i < 3; ++i)
        connect(days[i], &QRadioButton::clicked, this, [this, i] { optDay_Click(i); });
    connect(ui->cmdFind, &QPushButton::clicked, this, &frmShouyinInfo::cmdFind_Click);
    ExportButton(ui->cmdOutExcel, [this] { return ui->lvwExpense; });
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    optDay_Click(0);
}

frmShouyinInfo::~frmShouyinInfo() = default;

void frmShouyinInfo::ShowMe() {
    exec();
}

void frmShouyinInfo::optDay_Click(int index) {
    const ChongzhiPeriod p = StoredValueService::period(index, Now().date());
    ui->dtpStart->setDateTime(p.start);
    ui->dtpEnd->setDateTime(p.end);
}

void frmShouyinInfo::cmdFind_Click() {
    try {
        const Rows rows = ReconcileService().records(ui->dtpStart->dateTime(), ui->dtpEnd->dateTime(),
                                                     ui->txtShouyinName->text());
        ShowListInQueryOrder(ui->lvwExpense, QStringLiteral("frmShouyinInfo.lvwExpense"), rows, true);
        Money sum;
        for (const Row r : rows)
            sum += r.money(QStringLiteral("theMoney"));
        ui->lblSumMoney->setText(FormatShowValue(QStringLiteral("3,￥#,##0.00"), sum.raw()));
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("cmdFind_Click"), QStringLiteral("frmShouyinInfo")));
    }
}
