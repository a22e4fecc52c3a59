#pragma once
#include "Db.h"
#include <QString>

class QTreeWidget;

// Roles of a bill line item: its key "K" + DetailID and, as its tag, the goods key.
namespace ExpenseLineRole {
constexpr int Key = Qt::UserRole;
constexpr int WareID = Qt::UserRole + 1;
} // namespace ExpenseLineRole
// The column of a line's note.
constexpr int ExpenseLineNoteColumn = 7;

// The lines of bill `expenseID` in time order, with the goods code and name; voided lines
// only when `withVoids`.
Rows ExpenseLines(const QString& expenseID, bool withVoids, Db& db = DB());

// Fills a bill-line list (board, order window, checkout) with the lines of a bill:
// 消费项目, 数量, 单价, 金额, 提成员工, 消费时间, 记帐人, 备注. A void is drawn red, a gift blue.
void LoadDataExpenseDetail(const QString& expenseID, QTreeWidget* list, bool withVoids, Db& db = DB());
// The column headers of such a list, set once.
void SetupExpenseDetailList(QTreeWidget* list);
