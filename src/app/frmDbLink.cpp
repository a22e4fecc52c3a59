#include "frmDbLink.h"
#include "EnterMovesOn.h"
#include "MessageBox.h"
#include "Venue.h"
#include "ui_frmDbLink.h"
#include <QIntValidator>

frmDbLink::frmDbLink(const QString& home, QWidget* parent)
    : QDialog(parent), m_home(home), ui(std::make_unique<Ui::frmDbLink>()) {
    ui->setupUi(this);
    ui->txtPort->setValidator(new QIntValidator(1, 65535, this));
    const DbConfig c = Venue::connection(home);
    const bool pg = c.backend == Backend::PostgreSQL;
    ui->optServer->setChecked(pg);
    ui->optLocal->setChecked(!pg);
    ui->txtServer->setText(pg ? c.host : QStringLiteral("127.0.0.1"));
    ui->txtPort->setText(QString::number(pg ? c.port : 5432));
    ui->txtDBName->setText(pg ? c.name : QStringLiteral("singbox"));
    ui->txtUser->setText(c.user);
    ui->txtPassword->setText(c.password);
    ui->lblFile->setText(QStringLiteral("内置数据库文件：") + Venue::databaseFile(home));
    EnterMovesOn::install(this);
    connect(ui->optLocal, &QRadioButton::toggled, this, &frmDbLink::showMode);
    connect(ui->cmdTest, &QPushButton::clicked, this, [this] {
        if (cmdTest_Click()) Msg::info(this, QStringLiteral("数据库连接成功！"));
    });
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmDbLink::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    showMode();
}

frmDbLink::~frmDbLink() = default;

void frmDbLink::showMode() {
    ui->fraServer->setEnabled(ui->optServer->isChecked());
    ui->cmdTest->setEnabled(ui->optServer->isChecked());
}

DbConfig frmDbLink::chosen() const {
    if (ui->optLocal->isChecked()) {
        DbConfig c;
        c.file = Venue::databaseFile(m_home);
        return c;
    }
    DbConfig c;
    c.backend = Backend::PostgreSQL;
    c.host = ui->txtServer->text().trimmed();
    c.port = ui->txtPort->text().toInt();
    c.name = ui->txtDBName->text().trimmed();
    c.user = ui->txtUser->text().trimmed();
    c.password = ui->txtPassword->text();
    return c;
}

bool frmDbLink::cmdTest_Click() {
    Db probe;
    try {
        probe.open(chosen());
        return true;
    } catch (const DbError& e) {
        Msg::critical(this, QStringLiteral("无法连接数据库服务器：") + e.description);
        return false;
    }
}

void frmDbLink::cmdOK_Click() {
    const DbConfig c = chosen();
    if (c.backend == Backend::PostgreSQL && (c.host.isEmpty() || c.name.isEmpty())) {
        Msg::info(this, QStringLiteral("请输入服务器地址和数据库名！"));
        (c.host.isEmpty() ? ui->txtServer : ui->txtDBName)->setFocus();
        return;
    }
    if (!Venue::saveConnection(m_home, c)) {
        Msg::critical(this, QStringLiteral("数据连接设置未能保存，请检查 config.ini 是否可写！"));
        return;
    }
    accept();
}
