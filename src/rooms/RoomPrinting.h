#pragma once
#include <QString>
#include <functional>

class QWidget;

// The opening slip. Printing sits above the rooms and installs itself here at start; until
// it does, nothing is printed. It runs after the room is open, so a printer that fails
// undoes nothing.
namespace RoomPrinting {
using StartTicket = std::function<void(QWidget* parent, const QString& expenseID)>;

inline StartTicket& startTicket() {
    static StartTicket installed;
    return installed;
}
inline void installStartTicket(StartTicket print) {
    startTicket() = std::move(print);
}
inline void PrintStartTicket(QWidget* parent, const QString& expenseID) {
    if (startTicket()) startTicket()(parent, expenseID);
}
} // namespace RoomPrinting
