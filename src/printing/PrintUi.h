#pragma once
#include "PrintQueue.h"
#include <QString>
#include <functional>

class QWidget;

// What the windows do around a print call: a wait cursor while the printers are asked, the
// program's error text for a database error, and the failed slips with their printers.

// Shows the failures of an outcome, if any, and offers the print queue window.
void ShowPrintOutcome(QWidget* parent, const PrintOutcome& outcome);

// Runs a print call of `form`; `procedure` names it in an error text.
void RunPrint(QWidget* parent, const QString& procedure, const QString& form,
              const std::function<PrintOutcome()>& print);

// Sends stored jobs off the window's thread, so a printer that hangs never holds up the
// till. Each outcome is recorded on its job; the failures are shown once all jobs are done,
// or as soon as the printers have not answered for `timeoutMs` (those jobs stay in the
// queue for a reprint, and are recorded as they end).
void SendInBackground(QWidget* parent, const QStringList& jobs, const QString& procedure, const QString& form,
                      int timeoutMs = 20000);
// Waits, serving events, until no background print runs or `ms` have passed; false then.
bool WaitForPrinting(int ms = 30000);

// Installs the printing of the opening slip (rooms), the order tickets (ordering) and the
// top-up receipt (members). The program does it at start.
void InstallPrinting();

// The board's commands: "打印清单" for a room's running bill and "重打" for its last bill.
void PrintExpenseListFor(QWidget* parent, const QString& expenseID);
void ReprintRoomBill(QWidget* parent, const QString& theID);
// The order window's "重打": the tickets of the bill's last round again.
void ReprintTicketsFor(QWidget* parent, const QString& expenseID);
