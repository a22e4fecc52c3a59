#include "frmMember.h"
#include "Clock.h"
#include "EnterMovesOn.h"
#include "MemberClassService.h"
#include "RefusalShow.h"
#include "ScreenFit.h"
#include "ui_frmMember.h"
#include <QBuffer>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>

frmMember::frmMember(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmMember>()) {
    ui->setupUi(this);
    // A small or scaled screen scrolls the details; the buttons stay in sight.
    ScreenFit::scrollItems(ui->layMain, 0, ui->layMain->count() - 1, QStringLiteral("fraMemberBody"));
    EnterMovesOn::install(this);
    // Qt's date boxes have no empty state: the tick beside the birthday stands for it.
    connect(ui->chkBirthday, &QCheckBox::toggled, ui->dtpBirthday, &QWidget::setEnabled);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmMember::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->imgcmbMemberSetup, &QComboBox::activated, this, &frmMember::LoadSetupValue);
    connect(ui->cmdImageDel, &QPushButton::clicked, this, &frmMember::cmdImageDel_Click);
    connect(ui->cmdPhotoPaste, &QPushButton::clicked, this, &frmMember::cmdPhotoPaste_Click);
    connect(ui->cmdImageSet, &QPushButton::clicked, this, [this] {
        const QString path =
            QFileDialog::getOpenFileName(this, QStringLiteral("选择照片"), QString(),
                                         QStringLiteral("bmp,jpg,gif图象文件 (*.jpg *.gif *.bmp)"));
        if (!path.isEmpty() && path != QLatin1String("Y")) setPhotoFile(path);
    });
}

frmMember::~frmMember() = default;

void frmMember::Init() {
    m_saved = false;
    ui->imgcmbMemberSetup->clear();
    try {
        for (const Row r : MemberClassService().list())
            ui->imgcmbMemberSetup->addItem(r.text(QStringLiteral("SetupName")),
                                           r.text(QStringLiteral("SetupID")));
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Init"), QStringLiteral("frmMember")));
    }
    ui->imgcmbMemberSetup->setCurrentIndex(ui->imgcmbMemberSetup->count() > 0 ? 0 : -1);
}

void frmMember::startAdd() {
    m_mode = 0;
    m_code.clear();
    Init();
    ClearData();
    setBirthday({});
    LoadSetupValue();
}

bool frmMember::startEdit(const QString& memberCode) {
    m_mode = 1;
    Init();
    std::optional<MemberInput> m;
    QByteArray picture;
    try {
        MemberService s;
        m = s.load(memberCode);
        if (m) picture = s.photo(memberCode);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Init"), QStringLiteral("frmMember")));
    }
    if (!m) return false;
    m_code = memberCode;
    ui->txtMemberCode->setText(m->code);
    ui->txtMemberName->setText(m->name);
    (m->male ? ui->optSex0 : ui->optSex1)->setChecked(true);
    ui->dtpAddDate->setDateTime(m->addDate.isValid() ? m->addDate : Now());
    // A state beyond the two of the combo shows blank and is written back unchanged.
    m_state = m->state;
    ui->cmbState->setCurrentIndex(m->state == 0 || m->state == 1 ? m->state : -1);
    // The class first, then the stored points, so that the load keeps the member's balance.
    ui->imgcmbMemberSetup->setCurrentIndex(ui->imgcmbMemberSetup->findData(m->setupID));
    ui->txtMemberValue->setText(m->memberValue);
    ui->txtNationality->setText(m->nationality);
    ui->txtIDCard->setText(m->idCard);
    ui->txtAddress->setText(m->address);
    ui->txtPhone->setText(m->phone);
    ui->txtMovePhone->setText(m->movePhone);
    ui->txtFax->setText(m->fax);
    ui->txtPostCode->setText(m->postCode);
    ui->txtEMail->setText(m->email);
    ui->txtComName->setText(m->comName);
    ui->txtcomAddress->setText(m->comAddress);
    ui->txtComPostCode->setText(m->comPostCode);
    ui->txtTheFunction->setText(m->theFunction);
    ui->txtDesc->setText(m->description);
    ui->txtSMS->setText(m->sms);
    setBirthday(m->birthday);
    m_photo = {picture.isEmpty() ? MemberPhoto::Clear : MemberPhoto::Keep, {}, {}};
    showPhoto(picture);
    ui->txtMemberCode->setFocus();
    return true;
}

bool frmMember::Add() {
    startAdd();
    exec();
    return m_saved;
}

bool frmMember::Edit(const QString& memberCode) {
    if (!startEdit(memberCode)) return false;
    exec();
    return m_saved;
}

void frmMember::setBirthday(const QDate& day) {
    ui->chkBirthday->setChecked(day.isValid());
    ui->dtpBirthday->setEnabled(day.isValid());
    ui->dtpBirthday->setDate(day.isValid() ? day : QDate(1990, 1, 1));
}

void frmMember::LoadSetupValue() {
    const QString id = ui->imgcmbMemberSetup->currentData().toString();
    if (ui->imgcmbMemberSetup->currentIndex() < 0) return;
    try {
        if (const std::optional<double> points = MemberClassService().initValue(id))
            ui->txtMemberValue->setText(QString::number(*points, 'g', 15));
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadSetupValue"), QStringLiteral("frmMember")));
    }
}

// Ready for the next member: the class stays chosen but its points are not filled in again.
void frmMember::ClearData() {
    for (QLineEdit* e : findChildren<QLineEdit*>())
        if (!e->parent()->inherits("QAbstractSpinBox") && !e->parent()->inherits("QComboBox")) e->clear();
    ui->optSex0->setChecked(true);
    ui->dtpAddDate->setDateTime(Now());
    ui->cmbState->setCurrentIndex(0);
    cmdImageDel_Click();
    ui->txtMemberCode->setFocus();
}

void frmMember::showPhoto(const QByteArray& data) {
    QPixmap pm;
    if (!data.isEmpty() && pm.loadFromData(data)) {
        ui->imgThisPhoto->setPixmap(
            pm.scaled(ui->imgThisPhoto->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    } else {
        ui->imgThisPhoto->setPixmap(QPixmap());
        ui->imgThisPhoto->setText(QStringLiteral("无照片"));
    }
}

void frmMember::setPhotoFile(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return Msg::warn(this, QStringLiteral("无法读取照片文件：") + path);
    m_photo = {MemberPhoto::File, path, {}};
    showPhoto(f.readAll());
}

void frmMember::cmdPhotoPaste_Click() {
    const QImage image = QGuiApplication::clipboard()->image();
    if (image.isNull()) return;
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    m_photo = {MemberPhoto::Data, {}, png};
    showPhoto(png);
}

void frmMember::cmdImageDel_Click() {
    m_photo = {MemberPhoto::Clear, {}, {}};
    showPhoto({});
}

MemberInput frmMember::input() const {
    MemberInput in;
    in.code = ui->txtMemberCode->text();
    in.name = ui->txtMemberName->text();
    in.male = ui->optSex0->isChecked();
    in.addDate = ui->dtpAddDate->dateTime();
    in.setupID = ui->imgcmbMemberSetup->currentIndex() < 0 ? QString()
                                                           : ui->imgcmbMemberSetup->currentData().toString();
    in.state = ui->cmbState->currentIndex() < 0 ? m_state : ui->cmbState->currentIndex();
    in.memberValue = ui->txtMemberValue->text();
    in.nationality = ui->txtNationality->text();
    in.idCard = ui->txtIDCard->text();
    in.address = ui->txtAddress->text();
    in.phone = ui->txtPhone->text();
    in.movePhone = ui->txtMovePhone->text();
    in.fax = ui->txtFax->text();
    in.postCode = ui->txtPostCode->text();
    in.email = ui->txtEMail->text();
    in.comName = ui->txtComName->text();
    in.comAddress = ui->txtcomAddress->text();
    in.comPostCode = ui->txtComPostCode->text();
    in.theFunction = ui->txtTheFunction->text();
    in.description = ui->txtDesc->text();
    in.sms = ui->txtSMS->text();
    if (ui->chkBirthday->isChecked()) in.birthday = ui->dtpBirthday->date();
    return in;
}

void frmMember::OKButton_Click() {
    ui->OKButton->setEnabled(false);
    const MemberSaved s = MemberService().save(m_mode == 0 ? QString() : m_code, input(), m_photo);
    ui->OKButton->setEnabled(true);
    if (s.refusal) return ShowRefusal(this, *s.refusal);
    if (!s.saved) return reject(); // deleted meanwhile
    m_saved = true;
    if (m_mode == 1) return accept();
    ClearData();
}
