#include "AutoInput.h"
#include "Dialect.h"
#include "Gateway.h"
#include "MessageBox.h"
#include "NewID.h"
#include <QComboBox>

void LoadAutoInput(const QString& type, QComboBox* combo, Db& db) {
    const Rows rows = db.query(
        QStringLiteral("select thisValue from sys_AutoInput where autoInputType=? order by thisValue"),
        {type});
    const QString typed = combo->currentText();
    combo->clear();
    for (const Row r : rows)
        combo->addItem(r.text(QStringLiteral("thisValue")));
    if (combo->isEditable()) combo->setEditText(typed);
}

void SaveAutoInput(const QString& type, const QString& value, Db& db) {
    if (value.trimmed().isEmpty()) return;
    // A value or key saved on another workstation at the same moment makes the write run
    // again: the value is then found, or the key is skipped.
    db.write([&] {
        db.exec(QStringLiteral("insert into sys_AutoInput (autoinputID, autoInputType, thisValue) "
                               "select ?, ?, ? where not exists (select 1 from sys_AutoInput "
                               "where autoInputType=? and thisValue=?)"),
                {FreshKey(QStringLiteral("sys_AutoInput"), QStringLiteral("autoinputID"), db), type, value,
                 type, value});
    });
}

bool DeleteAutoInput(const QString& type, const QString& value, Db& db) {
    try {
        db.exec(QStringLiteral("delete from sys_AutoInput where autoInputType=? and thisValue=?"),
                {type, value});
        return true;
    } catch (const DbError&) {
        Msg::show(nullptr, QStringLiteral("删除失败，请稍候再试！"), Msg::Icon::Exclamation);
        return false;
    }
}
