#include "frmEmployee.h"
#include "EnterMovesOn.h"
#include "RefusalShow.h"
#include "ui_frmEmployee.h"
#include <QFile>
#include <QFileDialog>
#include <QPixmap>

namespace {
const QDate NoDate(1900, 1, 1);
}

frmEmployee::frmEmployee(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmEmployee>()) {
    ui->setupUi(this);
    EnterMovesOn::install(this);
    // The earliest date stands for "not given" and shows blank.
    ui->dtpEmployeeBorn->setMinimumDate(NoDate);
    ui->dtpEmployeeBorn->setSpecialValueText(QStringLiteral(" "));
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmEmployee::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->cmdImageDel, &QPushButton::clicked, this, &frmEmployee::cmdImageDel_Click);
    connect(ui->cmdImageSet, &QPushButton::clicked, this, [this] {
        const QString path =
            QFileDialog::getOpenFileName(this, QStringLiteral("选择照片"), QString(),
                                         QStringLiteral("bmp,jpg,gif图象文件 (*.jpg *.gif *.bmp *.png)"));
        if (!path.isEmpty()) setPhotoFile(path);
    });
}

frmEmployee::~frmEmployee() = default;

void frmEmployee::showPhoto(const QByteArray& data) {
    QPixmap pm;
    if (!data.isEmpty() && pm.loadFromData(data)) {
        ui->imgThisPhoto->setPixmap(
            pm.scaled(ui->imgThisPhoto->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    } else {
        ui->imgThisPhoto->setPixmap(QPixmap());
        ui->imgThisPhoto->setText(QStringLiteral("无照片"));
    }
}

void frmEmployee::startAdd() {
    m_id.clear();
    m_saved = false;
    m_photo = {PhotoChange::Clear, {}};
    for (QLineEdit* e : findChildren<QLineEdit*>())
        e->clear();
    ui->optSex0->setChecked(true);
    ui->dtpEmployeeBorn->setDate(NoDate);
    ui->cmbState->setCurrentIndex(0);
    m_storedState = 0;
    showPhoto({});
    ui->txtEmployeeCode->setFocus();
}

bool frmEmployee::startEdit(const QString& id) {
    m_saved = false;
    EmployeeService s;
    const std::optional<EmployeeInput> e = s.load(id);
    if (!e) return false;
    m_id = id;
    m_photo = {PhotoChange::Keep, {}};
    ui->txtEmployeeCode->setText(e->code);
    ui->txtEmployeeName->setText(e->name);
    (e->male ? ui->optSex0 : ui->optSex1)->setChecked(true);
    ui->dtpEmployeeBorn->setDate(e->born.isValid() ? e->born : NoDate);
    ui->txtPhone->setText(e->phone);
    ui->txtDesc->setText(e->description);
    ui->txtIDCard->setText(e->idCard);
    ui->txtAddress->setText(e->address);
    ui->txtEMail->setText(e->email);
    ui->txtFax->setText(e->fax);
    ui->txtPostCode->setText(e->postCode);
    ui->txtMovePhone->setText(e->movePhone);
    // A state the list has no entry for shows none and is kept unless one is chosen.
    m_storedState = e->state;
    ui->cmbState->setCurrentIndex(e->state == 0 || e->state == 1 ? e->state : -1);
    showPhoto(s.photo(id));
    ui->txtEmployeeCode->setFocus();
    return true;
}

bool frmEmployee::Add() {
    startAdd();
    exec();
    return m_saved;
}

bool frmEmployee::Edit(const QString& id) {
    if (!startEdit(id)) return false;
    exec();
    return m_saved;
}

void frmEmployee::setPhotoFile(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return Msg::warn(this, QStringLiteral("无法读取照片文件：") + path);
    m_photo = {PhotoChange::File, path};
    showPhoto(f.readAll());
}

void frmEmployee::cmdImageDel_Click() {
    m_photo = {PhotoChange::Clear, {}};
    showPhoto({});
}

EmployeeInput frmEmployee::input() const {
    EmployeeInput in;
    in.code = ui->txtEmployeeCode->text();
    in.name = ui->txtEmployeeName->text();
    in.male = ui->optSex0->isChecked();
    in.born = ui->dtpEmployeeBorn->date() == NoDate ? QDate() : ui->dtpEmployeeBorn->date();
    in.phone = ui->txtPhone->text();
    in.description = ui->txtDesc->text();
    in.idCard = ui->txtIDCard->text();
    in.address = ui->txtAddress->text();
    in.email = ui->txtEMail->text();
    in.fax = ui->txtFax->text();
    in.postCode = ui->txtPostCode->text();
    in.movePhone = ui->txtMovePhone->text();
    in.state = ui->cmbState->currentIndex() >= 0 ? ui->cmbState->currentIndex() : m_storedState;
    return in;
}

void frmEmployee::cmdOK_Click() {
    ui->cmdOK->setEnabled(false);
    const EmployeeSaved s = EmployeeService().save(m_id, input(), m_photo);
    ui->cmdOK->setEnabled(true);
    if (!s.ok()) return ShowRefusal(this, *s.refusal);
    if (s.id.isEmpty()) return reject(); // deleted meanwhile
    m_id = s.id;
    m_saved = true;
    accept();
}
