#include "frmChongzhiList.h"
#include "Clock.h"
#include "Format.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "ListSort.h"
#include "MessageBox.h"
#include "Puissance.h"
#include "StoredValueService.h"
#include "frmChongzhi.h"
#include "frmQNDisplayCase.h"
#include "ui_frmChongzhiList.h"
#include <QMenu>

namespace {
const QString ListName = QStringLiteral("frmChongzhiList.lvwThis");
}

frmChongzhiList::frmChongzhiList(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmChongzhiList>()) {
    ui->setupUi(this);
    SortListOnHeaderClick(ui->lvwThis);
    const QRadioButton* days[] = {ui->optDay0, ui->optDay1, ui->optDay2};
    for (int i = 0; i < 3; ++i)
        connect(days[i], &QRadioButton::clicked, this, [this, i] { optDay_Click(i); });
    connect(ui->cmdFind, &QPushButton::clicked, this, &frmChongzhiList::cmdFind_Click);
    connect(ui->cmdChongzhi, &QPushButton::clicked, this, &frmChongzhiList::cmdChongzhi_Click);
    connect(ui->cmdOutExcel, &QPushButton::clicked, this, [this] { ExportExcel(ui->lvwThis); });
    connect(ui->Command1, &QPushButton::clicked, this, &frmChongzhiList::Command1_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->lvwThis, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        QMenu mnuSetup(this);
        QAction* show = mnuSetup.addAction(QStringLiteral("显示栏目"));
        if (mnuSetup.exec(ui->lvwThis->viewport()->mapToGlobal(pos)) == show) Command1_Click();
    });
    const ChongzhiPeriod today = StoredValueService::period(0, Now().date());
    ui->dtpStart->setDateTime(today.start);
    ui->dtpEnd->setDateTime(today.end);
}

frmChongzhiList::~frmChongzhiList() = default;

void frmChongzhiList::prepare(int period) {
    if (period < 0 || period > 2) period = 0;
    QRadioButton* days[] = {ui->optDay0, ui->optDay1, ui->optDay2};
    days[period]->setChecked(true);
    optDay_Click(period);
    cmdFind_Click();
}

void frmChongzhiList::ShowMe(int period) {
    prepare(period);
    exec();
}

void frmChongzhiList::optDay_Click(int index) {
    const ChongzhiPeriod p = StoredValueService::period(index, Now().date());
    ui->dtpStart->setDateTime(p.start);
    ui->dtpEnd->setDateTime(p.end);
}

void frmChongzhiList::cmdFind_Click() {
    ui->txtFactPay->setText(QStringLiteral("0"));
    ui->txtThisMemoney->setText(QStringLiteral("0"));
    try {
        const ChongzhiTotals t =
            StoredValueService().search(ui->dtpStart->dateTime(), ui->dtpEnd->dateTime());
        // Newest first, as read: the shown time has no year to sort by.
        ShowListInQueryOrder(ui->lvwThis, ListName, t.rows, true);
        ui->txtFactPay->setText(FormatNumber(t.factPay.toDouble(), QStringLiteral("0")));
        ui->txtThisMemoney->setText(FormatNumber(t.thisMemoney.toDouble(), QStringLiteral("0")));
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("cmdFind_Click"), QStringLiteral("frmChongzhiList")));
    }
}

// The list is left as it was: a new top-up shows at the next search.
void frmChongzhiList::cmdChongzhi_Click() {
    if (!CheckButton(this, QStringLiteral("cmdChongzhi"))) return;
    frmChongzhi dlg(this);
    // The new top-up shows in the list at once.
    if (dlg.Add()) cmdFind_Click();
}

void frmChongzhiList::Command1_Click() {
    if (frmQNDisplayCase::ShowSetup(ListName, this)) cmdFind_Click();
}
