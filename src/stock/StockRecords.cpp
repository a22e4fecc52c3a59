#include "StockRecords.h"
#include "Clock.h"
#include "Format.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "MessageBox.h"
#include "ScreenFit.h"
#include "StoredValueService.h"
#include "ui_frmWareInList.h"
#include <QMenu>

const StockRecordKind& ReceiptRecords() {
    static const StockRecordKind k{QStringLiteral("frmWareInList"), QStringLiteral("WareIn"),
                                   QStringLiteral("WareInList"), QStringLiteral("wareInID"), true};
    return k;
}

const StockRecordKind& LossRecords() {
    static const StockRecordKind k{QStringLiteral("frmWareLossList"), QStringLiteral("WareLoss"),
                                   QStringLiteral("WareLossList"), QStringLiteral("WareLossID"), false};
    return k;
}

QString StockRecordsService::where(const QDateTime& start, const QDateTime& end, const QString& supplierColumn,
                                   const QString& supplierID, Params& params) const {
    const QString from = TimeText(start), to = TimeText(end);
    QString w;
    if (from != to) {
        w = QStringLiteral("(%1.InTime>=? and %1.InTime<?)").arg(m_kind.head);
        params << from << to;
    } else {
        w = QStringLiteral("(%1.InTime=?)").arg(m_kind.head);
        params << from;
    }
    if (m_kind.bySupplier && !supplierID.isEmpty()) {
        w += QStringLiteral(" and ") + supplierColumn + QStringLiteral("=?");
        params << supplierID;
    }
    return w;
}

Rows StockRecordsService::documents(const QDateTime& start, const QDateTime& end, const QString& supplierID) const {
    Params p;
    const QString w = where(start, end, QStringLiteral("SupplierID"), supplierID, p);
    return m_db.query(QStringLiteral("Select %1.* from %1 where ").arg(m_kind.head) + w +
                          QStringLiteral(" Order by %1.InTime").arg(m_kind.head),
                      p);
}

QString StockRecordsService::linesJoined() const {
    return QStringLiteral("(%2 Left join %1 on %2.%3=%1.%3) left join ware on %2.wareID=ware.WareID")
        .arg(m_kind.head, m_kind.lines, m_kind.key);
}

Rows StockRecordsService::lines(const QDateTime& start, const QDateTime& end, const QString& supplierID) const {
    Params p;
    const QString w = where(start, end, m_kind.lines + QStringLiteral(".SupplierID"), supplierID, p);
    return m_db.query(QStringLiteral("Select %2.*,%1.Intime,%1.theCode,%1.thejb,Ware.WareName,ware.WareUnit from ")
                              .arg(m_kind.head, m_kind.lines) +
                          linesJoined() + QStringLiteral(" where ") + w +
                          QStringLiteral(" Order by %1.InTime").arg(m_kind.head),
                      p);
}

Rows StockRecordsService::sums(const QDateTime& start, const QDateTime& end, const QString& supplierID) const {
    Params p;
    const QString w = where(start, end, m_kind.lines + QStringLiteral(".SupplierID"), supplierID, p);
    return m_db.query(QStringLiteral("Select Ware.WareName,ware.WareUnit,sum(%1.num) as Num,sum(%1.TheMoney) as "
                                     "TheMoney from ")
                              .arg(m_kind.lines) +
                          linesJoined() + QStringLiteral(" where ") + w +
                          QStringLiteral(" Group by Ware.WareName,ware.WareUnit Order by Ware.WareName"),
                      p);
}

Rows StockRecordsService::linesOf(const QString& documentID) const {
    return m_db.query(QStringLiteral("Select %1.*,Ware.WareUnit,Ware.WareName from %1 Left Join Ware on "
                                     "%1.WareID=Ware.WareID where %1.%2=? Order by Ware.WareName")
                          .arg(m_kind.lines, m_kind.key),
                      {documentID});
}

Rows StockRecordsService::suppliers() const {
    return m_db.query(QStringLiteral("Select SupplierID, SupplierName from Supplier"));
}

StockRecords::StockRecords(const StockRecordKind& kind, QWidget* parent)
    : QDialog(parent), m_kind(kind), ui(std::make_unique<Ui::frmWareInList>()) {
    ui->setupUi(this);
    setObjectName(kind.form);
    ScreenFit::install(this, QSize(1100, 640));
    if (!kind.bySupplier) {
        setWindowTitle(QStringLiteral("报溢/报损记录"));
        ui->lblSupplier->hide();
        ui->imgcmbSupplier->hide();
        ui->ctabThis->setTabText(0, QStringLiteral("报溢/报损单"));
        ui->ctabThis->setTabText(1, QStringLiteral("报溢/报损明细"));
        ui->ctabThis->setTabText(2, QStringLiteral("报溢/报损汇总"));
    }
    const QRadioButton* days[] = {ui->optDay0, ui->optDay1, ui->optDay2};
    for (int i = 0; i < 3; ++i)
        connect(days[i], &QRadioButton::clicked, this, [this, i] { optDay_Click(i); });
    connect(ui->cmdFind, &QPushButton::clicked, this, &StockRecords::cmdFind_Click);
    connect(ui->ctabThis, &QTabWidget::currentChanged, this, &StockRecords::cmdFind_Click);
    connect(ui->lvwThis, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* it) {
        showLinesOf(it ? it->data(0, Qt::UserRole).toString().mid(1) : QString());
    });
    // The export menu exports the list of the tab on show.
    connect(ui->cmdOutExcel, &QPushButton::clicked, this, [this] {
        QTreeWidget* lists[] = {ui->lvwThis, ui->lvwWareinList, ui->lvwWareInSum};
        QMenu* menu = ExportMenu(this, lists[ui->ctabThis->currentIndex()]);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(ui->cmdOutExcel->mapToGlobal(QPoint(0, ui->cmdOutExcel->height())));
    });
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    const ChongzhiPeriod today = StoredValueService::period(0, Now().date());
    ui->dtpStart->setDateTime(today.start);
    ui->dtpEnd->setDateTime(today.end);
}

StockRecords::~StockRecords() = default;

void StockRecords::prepare(int period) {
    if (period < 0 || period > 2) period = 0;
    QRadioButton* days[] = {ui->optDay0, ui->optDay1, ui->optDay2};
    days[period]->setChecked(true);
    optDay_Click(period);
    if (m_kind.bySupplier) {
        ui->imgcmbSupplier->clear();
        ui->imgcmbSupplier->addItem(QString(), QStringLiteral("K"));
        try {
            for (const Row r : StockRecordsService(m_kind).suppliers())
                ui->imgcmbSupplier->addItem(r.text(QStringLiteral("SupplierName")),
                                            QString(QStringLiteral("K") + r.text(QStringLiteral("SupplierID"))));
        } catch (const DbError& e) {
            Msg::critical(this, e.message(QStringLiteral("Form_Load"), m_kind.form));
        }
    }
    cmdFind_Click();
}

void StockRecords::ShowMe(int period) {
    prepare(period);
    exec();
}

void StockRecords::optDay_Click(int index) {
    const ChongzhiPeriod p = StoredValueService::period(index, Now().date());
    ui->dtpStart->setDateTime(p.start);
    ui->dtpEnd->setDateTime(p.end);
}

void StockRecords::cmdFind_Click() {
    const StockRecordsService s(m_kind);
    const QDateTime start = ui->dtpStart->dateTime(), end = ui->dtpEnd->dateTime();
    const QString supplier = ui->imgcmbSupplier->currentData().toString().mid(1);
    const QString list = m_kind.form + QLatin1Char('.');
    const auto moneySum = [](const Rows& rows) {
        Money sum;
        for (const Row r : rows)
            sum += r.money(QStringLiteral("TheMoney"));
        return sum;
    };
    try {
        switch (ui->ctabThis->currentIndex()) {
        case 0:
            ShowListInQueryOrder(ui->lvwThis, list + QStringLiteral("lvwThis"), s.documents(start, end, supplier), true);
            showLinesOf({});
            break;
        case 1: {
            const Rows rows = s.lines(start, end, supplier);
            ShowListInQueryOrder(ui->lvwWareinList, list + QStringLiteral("lvwWareinList"), rows, true);
            ui->txtWareinListMoneySum->setText(moneySum(rows).toString2());
            break;
        }
        default: {
            const Rows rows = s.sums(start, end, supplier);
            ui->lvwWareInSum->clear();
            for (const Row r : rows) {
                auto* it = new QTreeWidgetItem(
                    {r.text(QStringLiteral("WareName")), r.text(QStringLiteral("WareUnit")),
                     FormatShowValue(QStringLiteral("4,#,##0.00"), r.num(QStringLiteral("Num"))),
                     FormatShowValue(QStringLiteral("3,#,##0.00"), r.money(QStringLiteral("TheMoney")).raw())});
                it->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
                it->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
                ui->lvwWareInSum->addTopLevelItem(it);
            }
            ui->txtWareInSumMoney->setText(moneySum(rows).toString2());
        }
        }
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("cmdFind_Click"), m_kind.form));
    }
}

void StockRecords::showLinesOf(const QString& documentID) {
    ui->lvwList->clear();
    if (documentID.isEmpty()) return;
    try {
        ShowListInQueryOrder(ui->lvwList, m_kind.form + QStringLiteral(".lvwList"),
                             StockRecordsService(m_kind).linesOf(documentID), true);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("lvwThis_ItemClick"), m_kind.form));
    }
}
