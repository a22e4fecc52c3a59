#pragma once
#include "Db.h"
#include "Receipt.h"
#include <QString>
#include <QStringList>
#include <optional>

// The three printers of the venue, each named by its setting.
enum class PrintRole { Bill, Kitchen, Bar };
QString RoleSetting(PrintRole role); // "Printer", "PrinterHC", "PrinterBT"
QString RoleText(PrintRole role);    // "收银", "后厨", "吧台"

// A job that did not come out.
struct PrintFailure {
    QString jobID;
    QString printer;  // the setting text; empty is the system default
    QString document; // the slip's name for people
    QString error;
};

// What became of the jobs of one print call.
struct PrintOutcome {
    QStringList jobs;
    QList<PrintFailure> failures;
    bool ok() const { return failures.isEmpty(); }
    void add(const PrintOutcome& o);
    // The text for the cashier: each slip that failed with its printer and the reason.
    QString message() const;
};

// The print jobs, kept in the database (PrintJob). A job is stored first, with the printer
// and paper its role has at that moment, then sent; it ends up printed (1) or failed (2),
// and a failed one can be sent again, to its printer or to another.
namespace PrintQueue {
constexpr int Waiting = 0, Printed = 1, Failed = 2;

// Whose slip a job is: the bill, sale or top-up it prints, the room it belongs to (for the
// reprint of a room's last bill) and the round of ordering of a ticket.
struct JobSource {
    QString sourceID;
    QString theID;
    QString thisCode;
};

// Stores a job; inside an open transaction it becomes part of it. Returns the job's key.
QString Enqueue(PrintRole role, const Receipt& receipt, int copies, const JobSource& source, Db& db = DB());

// Sends a stored job, to `printer` instead of its own when given; the job then keeps that
// printer. A job that is gone counts as a failure.
PrintOutcome Send(const QString& jobID, const std::optional<QString>& printer = std::nullopt, Db& db = DB());
PrintOutcome SendAll(const QStringList& jobIDs, Db& db = DB());

// A stored job made ready for its printer. Delivering it needs no database, so it can
// run off the window's thread; its result is recorded afterwards.
struct Delivery {
    QString jobID;
    QString target; // the printer setting it goes to
    int paper = 80;
    QString caption;
    QString fileName;
    Receipt receipt;
    int copies = 1;
};
// Nothing when the job is gone.
std::optional<Delivery> Prepare(const QString& jobID, const std::optional<QString>& printer = std::nullopt,
                                Db& db = DB());
// Prints it; the error text, empty when it came out. Any thread.
QString Deliver(const Delivery& d);
// Stores the outcome on the job.
void Record(const Delivery& d, const QString& error, Db& db = DB());

// While a Collector lives on this thread, Send and SendAll only note the jobs they are given
// (for their own printers) and leave the sending to the collector's owner, which sends
// them off the window's thread.
class Collector {
  public:
    Collector();
    ~Collector();
    Collector(const Collector&) = delete;
    Collector& operator=(const Collector&) = delete;
    QStringList jobs;

  private:
    Collector* m_outer;
};

// Jobs for the list window, newest first; `unprintedOnly` leaves the printed ones out.
Rows Jobs(bool unprintedOnly, Db& db = DB());
Receipt Document(const QString& jobID, Db& db = DB());
// The newest bill of the room in the queue, running or final; empty when there is none.
QString LastBillJob(const QString& theID, Db& db = DB());
// The tickets of the bill's last round of ordering in the queue, oldest first.
QStringList LastTicketJobs(const QString& expenseID, Db& db = DB());
} // namespace PrintQueue
