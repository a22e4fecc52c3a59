#include "NextNo.h"
#include "Clock.h"
#include "NewID.h"
#include "Val.h"

namespace {
QString nextFrom(const QString& stored, const QString& today, const QString& separator) {
    qint64 seq = 1;
    if (stored.size() == 14 && stored.left(8) == today) {
        const double last = Val(stored.right(5));
        if (last >= 0) seq = qint64(last) + 1;
    }
    return today + separator + QStringLiteral("%1").arg(seq, 5, 10, QLatin1Char('0'));
}
} // namespace

QString GetNextNo(const QString& name, const QString& separator, Db& db) {
    const QString key = QStringLiteral("NextNo_") + name;
    try {
        return db.write([&] {
            for (int attempt = 0; attempt < 20; ++attempt) {
                const Rows r =
                    db.query(QStringLiteral("SELECT setupvalue FROM pSetup WHERE lower(setupname)=lower(?)"), {key});
                const QString today = Now().toString(QStringLiteral("yyyyMMdd"));
                if (r.isEmpty()) {
                    const QString next = nextFrom(QString(), today, separator);
                    db.exec(QStringLiteral("INSERT INTO pSetup (setupname, setupvalue) VALUES (?, ?)"), {key, next});
                    return next;
                }
                const QString stored = r.first().text(QStringLiteral("setupvalue"));
                const QString next = nextFrom(stored, today, separator);
                const int n = r.first().isNull(QStringLiteral("setupvalue"))
                                  ? db.exec(QStringLiteral("UPDATE pSetup SET setupvalue=? WHERE lower(setupname)="
                                                           "lower(?) AND setupvalue IS NULL"),
                                            {next, key})
                                  : db.exec(QStringLiteral("UPDATE pSetup SET setupvalue=? WHERE lower(setupname)="
                                                           "lower(?) AND setupvalue=?"),
                                            {next, key, stored});
                if (n == 1) return next;
            }
            throw DbError(-1, QStringLiteral("numbering contention"));
        });
    } catch (const DbError&) {
        // Inside a sale's transaction the sale fails and runs again as a whole; a number
        // taken on its own falls back to a key.
        if (db.inTransaction()) throw;
        return NewID();
    }
}
