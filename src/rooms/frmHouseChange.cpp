#include "frmHouseChange.h"
#include "EnterMovesOn.h"
#include "MessageBox.h"
#include "RefusalShow.h"
#include "RoomUse.h"
#include "ui_frmHouseChange.h"

frmHouseChange::frmHouseChange(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmHouseChange>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmHouseChange::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmHouseChange::~frmHouseChange() = default;

bool frmHouseChange::prepare(const QString& expenseID) {
    m_changed = false;
    std::optional<HouseChangeView> v;
    try {
        v = RoomUseService().loadChange(expenseID);
    } catch (const DbError& e) {
        Msg::critical(parentWidget(),
                      e.message(QStringLiteral("Form_Load"), QStringLiteral("frmHouseChange")));
        return false;
    }
    if (!v) {
        Msg::warn(parentWidget(), RoomUseText::billClosed());
        return false;
    }
    m_expenseID = v->expenseID;
    ui->txtOldHouseCode->setText(v->oldHouseCode);
    ui->txtDesc->setText(v->description);
    ui->txtNewHouseCode->setFocus();
    return true;
}

bool frmHouseChange::Edit(const QString& expenseID) {
    if (!prepare(expenseID)) return false;
    exec();
    return m_changed;
}

void frmHouseChange::OKButton_Click() {
    ui->OKButton->setEnabled(false);
    const Refused r = RoomUseService().change(
        {m_expenseID, ui->txtOldHouseCode->text(), ui->txtNewHouseCode->text(), ui->txtDesc->text()});
    ui->OKButton->setEnabled(true);
    if (r) {
        if (r->icon == Msg::Icon::Critical) Msg::critical(this, QStringLiteral("换台失败！"));
        return ShowRefusal(this, *r);
    }
    m_changed = true;
    m_summary = QStringLiteral("%1 已换台到 %2")
                    .arg(ui->txtOldHouseCode->text(), ui->txtNewHouseCode->text().trimmed());
    accept();
}
