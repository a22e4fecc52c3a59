#include "frmHouseAddBat.h"
#include "EnterMovesOn.h"
#include "RefusalShow.h"
#include "RoomService.h"
#include "Val.h"
#include "ui_frmHouseAddBat.h"
#include <cmath>

frmHouseAddBat::frmHouseAddBat(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmHouseAddBat>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmHouseAddBat::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    for (QLineEdit* box : {ui->txtMarkerText, ui->txtHouseCode, ui->txtEndCode})
        connect(box, &QLineEdit::textChanged, this, &frmHouseAddBat::showSample);
}

frmHouseAddBat::~frmHouseAddBat() = default;

// Shows which codes the run will make, so a wrong marker shows before saving.
void frmHouseAddBat::showSample() {
    const QString marker = ui->txtMarkerText->text();
    const QString start = ui->txtHouseCode->text(), end = ui->txtEndCode->text();
    if (!IsNumeric(start) || !IsNumeric(end) || !(Val(end) > Val(start))) {
        ui->lblSample->setText(QStringLiteral("例如：标识字符 A，编号 1 至 8，增加 A1 至 A8"));
        return;
    }
    const double first = Val(start), steps = std::floor(Val(end) - first);
    ui->lblSample->setText(QStringLiteral("将增加 %1 至 %2，共 %3 个包厢")
                               .arg(BatchCode(marker, first), BatchCode(marker, first + steps))
                               .arg(steps + 1, 0, 'f', 0));
}

void frmHouseAddBat::startAdd() {
    m_added = 0;
    ui->imgcmbAssort->clear();
    for (const Row r : RoomService().roomTypes())
        ui->imgcmbAssort->addItem(r.text(QStringLiteral("AssortName")), r.text(QStringLiteral("AssortID")));
    ui->imgcmbAssort->setCurrentIndex(-1);
    for (QLineEdit* box : {ui->txtMarkerText, ui->txtHouseCode, ui->txtEndCode, ui->txtDesc})
        box->clear();
    showSample();
    ui->txtMarkerText->setFocus();
}

bool frmHouseAddBat::Add() {
    startAdd();
    exec();
    return saved();
}

void frmHouseAddBat::cmdOK_Click() {
    ui->cmdOK->setEnabled(false);
    const BatchAdded b =
        RoomService().addRooms({ui->txtMarkerText->text(), ui->txtHouseCode->text(), ui->txtEndCode->text(),
                                ui->imgcmbAssort->currentData().toString(), ui->txtDesc->text()});
    ui->cmdOK->setEnabled(true);
    if (!b.ok()) return ShowRefusal(this, *b.refusal);
    m_added = b.added;
    accept();
}
