#include "frmReservation.h"
#include "Clock.h"
#include "Format.h"
#include "MessageBox.h"
#include "Puissance.h"
#include "RefusalShow.h"
#include "ReservationService.h"
#include "ScreenFit.h"
#include "frmEditReservation.h"
#include "ui_frmReservation.h"
#include <QHeaderView>

frmReservation::frmReservation(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmReservation>()) {
    ui->setupUi(this);
    ScreenFit::install(this, QSize(1080, 520));
    resize(1080, 520);
    connect(ui->chkShowOld, &QCheckBox::toggled, this, &frmReservation::LoadReservation);
    connect(ui->cmdNew, &QPushButton::clicked, this, &frmReservation::cmdNew_Click);
    connect(ui->cmdReservationEdit, &QPushButton::clicked, this, &frmReservation::cmdReservationEdit_Click);
    connect(ui->cmdReservationCancel, &QPushButton::clicked, this, &frmReservation::cmdReservationCancel_Click);
    connect(ui->cmdReservationDel, &QPushButton::clicked, this, &frmReservation::cmdReservationDel_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->lvwThis, &QTreeWidget::itemDoubleClicked, this, &frmReservation::cmdReservationEdit_Click);
}

frmReservation::~frmReservation() = default;

void frmReservation::ShowMe(QWidget* parent) {
    frmReservation w(parent);
    w.LoadReservation();
    w.exec();
}

void frmReservation::LoadReservation() {
    QTreeWidget* l = ui->lvwThis;
    l->clear();
    l->setHeaderLabels({QStringLiteral("距离时间"), QStringLiteral("预订时间"), QStringLiteral("预订人"),
                        QStringLiteral("联系电话"), QStringLiteral("顾客人数"), QStringLiteral("预抵时间"),
                        QStringLiteral("保留时间"), QStringLiteral("包厢类型"), QStringLiteral("手牌编号"),
                        QStringLiteral("登记人"), QStringLiteral("备注")});
    const QDateTime now = Now();
    Rows rows;
    try {
        rows = ReservationService().list(ui->chkShowOld->isChecked(), now);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadReservation"), QStringLiteral("frmReservation")));
        return;
    }
    QList<QTreeWidgetItem*> items;
    for (const Row r : rows) {
        const QDateTime start = ParseTime(r.text(QStringLiteral("startTime")));
        auto* it = new QTreeWidgetItem({HoursAwayText(now, start), r.text(QStringLiteral("ReservationTime")),
                                        r.text(QStringLiteral("CustomerName")), r.text(QStringLiteral("CustomerPhone")),
                                        r.text(QStringLiteral("CustomerNum")), r.text(QStringLiteral("startTime")),
                                        r.text(QStringLiteral("endtime")), r.text(QStringLiteral("AssortName")),
                                        r.text(QStringLiteral("TheCode")), r.text(QStringLiteral("operatorname")),
                                        r.text(QStringLiteral("Description"))});
        it->setData(0, Qt::UserRole, QString(QStringLiteral("K") + r.text(QStringLiteral("ReservationID"))));
        if (IsSoon(HoursAway(now, start))) {
            QFont bold = it->font(0);
            bold.setBold(true);
            for (int c = 0; c < it->columnCount(); ++c)
                it->setFont(c, bold);
        }
        items << it;
    }
    l->addTopLevelItems(items);
    for (int c = 0; c < l->columnCount(); ++c)
        l->resizeColumnToContents(c);
}

QString frmReservation::selectedID() const {
    const QTreeWidgetItem* it = ui->lvwThis->currentItem();
    return it && it->isSelected() ? it->data(0, Qt::UserRole).toString().mid(1) : QString();
}

void frmReservation::cmdNew_Click() {
    if (!CheckButton(this, QStringLiteral("cmdNew"))) return;
    bool isNow = false;
    frmEditReservation dlg(this);
    if (!dlg.Add(isNow, {}).isEmpty()) LoadReservation();
}

void frmReservation::cmdReservationEdit_Click() {
    if (!CheckButton(this, QStringLiteral("cmdReservationEdit"))) return;
    const QString id = selectedID();
    if (id.isEmpty()) return;
    frmEditReservation dlg(this);
    if (!dlg.Edit(id).isEmpty()) LoadReservation();
}

void frmReservation::cmdReservationCancel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdReservationCancel"))) return;
    const QString id = selectedID();
    if (id.isEmpty()) return;
    try {
        if (ReservationService().cancel(id)) LoadReservation();
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("cmdReservationCancel_Click"), QStringLiteral("frmReservation")));
    }
}

void frmReservation::cmdReservationDel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdReservationDel"))) return;
    const QString id = selectedID();
    if (id.isEmpty()) return;
    bool removed = false;
    if (const Refused r = ReservationService().remove(id, &removed)) return ShowRefusal(this, *r);
    if (removed) LoadReservation();
}
