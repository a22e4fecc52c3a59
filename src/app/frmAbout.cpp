#include "frmAbout.h"
#include "AppState.h"
#include "Artwork.h"
#include "frmLogin.h"
#include "ui_frmAbout.h"

frmAbout::frmAbout(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmAbout>()) {
    ui->setupUi(this);
    setWindowTitle(QStringLiteral("关于 ") + App().AppTitle);
    ui->imgSoftName->setPixmap(SoftNameBanner(QSize(380, 100), devicePixelRatioF()));
    ui->lblTitle->setText(App().AppTitle + QStringLiteral(" 包厢营业管理系统"));
    ui->lblVer->setText(App().AppVersionText);
    ui->lblWeb->setText(QStringLiteral("<a href=\"%1\">%1</a>").arg(QLatin1String(MakerWeb)));
    ui->lblMail->setText(QStringLiteral("<a href=\"mailto:support@xinglan-ktv.cn\">support@xinglan-ktv.cn</a>"));
    connect(ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmAbout::~frmAbout() = default;
