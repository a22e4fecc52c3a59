#include "frmWareIn.h"
#include "Clock.h"
#include "EnterMovesOn.h"
#include "Format.h"
#include "MessageBox.h"
#include "RefusalShow.h"
#include "ScreenFit.h"
#include "ui_frmWareIn.h"
#include <QEvent>
#include <QKeyEvent>

frmWareIn::frmWareIn(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmWareIn>()) {
    ui->setupUi(this);
    ScreenFit::install(this, QSize(860, 600));
    EnterMovesOn::install(this, {ui->txtMnemonics});
    ui->lvwThis->setColumnHidden(5, true); // the supplier's key, kept with the line
    ui->txtMnemonics->installEventFilter(this);
    const auto showPrice = [this] { ui->txtPrice->setText(ReceiptPriceText(ui->txtNum->text(), ui->txtTheMoney->text())); };
    connect(ui->txtNum, &QLineEdit::textChanged, this, showPrice);
    connect(ui->txtTheMoney, &QLineEdit::textChanged, this, showPrice);
    connect(ui->cmdAdd, &QPushButton::clicked, this, [this] { addLine(false); });
    connect(ui->cmdWareOut, &QPushButton::clicked, this, [this] { addLine(true); });
    connect(ui->cmdDel, &QPushButton::clicked, this, &frmWareIn::cmdDel_Click);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmWareIn::SaveData);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmWareIn::~frmWareIn() = default;

bool frmWareIn::Add() {
    prepare();
    exec();
    return m_saved;
}

void frmWareIn::prepare() {
    m_saved = false;
    m_lines.clear();
    ui->lvwThis->clear();
    ui->dtpInTime->setDate(Now().date());
    ui->imgcmbSupplier->clear();
    try {
        for (const Row r : ReceiptService().suppliers())
            ui->imgcmbSupplier->addItem(r.text(QStringLiteral("SupplierName")),
                                        QString(QStringLiteral("K") + r.text(QStringLiteral("SupplierID"))));
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Form_Load"), QStringLiteral("frmWareIn")));
    }
    ui->imgcmbSupplier->setCurrentIndex(ui->imgcmbSupplier->count() > 0 ? 0 : -1);
    clearEntry();
}

bool frmWareIn::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui->txtMnemonics) {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                findWare(true);
                return true;
            }
        } else if (event->type() == QEvent::FocusOut && ui->txtMnemonics->text() != m_looked) {
            findWare(false);
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmWareIn::findWare(bool moveOn) {
    const QString text = ui->txtMnemonics->text();
    m_looked = text;
    if (text.trimmed().isEmpty()) {
        if (moveOn) focusNextChild();
        return;
    }
    try {
        m_currentWare = ReceiptService().findWare(text);
    } catch (const DbError& e) {
        m_currentWare.reset();
        Msg::critical(this, e.message(QStringLiteral("txtMnemonics_KeyPress"), QStringLiteral("frmWareIn")));
    }
    ui->txtWareName->setText(m_currentWare ? m_currentWare->wareName : QString());
    ui->txtWareUnit->setText(m_currentWare ? m_currentWare->wareUnit : QString());
    if (!m_currentWare) {
        Msg::info(this, QStringLiteral("没找到您输入的商品或服务，请检查输入是否正确！"));
        ui->txtMnemonics->setFocus();
        ui->txtMnemonics->selectAll();
        return;
    }
    if (moveOn) ui->txtNum->setFocus();
}

void frmWareIn::addLine(bool out) {
    const QString supplierID =
        ui->imgcmbSupplier->currentIndex() < 0 ? QString() : ui->imgcmbSupplier->currentData().toString().mid(1);
    if (const Refused r = CheckReceiptLine(supplierID, m_currentWare ? m_currentWare->wareID : QString(),
                                           ui->txtNum->text(), ui->txtTheMoney->text()))
        return ShowRefusal(this, *r);
    const WareInLine l = MakeReceiptLine(*m_currentWare, ui->txtNum->text(), ui->txtTheMoney->text(),
                                          ui->txtWareDesc->text(), out, supplierID, ui->imgcmbSupplier->currentText());
    m_lines << l;
    auto* it = new QTreeWidgetItem({l.wareName, QString::number(l.num, 'g', 12), l.price.toString2(),
                                    l.theMoney.toString2(), l.wareDesc, l.supplierID, l.supplierName});
    for (int c : {1, 2, 3})
        it->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    ui->lvwThis->addTopLevelItem(it);
    clearEntry();
}

void frmWareIn::clearEntry() {
    m_currentWare.reset();
    m_looked.clear();
    for (QLineEdit* e : {ui->txtMnemonics, ui->txtNum, ui->txtTheMoney, ui->txtPrice, ui->txtWareDesc,
                         ui->txtWareName, ui->txtWareUnit})
        e->clear();
    ui->txtMnemonics->setFocus();
}

void frmWareIn::cmdDel_Click() {
    QTreeWidgetItem* it = ui->lvwThis->currentItem();
    if (!it || !it->isSelected()) return;
    m_lines.removeAt(ui->lvwThis->indexOfTopLevelItem(it));
    delete it;
}

void frmWareIn::SaveData() {
    WareInHeader h;
    h.inTime = ui->dtpInTime->date();
    h.theJB = ui->txtTheJB->text();
    h.theDesc = ui->txttheDesc->text();
    h.theCode = ui->txtTheCode->text();
    h.supplierID =
        ui->imgcmbSupplier->currentIndex() < 0 ? QString() : ui->imgcmbSupplier->currentData().toString().mid(1);
    try {
        ReceiptService().save(h, m_lines);
    } catch (const DbError& e) {
        // Nothing of the receipt was kept; the lines stay in the window.
        Msg::critical(this, e.message(QStringLiteral("SaveData"), QStringLiteral("frmWareIn")));
        return;
    }
    m_saved = true;
    accept();
}
