#include "frmBusReorder.h"
#include "BusinessQueries.h"
#include "EmployeeCombo.h"
#include "Format.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "ListSort.h"
#include "RowsList.h"
#include "MessageBox.h"
#include "ReportQuery.h"
#include "ScreenFit.h"
#include "ui_frmBusReorder.h"

namespace {
const QString Form = QStringLiteral("frmBusReorder");
} // namespace

frmBusReorder::frmBusReorder(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmBusReorder>()) {
    ui->setupUi(this);
    ScreenFit::install(this, QSize(1000, 680));
    m_query = new ReportQuery(ui->cmdFind, ui->prgFind, this);
    m_period = {{ui->optDay0, ui->optDay1, ui->optDay2}, ui->dtpStart, ui->dtpEnd};
    m_period.install(this);
    // Numbers stand right, padded to eight places.
    for (QTreeView* list : {ui->lvwWare, ui->lvwSteward}) {
        auto* model = new RowsModel(list);
        model->setPadded({QStringLiteral("Num"), QStringLiteral("OughtMoney"), QStringLiteral("TiChengMoney")});
        list->setModel(model);
        SortListOnHeaderClick(list);
    }
    try {
        FillEmployeeCombo(ui->cmbSteward);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Form_Load"), Form));
    }
    connect(ui->cmdFind, &QPushButton::clicked, this, &frmBusReorder::cmdFind_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    ExportButton(ui->cmdOutExcel, [this]() -> QTreeView* {
        return ui->ctabThis->currentWidget() == ui->steward ? ui->lvwSteward : ui->lvwWare;
    });
}

frmBusReorder::~frmBusReorder() = default;

void frmBusReorder::ShowMe(int period) {
    m_period.choose(period);
    exec();
}

void frmBusReorder::cmdFind_Click() {
    if (m_query->busy()) return;
    const QDateTime start = ui->dtpStart->dateTime(), end = ui->dtpEnd->dateTime();
    const bool steward = ui->ctabThis->currentWidget() == ui->steward;
    const RankBy by = ui->optType1->isChecked() ? RankBy::GoodsType : RankBy::Goods;
    const QString employee = ui->cmbSteward->currentText();
    QTreeView* list = steward ? ui->lvwSteward : ui->lvwWare;
    const QString name = steward ? QStringLiteral("frmBusReorder.lvwSteward")
                         : by == RankBy::GoodsType ? QStringLiteral("frmBusReorder.lvwWareType")
                                                   : QStringLiteral("frmBusReorder.lvwWare");
    ClearRows(list);
    ui->txtSumOughtMoney->clear();
    ui->txtSumTiChengMoney->clear();
    auto rows = std::make_shared<Rows>();
    m_query->run(
        [=](Db& db) {
            const ReorderService s(db);
            *rows = steward ? s.steward(start, end, employee) : s.goods(start, end, by);
        },
        [this, list, name, rows, steward] {
            showRanking(list, name, *rows);
            if (!steward) return;
            ui->txtSumOughtMoney->setText(SumMoney(*rows, QStringLiteral("OughtMoney")).toString2());
            ui->txtSumTiChengMoney->setText(SumMoney(*rows, QStringLiteral("TiChengMoney")).toString2());
        },
        [this](const DbError& e) { Msg::critical(this, e.message(QStringLiteral("cmdFind_Click"), Form)); });
}

void frmBusReorder::showRanking(QTreeView* list, const QString& name, const Rows& rows) {
    try {
        ShowRowsInQueryOrder(list, name, rows, false);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("cmdFind_Click"), Form));
    }
}
