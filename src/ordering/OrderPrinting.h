#pragma once
#include <QString>
#include <memory>

// One opening of the order window as the tickets see it.
struct OrderBatch {
    QString expenseID;
    QString thisCode; // ThisCode of every line written in this opening; never empty here
    QString theCode;  // the room, as the window's header shows it
    QString thisSum;  // the batch's running total as "0.00"; a gift counts 0
};

// What the order window asks of the printers. The printing code installs its own at start;
// until then nothing is printed. The lines are stored before any of this runs, so a failed
// print never takes an order back.
class OrderPrinting {
  public:
    virtual ~OrderPrinting() = default;

    // When the order window closes after at least one line was written: the order slip on
    // the bill printer when `printSlip` (the window's "打印" box), then the kitchen and bar
    // tickets of the batch, which follow their own settings whatever `printSlip` is.
    virtual void PrintThis(const OrderBatch& batch, bool printSlip) = 0;

    static OrderPrinting& instance();
    // Installs the printing of the process; nullptr puts back the one that prints nothing.
    static void install(std::unique_ptr<OrderPrinting> printing);
};
