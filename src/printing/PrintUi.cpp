#include "PrintUi.h"
#include "MemberPrinting.h"
#include "MessageBox.h"
#include "OrderPrinting.h"
#include "Printing.h"
#include "RoomPrinting.h"
#include "frmPrintQueue.h"
#include <QApplication>
#include <QCursor>
#include <QDeadlineTimer>
#include <QPointer>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <thread>

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
    QStringList jobs;
    try {
        // The jobs are stored here; the printers are asked off the window's thread.
        PrintQueue::Collector collected;
        outcome = print();
        jobs = collected.jobs;
    } catch (const DbError& e) {
        Msg::critical(parent, e.message(procedure, form));
        return;
    }
    ShowPrintOutcome(parent, outcome);
    if (!jobs.isEmpty()) SendInBackground(parent, jobs, procedure, form);
}

namespace {
std::atomic<int> running{0};      // batches not yet reported
std::atomic<int> threads{0};      // delivering threads still working
std::atomic<bool> appGone{false}; // the application object is being destroyed

// At exit a slip still on its way is given a moment; a thread still stuck after it no
// longer reports to the application that is gone.
void waitForThreadsAtExit() {
    QDeadlineTimer deadline(3000);
    while (threads > 0 && !deadline.hasExpired())
        QThread::msleep(5);
    appGone = true;
}

// One background batch: its deliveries and what has come back of them.
struct Batch {
    QPointer<QWidget> parent;
    QList<PrintQueue::Delivery> deliveries;
    PrintOutcome outcome;
    QList<bool> ended;
    bool reported = false;
    QString procedure, form;

    void report() {
        if (reported) return;
        reported = true;
        --running;
        ShowPrintOutcome(parent, outcome);
    }
};

void recordEnd(const std::shared_ptr<Batch>& b, int i, const QString& error) {
    if (b->ended[i]) return;
    b->ended[i] = true;
    const PrintQueue::Delivery& d = b->deliveries[i];
    try {
        PrintQueue::Record(d, error);
    } catch (const DbError& e) {
        if (!b->reported) Msg::critical(b->parent, e.message(b->procedure, b->form));
    }
    if (!error.isEmpty() && !b->reported)
        b->outcome.failures << PrintFailure{d.jobID, d.target, d.caption, error};
    if (std::all_of(b->ended.begin(), b->ended.end(), [](bool e) { return e; })) b->report();
}
} // namespace

void SendInBackground(QWidget* parent, const QStringList& jobs, const QString& procedure, const QString& form,
                      int timeoutMs) {
    auto b = std::make_shared<Batch>();
    b->parent = parent;
    b->procedure = procedure;
    b->form = form;
    try {
        for (const QString& id : jobs) {
            if (id.isEmpty()) continue;
            b->outcome.jobs << id;
            if (std::optional<PrintQueue::Delivery> d = PrintQueue::Prepare(id))
                b->deliveries << *d;
            else
                b->outcome.failures << PrintFailure{id, QString(), id,
                                                    QStringLiteral("打印队列中没有这个单据")};
        }
    } catch (const DbError& e) {
        Msg::critical(parent, e.message(procedure, form));
        return;
    }
    ++running;
    b->ended = QList<bool>(b->deliveries.size(), false);
    if (b->deliveries.isEmpty()) {
        b->report();
        return;
    }
    QObject* home = QCoreApplication::instance();
    static const bool exitHook = [] {
        qAddPostRoutine(waitForThreadsAtExit);
        return true;
    }();
    Q_UNUSED(exitHook);
    ++threads;
    std::thread([b, home, deliveries = b->deliveries] {
        for (int i = 0; i < deliveries.size(); ++i) {
            const QString error = PrintQueue::Deliver(deliveries[i]);
            if (appGone) break;
            QMetaObject::invokeMethod(
                home, [b, i, error] { recordEnd(b, i, error); }, Qt::QueuedConnection);
        }
        --threads;
    }).detach();
    QTimer::singleShot(timeoutMs, home, [b] {
        if (b->reported) return;
        // Still waiting: tell the cashier now; the jobs are recorded when they end.
        for (int i = 0; i < b->deliveries.size(); ++i)
            if (!b->ended[i]) {
                const PrintQueue::Delivery& d = b->deliveries[i];
                b->outcome.failures << PrintFailure{d.jobID, d.target, d.caption,
                                                    QStringLiteral("打印机没有响应")};
            }
        b->report();
    });
}

bool WaitForPrinting(int ms) {
    QDeadlineTimer deadline(ms);
    while (running > 0) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(2);
    }
    return true;
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
