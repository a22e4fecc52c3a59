#include "frmCloseHouse.h"
#include "AppState.h"
#include "ChangeFeed.h"
#include <QApplication>
#include "ChargeEngine.h"
#include "CheckoutService.h"
#include "Clock.h"
#include "Desktop.h"
#include "EnterMovesOn.h"
#include "ExpenseLines.h"
#include "Format.h"
#include "ListColumns.h"
#include "MessageBox.h"
#include "MoneyBoxes.h"
#include "PrintUi.h"
#include "Printing.h"
#include "Puissance.h"
#include "RefusalShow.h"
#include "ScreenFit.h"
#include "Settings.h"
#include "Val.h"
#include "frmMemberList.h"
#include "frmQNDisplayCase.h"
#include "ui_frmCloseHouse.h"
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollArea>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

namespace {
const char* FormName = "frmCloseHouse";

void setTime(QDateTimeEdit* box, const QDateTime& when) {
    const QSignalBlocker block(box);
    box->setDateTime(when);
}

void showDbError(QWidget* parent, const DbError& e, const char* procedure) {
    Msg::show(parent, e.message(QLatin1String(procedure), QLatin1String(FormName)), Msg::Icon::Critical);
}

} // namespace

using MoneyBoxes::leftWithinWindow;
using MoneyBoxes::setText;

frmCloseHouse::frmCloseHouse(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmCloseHouse>()) {
    ui->setupUi(this);
    connect(&ChangeFeed::main(), &ChangeFeed::changedElsewhere, this, &frmCloseHouse::billChangedElsewhere);
    // On a small or scaled screen the member and closing details scroll; the amounts and
    // the buttons keep their room.
    for (auto [content, index] : {std::pair<QWidget*, int>{ui->fraMember, 0}, {nullptr, 2}}) {
        if (!content) {
            content = new QWidget(this);
            content->setObjectName(QStringLiteral("fraCloseInfo"));
            ui->layRight->removeItem(ui->layCloseInfo);
            auto* lay = new QVBoxLayout(content);
            lay->setContentsMargins(0, 0, 0, 0);
            lay->addLayout(ui->layCloseInfo);
        } else {
            ui->layRight->removeWidget(content);
        }
        ui->layRight->insertWidget(index, ScreenFit::scrollable(content, this));
    }
    ScreenFit::install(this, QSize(1100, 640));
    SetupExpenseDetailList(ui->lvwDetail);
    EnterMovesOn::install(this, {ui->txtpw, ui->txtjzrInfo});
    for (QWidget* w : {static_cast<QWidget*>(ui->txtCustomerCode), static_cast<QWidget*>(ui->txtpw),
                       static_cast<QWidget*>(ui->txtOughtMoney), static_cast<QWidget*>(ui->txtFactPay),
                       static_cast<QWidget*>(ui->txtChongzhiD), static_cast<QWidget*>(ui->txtFreePay),
                       static_cast<QWidget*>(ui->txtjzrInfo), static_cast<QWidget*>(ui->lvwDetail),
                       static_cast<QWidget*>(ui->chkPrint)})
        w->installEventFilter(this);
    QFont big = ui->txtTemp->font();
    big.setPointSizeF(big.pointSizeF() * 1.25);
    big.setBold(true);
    for (QLineEdit* box : {ui->txtOughtMoney, ui->txtFactPay, ui->txtTemp})
        box->setFont(big);

    // Typing in a money box goes to the model, which recomputes the others.
    const QList<std::pair<QLineEdit*, void (CheckoutModel::*)(const QString&)>> typed{
        {ui->txtOughtMoney, &CheckoutModel::setOughtMoney},
        {ui->txtFactPay, &CheckoutModel::setFactPay},
        {ui->txtChongzhiD, &CheckoutModel::setChongzhiD},
        {ui->txtFreePay, &CheckoutModel::setFreePay}};
    for (const auto& [box, set] : typed)
        connect(box, &QLineEdit::textEdited, this, [this, set = set](const QString& t) {
            (m_model.*set)(t);
            showBoxes();
        });
    connect(ui->dtpCloseTime, &QDateTimeEdit::dateTimeChanged, this, [this] { dtpCloseTime_Change(); });
    connect(ui->cmdcal, &QPushButton::clicked, this, [this] {
        LoadBill();
        ui->OKButton->setEnabled(true);
    });
    connect(ui->OKButton, &QPushButton::clicked, this, &frmCloseHouse::SaveData);
    connect(ui->cmdFreeMoney, &QPushButton::clicked, this, &frmCloseHouse::cmdFreeMoney_Click);
    connect(ui->cmdPayAfter, &QPushButton::clicked, this, &frmCloseHouse::cmdPayAfter_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->cmdSelect, &QPushButton::clicked, this, &frmCloseHouse::cmdSelect_Click);
    connect(ui->cmdFindjzrinfo, &QPushButton::clicked, this, &frmCloseHouse::cmdFindjzrinfo_Click);
    connect(ui->lvwPayAfter, &QTreeWidget::itemClicked, this, [this] { chooseBill(); });
    connect(ui->lvwPayAfter, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        QMenu mnuSetup(this);
        QAction* mnuSetupListAfter = mnuSetup.addAction(QStringLiteral("显示栏目"));
        if (mnuSetup.exec(ui->lvwPayAfter->viewport()->mapToGlobal(pos)) != mnuSetupListAfter) return;
        if (frmQNDisplayCase::ShowSetup(QStringLiteral("lvwPayAfter"), this) &&
            ui->lvwPayAfter->topLevelItemCount() > 0)
            cmdFindjzrinfo_Click();
    });
    const auto calculator = [this] {
        if (!Desktop::startCalculator()) Msg::warn(this, Desktop::calculatorMissingText());
    };
    connect(ui->cmdWinCal, &QPushButton::clicked, this, calculator);
    connect(new QShortcut(QKeySequence(Qt::Key_F11), this), &QShortcut::activated, this, calculator);
    // F4 settles as the button does, and not while the button is off (a stale room charge).
    connect(new QShortcut(QKeySequence(Qt::Key_F4), this), &QShortcut::activated, this, [this] {
        if (ui->OKButton->isEnabled()) SaveData();
    });
    // The other two ways to close, by key as well; like the buttons, only while they are on.
    const std::pair<Qt::Key, QPushButton*> closeKeys[] = {{Qt::Key_F6, ui->cmdFreeMoney},
                                                          {Qt::Key_F7, ui->cmdPayAfter}};
    for (const auto& [key, button] : closeKeys) {
        button->setToolTip(QKeySequence(key).toString());
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, button, [button = button] {
            if (button->isEnabled() && button->isVisible()) button->click();
        });
    }
}

frmCloseHouse::~frmCloseHouse() = default;

bool frmCloseHouse::Edit(const QString& expenseID) {
    prepare(expenseID, false);
    exec();
    return m_saved;
}

bool frmCloseHouse::DoPayAfter() {
    prepare(QString(), true);
    exec();
    return m_saved;
}

void frmCloseHouse::prepare(const QString& expenseID, bool payAfter) {
    m_isPayAfter = payAfter;
    m_saved = false;
    m_closeMode = CloseMode::Paid;
    m_goodsMoney = m_roomMoney = m_cost = Money();
    m_closedTheID.clear();
    m_closedSummary.clear();
    m_model = CheckoutModel();
    m_model.payMoneyFormat = int(Val(GetSetup(QStringLiteral("PayMoneyFormat"))));

    m_closeTag = ToMinute(Now());
    setTime(ui->dtpCloseTime, m_closeTag);
    ui->dtpCloseTime->setEnabled(App().CurrentCloseTimeLimit > 0);
    ui->cmdcal->setEnabled(!payAfter);
    ui->chkPrint->setChecked(App().IsPrintEndBill == 1);
    ui->ctbThis->setTabVisible(1, payAfter);
    if (payAfter) {
        ui->ctbThis->setCurrentIndex(1);
        clearBill();
        // The open deferred bills at once; the search narrows them down.
        ui->txtjzrInfo->clear();
        cmdFindjzrinfo_Click();
        return;
    }
    ui->ctbThis->setCurrentIndex(0);
    m_expenseID = expenseID;
    LoadBill();
}

bool frmCloseHouse::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && !m_staleKeys.isEmpty())
        billChangedElsewhere(std::exchange(m_staleKeys, {}));
    return QDialog::event(event);
}

void frmCloseHouse::billChangedElsewhere(const QStringList& keys) {
    if (m_saved || !isVisible()) return;
    // A dialog of this window (a member to pick, a password) is answered first.
    if (QWidget* modal = QApplication::activeModalWidget(); modal && modal != this) {
        m_staleKeys += keys;
        return;
    }
    const bool any = ChangeFeed::isAnyChange(keys);
    // Bills deferred or settled elsewhere join or leave the list of deferred bills.
    if (m_isPayAfter &&
        (any || std::any_of(keys.begin(), keys.end(), [](const QString& k) { return !ChangeFeed::billOf(k).isEmpty(); }))) {
        try {
            fillDeferredList();
        } catch (const DbError&) {
            // the search button says what is wrong
        }
    }
    if (m_expenseID.isEmpty() || !m_seen || (!any && !keys.contains(QStringLiteral("E") + m_expenseID))) return;
    CheckoutService::Standing now = CheckoutService::Standing::Same;
    try {
        now = CheckoutService().standing(m_expenseID, m_isPayAfter, *m_seen);
    } catch (const DbError&) {
        return; // the commit checks again, and says what went wrong
    }
    if (now == CheckoutService::Standing::Closed) {
        Msg::warn(this, CheckoutText::closedElsewhere());
        if (m_isPayAfter)
            clearBill();
        else
            reject();
    } else if (now == CheckoutService::Standing::Altered) {
        LoadBill();
        if (m_model.memberFound) LoadMember();
    }
}

void frmCloseHouse::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // The venue decides where the cashier starts: the cash or the member number.
    QTimer::singleShot(0, this, [this] {
        QLineEdit* first = m_isPayAfter && m_expenseID.isEmpty()          ? ui->txtjzrInfo
                           : Val(GetSetup(QStringLiteral("HClose"))) == 1 ? ui->txtFactPay
                                                                          : ui->txtCustomerCode;
        first->setFocus(Qt::OtherFocusReason);
    });
}

void frmCloseHouse::LoadBill() {
    try {
        const std::optional<CheckoutBill> bill =
            CheckoutService().load(m_expenseID, ui->dtpCloseTime->dateTime(), m_isPayAfter);
        if (!bill) return;
        m_theID = bill->theID;
        m_goodsMoney = bill->goods;
        m_roomMoney = bill->room;
        m_cost = bill->cost;
        m_seen = bill->seen;
        ui->lblID->setText(bill->expenseID);
        ui->lblMarkerCode->setText(bill->markerCode);
        ui->lblHouse->setText(bill->theCode);
        ui->lblAssortName->setText(bill->assortName);
        ui->lblPayLevelName->setText(bill->payLevelName);
        ui->lblCustomerNum->setText(QString::number(bill->customerNum));
        ui->lblDesc->setText(bill->description);
        ui->lblOpenTime->setText(FormatDate(bill->openTime, QStringLiteral("yyyy年MM月dd日 hh:mm")));
        ui->lblExpendtime->setText(GetExpendTimeText(bill->openTime, Now()));
        ui->lblExpenseMoney->setText(FormatNumber(m_goodsMoney.toDouble(), QStringLiteral("0.00")));
        ui->lblHouseMoney->setText(FormatNumber(m_roomMoney.toDouble(), QStringLiteral("0.00")));
        if (m_isPayAfter) {
            m_closeTag = bill->closeTime;
            setTime(ui->dtpCloseTime, bill->closeTime);
        }
        ui->txtjzr->setText(bill->jzr);
        ui->txtCustomerCode->setText(bill->customerCode);
        m_model.showAmounts(m_goodsMoney, m_roomMoney);
        showBoxes();
        LoadDataExpenseDetail(m_expenseID, ui->lvwDetail, false);
        ui->lvwDetail->setProperty("tag", m_cost.toString2());
    } catch (const DbError& e) {
        showDbError(this, e, "LoadBill");
    }
}

void frmCloseHouse::showBoxes() {
    setText(ui->txtExpenseMoney, m_model.expenseMoney);
    setText(ui->txtOughtMoney, m_model.oughtMoney);
    setText(ui->txtNoMoney, m_model.noMoney);
    setText(ui->txtDiscount, m_model.discount);
    setText(ui->txtFactPay, m_model.factPay);
    setText(ui->txtChongzhiD, m_model.chongzhiD);
    setText(ui->txtFreePay, m_model.freePay);
    setText(ui->txtTemp, m_model.temp);
    QPalette p = ui->txtTemp->palette();
    p.setColor(QPalette::Text, m_model.tempRed ? QColor(255, 0, 0) : QColor(0, 0, 255));
    ui->txtTemp->setPalette(p);
    ui->lblMemberDiscount->setText(m_model.memberDiscount);
    setText(ui->txtMemberName, m_model.memberName);
    ui->lblSetupName->setText(m_model.setupName);
    ui->lblSetupName->setProperty("tag", m_model.setupID);
    ui->lblchongzhi->setText(m_model.chongzhi);
}

void frmCloseHouse::ClearMember() {
    m_model.clearMember();
    showBoxes();
}

void frmCloseHouse::LoadMember() {
    m_model.clearMember();
    const QString code = ui->txtCustomerCode->text();
    if (code.trimmed().isEmpty()) {
        showBoxes();
        return;
    }
    QString refused;
    try {
        const CheckoutService service;
        const std::optional<CheckoutMember> found = service.member(code);
        refused = m_model.applyMember(found, found ? service.excludedGoods(m_expenseID) : Money());
    } catch (const DbError& e) {
        showBoxes();
        showDbError(this, e, "LoadMember");
        return;
    }
    showBoxes();
    if (refused.isEmpty()) return;
    Msg::info(this, refused);
    ui->txtCustomerCode->setFocus(Qt::OtherFocusReason);
}

void frmCloseHouse::txtpw_Enter() {
    if (ui->txtCustomerCode->text().trimmed().isEmpty()) {
        focusNextChild();
        return;
    }
    bool ok = false;
    try {
        ok = CheckoutService().CheckMemberPassword(ui->txtCustomerCode->text(), ui->txtpw->text());
    } catch (const DbError& e) {
        showDbError(this, e, "txtpw_KeyPress");
        return;
    }
    if (!ok) {
        Msg::critical(this, CheckoutText::codeOrPasswordWrong());
        ui->txtCustomerCode->setFocus(Qt::OtherFocusReason);
        return;
    }
    focusNextChild();
    m_model.fillStoredValue();
    showBoxes();
}

void frmCloseHouse::txtOughtMoney_LostFocus() {
    if (!m_model.exceedsDiscountLimit(App().CurrentDiscountLimit)) return;
    Msg::info(this, CheckoutText::discountLimit());
    ui->txtOughtMoney->setFocus(Qt::OtherFocusReason);
    ui->txtOughtMoney->selectAll();
}

void frmCloseHouse::dtpCloseTime_Change() {
    // The room charge on the window no longer fits the time: recompute before settling.
    ui->OKButton->setEnabled(false);
}

void frmCloseHouse::cmdSelect_Click() {
    frmMemberList list(this);
    const QString code = list.SelectMember();
    if (code.isEmpty()) return;
    ui->txtCustomerCode->setText(code);
    LoadMember();
}

bool frmCloseHouse::CheckForm() {
    const Refused r = m_model.check(
        m_closeMode, ui->txtjzr->text(),
        [this] {
            return CheckoutService().CheckMemberPassword(ui->txtCustomerCode->text(), ui->txtpw->text());
        },
        ui->dtpCloseTime->dateTime(), m_closeTag, App().CurrentCloseTimeLimit);
    showBoxes();
    if (!r) return true;
    if (r->field == QLatin1String("dtpCloseTime")) {
        Msg::show(this, r->message, r->icon);
        setTime(ui->dtpCloseTime, m_closeTag);
        ui->dtpCloseTime->setFocus(Qt::OtherFocusReason);
        ui->OKButton->setEnabled(false);
        return false;
    }
    ShowRefusal(this, *r);
    return false;
}

void frmCloseHouse::SaveData() {
    m_saved = false;
    if (m_expenseID.isEmpty()) return;
    try {
        if (!CheckForm()) return;
    } catch (const DbError&) {
        Msg::warn(this, CheckoutText::notSaved());
        return;
    }
    CheckoutInput in;
    in.expenseID = m_expenseID;
    in.deferredBill = m_isPayAfter;
    in.closeTime = ui->dtpCloseTime->dateTime();
    in.customerCode = ui->txtCustomerCode->text();
    in.jzr = ui->txtjzr->text();
    in.closeDesc = ui->txtCloseDesc->text();
    in.theMoney = m_roomMoney;
    in.amounts = m_model.amounts(m_closeMode, Money::fromText(ui->lvwDetail->property("tag").toString()));
    if (!in.customerCode.isEmpty() && m_model.memberFound) in.memberCode = m_model.member.code;
    in.seen = m_seen;
    in.print = ui->chkPrint->isChecked();

    // One commit at a time: a double press must not close twice.
    const QList<QPushButton*> buttons{ui->OKButton, ui->cmdFreeMoney, ui->cmdPayAfter};
    QList<bool> wasOn;
    for (QPushButton* b : buttons) {
        wasOn << b->isEnabled();
        b->setEnabled(false);
    }
    const CheckoutDone done = CheckoutService().close(in);
    for (int i = 0; i < buttons.size(); ++i)
        buttons[i]->setEnabled(wasOn[i]);

    if (!done.saved) {
        ShowRefusal(this, *done.refusal);
        if (done.roomMissing) Msg::warn(this, CheckoutText::notSaved());
        // Settled or removed elsewhere: nothing is left to do here.
        if (done.billChanged) reject();
        // Changed since it was loaded: show the bill as it is now, with the member kept.
        if (done.billAltered) {
            LoadBill();
            if (m_model.memberFound) LoadMember();
        }
        // The card was spent elsewhere: show what it holds now.
        if (done.balanceShort) {
            LoadMember();
            ui->txtChongzhiD->setFocus(Qt::OtherFocusReason);
            ui->txtChongzhiD->selectAll();
        }
        return;
    }
    m_saved = true;
    m_closedTheID = done.theID;
    const QString room = ui->lblHouse->text();
    if (m_closeMode == CloseMode::Free)
        m_closedSummary = room + QStringLiteral(" 已免单");
    else if (m_closeMode == CloseMode::Deferred)
        m_closedSummary = room + QStringLiteral(" 已挂帐 结帐人：") + ui->txtjzr->text().trimmed();
    else
        m_closedSummary = room + (m_isPayAfter ? QStringLiteral(" 挂帐已结清") : QStringLiteral(" 已结帐")) +
                          QStringLiteral(" 找零 ") + Money::fromText(m_model.temp).toYuan();
    // The slip went into the queue with the sale; it is printed without holding the till.
    if (!done.printJob.isEmpty())
        SendInBackground(parentWidget(), {done.printJob}, QStringLiteral("SaveData"),
                         QLatin1String(FormName));
    accept();
}

void frmCloseHouse::cmdFreeMoney_Click() {
    if (!CheckButton(this, QStringLiteral("cmdFreeMoney"))) return;
    if (Msg::show(this, QStringLiteral("您确认要进行免单处理吗？"), Msg::Icon::Question,
                  QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
        return;
    m_closeMode = CloseMode::Free;
    SaveData();
}

void frmCloseHouse::cmdPayAfter_Click() {
    if (!CheckButton(this, QStringLiteral("cmdPayAfter"))) return;
    if (Msg::show(this, QStringLiteral("您确认要进行挂帐处理吗？"), Msg::Icon::Question,
                  QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
        return;
    m_closeMode = CloseMode::Deferred;
    SaveData();
}

void frmCloseHouse::clearBill() {
    m_expenseID.clear();
    m_theID.clear();
    m_seen.reset();
    m_goodsMoney = m_roomMoney = m_cost = Money();
    m_model.clearMember();
    m_model.memberFound = false;
    m_model.clearAmounts();
    ui->txtCustomerCode->clear();
    ui->txtpw->clear();
    ui->txtjzr->clear();
    ui->txtCloseDesc->clear();
    for (QLabel* l : {ui->lblID, ui->lblMarkerCode, ui->lblHouse, ui->lblAssortName, ui->lblPayLevelName,
                      ui->lblCustomerNum, ui->lblDesc, ui->lblOpenTime, ui->lblExpendtime,
                      ui->lblExpenseMoney, ui->lblHouseMoney})
        l->clear();
    ui->lvwDetail->clear();
    ui->lvwDetail->setProperty("tag", QVariant());
    showBoxes();
    ui->cmdFreeMoney->setEnabled(false);
    ui->cmdPayAfter->setEnabled(false);
    ui->OKButton->setEnabled(false);
}

void frmCloseHouse::cmdFindjzrinfo_Click() {
    clearBill();
    try {
        fillDeferredList();
    } catch (const DbError& e) {
        showDbError(this, e, "cmdFindjzrinfo_Click");
    }
}

void frmCloseHouse::fillDeferredList() {
    const QTreeWidgetItem* current = ui->lvwPayAfter->currentItem();
    const QString keep = current && current->isSelected() ? current->data(0, Qt::UserRole).toString() : QString();
    ui->lblSumGZ->clear();
    ui->lvwPayAfter->clear();
    const Rows rows = CheckoutService().deferredBills(ui->txtjzrInfo->text());
    if (!rows.isEmpty()) ShowListInQueryOrder(ui->lvwPayAfter, QStringLiteral("lvwPayAfter"), rows, true);
    Money sum;
    for (int i = 0; i < ui->lvwPayAfter->topLevelItemCount(); ++i) {
        QTreeWidgetItem* it = ui->lvwPayAfter->topLevelItem(i);
        sum += Money::fromText(it->text(1));
        // The bill being settled stays chosen.
        if (!keep.isEmpty() && it->data(0, Qt::UserRole).toString() == keep) {
            ui->lvwPayAfter->setCurrentItem(it);
            it->setSelected(true);
        }
    }
    ui->lblSumGZ->setText(sum.toString2());
}

void frmCloseHouse::chooseBill() {
    QTreeWidgetItem* item = ui->lvwPayAfter->currentItem();
    if (!item || !item->isSelected()) return;
    const QString key = item->data(0, Qt::UserRole).toString();
    if (key.isEmpty()) return;
    m_expenseID = key.mid(1);
    // The member of another bill does not carry over.
    m_model.clearMember();
    m_model.memberFound = false;
    ui->txtpw->clear();
    LoadBill();
    ui->OKButton->setEnabled(true);
    ui->cmdFreeMoney->setEnabled(true);
    ui->cmdPayAfter->setEnabled(true);
}

bool frmCloseHouse::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
        // The money boxes select their text, so typing replaces it.
        if (auto* box = qobject_cast<QLineEdit*>(watched);
            box && box != ui->txtCustomerCode && box != ui->txtpw && box != ui->txtjzrInfo)
            QTimer::singleShot(0, box, [box] { box->selectAll(); });
        break;
    case QEvent::FocusOut:
        if (!leftWithinWindow(event)) break;
        if (watched == ui->txtCustomerCode)
            LoadMember();
        else if (watched == ui->txtOughtMoney)
            txtOughtMoney_LostFocus();
        break;
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter) break;
        if (watched == ui->txtpw) {
            txtpw_Enter();
            return true;
        }
        if (watched == ui->txtjzrInfo) {
            cmdFindjzrinfo_Click();
            ui->txtjzrInfo->setFocus(Qt::OtherFocusReason);
            return true;
        }
        if (watched == ui->lvwDetail) {
            ui->chkPrint->setFocus(Qt::TabFocusReason);
            return true;
        }
        if (watched == ui->chkPrint) {
            ui->OKButton->setFocus(Qt::TabFocusReason);
            return true;
        }
        break;
    }
    default:
        break;
    }
    return QDialog::eventFilter(watched, event);
}
