#include "frmChangePw.h"
#include "EnterMovesOn.h"
#include "PasswordChange.h"
#include "RefusalShow.h"
#include "ui_frmChangePw.h"

frmChangePw::frmChangePw(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmChangePw>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmChangePw::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmChangePw::~frmChangePw() = default;

void frmChangePw::prepare(int kind, const QString& id) {
    m_kind = kind == 2 ? 2 : 1;
    m_id = id;
    setWindowTitle(m_kind == 2 ? QStringLiteral("修改会员密码") : QStringLiteral("修改登录密码"));
    ui->txtNowPw->clear();
    ui->txtpw->clear();
    ui->txtPw1->clear();
    ui->txtNowPw->setFocus();
}

void frmChangePw::ShowMe(int kind, const QString& id) {
    prepare(kind, id);
    exec();
}

void frmChangePw::OKButton_Click() {
    ui->OKButton->setEnabled(false);
    const Refused r =
        ChangePassword({m_kind, m_id, ui->txtNowPw->text(), ui->txtpw->text(), ui->txtPw1->text()});
    ui->OKButton->setEnabled(true);
    if (r) return ShowRefusal(this, *r);
    accept();
    Msg::info(parentWidget(), QStringLiteral("密码修改成功！"));
}
