#include "CheckoutService.h"
#include "AppState.h"
#include "Clock.h"
#include "Format.h"
#include "MemberService.h"
#include "Printing.h"
#include "fExpense.h"

CheckoutService::Standing CheckoutService::standing(const QString& expenseID, bool deferred,
                                                   const BillSnapshot& seen) const {
    const Rows r = m_db.query(QStringLiteral("select State, VoucherState from Expense where ExpenseID=?"),
                              {expenseID});
    if (r.isEmpty()) return Standing::Closed;
    const qint64 state = r.first().integer(QStringLiteral("State"));
    const bool open = deferred ? state == 0 && r.first().integer(QStringLiteral("VoucherState")) == 2 : state == 1;
    if (!open) return Standing::Closed;
    return fExpense(m_db).Snapshot(expenseID) == seen ? Standing::Same : Standing::Altered;
}

std::optional<CheckoutBill> CheckoutService::load(const QString& expenseID, const QDateTime& closeTime,
                                                  bool deferred) const {
    const fExpense bills(m_db);
    // Taken first: whatever changes while the rest is read shows as a difference at the commit.
    BillSnapshot seen = bills.Snapshot(expenseID);
    const Rows rows = bills.GetLinkByID(expenseID);
    if (rows.isEmpty()) return std::nullopt;
    const Row r = rows.first();
    CheckoutBill b;
    b.expenseID = r.text(QStringLiteral("ExpenseID"));
    b.theID = r.text(QStringLiteral("TheID"));
    b.theCode = r.text(QStringLiteral("TheCode"));
    b.assortName = r.text(QStringLiteral("AssortName"));
    b.payLevelName = r.text(QStringLiteral("PayLevelName"));
    b.markerCode = r.text(QStringLiteral("markerCode"));
    b.description = r.text(QStringLiteral("Description"));
    b.jzr = r.text(QStringLiteral("jzr"));
    b.customerCode = r.text(QStringLiteral("CustomerCode"));
    b.customerNum = r.integer(QStringLiteral("CustomerNum"));
    b.openTime = ParseTime(r.date(QStringLiteral("OpenTime")));
    b.closeTime = ParseTime(r.date(QStringLiteral("CloseTime")));
    b.state = r.integer(QStringLiteral("State"));
    b.voucherState = r.integer(QStringLiteral("VoucherState"));
    bills.GetByIDCurrency(expenseID, closeTime, b.goods, b.room);
    // A deferred bill keeps the room charge fixed when it was deferred.
    if (deferred) b.room = r.money(QStringLiteral("theMoney"));
    b.cost = Money::fromText(bills.GetProcurePriceByID(expenseID));
    // The commit must find exactly the goods the window charges.
    seen.owed = b.goods;
    b.seen = seen;
    return b;
}

Money CheckoutService::excludedGoods(const QString& expenseID) const {
    return m_db
        .query(QStringLiteral(
                   "SELECT sum(ExpenseDetail.OughtMoney) as OughtMoney From ((ExpenseDetail left join "
                   "Ware on ExpenseDetail.wareID=Ware.wareID) left join wareType on "
                   "Ware.wareTypeID=waretype.waretypeID) where ExpenseDetail.isDel<>1 and "
                   "waretype.IsNoMember=1 and ExpenseDetail.ExpenseID=?"),
               {expenseID})
        .first()
        .money(QStringLiteral("OughtMoney"));
}

std::optional<CheckoutMember> CheckoutService::member(const QString& code) const {
    const std::optional<MemberCard> c = MemberService(m_db).card(code);
    if (!c) return std::nullopt;
    return CheckoutMember{c->code,    c->name, c->state, c->setupID, c->setupName, float(c->discount),
                          c->chongzhi};
}

bool CheckoutService::CheckMemberPassword(const QString& code, const QString& typed) const {
    return MemberService(m_db).CheckMemberPassword(code, typed);
}

Rows CheckoutService::deferredBills(const QString& jzr) const {
    const QString text = jzr.trimmed();
    if (text.isEmpty())
        return m_db.query(
            QStringLiteral("SELECT Expense.* from Expense Where VoucherState=2 Order by Expense.OpenTime"));
    return m_db.query(QStringLiteral("SELECT Expense.* from Expense Where jzr like ? And VoucherState=2 "
                                     "Order by Expense.OpenTime"),
                      {QLatin1Char('%') + text + QLatin1Char('%')});
}

CheckoutDone CheckoutService::close(const CheckoutInput& in) {
    const CheckoutAmounts& a = in.amounts;
    Params values{TimeText(in.closeTime),
                  in.customerCode,
                  App().CurrentOperatorName,
                  in.jzr.trimmed(),
                  in.closeDesc.trimmed(),
                  in.theMoney,
                  a.expenseMoney,
                  a.expenseMoney,
                  a.noMoney,
                  a.freePay,
                  a.factPay,
                  a.cashPay,
                  a.income,
                  a.voucherState};
    QString sql =
        QStringLiteral("update Expense set CloseTime=?, CustomerCode=?, CloseOperator=?, jzr=?, State=0, "
                       "CloseDesc=?, theMoney=?, ExpenseMoney=?, oughtMoney=?, NoMoney=?, freepay=?, "
                       "factpay=?, CashPay=?, Income=?, VoucherState=?");
    // Without stored value the bill's card fields keep what they had.
    if (!a.chongzhiPay.isZero()) {
        sql += QStringLiteral(", chongzhipay=?, chongzhiIDCare=?");
        values << a.chongzhiPay << in.customerCode;
    }
    // Only while the bill is still what the cashier loaded.
    sql += in.deferredBill ? QStringLiteral(" where ExpenseID=? and State=0 and VoucherState=2")
                           : QStringLiteral(" where ExpenseID=? and State=1");
    values << in.expenseID;

    try {
        return m_db.write([&]() -> CheckoutDone {
            CheckoutDone done;
            // Lock order: the bill, its room, the member.
            if (m_db.exec(sql, values) == 0) {
                done.billChanged = true;
                done.refusal = Refusal::warning(CheckoutText::billChanged());
                return m_db.discard(done);
            }
            if (in.seen && fExpense(m_db).Snapshot(in.expenseID) != *in.seen) {
                done.billAltered = true;
                done.refusal = Refusal::warning(CheckoutText::billAltered());
                return m_db.discard(done);
            }
            const QString theID =
                m_db.scalar(QStringLiteral("select TheID from Expense where ExpenseID=?"), {in.expenseID})
                    .toString();
            if (m_db.query(QStringLiteral("select TheID from The where TheID=?"), {theID}).isEmpty()) {
                done.roomMissing = true;
                done.refusal = Refusal::warning(CheckoutText::roomGone());
                return m_db.discard(done);
            }
            const int lockTime = App().LockTime;
            const int state = lockTime > 0 ? 4 : 0;
            const QString lockEnd = lockTime > 0 ? TimeText(Now().addSecs(qint64(lockTime) * 60)) : QString();
            // A room opened meanwhile for new guests is not this bill's any more.
            const bool roomFreed =
                m_db.exec(QStringLiteral("update The set State=?, Other1=?, ExpenseID='' where TheID=? and "
                                         "ExpenseID=?"),
                          {state, lockEnd, theID, in.expenseID}) > 0;
            m_db.announceRoom(theID);
            m_db.announceBill(in.expenseID);
            if (!in.memberCode.isEmpty()) {
                switch (MemberService(m_db).settle(in.memberCode, a.sumPay, a.chongzhiPay)) {
                case MemberService::Settled::Done:
                    break;
                case MemberService::Settled::BalanceShort:
                    done.balanceShort = true;
                    done.refusal = Refusal(CheckoutText::balanceShort(), QStringLiteral("txtChongzhiD"));
                    return m_db.discard(done);
                case MemberService::Settled::MemberGone:
                    done.refusal = Refusal::warning(CheckoutText::notSaved());
                    return m_db.discard(done);
                }
            }
            // The slip is queued with the sale, so a sale is never without its slip; it is
            // sent after the commit.
            if (in.print) done.printJob = QueueBill(in.expenseID, true, m_db);
            done.saved = true;
            done.theID = theID;
            done.roomState = roomFreed ? state : -1;
            return done;
        });
    } catch (const DbError&) {
        CheckoutDone done;
        done.refusal = Refusal::warning(CheckoutText::notSaved());
        return done;
    }
}
