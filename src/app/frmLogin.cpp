#include "frmLogin.h"
#include "AppInit.h"
#include "AppState.h"
#include "Artwork.h"
#include "EnterMovesOn.h"
#include "Ini.h"
#include "MessageBox.h"
#include "SignIn.h"
#include "frmDbLink.h"
#include "ui_frmLogin.h"
#include <QDir>
#include <QPixmap>

frmLogin::frmLogin(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmLogin>()) {
    ui->setupUi(this);
    setWindowTitle(App().AppTitle + QStringLiteral(" - 登录"));
    const QString image = QDir(App().AppPath).filePath(QStringLiteral("Image/softname.jpg"));
    QPixmap banner(image);
    ui->imgSoftName->setPixmap(banner.isNull() ? SoftNameBanner(QSize(460, 120), devicePixelRatioF()) : banner);
    ui->lblHelp->setText(QStringLiteral("提示:初始用户名为admin，无密码"));
    ui->lblVer->setText(App().AppVersionText);
    ui->lblWeb->setText(QStringLiteral("<a href=\"%1\">%1</a>").arg(QLatin1String(MakerWeb)));
    ui->txtUserName->clear();
    ui->txtUserName->setEnabled(true);
    if (App().IsNetVersion != 1) ui->cmdSelectDB->setVisible(GetIni(QStringLiteral("IsShowDBLink")) == QLatin1String("1"));
    EnterMovesOn::install(this, {ui->txtPassword});
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmLogin::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->cmdSelectDB, &QPushButton::clicked, this, &frmLogin::cmdSelectDB_Click);
    // Enter in the password box signs in through the default button cmdOK, and only there:
    // one press, one attempt.
    ui->txtUserName->setFocus();
}

frmLogin::~frmLogin() = default;

void frmLogin::cmdSelectDB_Click() {
    frmDbLink dlg(App().AppPath, this);
    dlg.exec();
}

void frmLogin::failed() {
    Msg::show(this, QStringLiteral("无效的登录名或密码，请重试!"), Msg::Icon::Exclamation, QMessageBox::Ok,
              QMessageBox::NoButton, QStringLiteral("登录"));
    LogSignInFailure(ui->txtUserName->text());
    ui->txtUserName->setFocus();
    ui->txtUserName->selectAll();
}

void frmLogin::cmdOK_Click() {
    if (!OpenDataBase()) return failed();
    SignInOutcome outcome;
    try {
        outcome = SignIn(ui->txtUserName->text(), ui->txtPassword->text());
    } catch (const DbError&) {
        return failed();
    }
    switch (outcome) {
    case SignInOutcome::Disabled:
        Msg::warn(this, QStringLiteral("此帐号已被停用！"));
        return;
    case SignInOutcome::Invalid:
        Msg::show(this, QStringLiteral("无效的登录名或密码，请重试!"), Msg::Icon::Exclamation, QMessageBox::Ok,
                  QMessageBox::NoButton, QStringLiteral("登录"));
        ui->txtUserName->setFocus();
        ui->txtUserName->selectAll();
        return;
    case SignInOutcome::Ok:
        accept();
        return;
    }
}
