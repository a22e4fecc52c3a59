#include "frmOutSale.h"
#include "AppState.h"
#include "Clock.h"
#include "EnterMovesOn.h"
#include "GoodsViews.h"
#include "Ini.h"
#include "MessageBox.h"
#include "MoneyBoxes.h"
#include "NewID.h"
#include "OutSaleService.h"
#include "PrintUi.h"
#include "Puissance.h"
#include "RefusalShow.h"
#include "Settings.h"
#include "Val.h"
#include "frmWare.h"
#include "ui_frmOutSale.h"
#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyle>
#include <QTimer>

namespace {
const char* FormName = "frmOutSale";
// A list row's goods index is in the goods views' index role; a sale line keeps its WareID there.
enum Role { KeyRole = GoodsViews::KeyRole, TagRole = GoodsViews::IndexRole };

void showDbError(QWidget* parent, const DbError& e, const char* procedure) {
    Msg::show(parent, e.message(QLatin1String(procedure), QLatin1String(FormName)), Msg::Icon::Critical);
}

} // namespace

using MoneyBoxes::leftWithinWindow;
using MoneyBoxes::setText;

frmOutSale::frmOutSale(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmOutSale>()) {
    ui->setupUi(this);
    if (const QScreen* sc = screen()) resize(QSize(1280, 700).boundedTo(sc->availableGeometry().size()));
    const int wareWidths[] = {56, 150, 64, 64};
    for (int c = 0; c < 4; ++c)
        ui->lvwWare->setColumnWidth(c, wareWidths[c]);
    const int detailWidths[] = {150, 50, 70, 80, 40};
    for (int c = 0; c < 5; ++c)
        ui->lvwDetail->setColumnWidth(c, detailWidths[c]);
    // The name takes what room is left, so no list scrolls sideways.
    ui->lvwWare->header()->setStretchLastSection(false);
    ui->lvwWare->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    ui->lvwDetail->header()->setStretchLastSection(false);
    ui->lvwDetail->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (QTreeWidget* list : {ui->lvwWare, ui->lvwDetail})
        for (int c = 1; c < list->columnCount(); ++c)
            if (list != ui->lvwWare || c > 1)
                list->headerItem()->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    QFont big = ui->txtTemp->font();
    big.setPointSizeF(big.pointSizeF() * 1.25);
    big.setBold(true);
    for (QLineEdit* box : {ui->txtExpenseMoney, ui->txtOughtMoney, ui->txtFactPay, ui->txtTemp})
        box->setFont(big);

    EnterMovesOn::install(this, {ui->txtInput});
    for (QWidget* w : {static_cast<QWidget*>(ui->txtInput), static_cast<QWidget*>(ui->lvwDetail),
                       static_cast<QWidget*>(ui->txtOughtMoney), static_cast<QWidget*>(ui->txtFactPay),
                       static_cast<QWidget*>(ui->txtChongzhiD)})
        w->installEventFilter(this);

    connect(ui->txtOughtMoney, &QLineEdit::textEdited, this, [this](const QString& t) {
        m_model.setOughtMoney(t);
        showBoxes();
    });
    connect(ui->txtFactPay, &QLineEdit::textEdited, this, [this](const QString& t) {
        m_model.setFactPay(t);
        showBoxes();
    });
    connect(ui->txtChongzhiD, &QLineEdit::textEdited, this, [this](const QString& t) {
        m_model.setChongzhiD(t);
        showBoxes();
    });
    connect(ui->cmdAdd, &QPushButton::clicked, this, &frmOutSale::AddLine);
    connect(ui->lvwWare, &QTreeWidget::itemDoubleClicked, this, &frmOutSale::AddLine);
    connect(ui->tvWare, &QTreeWidget::itemDoubleClicked, this, &frmOutSale::AddLine);
    connect(ui->cmdDel, &QPushButton::clicked, this, &frmOutSale::DeleteLine);
    connect(ui->lvwDetail, &QTreeWidget::itemDoubleClicked, this, &frmOutSale::DeleteLine);
    connect(ui->cmdWareAdd, &QPushButton::clicked, this, &frmOutSale::cmdWareAdd_Click);
    connect(ui->OKButton, &QPushButton::clicked, this, &frmOutSale::SaveData);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);

    const std::pair<Qt::Key, QWidget*> focusKeys[] = {
        {Qt::Key_F2, ui->txtInput}, {Qt::Key_F3, ui->txtNum}, {Qt::Key_F9, ui->txtOughtMoney}};
    for (const auto& [key, box] : focusKeys)
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, box,
                [box] { box->setFocus(Qt::ShortcutFocusReason); });
    connect(new QShortcut(QKeySequence(Qt::Key_F4), this), &QShortcut::activated, this, [this] {
        if (ui->OKButton->isEnabled()) SaveData();
    });
    connect(new QShortcut(QKeySequence(Qt::Key_F5), this), &QShortcut::activated, this, &frmOutSale::AddLine);
}

frmOutSale::~frmOutSale() = default;

bool frmOutSale::ShowMe() {
    Init();
    exec();
    return m_saved;
}

void frmOutSale::Init() {
    try {
        m_goods.buildGoods(Now(), AllDiscountRate::current());
        const QSignalBlocker a(ui->chkAdd), p(ui->chkPrint);
        ui->chkAdd->setChecked(IsFlagOn(GetIni(QStringLiteral("IsAutoAddMode"))));
        ui->chkPrint->setChecked(GetSetup(QStringLiteral("PrintOutSale")) == QLatin1String("1"));
    } catch (const DbError& e) {
        showDbError(this, e, "Form_Load");
    }
    fillGoods();
    clearSale();
}

// The list and the tree from one reading of the goods, priced once.
void frmOutSale::fillGoods() {
    m_listItems = GoodsViews::Fill(
        ui->lvwWare, ui->tvWare, m_goods.wareTypes(), m_goods.goods(),
        [](const PricedWare& w) {
            return QStringList{w.mnemonics, w.wareName, w.decided.text, w.price.toString2()};
        },
        [](const PricedWare& w) -> QString {
            return w.wareName + QStringLiteral("   (") + w.decided.text + QLatin1Char(')');
        });
    ui->lblAllDiscount->setText(m_goods.allDiscountCaption());
    for (const QString& warning : m_goods.priceWarnings())
        Msg::warn(this, warning);
}

void frmOutSale::AddLine() {
    // The goods come from the list; on the tree tab the node points at its row of the list.
    if (ui->ctabThis->currentWidget() == ui->tabTree) {
        const QTreeWidgetItem* node = ui->tvWare->currentItem();
        if (!node || !node->isSelected()) return;
        const QString key = node->data(0, KeyRole).toString();
        if (key.isEmpty() || key.at(0).toLower() == QLatin1Char('t')) return;
        if (QTreeWidgetItem* row = m_listItems.value(StripKey(key))) ui->lvwWare->setCurrentItem(row);
    }
    const QTreeWidgetItem* row = ui->lvwWare->currentItem();
    if (!row || !row->isSelected()) return;
    const PricedWare& w = m_goods.goods().at(row->data(0, TagRole).toInt());
    const Refused r = m_model.addLine(w.wareID, w.wareName, row->text(2), true, w.procurePrice,
                                      ui->txtNum->text(), ui->chkFree->isChecked());
    if (r) return ShowRefusal(this, *r);

    const OutSaleLine& l = m_model.lines().last();
    auto* it = new QTreeWidgetItem({l.wareName, QString::number(l.num), l.price.toString2(),
                                    l.amount.toString2(), l.isFree ? QStringLiteral("是") : QString()});
    it->setData(0, KeyRole, l.key);
    it->setData(0, TagRole, l.wareID);
    it->setIcon(0, GoodsViews::NewLineIcon());
    for (int c : {1, 2, 3})
        it->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    ui->lvwDetail->addTopLevelItem(it);
    ui->lvwDetail->scrollToItem(it);
    showSum();
    ResetInput();
}

void frmOutSale::DeleteLine() {
    QTreeWidgetItem* it = ui->lvwDetail->currentItem();
    if (!it || !it->isSelected()) return;
    m_model.deleteLine(it->data(0, KeyRole).toString());
    delete it;
    if (QTreeWidgetItem* first = ui->lvwDetail->topLevelItem(0)) ui->lvwDetail->setCurrentItem(first);
    showSum();
}

void frmOutSale::showSum() {
    ui->lblThisSum->setText(m_model.thisSumCaption());
    showBoxes();
}

void frmOutSale::showBoxes() {
    setText(ui->txtExpenseMoney, m_model.expenseMoney());
    setText(ui->txtOughtMoney, m_model.oughtMoney());
    setText(ui->txtNoMoney, m_model.noMoney());
    setText(ui->txtDiscount, m_model.discount());
    setText(ui->txtFactPay, m_model.factPay());
    setText(ui->txtChongzhiD, m_model.chongzhiD());
    setText(ui->txtTemp, m_model.temp());
    QPalette p = ui->txtTemp->palette();
    p.setColor(QPalette::Text, m_model.tempRed() ? QColor(255, 0, 0) : QColor(0, 0, 255));
    ui->txtTemp->setPalette(p);
}

void frmOutSale::ResetInput() {
    ui->txtNum->setText(QStringLiteral("1"));
    ui->txtInput->clear();
    ui->chkFree->setChecked(false);
    ui->txtInput->setFocus();
}

void frmOutSale::clearSale() {
    m_model.clear();
    ui->lvwDetail->clear();
    ui->txtDesc->clear();
    showSum();
    ResetInput();
}

void frmOutSale::txtInput_Enter() {
    const QuickEntry q = m_goods.quickEntry(ui->txtInput->text(), ui->chkAdd->isChecked());
    if (q.next == QuickEntry::Next::MoveOn) {
        focusNextChild();
        return;
    }
    // Found or not, the search ends on the list.
    ui->ctabThis->setCurrentWidget(ui->tabList);
    if (q.index >= 0) {
        QTreeWidgetItem* it = ui->lvwWare->topLevelItem(q.index);
        ui->lvwWare->setCurrentItem(it);
        ui->lvwWare->scrollToItem(it);
    }
    ui->lvwWare->setFocus();
    if (q.num) ui->txtNum->setText(*q.num);
    switch (q.next) {
    case QuickEntry::Next::NotFound:
    case QuickEntry::Next::BadQuantity:
        Msg::info(this, q.message);
        ui->txtInput->setFocus();
        ui->txtInput->selectAll();
        break;
    case QuickEntry::Next::Save:
        AddLine();
        break;
    case QuickEntry::Next::FocusSteward: // no employee here: the quantity is next
    case QuickEntry::Next::FocusNum:
        ui->txtNum->setFocus();
        ui->txtNum->selectAll();
        break;
    case QuickEntry::Next::MoveOn:
        break;
    }
}

void frmOutSale::txtOughtMoney_LostFocus() {
    if (!m_model.exceedsDiscountLimit(App().CurrentDiscountLimit)) return;
    Msg::info(this, CheckoutText::discountLimit());
    ui->txtOughtMoney->setFocus(Qt::OtherFocusReason);
    ui->txtOughtMoney->selectAll();
}

void frmOutSale::SaveData() {
    // F4 pressed in the settlement box never leaves it: the operator's limit holds all the same.
    if (m_model.exceedsDiscountLimit(App().CurrentDiscountLimit)) return txtOughtMoney_LostFocus();
    if (const Refused r = m_model.CheckForm()) return ShowRefusal(this, *r);
    // One press, one sale.
    ui->OKButton->setEnabled(false);
    OutSaleDone done;
    try {
        done = OutSaleService().SaveData(
            OutSaleService::fromModel(m_model, ui->txtDesc->text(), ui->chkPrint->isChecked()));
    } catch (const DbError& e) {
        // Nothing was stored; the lines stay for another try.
        ui->OKButton->setEnabled(true);
        showDbError(this, e, "SaveData");
        return;
    }
    ui->OKButton->setEnabled(true);
    m_saved = true;
    // What the customer gets back stays readable after the window has cleared.
    ui->lblLastSale->setText(
        QStringLiteral("上一单 %1  结算 %2  找零 %3")
            .arg(done.expenseID, Money::fromText(m_model.oughtMoney()).toString2(), m_model.temp()));
    if (!done.printJob.isEmpty())
        SendInBackground(this, {done.printJob}, QStringLiteral("SaveData"), QLatin1String(FormName));
    clearSale();
}

void frmOutSale::cmdWareAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdWareAdd"))) return;
    GoodsViews::AddWare(this, m_goods);
    fillGoods();
    ui->txtInput->setFocus();
}

bool frmOutSale::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
        // The money boxes select their text, so typing replaces it.
        if (watched == ui->txtOughtMoney || watched == ui->txtFactPay || watched == ui->txtChongzhiD) {
            auto* box = static_cast<QLineEdit*>(watched);
            QTimer::singleShot(0, box, [box] { box->selectAll(); });
        }
        break;
    case QEvent::FocusOut:
        if (watched == ui->txtOughtMoney && leftWithinWindow(event)) txtOughtMoney_LostFocus();
        break;
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (watched == ui->txtInput && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            txtInput_Enter();
            return true;
        }
        if (watched == ui->lvwDetail && key == Qt::Key_Delete) {
            DeleteLine();
            return true;
        }
        break;
    }
    default:
        break;
    }
    return QDialog::eventFilter(watched, event);
}
