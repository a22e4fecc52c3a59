#include "frmUpdate.h"
#include "AppState.h"
#include "EmployeeService.h"
#include "MessageBox.h"
#include "Puissance.h"
#include "Upgrade.h"
#include "ui_frmUpdate.h"

frmUpdate::frmUpdate(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmUpdate>()) {
    ui->setupUi(this);
    connect(ui->cmdUpdate, &QPushButton::clicked, this, &frmUpdate::cmdUpdate_Click);
    connect(ui->cmdSQL, &QPushButton::clicked, this, &frmUpdate::cmdSQL_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &frmUpdate::Command1_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    LoadData();
}

frmUpdate::~frmUpdate() = default;

void frmUpdate::ShowMe() {
    exec();
}

void frmUpdate::LoadData() {
    try {
        ui->lblNow->setText(Upgrade::CurrentVersion());
    } catch (const DbError& e) {
        ui->lblNow->clear();
        Msg::critical(this, e.message(QStringLiteral("Form_Load"), QStringLiteral("frmUpdate")));
    }
    const Upgrade::Pack pack = Upgrade::ReadPack(App().AppPath);
    ui->lblNew->setText(pack.newVer);
    ui->cmdUpdate->setEnabled(!pack.newVer.isEmpty() &&
                              Upgrade::CompareVersion(pack.newVer, ui->lblNow->text()) > 0);
}

void frmUpdate::cmdUpdate_Click() {
    if (!Msg::confirm(
            this,
            QStringLiteral("如果您已备份了系统和系统数据，请按“确定”按钮进行升级，否则请按“取消”退出升级。")))
        return;
    ui->cmdUpdate->setEnabled(false);
    try {
        Upgrade::ApplyPack(Upgrade::ReadPack(App().AppPath));
        Msg::info(this, QStringLiteral("恭喜您，系统已升级为最新版本！"));
    } catch (const DbError& e) {
        Msg::critical(this, QStringLiteral("升级失败  (") + e.description +
                                QStringLiteral(") in procedure cmdUpdate_Click of Form frmUpdate"));
    }
    LoadData();
}

void frmUpdate::cmdSQL_Click() {
    if (!CheckButton(this, QStringLiteral("cmdSQL"))) return;
    const QString sql = ui->txtSQL->toPlainText().trimmed();
    if (sql.isEmpty()) return;
    try {
        Upgrade::RunSql(sql);
        Msg::info(this, QStringLiteral("执行成功！"));
    } catch (const DbError& e) {
        Msg::critical(this, QStringLiteral("执行失败！ Error ") + QString::number(e.number) +
                                QStringLiteral(" in procedure cmdSQL_Click of Form frmUpdate\n") +
                                e.description);
    }
    ui->txtSQL->setFocus();
    ui->txtSQL->selectAll();
}

void frmUpdate::Command1_Click() {
    if (Msg::show(
            this,
            QStringLiteral(
                "是否要重新计算员工提成，按“是”将重新计算系统中所有员工提成数据，并将花费一定时间用于计算！"),
            Msg::Icon::Question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
        return;
    try {
        const int lines = RecalcCommissionLines();
        Msg::info(this, lines == 0 ? QStringLiteral("计算完成！") : QStringLiteral("计算成功完成！"));
    } catch (const DbError&) {
        Msg::critical(this, QStringLiteral("计算过程发生错误！"));
    }
}
