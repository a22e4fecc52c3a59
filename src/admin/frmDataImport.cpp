#include "frmDataImport.h"
#include "AppState.h"
#include "MessageBox.h"
#include "ui_frmDataImport.h"
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>

frmDataImport::frmDataImport(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmDataImport>()) {
    ui->setupUi(this);
    ui->lvwThis->setHeaderLabels({QStringLiteral("不能导入的原因")});
    connect(ui->cmdOpenFile, &QPushButton::clicked, this, &frmDataImport::cmdOpenFile_Click);
    connect(ui->cmdShowData, &QPushButton::clicked, this, &frmDataImport::cmdShowData_Click);
    connect(ui->cmdDo, &QPushButton::clicked, this, &frmDataImport::cmdDo_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

frmDataImport::~frmDataImport() = default;

int frmDataImport::ShowMe() {
    exec();
    return m_imported;
}

void frmDataImport::cmdOpenFile_Click() {
    const QString name = QFileDialog::getOpenFileName(
        this, QStringLiteral("选择文件"), QDir(App().AppPath).filePath(QStringLiteral("Other")),
        QStringLiteral("Excel文件(*.xlsx *.xls);;CSV文件(*.csv);;所有文件(*)"));
    if (!name.isEmpty()) ui->txtFileName->setText(QDir::toNativeSeparators(name));
}

void frmDataImport::cmdShowData_Click() {
    const QString name = ui->txtFileName->text().trimmed();
    if (name.isEmpty() || !QFileInfo(name).isFile())
        return Msg::warn(this,
                         QStringLiteral("没找到") + name + QStringLiteral("文件，请检查此文件是否存在！"));
    ui->lvwThis->clear();
    ui->lblRowCount->clear();
    m_preview = {};
    const Sheet sheet = ReadSheet(name, ui->txtSheetName->text());
    if (!sheet.ok())
        return Msg::critical(this,
                             QStringLiteral("显示数据过程中出错！\n错误信息： 0 (") + sheet.error +
                                 QStringLiteral(") in procedure cmdShowData_Click of Form frmDataImport"));
    try {
        m_preview = GoodsImport::Check(sheet);
    } catch (const DbError& e) {
        return Msg::critical(this,
                             QStringLiteral("显示数据过程中出错！\n错误信息： ") + QString::number(e.number) +
                                 QStringLiteral(" (") + e.description +
                                 QStringLiteral(") in procedure cmdShowData_Click of Form frmDataImport"));
    }
    qsizetype columns = m_preview.headers.size();
    for (const auto& l : m_preview.lines)
        columns = qMax(columns, l.cells.size());
    QStringList headers = m_preview.headers;
    while (headers.size() < columns)
        headers << QString();
    headers << QStringLiteral("不能导入的原因");
    ui->lvwThis->setColumnCount(int(headers.size()));
    ui->lvwThis->setHeaderLabels(headers);
    QList<QTreeWidgetItem*> items;
    for (const auto& l : m_preview.lines) {
        QStringList texts = l.cells;
        while (texts.size() < columns)
            texts << QString();
        texts << l.refusal;
        auto* item = new QTreeWidgetItem(texts);
        if (!l.refusal.isEmpty())
            for (int c = 0; c < item->columnCount(); ++c)
                item->setForeground(c, QColor(0xC0, 0x20, 0x20));
        items << item;
    }
    ui->lvwThis->addTopLevelItems(items);
    ui->lvwThis->header()->resizeSections(QHeaderView::ResizeToContents);
    QString count =
        QStringLiteral("共有 ") + QString::number(m_preview.lines.size()) + QStringLiteral(" 行数据");
    if (const int bad = m_preview.refused()) count += QStringLiteral("，其中 %1 行不能导入").arg(bad);
    ui->lblRowCount->setText(count);
}

void frmDataImport::cmdDo_Click() {
    if (m_preview.lines.isEmpty()) return;
    ui->txtDoInfo->clear();
    ui->cmdDo->setEnabled(false);
    GoodsImport::Outcome o;
    try {
        o = GoodsImport::Import(m_preview);
    } catch (const DbError& e) {
        o.info = QStringLiteral("发生错误：\n错误描述：") + e.description;
    }
    ui->cmdDo->setEnabled(true);
    ui->txtDoInfo->setPlainText(o.info);
    if (o.imported > 0) {
        m_imported += o.imported;
        m_preview = {}; // imported once; a second press would only find them kept
    }
}
