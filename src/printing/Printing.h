#pragma once
#include "Db.h"
#include "Designs.h"
#include "PrintQueue.h"

// The print moments of the venue. Each builds its slips from what is stored, puts the jobs
// in the print queue and sends them. Call them after the business data is committed: they
// never write business data back (PrintExpenseList marks its bill), and a printer that
// fails leaves the job in the queue and says so in the outcome. Database errors throw
// DbError.

// The bill of a room. isEnd: the settled bill at checkout, EndBillNum copies; otherwise the
// running bill, one copy.
PrintOutcome PrintBill(const QString& expenseID, bool isEnd, Db& db = DB());

// Queues the bill's slip as PrintBill would, without sending it: inside a transaction the
// job is part of it. Returns the job's key, empty when the bill is gone.
QString QueueBill(const QString& expenseID, bool isEnd, Db& db = DB());

// The board's "打印清单": the running bill, after which the bill's Other2 is "1" (the goods
// list was printed), set together with the job.
PrintOutcome PrintExpenseList(const QString& expenseID, Db& db = DB());

// The slip of a counter sale, one copy.
PrintOutcome PrintOutSale(const QString& outsaleID, Db& db = DB());

// Queues the counter sale's slip as PrintOutSale would, without sending it, so that inside
// the sale's transaction the job is part of the sale. Empty when the sale is not there.
QString QueueOutSale(const QString& outsaleID, Db& db = DB());

// The opening slip of a room, one copy.
PrintOutcome PrintStartTicket(const QString& expenseID, Db& db = DB());

// The receipt of a top-up (a row of chongzhi) with the member's balance after it.
PrintOutcome PrintChongzhiTicket(const QString& chongzhiID, Db& db = DB());

// The tickets of one round of ordering: the order slip on the bill printer when
// `printSlip`, the kitchen ticket (IsHC, HCNum copies) and the bar ticket (IsBT, BTNum
// copies of this workstation's config.ini) whatever `printSlip` is.
PrintOutcome PrintThis(const QString& expenseID, const QString& thisCode, bool printSlip,
                       const QString& theCode, const QString& thisSum, Db& db = DB());

// The bill query's two prints, from the texts its window shows.
PrintOutcome PrintCloseHouse(const CloseHouseData& data, Db& db = DB());
PrintOutcome PrintFindPrint(const FindPrintData& data, Db& db = DB());

// The newest bill of a room again, once: its stored slip when the queue has one, else the
// room's last settled bill printed anew. False when the room has no bill to print.
bool ReprintLastBill(const QString& theID, PrintOutcome& outcome, Db& db = DB());

// A settled bill printed anew, once, on the bill printer (the bill query's reprint).
PrintOutcome ReprintBill(const QString& expenseID, Db& db = DB());

// The tickets of the bill's last round of ordering again, each to its printer; nothing when
// the bill has none in the queue.
PrintOutcome ReprintLastTickets(const QString& expenseID, Db& db = DB());
