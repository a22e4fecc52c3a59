#include "frmWarehouseNum.h"
#include "ListExport.h"
#include "MessageBox.h"
#include "ScreenFit.h"
#include "StockView.h"
#include "ui_frmWarehouseNum.h"
#include <QMenu>

frmWarehouseNum::frmWarehouseNum(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmWarehouseNum>()) {
    ui->setupUi(this);
    ScreenFit::install(this, QSize(760, 520));
    QMenu* mnuExport = ExportMenu(this, ui->lvwThis);
    connect(ui->cmdOutExcel, &QPushButton::clicked, this, [this, mnuExport] {
        mnuExport->popup(ui->cmdOutExcel->mapToGlobal(QPoint(0, ui->cmdOutExcel->height())));
    });
    connect(ui->OKButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmWarehouseNum::~frmWarehouseNum() = default;

void frmWarehouseNum::ShowMe(QWidget* parent) {
    frmWarehouseNum w(parent);
    w.LoadData();
    w.exec();
}

void frmWarehouseNum::LoadData() {
    ui->lvwThis->clear();
    QList<StockLine> lines;
    try {
        lines = StockOnHand();
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadData"), QStringLiteral("frmWarehouseNum")));
        return;
    }
    QList<QTreeWidgetItem*> items;
    for (const StockLine& l : lines) {
        auto* it = new QTreeWidgetItem({l.wareName, l.wareTypeName, StockNumberText(l.minNum),
                                        StockNumberText(l.nowNum), StockNumberText(l.shortfall)});
        it->setData(0, Qt::UserRole, QString(QStringLiteral("K") + l.wareID));
        for (int c = 2; c < 5; ++c)
            it->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
        if (l.red)
            for (int c = 0; c < 5; ++c)
                it->setForeground(c, QColor(255, 0, 0));
        items << it;
    }
    ui->lvwThis->addTopLevelItems(items);
    ui->lvwThis->resizeColumnToContents(0);
}
