// The checkout part of the screenshots: a bill settled by a gold member with part of it
// from the stored value and the rest in cash, and the deferred bills found by the name of
// the person who settles them, one of them chosen.
#include "ShotSave.h"
#include "CheckoutModel.h"
#include "CheckoutService.h"
#include "Clock.h"
#include "Db.h"
#include "Format.h"
#include "MessageBox.h"
#include "Settings.h"
#include "Val.h"
#include "frmCloseHouse.h"
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QTreeWidget>
#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

QString billOfRoom(const char* code) {
    return DB()
        .scalar(QStringLiteral("select ExpenseID from The where TheCode=?"), {QString::fromUtf8(code)})
        .toString();
}

// Defers the bill of a room to `jzr` as the checkout window's 挂帐 does.
void deferBill(const char* room, const char* jzr) {
    const QString bill = billOfRoom(room);
    CheckoutService service;
    const QDateTime closeTime = ToMinute(Now());
    const std::optional<CheckoutBill> b = service.load(bill, closeTime, false);
    if (!b) {
        std::fprintf(stderr, "no open bill in room %s\n", room);
        return;
    }
    CheckoutModel model;
    model.payMoneyFormat = int(Val(GetSetup(QStringLiteral("PayMoneyFormat"))));
    model.showAmounts(b->goods, b->room);
    const QString name = QString::fromUtf8(jzr);
    if (const Refused r = model.check(
            CloseMode::Deferred, name, [] { return true; }, closeTime, closeTime, 0)) {
        std::fprintf(stderr, "deferring room %s refused: %s\n", room, qPrintable(r->message));
        return;
    }
    CheckoutInput in;
    in.expenseID = bill;
    in.closeTime = closeTime;
    in.jzr = name;
    in.closeDesc = QStringLiteral("月底统一结算");
    in.theMoney = b->room;
    in.amounts = model.amounts(CloseMode::Deferred, Money::fromText(b->cost.toString2()));
    const CheckoutDone done = service.close(in);
    if (!done.saved)
        std::fprintf(stderr, "deferring room %s not saved: %s\n", room,
                     done.refusal ? qPrintable(done.refusal->message) : "");
}

void reportMessages(const char* where) {
    for (const Msg::Shown& m : Msg::taken())
        std::fprintf(stderr, "%s said: %s\n", where, qPrintable(m.text));
}
} // namespace

void CheckoutShots(const QString& out) {
    deferBill("A02", "陈经理");
    deferBill("A07", "陈总");

    // Room A04 settled by member 8004 (gold card, 88% off): the password accepted fills the
    // stored value, the rest comes as cash rounded up to the next hundred.
    frmCloseHouse close;
    close.prepare(billOfRoom("A04"), false);
    close.findChild<QLineEdit*>(QStringLiteral("txtCustomerCode"))->setText(QStringLiteral("8004"));
    close.LoadMember();
    close.findChild<QLineEdit*>(QStringLiteral("txtpw"))->clear();
    close.txtpw_Enter();
    const double rest = Val(close.model().oughtMoney) - Val(close.model().chongzhiD);
    const QString cash = QString::number(qint64(std::ceil(std::max(rest, 0.0) / 100) * 100));
    auto* factPay = close.findChild<QLineEdit*>(QStringLiteral("txtFactPay"));
    factPay->setText(cash);
    Q_EMIT factPay->textEdited(cash);
    reportMessages("frmCloseHouse");
    SaveShot(&close, out, QStringLiteral("frmCloseHouse"));
    close.hide();

    frmCloseHouse deferred;
    deferred.prepare(QString(), true);
    deferred.findChild<QLineEdit*>(QStringLiteral("txtjzrInfo"))->setText(QStringLiteral("陈"));
    deferred.cmdFindjzrinfo_Click();
    auto* bills = deferred.findChild<QTreeWidget*>(QStringLiteral("lvwPayAfter"));
    if (QTreeWidgetItem* first = bills->topLevelItem(0)) {
        bills->setCurrentItem(first);
        Q_EMIT bills->itemClicked(first, 0);
    } else {
        std::fprintf(stderr, "no deferred bill found\n");
    }
    reportMessages("frmCloseHouse deferred");
    SaveShot(&deferred, out, QStringLiteral("frmCloseHouse-deferred"));
    deferred.hide();
}
