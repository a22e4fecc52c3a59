#include "frmWareLevel.h"
#include "EnterMovesOn.h"
#include "RefusalShow.h"
#include "Val.h"
#include "ui_frmWareLevel.h"

frmWareLevel::frmWareLevel(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmWareLevel>()) {
    ui->setupUi(this);
    for (int i = 0; i < 4; ++i)
        connect(end(i), &QComboBox::activated, this, [this, i] { endChosen(i); });
    connect(ui->cmdOK, &QPushButton::clicked, this, [this] {
        if (cmdOK_Click()) accept();
    });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    EnterMovesOn::install(this);
}

frmWareLevel::~frmWareLevel() = default;

QComboBox* frmWareLevel::end(int i) const {
    return findChild<QComboBox*>(QStringLiteral("cmbEnd") + QString::number(i + 1));
}

QLineEdit* frmWareLevel::box(const char* base, int i) const {
    return findChild<QLineEdit*>(QString::fromLatin1(base) + QString::number(i + 1));
}

// Periods follow one another: each starts where the one before ends.
void frmWareLevel::refillEnds(int from) {
    for (int i = from; i < 4; ++i) {
        QComboBox* c = end(i);
        c->clear();
        for (int h : m_chain.choices(i))
            c->addItem(QString::number(h), h);
        c->setCurrentIndex(m_chain.end[size_t(i)] > 0 ? c->findData(m_chain.end[size_t(i)]) : -1);
        const int s = m_chain.start[size_t(i)];
        box("txtStart", i)->setText(i == 0 || s > 0 ? QString::number(s) : QString());
    }
}

void frmWareLevel::endChosen(int i) {
    if (m_filling) return;
    m_chain.choose(i, end(i)->currentData().toInt());
    refillEnds(i + 1);
}

void frmWareLevel::fill(const WareLevelInput& in) {
    m_filling = true;
    ui->txtWareLevelName->setText(in.name);
    ui->txtDescription->setText(in.description);
    m_chain = PeriodChain();
    for (int i = 0; i < 4; ++i) {
        const int e = int(Val(in.end[size_t(i)]));
        if (e > 0 && m_chain.choices(i).contains(e)) m_chain.choose(i, e);
        box("txtDiscount", i)->setText(in.discount[size_t(i)]);
    }
    refillEnds(0);
    m_filling = false;
}

void frmWareLevel::prepare(const QString& wareLevelID) {
    m_id = wareLevelID;
    fill(WareLevelService::load(wareLevelID).value_or(WareLevelInput()));
    ui->txtWareLevelName->setFocus();
}

bool frmWareLevel::Edit(const QString& wareLevelID) {
    prepare(wareLevelID);
    return exec() == QDialog::Accepted;
}

WareLevelInput frmWareLevel::input() const {
    WareLevelInput in;
    in.name = ui->txtWareLevelName->text();
    in.description = ui->txtDescription->text();
    for (int i = 0; i < 4; ++i) {
        in.start[size_t(i)] = box("txtStart", i)->text();
        in.end[size_t(i)] = end(i)->currentIndex() >= 0 ? end(i)->currentText() : QString();
        in.discount[size_t(i)] = box("txtDiscount", i)->text();
    }
    return in;
}

bool frmWareLevel::cmdOK_Click() {
    const WareLevelInput in = input();
    if (const Refused r = WareLevelService::validate(in)) {
        ShowRefusal(this, *r);
        return false;
    }
    ui->cmdOK->setEnabled(false);
    try {
        WareLevelService::save(m_id, in);
        ui->cmdOK->setEnabled(true);
        return true;
    } catch (const DbError& e) {
        ui->cmdOK->setEnabled(true);
        Msg::critical(this, e.message(QStringLiteral("SaveData"), QStringLiteral("frmWareLevel")));
        return false;
    }
}
