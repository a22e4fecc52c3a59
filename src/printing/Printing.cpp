#include "Printing.h"
#include "Slips.h"

namespace {
QString roomOf(const QString& expenseID, Db& db) {
    return db.scalar(QStringLiteral("select TheID from Expense where ExpenseID=?"), {expenseID}).toString();
}

PrintOutcome missing(const QString& document) {
    PrintOutcome out;
    out.failures << PrintFailure{QString(), QString(), document, QStringLiteral("没有找到这张单据")};
    return out;
}

PrintOutcome queueAndSend(PrintRole role, const Receipt& r, int copies, const QString& source,
                          const QString& theID, Db& db) {
    return PrintQueue::Send(PrintQueue::Enqueue(role, r, copies, {source, theID, {}}, db), std::nullopt, db);
}
} // namespace

PrintOutcome PrintBill(const QString& expenseID, bool isEnd, Db& db) {
    const std::optional<Receipt> r = BillSlip(expenseID, isEnd, db);
    if (!r) return missing(QStringLiteral("结帐单 ") + expenseID);
    return queueAndSend(PrintRole::Bill, *r, isEnd ? EndBillCopies(db) : 1, expenseID, roomOf(expenseID, db),
                        db);
}

QString QueueBill(const QString& expenseID, bool isEnd, Db& db) {
    const std::optional<Receipt> r = BillSlip(expenseID, isEnd, db);
    if (!r) return {};
    return PrintQueue::Enqueue(PrintRole::Bill, *r, isEnd ? EndBillCopies(db) : 1,
                               {expenseID, roomOf(expenseID, db), {}}, db);
}

PrintOutcome PrintExpenseList(const QString& expenseID, Db& db) {
    const std::optional<Receipt> r = BillSlip(expenseID, false, db);
    if (!r) return missing(QStringLiteral("消费清单 ") + expenseID);
    const QString job = db.write([&] {
        const QString id =
            PrintQueue::Enqueue(PrintRole::Bill, *r, 1, {expenseID, roomOf(expenseID, db), {}}, db);
        db.exec(QStringLiteral("update Expense set Other2='1' where ExpenseID=?"), {expenseID});
        return id;
    });
    return PrintQueue::Send(job, std::nullopt, db);
}

PrintOutcome PrintOutSale(const QString& outsaleID, Db& db) {
    const std::optional<Receipt> r = OutSaleSlip(outsaleID, db);
    if (!r) return missing(QStringLiteral("销售单 ") + outsaleID);
    return queueAndSend(PrintRole::Bill, *r, 1, outsaleID, QString(), db);
}

QString QueueOutSale(const QString& outsaleID, Db& db) {
    const std::optional<Receipt> r = OutSaleSlip(outsaleID, db);
    if (!r) return {};
    return PrintQueue::Enqueue(PrintRole::Bill, *r, 1, {outsaleID, QString(), {}}, db);
}

PrintOutcome PrintStartTicket(const QString& expenseID, Db& db) {
    const std::optional<Receipt> r = StartTicketSlip(expenseID, db);
    if (!r) return missing(QStringLiteral("接待单据 ") + expenseID);
    return queueAndSend(PrintRole::Bill, *r, 1, expenseID, roomOf(expenseID, db), db);
}

PrintOutcome PrintChongzhiTicket(const QString& chongzhiID, Db& db) {
    const std::optional<Receipt> r = ChongzhiSlip(chongzhiID, db);
    if (!r) return missing(QStringLiteral("充值单 ") + chongzhiID);
    return queueAndSend(PrintRole::Bill, *r, 1, chongzhiID, QString(), db);
}

PrintOutcome PrintThis(const QString& expenseID, const QString& thisCode, bool printSlip,
                       const QString& theCode, const QString& thisSum, Db& db) {
    const ThisSlips s = ThisTicketSlips(thisCode, printSlip, theCode, thisSum, db);
    const PrintQueue::JobSource source{expenseID, roomOf(expenseID, db), thisCode};
    // All tickets of the round are stored before the first goes out: a printer that hangs
    // cannot keep the others from the queue.
    QStringList jobs = db.write([&] {
        QStringList ids;
        if (s.slip) ids << PrintQueue::Enqueue(PrintRole::Bill, *s.slip, 1, source, db);
        if (s.kitchen && s.kitchenCopies > 0)
            ids << PrintQueue::Enqueue(PrintRole::Kitchen, *s.kitchen, s.kitchenCopies, source, db);
        if (s.bar && s.barCopies > 0)
            ids << PrintQueue::Enqueue(PrintRole::Bar, *s.bar, s.barCopies, source, db);
        return ids;
    });
    return PrintQueue::SendAll(jobs, db);
}

PrintOutcome PrintCloseHouse(const CloseHouseData& data, Db& db) {
    return queueAndSend(PrintRole::Bill, DesignCloseHouse(data), 1, QString(), QString(), db);
}

PrintOutcome PrintFindPrint(const FindPrintData& data, Db& db) {
    return queueAndSend(PrintRole::Bill, DesignFindPrint(data), 1, QString(), QString(), db);
}

bool ReprintLastBill(const QString& theID, PrintOutcome& outcome, Db& db) {
    const QString job = PrintQueue::LastBillJob(theID, db);
    if (!job.isEmpty()) {
        // Once, to the printer the bills go to now.
        const Receipt r = PrintQueue::Document(job, db);
        outcome = queueAndSend(
            PrintRole::Bill, r, 1,
            db.scalar(QStringLiteral("select SourceID from PrintJob where JobID=?"), {job}).toString(), theID,
            db);
        return true;
    }
    const Rows last = db.query(QStringLiteral("select ExpenseID from Expense where TheID=? and State=0 "
                                              "order by CloseTime desc, ExpenseID desc"),
                               {theID});
    if (last.isEmpty()) return false;
    const QString expenseID = last.first().text(QStringLiteral("ExpenseID"));
    outcome = ReprintBill(expenseID, db);
    return !outcome.jobs.isEmpty();
}

PrintOutcome ReprintBill(const QString& expenseID, Db& db) {
    const std::optional<Receipt> r = BillSlip(expenseID, true, db);
    if (!r) return {};
    const QString theID =
        db.scalar(QStringLiteral("select TheID from Expense where ExpenseID=?"), {expenseID}).toString();
    return queueAndSend(PrintRole::Bill, *r, 1, expenseID, theID, db);
}

PrintOutcome ReprintLastTickets(const QString& expenseID, Db& db) {
    return PrintQueue::SendAll(PrintQueue::LastTicketJobs(expenseID, db), db);
}
