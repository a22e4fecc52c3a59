#include "frmPayLevel.h"
#include "EnterMovesOn.h"
#include "MessageBox.h"
#include "ScreenFit.h"
#include "Val.h"
#include "ui_frmPayLevel.h"
#include <QRadioButton>

frmPayLevel::frmPayLevel(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmPayLevel>()) {
    ui->setupUi(this);
    // A small or scaled screen scrolls the settings; the buttons stay in sight.
    ScreenFit::scrollItems(ui->layMain, 0, ui->layMain->count() - 1, QStringLiteral("fraPayLevelBody"));
    ui->layPeriods->setRowStretch(5, 1); // keep the period rows together at the top
    for (int i = 0; i < 4; ++i) {
        connect(end(i), &QComboBox::activated, this, [this, i] { endChosen(i); });
    }
    for (auto* o : {ui->optNotOne0, ui->optNotOne1, ui->optNotOne2})
        connect(o, &QRadioButton::toggled, this, &frmPayLevel::showPrivilege);
    connect(ui->cmdOK, &QPushButton::clicked, this, [this] {
        if (cmdOK_Click()) accept();
    });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    EnterMovesOn::install(this);
}

frmPayLevel::~frmPayLevel() = default;

QComboBox* frmPayLevel::end(int i) const {
    return findChild<QComboBox*>(QStringLiteral("cmbEnd") + QString::number(i + 1));
}

QLineEdit* frmPayLevel::box(const char* base, int i) const {
    return findChild<QLineEdit*>(QString::fromLatin1(base) + QString::number(i + 1));
}

void frmPayLevel::refillEnds(int from) {
    for (int i = from; i < 4; ++i) {
        QComboBox* c = end(i);
        c->clear();
        for (int h : m_chain.choices(i)) c->addItem(QString::number(h), h);
        c->setCurrentIndex(m_chain.end[size_t(i)] > 0 ? c->findData(m_chain.end[size_t(i)]) : -1);
        box("txtStart", i)->setText(i == 0 || m_chain.start[size_t(i)] > 0 ? QString::number(m_chain.start[size_t(i)]) : QString());
    }
}

void frmPayLevel::endChosen(int i) {
    if (m_filling) return;
    const int h = end(i)->currentData().toInt();
    m_chain.choose(i, h);
    refillEnds(i + 1);
}

void frmPayLevel::showPrivilege() {
    const bool on = ui->optNotOne1->isChecked();
    ui->txtPrivilegeTime->setVisible(on);
    ui->lblPrivilege1->setVisible(on);
    ui->lblPrivilege2->setVisible(on);
}

void frmPayLevel::fill(const PayLevelInput& in) {
    m_filling = true;
    ui->txtPayLevelName->setText(in.name);
    ui->txtDesc->setText(in.description);
    ui->txtAfterTime->setText(in.afterTime);
    m_chain = PeriodChain();
    for (int i = 0; i < 4; ++i) {
        const int e = int(Val(in.end[size_t(i)]));
        if (e > 0 && m_chain.choices(i).contains(e)) m_chain.choose(i, e);
        box("txtPrice", i)->setText(in.price[size_t(i)]);
        box("txtMinMoney", i)->setText(in.minMoney[size_t(i)]);
        box("txtPriceA", i)->setText(in.priceA[size_t(i)]);
        box("txtMinMoneyA", i)->setText(in.minMoneyA[size_t(i)]);
    }
    refillEnds(0);
    ui->txtUnit->setText(in.unit);
    ui->txtPrivilegeTime->setText(in.privilegeTime);
    (in.notOne == 1 ? ui->optNotOne1 : in.notOne == 2 ? ui->optNotOne2 : ui->optNotOne0)->setChecked(true);
    ui->ctbThis->setCurrentIndex(in.payType == 0 ? 0 : 1);
    showPrivilege();
    m_filling = false;
}

void frmPayLevel::prepare(const QString& id) {
    m_id = id;
    ui->txtChaoshi->setText(QStringLiteral("5"));
    ui->txtMaiduan->setText(QStringLiteral("500"));
    PayLevelInput in;
    for (int i = 0; i < 4; ++i) {
        in.price[size_t(i)] = in.minMoney[size_t(i)] = in.priceA[size_t(i)] = in.minMoneyA[size_t(i)] = QStringLiteral("0");
    }
    if (!id.isEmpty()) {
        bool found = false;
        const PayLevelInput stored = PayLevelService::load(id, &found);
        if (found) in = stored;
    }
    fill(in);
    setWindowTitle(id.isEmpty() ? QStringLiteral("新增计费标准") : QStringLiteral("修改计费标准"));
    ui->txtPayLevelName->setFocus();
}

bool frmPayLevel::Add() {
    prepare(QString());
    return exec() == QDialog::Accepted;
}

bool frmPayLevel::Edit(const QString& id) {
    try {
        prepare(id);
    } catch (const DbError& e) {
        Msg::critical(parentWidget(), e.message(QStringLiteral("Form_Load"), QStringLiteral("frmPayLevel")));
        return false;
    }
    return exec() == QDialog::Accepted;
}

PayLevelInput frmPayLevel::input() const {
    PayLevelInput in;
    in.name = ui->txtPayLevelName->text();
    in.description = ui->txtDesc->text();
    in.payType = ui->ctbThis->currentIndex() == 0 ? 0 : 1;
    in.afterTime = ui->txtAfterTime->text();
    for (int i = 0; i < 4; ++i) {
        in.end[size_t(i)] = end(i)->currentIndex() >= 0 ? end(i)->currentText() : QString();
        in.price[size_t(i)] = box("txtPrice", i)->text();
        in.minMoney[size_t(i)] = box("txtMinMoney", i)->text();
        in.priceA[size_t(i)] = box("txtPriceA", i)->text();
        in.minMoneyA[size_t(i)] = box("txtMinMoneyA", i)->text();
    }
    in.unit = ui->txtUnit->text();
    in.notOne = ui->optNotOne1->isChecked() ? 1 : ui->optNotOne2->isChecked() ? 2 : 0;
    in.privilegeTime = ui->txtPrivilegeTime->text();
    return in;
}

bool frmPayLevel::cmdOK_Click() {
    const PayLevelInput in = input();
    if (const Refused r = PayLevelService::validate(in)) {
        Msg::info(this, r->message);
        if (QWidget* w = findChild<QWidget*>(r->field)) {
            if (w->objectName().startsWith(QLatin1String("txtMinMoneyA")))
                ui->ctbThis->setCurrentIndex(0);
            else if (w->objectName().startsWith(QLatin1String("txtMinMoney")) || w == ui->txtUnit || w == ui->txtPrivilegeTime)
                ui->ctbThis->setCurrentIndex(1);
            w->setFocus();
            if (auto* e = qobject_cast<QLineEdit*>(w); e && w == ui->txtPrivilegeTime) e->selectAll();
        }
        return false;
    }
    try {
        const QString key = PayLevelService::save(m_id, in);
        if (key.isEmpty()) { // the row went away meanwhile
            reject();
            return false;
        }
        m_id = key;
        return true;
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("SaveData"), QStringLiteral("frmPayLevel")));
        return false;
    }
}
