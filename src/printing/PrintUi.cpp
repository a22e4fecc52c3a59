#include "PrintUi.h"
#include "MemberPrinting.h"
#include "MessageBox.h"
#include "OrderPrinting.h"
#include "Printing.h"
#include "RoomPrinting.h"
#include "frmPrintQueue.h"
#include <QApplication>
#include <QCursor>

void ShowPrintOutcome(QWidget* parent, const PrintOutcome& outcome) {
    if (outcome.ok()) return;
    const auto answer = Msg::show(parent, outcome.message() + QStringLiteral("\n\n现在打开打印队列吗？"),
                                  Msg::Icon::Exclamation, QMessageBox::Yes | QMessageBox::No, QMessageBox::No,
                                  QStringLiteral("打印失败"));
    if (answer == QMessageBox::Yes) frmPrintQueue::ShowMe(parent);
}

void RunPrint(QWidget* parent, const QString& procedure, const QString& form,
              const std::function<PrintOutcome()>& print) {
    PrintOutcome outcome;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        outcome = print();
    } catch (const DbError& e) {
        QGuiApplication::restoreOverrideCursor();
        Msg::critical(parent, e.message(procedure, form));
        return;
    }
    QGuiApplication::restoreOverrideCursor();
    ShowPrintOutcome(parent, outcome);
}

namespace {
class TicketPrinting : public OrderPrinting {
  public:
    void PrintThis(const OrderBatch& batch, bool printSlip) override {
        RunPrint(QApplication::activeWindow(), QStringLiteral("PrintThis"),
                 QStringLiteral("frmExpenseDetail"), [&] {
                     return ::PrintThis(batch.expenseID, batch.thisCode, printSlip, batch.theCode,
                                        batch.thisSum);
                 });
    }
};
} // namespace

void InstallPrinting() {
    RoomPrinting::installStartTicket([](QWidget* parent, const QString& expenseID) {
        RunPrint(parent, QStringLiteral("PrintStartTicket"), QStringLiteral("frmOpenHouse"),
                 [&] { return PrintStartTicket(expenseID); });
    });
    OrderPrinting::install(std::make_unique<TicketPrinting>());
    MemberPrinting::setChongzhiPrinter([](const ChongzhiReceipt& r) {
        RunPrint(QApplication::activeWindow(), QStringLiteral("PrintChongzhiTicket"),
                 QStringLiteral("frmChongzhi"), [&] { return PrintChongzhiTicket(r.chongzhiID); });
    });
}

void PrintExpenseListFor(QWidget* parent, const QString& expenseID) {
    if (expenseID.isEmpty()) return;
    RunPrint(parent, QStringLiteral("PrintExpenseList"), QStringLiteral("frmMain"),
             [&] { return PrintExpenseList(expenseID); });
}

void ReprintRoomBill(QWidget* parent, const QString& theID) {
    if (theID.isEmpty()) return;
    bool found = true;
    RunPrint(parent, QStringLiteral("ReprintExpense"), QStringLiteral("frmMain"), [&] {
        PrintOutcome outcome;
        found = ReprintLastBill(theID, outcome);
        return outcome;
    });
    if (!found) Msg::info(parent, QStringLiteral("这个包厢还没有可以重打的帐单！"));
}

void ReprintTicketsFor(QWidget* parent, const QString& expenseID) {
    if (expenseID.isEmpty()) return;
    bool found = true;
    RunPrint(parent, QStringLiteral("ReprintTickets"), QStringLiteral("frmExpenseDetail"), [&] {
        const PrintOutcome outcome = ReprintLastTickets(expenseID);
        found = !outcome.jobs.isEmpty();
        return outcome;
    });
    if (!found) Msg::info(parent, QStringLiteral("这张消费单还没有打印过点单小票！"));
}
