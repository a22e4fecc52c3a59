#include "frmLog.h"
#include "AppState.h"
#include "Clock.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "ListSort.h"
#include "LogService.h"
#include "MessageBox.h"
#include "Puissance.h"
#include "frmLogSetup.h"
#include "frmQNDisplayCase.h"
#include "ui_frmLog.h"
#include <QMenu>

namespace {
const QString ListName = QStringLiteral("frmLog.lvwThis");
}

frmLog::frmLog(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmLog>()) {
    ui->setupUi(this);
    SortListOnHeaderClick(ui->lvwThis);
    QMenu* mnuExport = ExportMenu(this, ui->lvwThis);
    connect(ui->cmdOutExcel, &QPushButton::clicked, this, [this, mnuExport] {
        mnuExport->popup(ui->cmdOutExcel->mapToGlobal(QPoint(0, ui->cmdOutExcel->height())));
    });
    connect(ui->cmdFind, &QPushButton::clicked, this, &frmLog::cmdFind_Click);
    connect(ui->txtFind, &QLineEdit::returnPressed, this, &frmLog::cmdFind_Click);
    connect(ui->cmdDel, &QPushButton::clicked, this, &frmLog::cmdDel_Click);
    connect(ui->cmdSetup, &QPushButton::clicked, this, &frmLog::cmdSetup_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->lvwThis, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        QMenu mnuSetup(this);
        QAction* show = mnuSetup.addAction(QStringLiteral("显示栏目"));
        if (mnuSetup.exec(ui->lvwThis->viewport()->mapToGlobal(pos)) == show &&
            frmQNDisplayCase::ShowSetup(ListName, this))
            cmdFind_Click();
    });
    // The last month up to the end of today.
    const QDate today = Now().date();
    ui->dtpStart->setDateTime(QDateTime(today.addMonths(-1), QTime(0, 0)));
    ui->dtpEnd->setDateTime(QDateTime(today, QTime(23, 59)));
}

frmLog::~frmLog() = default;

void frmLog::ShowMe() {
    cmdFind_Click();
    ui->txtFind->setFocus();
    exec();
}

void frmLog::cmdFind_Click() {
    try {
        ShowListInQueryOrder(
            ui->lvwThis, ListName,
            LogService().list({ui->dtpStart->dateTime(), ui->dtpEnd->dateTime(), ui->txtFind->text()}),
            false);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("cmdFind_Click"), QStringLiteral("frmLog")));
    }
}

void frmLog::cmdSetup_Click() {
    frmLogSetup dlg(this);
    dlg.ShowMe();
}

void frmLog::cmdDel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdDel"))) return;
    if (!Msg::confirm(this, QStringLiteral("系统操作日志删除后将不能恢复，您确认要删除吗？"),
                      QMessageBox::Cancel))
        return;
    try {
        const int n = LogService().removeAll(App().CurrentOperatorName);
        Msg::info(this, QStringLiteral("共删除") + QString::number(n) + QStringLiteral("条系统日志！"));
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("cmdDel_Click"), QStringLiteral("frmLog")));
    }
    cmdFind_Click();
}
