#include "EmployeeCombo.h"
#include <QComboBox>

void FillEmployeeCombo(QComboBox* combo, Db& db) {
    const Rows rows = db.query(QStringLiteral(
        "select EmployeeID, EmployeeName from Employee where State=0 order by Employeecode, EmployeeID"));
    combo->clear();
    combo->addItem(QString(), QString());
    for (const Row r : rows)
        combo->addItem(r.text(QStringLiteral("EmployeeName")), r.text(QStringLiteral("EmployeeID")));
}
