#include "AutoInput.h"
#include "Dialect.h"
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

namespace {
bool remembered(Db& db, const QString& type, const QString& value) {
    return db.scalar(
                 QStringLiteral("select count(*) from sys_AutoInput where autoInputType=? and thisValue=?"),
                 {type, value})
               .toLongLong() > 0;
}
} // namespace

void SaveAutoInput(const QString& type, const QString& value, Db& db) {
    if (value.trimmed().isEmpty()) return;
    for (int attempt = 1;; ++attempt) {
        try {
            db.exec(QStringLiteral("insert into sys_AutoInput (autoinputID, autoInputType, thisValue) "
                                   "select ?, ?, ? where not exists (select 1 from sys_AutoInput "
                                   "where autoInputType=? and thisValue=?)"),
                    {NewID(), type, value, type, value});
            return;
        } catch (const DbError& e) {
            // The same value saved on another workstation meanwhile, or a key made there in
            // the same second: the first needs nothing more, the second another key.
            if (!db.dialect().isUniqueViolation(e) || db.inTransaction()) throw;
            if (remembered(db, type, value)) return;
            if (attempt >= 5) throw;
        }
    }
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
