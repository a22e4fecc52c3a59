#include "frmSetup.h"
#include "AppState.h"
#include "DataAdmin.h"
#include "MessageBox.h"
#include "ui_frmSetup.h"
#include <QApplication>
#include <QDir>
#include <QFileDialog>

frmSetup::frmSetup(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmSetup>()) {
    ui->setupUi(this);
    connect(ui->cmdSelectBackup, &QPushButton::clicked, this, &frmSetup::cmdSelectBackup_Click);
    connect(ui->cmdBackup, &QPushButton::clicked, this, &frmSetup::cmdBackup_Click);
    connect(ui->cmdSelectResume, &QPushButton::clicked, this, &frmSetup::cmdSelectResume_Click);
    connect(ui->cmdResume, &QPushButton::clicked, this, &frmSetup::cmdResume_Click);
    connect(ui->cmdClearBusinessData, &QPushButton::clicked, this, &frmSetup::cmdClearBusinessData_Click);
    connect(ui->cmdClearAllData, &QPushButton::clicked, this, &frmSetup::cmdClearAllData_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    // A server keeps its data itself: the file operations give way to what to do there.
    const bool server = DB().backend() != Backend::SQLite;
    ui->fraBackup->setEnabled(!server);
    ui->fraResume->setEnabled(!server);
    ui->lblServer->setVisible(server);
    if (server) ui->lblServer->setText(DataAdmin::ServerBackupAdvice());
}

frmSetup::~frmSetup() = default;

void frmSetup::ShowMe() {
    exec();
}

void frmSetup::cmdSelectBackup_Click() {
    const QString name = QFileDialog::getSaveFileName(
        this, QStringLiteral("选择备份的目标文件"), QDir(App().AppPath).filePath(QStringLiteral("DBBackup")),
        QStringLiteral("星澜系统数据文件 (*.db)"));
    if (name.isEmpty()) return;
    ui->txtBackupFileName->setText(
        name.endsWith(QStringLiteral(".db"), Qt::CaseInsensitive) ? name : name + QStringLiteral(".db"));
}

void frmSetup::cmdBackup_Click() {
    const QString name = ui->txtBackupFileName->text().trimmed();
    if (name.isEmpty()) return;
    // One backup at a time; the bar shows how far it is.
    ui->cmdBackup->setEnabled(false);
    ui->prgBackup->setValue(0);
    ui->prgBackup->show();
    const QString why = DataAdmin::BackupDatabase(name, false, DB(), [this](int done, int total) {
        ui->prgBackup->setMaximum(qMax(total, 1));
        ui->prgBackup->setValue(done);
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    ui->prgBackup->hide();
    ui->cmdBackup->setEnabled(true);
    if (why.isEmpty())
        Msg::info(this, QStringLiteral("备份数据成功！"));
    else
        Msg::critical(this, DataAdmin::BackupErrorText(why));
}

void frmSetup::cmdSelectResume_Click() {
    const QString name = QFileDialog::getOpenFileName(
        this, QStringLiteral("选择要恢复的文件"), QDir(App().AppPath).filePath(QStringLiteral("DBBackup")),
        QStringLiteral("星澜系统数据文件 (*.db)"));
    if (!name.isEmpty()) ui->txtResumeFileName->setText(name);
}

void frmSetup::cmdResume_Click() {
    const QString name = ui->txtResumeFileName->text().trimmed();
    if (name.isEmpty()) return;
    if (!Msg::confirm(this, QStringLiteral("恢复数据将会消除系统当前所有的数据，您确认要这样作吗？"),
                      QMessageBox::Cancel))
        return;
    ui->cmdResume->setEnabled(false);
    QString why;
    try {
        why = DataAdmin::RestoreDatabase(name);
    } catch (const DbError& e) {
        why = e.description;
    }
    ui->cmdResume->setEnabled(true);
    if (!why.isEmpty()) return Msg::critical(this, DataAdmin::RestoreErrorText(why));
    Msg::info(this, QStringLiteral("恢复数据成功！系统将自动退出，退出后请您重新登陆系统！"));
    finish();
}

void frmSetup::purge(bool includeMasterData, const QString& closing) {
    if (Msg::show(this, QStringLiteral("您打算清除系统中的所有数据吗？"), Msg::Icon::Question,
                  QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
        return;
    int count = 0;
    try {
        count = DataAdmin::DelAllData(includeMasterData);
    } catch (const DbError& e) {
        return Msg::critical(this, e.message(QStringLiteral("DelAllData"), QStringLiteral("frmSetup")));
    }
    Msg::info(this, QStringLiteral("系统共清除了") + QString::number(count) + QStringLiteral("条数据！\n") +
                        closing);
    finish();
}

void frmSetup::cmdClearBusinessData_Click() {
    purge(false, QStringLiteral("系统将自动退出，退出后请您重新登陆系统！"));
}

void frmSetup::cmdClearAllData_Click() {
    purge(true, QStringLiteral("提示：系统将自动退出，请重新登陆系统！"));
}

void frmSetup::finish() {
    m_end = true;
    accept();
}
