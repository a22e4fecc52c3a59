#include "frmPrintQueue.h"
#include "MessageBox.h"
#include "PrintQueue.h"
#include "PrintTarget.h"
#include "ReceiptPainter.h"
#include "ui_frmPrintQueue.h"
#include <QApplication>
#include <QHeaderView>
#include <QPixmap>
#include <algorithm>

namespace {
enum Column { colTime, colDocument, colRole, colPrinter, colCopies, colState, colError, colOperator };

QString stateText(qint64 state) {
    switch (state) {
    case PrintQueue::Printed:
        return QStringLiteral("已打印");
    case PrintQueue::Failed:
        return QStringLiteral("失败");
    default:
        return QStringLiteral("等待");
    }
}

QString roleText(const QString& setting) {
    for (PrintRole r : {PrintRole::Bill, PrintRole::Kitchen, PrintRole::Bar})
        if (RoleSetting(r) == setting) return RoleText(r);
    return setting;
}
} // namespace

QString ChosenPrinter(const QComboBox* list) {
    const QString text = list->currentText().trimmed();
    const int i = list->findText(text, Qt::MatchExactly);
    return i >= 0 ? list->itemData(i).toString() : text;
}

void FillPrinterList(QComboBox* list, const QString& saved, bool withDefault) {
    list->clear();
    for (const PrinterChoice& c : PrinterChoices(saved, withDefault))
        list->addItem(c.text, c.value);
    const int i = list->findData(saved.trimmed());
    list->setCurrentIndex(i >= 0 ? i : 0);
}

frmPrintQueue::frmPrintQueue(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmPrintQueue>()) {
    ui->setupUi(this);
    resize(1000, 560);
    ui->splThis->setStretchFactor(0, 3);
    ui->splThis->setStretchFactor(1, 1);
    ui->lvwJobs->header()->setSectionResizeMode(QHeaderView::Interactive);
    FillPrinterList(ui->cmbPrinter, QString());
    connect(ui->chkUnprinted, &QCheckBox::toggled, this, &frmPrintQueue::Load);
    connect(ui->cmdRefresh, &QPushButton::clicked, this, &frmPrintQueue::Load);
    connect(ui->cmdPrint, &QPushButton::clicked, this, &frmPrintQueue::cmdPrint_Click);
    connect(ui->cmdPrintTo, &QPushButton::clicked, this, &frmPrintQueue::cmdPrintTo_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->lvwJobs, &QTreeWidget::currentItemChanged, this, &frmPrintQueue::showPreview);
    Load();
}

frmPrintQueue::~frmPrintQueue() = default;

void frmPrintQueue::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    showPreview(); // now that the preview knows its width
}

void frmPrintQueue::ShowMe(QWidget* parent) {
    frmPrintQueue dlg(parent);
    dlg.exec();
}

void frmPrintQueue::Load() {
    const QString keep = selectedJob();
    ui->lvwJobs->clear();
    try {
        for (const Row r : PrintQueue::Jobs(ui->chkUnprinted->isChecked())) {
            const qint64 state = r.integer(QStringLiteral("State"));
            auto* item = new QTreeWidgetItem(
                ui->lvwJobs,
                {r.text(QStringLiteral("CreateTime")), r.text(QStringLiteral("Caption")),
                 roleText(r.text(QStringLiteral("Role"))), PrinterShown(r.text(QStringLiteral("Printer"))),
                 QString::number(r.integer(QStringLiteral("Copies"))), stateText(state),
                 r.text(QStringLiteral("Error")), r.text(QStringLiteral("operatorname"))});
            item->setData(0, Qt::UserRole, r.text(QStringLiteral("JobID")));
            if (state == PrintQueue::Failed)
                for (int c = 0; c < item->columnCount(); ++c)
                    item->setForeground(c, QColor(0xc6, 0x28, 0x28));
        }
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Load"), QStringLiteral("frmPrintQueue")));
    }
    for (int c = 0; c < ui->lvwJobs->columnCount(); ++c)
        ui->lvwJobs->resizeColumnToContents(c);
    if (!selectJob(keep) && ui->lvwJobs->topLevelItemCount() > 0)
        ui->lvwJobs->setCurrentItem(ui->lvwJobs->topLevelItem(0));
    showPreview();
}

QString frmPrintQueue::selectedJob() const {
    const QTreeWidgetItem* item = ui->lvwJobs->currentItem();
    return item ? item->data(0, Qt::UserRole).toString() : QString();
}

bool frmPrintQueue::selectJob(const QString& jobID) {
    for (int i = 0; i < ui->lvwJobs->topLevelItemCount() && !jobID.isEmpty(); ++i) {
        QTreeWidgetItem* item = ui->lvwJobs->topLevelItem(i);
        if (item->data(0, Qt::UserRole).toString() == jobID) {
            ui->lvwJobs->setCurrentItem(item);
            return true;
        }
    }
    return false;
}

void frmPrintQueue::showPreview() {
    const QString job = selectedJob();
    if (job.isEmpty()) {
        ui->imgPreview->clear();
        return;
    }
    try {
        const Rows r =
            DB().query(QStringLiteral("select Document, Paper from PrintJob where JobID=?"), {job});
        if (r.isEmpty()) return;
        const Receipt doc = Receipt::fromJson(r.first().text(QStringLiteral("Document")));
        const Paper paper = r.first().integer(QStringLiteral("Paper")) == 58 ? Paper::mm58 : Paper::mm80;
        // The whole width of the slip in the preview.
        const int room = std::max(200, ui->scrPreview->viewport()->width() - 24);
        const int dpi = std::clamp(int(room / (int(paper) / 25.4)), 60, 120);
        ui->imgPreview->setPixmap(QPixmap::fromImage(ReceiptImage(doc, paper, dpi)));
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("showPreview"), QStringLiteral("frmPrintQueue")));
    }
}

void frmPrintQueue::send(const std::optional<QString>& printer) {
    const QString job = selectedJob();
    if (job.isEmpty()) {
        Msg::info(this, QStringLiteral("请先选择要打印的单据！"));
        return;
    }
    PrintOutcome outcome;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        outcome = PrintQueue::Send(job, printer);
    } catch (const DbError& e) {
        QGuiApplication::restoreOverrideCursor();
        Msg::critical(this, e.message(QStringLiteral("cmdPrint_Click"), QStringLiteral("frmPrintQueue")));
        return;
    }
    QGuiApplication::restoreOverrideCursor();
    if (!outcome.ok()) Msg::warn(this, outcome.message(), QStringLiteral("打印失败"));
    Load();
    selectJob(job);
}

void frmPrintQueue::cmdPrint_Click() {
    send(std::nullopt);
}

void frmPrintQueue::cmdPrintTo_Click() {
    send(ChosenPrinter(ui->cmbPrinter));
}
