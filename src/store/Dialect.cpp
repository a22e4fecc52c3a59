#include "Dialect.h"
#include "Db.h"

QString Dialect::expand(QString script) const {
    script.replace(QLatin1String("{MONEY}"), moneyType());
    script.replace(QLatin1String("{REAL}"), realType());
    script.replace(QLatin1String("{BLOB}"), blobType());
    return script;
}

bool SqliteDialect::isUniqueViolation(const DbError& e) const {
    // SQLITE_CONSTRAINT_UNIQUE / _PRIMARYKEY, or the plain constraint code with its text.
    return e.nativeCode == QLatin1String("2067") || e.nativeCode == QLatin1String("1555") ||
           e.description.contains(QLatin1String("UNIQUE constraint failed"));
}

bool SqliteDialect::isRetryable(const DbError& e) const {
    return e.nativeCode == QLatin1String("5") || e.nativeCode == QLatin1String("6") ||
           e.description.contains(QLatin1String("database is locked"));
}

bool PgDialect::isUniqueViolation(const DbError& e) const { return e.nativeCode == QLatin1String("23505"); }

bool PgDialect::isRetryable(const DbError& e) const {
    return e.nativeCode == QLatin1String("40001") || e.nativeCode == QLatin1String("40P01");
}

// Days since the first of January, plus the weekday of that first (Sunday 0), in whole weeks.
QString SqliteDialect::weekOfYear(const QString& column) const {
    return QStringLiteral("((cast(strftime('%j', substr(%1,1,10)) as integer) - 1 + cast(strftime('%w', "
                          "substr(%1,1,4) || '-01-01') as integer)) / 7 + 1)")
        .arg(column);
}

QString PgDialect::weekOfYear(const QString& column) const {
    return QStringLiteral("((cast(extract(doy from to_date(substr(%1,1,10),'YYYY-MM-DD')) as integer) - 1 + "
                          "cast(extract(dow from to_date(substr(%1,1,4) || '-01-01','YYYY-MM-DD')) as integer)) / 7 + 1)")
        .arg(column);
}
