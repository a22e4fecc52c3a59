#pragma once
#include "Db.h"
#include <QStringList>
#include <initializer_list>

// One value the current database answers, for the checks of a test.
inline qint64 count(const QString& sql, const Params& p = {}) {
    return DB().scalar(sql, p).toLongLong();
}
inline QString text(const QString& sql, const Params& p = {}) {
    return DB().scalar(sql, p).toString();
}
// Every row the query gives, its values as text joined by '|', the rows by newlines: one
// comparison for a whole record.
inline QString dump(const QString& sql, const Params& p = {}) {
    QStringList out;
    const Rows r = DB().query(sql, p);
    for (int i = 0; i < r.count(); ++i) {
        QStringList values;
        // By position: unnamed columns may share a name.
        for (int c = 0; c < r.columns().size(); ++c) {
            const QVariant& v = r.at(i, c);
            values << (v.isNull()                               ? QString()
                       : v.metaType().id() == QMetaType::Double ? QString::number(v.toDouble(), 'g', 15)
                                                                : v.toString());
        }
        out << values.join(QLatin1Char('|'));
    }
    return out.join(QLatin1Char('\n'));
}
// A list of texts written as UTF-8 literals.
inline QStringList L(std::initializer_list<const char*> texts) {
    QStringList out;
    for (const char* t : texts)
        out << QString::fromUtf8(t);
    return out;
}
