#include "frmExpenseDetail.h"
#include "ChangeFeed.h"
#include <QApplication>
#include <QSet>
#include "AppState.h"
#include "Clock.h"
#include "EmployeeCombo.h"
#include "EnterMovesOn.h"
#include "ExpenseLines.h"
#include "Format.h"
#include "GoodsViews.h"
#include "Ini.h"
#include "ListSort.h"
#include "NewID.h"
#include "OrderPrinting.h"
#include "Puissance.h"
#include "RefusalShow.h"
#include "ScreenFit.h"
#include "Settings.h"
#include "Val.h"
#include "frmExpenseDetailInfo.h"
#include "frmWare.h"
#include "ui_frmExpenseDetail.h"
#include <QAbstractItemView>
#include <QKeyEvent>
#include <QPainter>
#include <QShortcut>
#include <QStyle>

namespace {
void traps(QWidget* form, const DbError& e, const char* procedure) {
    Msg::show(form, e.message(QLatin1String(procedure), QStringLiteral("frmExpenseDetail")),
              Msg::Icon::Critical);
}
} // namespace

frmExpenseDetail::frmExpenseDetail(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmExpenseDetail>()) {
    ui->setupUi(this);
    connect(&ChangeFeed::main(), &ChangeFeed::changedElsewhere, this, &frmExpenseDetail::linesChangedElsewhere);
    // Roomy where the screen allows, never beyond it.
    ScreenFit::install(this, QSize(980, 660));
    // On a small or scaled screen the entry boxes scroll; the add button stays in sight.
    ScreenFit::scrollItems(ui->layfraInput, 0, ui->layfraInput->indexOf(ui->cmdAdd),
                           QStringLiteral("fraInputBoxes"));
    SetupExpenseDetailList(ui->lvwDetail);
    SortListOnHeaderClick(ui->lvwDetail);

    const int widths[] = {80, 190, 70, 70, 60};
    for (int c = 0; c < 5; ++c)
        ui->lvwWare->setColumnWidth(c, widths[c]);
    for (int c : {2, 3, 4})
        ui->lvwWare->headerItem()->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);

    // Enter in the quick entry box and in the employee box has its own meaning.
    EnterMovesOn::install(this, {ui->txtInput, ui->cmbSteward});
    for (QObject* o : {static_cast<QObject*>(ui->txtInput), static_cast<QObject*>(ui->cmbSteward),
                       static_cast<QObject*>(ui->lvwDetail), static_cast<QObject*>(ui->chkFree)})
        o->installEventFilter(this);

    connect(ui->cmdAdd, &QPushButton::clicked, this, &frmExpenseDetail::SaveData);
    connect(ui->lvwWare, &QTreeWidget::itemDoubleClicked, this, &frmExpenseDetail::SaveData);
    connect(ui->tvWare, &QTreeWidget::itemDoubleClicked, this, &frmExpenseDetail::SaveData);
    connect(ui->lvwDetail, &QTreeWidget::itemDoubleClicked, this, &frmExpenseDetail::DeleteDetail);
    connect(ui->cmdDel, &QPushButton::clicked, this, &frmExpenseDetail::DeleteDetail);
    connect(ui->cmdDescription, &QPushButton::clicked, this, &frmExpenseDetail::cmdDescription_Click);
    connect(ui->cmdWareAdd, &QPushButton::clicked, this, &frmExpenseDetail::cmdWareAdd_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->chkFree, &QCheckBox::clicked, this, &frmExpenseDetail::chkFree_Clicked);
    // The quick-add mode belongs to the workstation, the printing of the slip to the venue.
    connect(ui->chkAdd, &QCheckBox::toggled, this, [](bool on) {
        SetIni(QStringLiteral("IsAutoAddMode"), on ? QStringLiteral("1") : QStringLiteral("0"));
    });
    connect(ui->chkPrintThis, &QCheckBox::toggled, this, [](bool on) {
        SetSetup(QStringLiteral("IsPrintThis"), on ? QStringLiteral("1") : QStringLiteral("0"));
    });

    const std::pair<Qt::Key, QWidget*> focusKeys[] = {
        {Qt::Key_F2, ui->txtInput}, {Qt::Key_F3, ui->cmbSteward}, {Qt::Key_F4, ui->txtNum}};
    for (const auto& [key, box] : focusKeys)
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, box,
                [box] { box->setFocus(Qt::ShortcutFocusReason); });
    connect(new QShortcut(QKeySequence(Qt::Key_F5), this), &QShortcut::activated, this,
            &frmExpenseDetail::SaveData);
}

frmExpenseDetail::~frmExpenseDetail() = default;

bool frmExpenseDetail::Add(const QString& expenseID) {
    Init(expenseID);
    exec();
    return m_entry.saved();
}

void frmExpenseDetail::Init(const QString& expenseID) {
    try {
        m_entry.buildGoods(Now(), AllDiscountRate::current());
    } catch (const DbError& e) {
        traps(this, e, "Init");
    }
    fillGoods();
    try {
        FillEmployeeCombo(ui->cmbSteward);
        {
            const QSignalBlocker a(ui->chkAdd), p(ui->chkPrintThis);
            ui->chkAdd->setChecked(IsFlagOn(GetIni(QStringLiteral("IsAutoAddMode"))));
            ui->chkPrintThis->setChecked(IsFlagOn(GetSetup(QStringLiteral("IsPrintThis"))));
        }
        if (m_entry.open(expenseID))
            ui->lblTheCode->setText(m_entry.theCodeCaption());
        else
            Msg::warn(this, OrderText::billGone());
        LoadDataExpenseDetail(expenseID, ui->lvwDetail, false);
    } catch (const DbError& e) {
        traps(this, e, "Init");
    }
    ShowThisSum();
    ResetInput();
}

void frmExpenseDetail::linesChangedElsewhere(const QStringList& keys) {
    const QString id = m_entry.expenseID();
    if (id.isEmpty() || !isVisible()) return;
    if (!ChangeFeed::isAnyChange(keys) && !keys.contains(QStringLiteral("E") + id)) return;
    // A dialog of this window (a note, an article) works on a line of the list: the list is
    // read again once it closes.
    if (QWidget* modal = QApplication::activeModalWidget(); modal && modal != this) {
        m_linesStale = true;
        return;
    }
    reloadLines();
}

bool frmExpenseDetail::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && m_linesStale) {
        m_linesStale = false;
        reloadLines();
    }
    return QDialog::event(event);
}

void frmExpenseDetail::reloadLines() {
    const QString id = m_entry.expenseID();
    QSet<QString> mine;
    for (int i = 0; i < ui->lvwDetail->topLevelItemCount(); ++i)
        if (const QTreeWidgetItem* it = ui->lvwDetail->topLevelItem(i); !it->icon(0).isNull())
            mine.insert(it->data(0, ExpenseLineRole::Key).toString());
    const QTreeWidgetItem* current = ui->lvwDetail->currentItem();
    const QString keep = current ? current->data(0, ExpenseLineRole::Key).toString() : QString();
    try {
        LoadDataExpenseDetail(id, ui->lvwDetail, false);
    } catch (const DbError&) {
        return; // the next order says what is wrong
    }
    for (int i = 0; i < ui->lvwDetail->topLevelItemCount(); ++i) {
        QTreeWidgetItem* it = ui->lvwDetail->topLevelItem(i);
        const QString key = it->data(0, ExpenseLineRole::Key).toString();
        if (mine.contains(key)) it->setIcon(0, GoodsViews::NewLineIcon());
        if (key == keep) ui->lvwDetail->setCurrentItem(it);
    }
}

// The list and the tree from one reading of the goods, priced once.
void frmExpenseDetail::fillGoods() {
    m_listItems = GoodsViews::Fill(
        ui->lvwWare, ui->tvWare, m_entry.wareTypes(), m_entry.goods(),
        [](const PricedWare& w) {
            return QStringList{w.mnemonics, w.wareName, w.decided.text, w.price.toString2(),
                               w.tiCheng.toString2()};
        },
        [](const PricedWare& w) { return OrderEntry::treeText(w); });
    ui->lblAllDiscount->setText(m_entry.allDiscountCaption());
    for (const QString& warning : m_entry.priceWarnings())
        Msg::warn(this, warning);
}

std::optional<WareChoice> frmExpenseDetail::selectedWare() const {
    if (ui->ctabThis->currentWidget() == ui->tabList) {
        const QTreeWidgetItem* it = ui->lvwWare->currentItem();
        if (!it || !it->isSelected()) return std::nullopt;
        return m_entry.listChoice(it->data(0, IndexRole).toInt());
    }
    const QTreeWidgetItem* node = ui->tvWare->currentItem();
    if (!node || !node->isSelected()) return std::nullopt;
    return OrderEntry::treeChoice(node->data(0, KeyRole).toString(), node->text(0),
                                  node->data(0, TagRole).toDouble());
}

void frmExpenseDetail::SaveData() {
    m_entry.clearSaved();
    const std::optional<WareChoice> ware = selectedWare();
    if (!ware) return;
    if (const Refused r = OrderService::CheckForm(ui->txtNum->text())) return ShowRefusal(this, *r);
    if (ui->chkFree->isChecked() && !Msg::confirm(this, OrderText::giftQuestion(), QMessageBox::Ok)) return;

    OrderLineInput in;
    in.num = ui->txtNum->text();
    in.steward = ui->cmbSteward->currentText();
    in.isFree = ui->chkFree->isChecked();
    // One click, one line.
    ui->cmdAdd->setEnabled(false);
    const LineSaved s = m_entry.save(*ware, in);
    ui->cmdAdd->setEnabled(true);
    if (!s.ok()) return ShowRefusal(this, *s.refusal);
    AddDetailToList(*s.line);
    ResetInput();
}

void frmExpenseDetail::AddDetailToList(const OrderedLine& line) {
    // The name comes from the goods list, whichever way the goods were chosen.
    QString name;
    if (QTreeWidgetItem* row = m_listItems.value(line.wareID)) {
        ui->lvwWare->setCurrentItem(row);
        name = row->text(1);
    }
    auto* it = new QTreeWidgetItem({name, FormatNumber(line.num, QStringLiteral("0")), line.price.toString2(),
                                    line.oughtMoney.toString2(), line.other1,
                                    FormatDate(ParseTime(line.expenseTime), QStringLiteral("HH:mm")),
                                    line.operatorName});
    it->setData(0, ExpenseLineRole::Key, QString(QStringLiteral("K") + line.detailID));
    it->setData(0, ExpenseLineRole::WareID, line.wareID);
    it->setIcon(0, GoodsViews::NewLineIcon());
    for (int c : {1, 2, 3})
        it->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    ui->lvwDetail->addTopLevelItem(it);
    ui->lvwDetail->scrollToItem(it);
    ShowThisSum();
}

void frmExpenseDetail::ShowThisSum() {
    ui->lblThisSum->setText(m_entry.thisSumCaption());
    ui->lblThisSum->setProperty("tag", m_entry.thisSumTag());
}

void frmExpenseDetail::ResetInput() {
    ui->txtNum->setText(QStringLiteral("1"));
    ui->txtInput->clear();
    ui->cmbSteward->setCurrentIndex(ui->cmbSteward->count() > 0 ? 0 : -1);
    ui->txtInput->setFocus();
}

void frmExpenseDetail::txtInput_Enter() {
    const QuickEntry q = m_entry.quickEntry(ui->txtInput->text(), ui->chkAdd->isChecked());
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
    } else if (q.next == QuickEntry::Next::NotFound) {
        // Nothing is chosen after a code that found nothing: F5 must not add the goods before.
        for (QTreeWidget* list : {ui->lvwWare, ui->tvWare}) {
            list->clearSelection();
            list->setCurrentItem(nullptr);
        }
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
        SaveData();
        break;
    case QuickEntry::Next::FocusSteward:
        ui->cmbSteward->setFocus();
        break;
    case QuickEntry::Next::FocusNum:
        ui->txtNum->setFocus();
        ui->txtNum->selectAll();
        break;
    case QuickEntry::Next::MoveOn:
        break;
    }
}

void frmExpenseDetail::DeleteDetail() {
    QTreeWidgetItem* it = ui->lvwDetail->currentItem();
    if (!it || !it->isSelected()) return;
    if (const Refused r = m_entry.CheckCanDelete()) return ShowRefusal(this, *r);
    if (!Msg::confirm(this, OrderText::deleteQuestion(), QMessageBox::Cancel)) return;
    const Refused r = m_entry.voidLine(StripKey(it->data(0, ExpenseLineRole::Key).toString()));
    if (r) return ShowRefusal(this, *r);
    delete it;
    if (QTreeWidgetItem* first = ui->lvwDetail->topLevelItem(0)) ui->lvwDetail->setCurrentItem(first);
    ShowThisSum();
}

void frmExpenseDetail::cmdWareAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdWareAdd"))) return;
    GoodsViews::AddWare(this, m_entry);
    fillGoods();
    ui->txtInput->setFocus();
}

void frmExpenseDetail::cmdDescription_Click() {
    QTreeWidgetItem* it = ui->lvwDetail->currentItem();
    if (!it || !it->isSelected()) return Msg::info(this, OrderText::chooseLine());
    frmExpenseDetailInfo dlg(this);
    if (dlg.Edit(StripKey(it->data(0, ExpenseLineRole::Key).toString())))
        it->setText(ExpenseLineNoteColumn, dlg.note());
}

// The gift needs its right only when ticked with the mouse.
void frmExpenseDetail::chkFree_Clicked() {
    if (!m_freeByMouse) return;
    m_freeByMouse = false;
    if (!CheckPuissance(QStringLiteral("D020"))) ui->chkFree->setChecked(false);
}

bool frmExpenseDetail::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui->chkFree) {
        if (event->type() == QEvent::MouseButtonRelease) m_freeByMouse = true;
        if (event->type() == QEvent::KeyPress) m_freeByMouse = false;
        return QDialog::eventFilter(watched, event);
    }
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto* k = static_cast<QKeyEvent*>(event);
    const bool enter = k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
    if (watched == ui->txtInput && enter) {
        txtInput_Enter();
        return true;
    }
    if (watched == ui->cmbSteward && enter && !ui->cmbSteward->view()->isVisible()) {
        SaveData();
        return true;
    }
    if (watched == ui->lvwDetail && k->key() == Qt::Key_Delete) {
        DeleteDetail();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmExpenseDetail::done(int result) {
    // The lines are stored; the tickets of this opening go out as the window closes.
    m_summary = m_entry.batch().isEmpty() ? QString()
                                          : m_entry.theCode() + QStringLiteral(" 已点单 ") +
                                                QString::number(m_entry.batch().size()) +
                                                QStringLiteral(" 项，本次消费 ") + m_entry.thisSum().toYuan();
    if (!m_entry.thisCode().isEmpty())
        OrderPrinting::instance().PrintThis(
            {m_entry.expenseID(), m_entry.thisCode(), m_entry.theCode(), m_entry.thisSumTag()},
            ui->chkPrintThis->isChecked());
    m_entry.endBatch();
    QDialog::done(result);
}
