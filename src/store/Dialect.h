#pragma once
#include <QString>

class DbError;

// The few differences between the embedded file and the server.
class Dialect {
public:
    virtual ~Dialect() = default;
    virtual QString name() const = 0;
    virtual QString beginWrite() const = 0;
    virtual QString moneyType() const = 0;
    virtual QString realType() const = 0;
    virtual QString blobType() const = 0;
    // Case-insensitive pattern match operator.
    virtual QString ilike() const = 0;
    // Appended to a select that reads a row to write it back in the same transaction: the
    // server holds the row until the commit. SQLite's write transaction holds the whole file.
    virtual QString forUpdate() const = 0;
    virtual bool isUniqueViolation(const DbError& e) const = 0;
    virtual bool isRetryable(const DbError& e) const = 0;
    // A condition that holds for the first row a plain select of a table without a key
    // returns, and for no other row.
    virtual QString firstRowOf(const QString& table) const = 0;
    // The week of the year of a stored time text ("yyyy-MM-dd HH:mm"): weeks start on
    // Sunday and week 1 holds the first of January, the same number on both backends.
    virtual QString weekOfYear(const QString& column) const = 0;
    // Replaces {MONEY}, {REAL}, {BLOB} in a schema script.
    QString expand(QString script) const;
};

class SqliteDialect : public Dialect {
public:
    QString name() const override { return QStringLiteral("sqlite"); }
    QString beginWrite() const override { return QStringLiteral("BEGIN IMMEDIATE"); }
    QString moneyType() const override { return QStringLiteral("INTEGER"); }
    QString realType() const override { return QStringLiteral("REAL"); }
    QString blobType() const override { return QStringLiteral("BLOB"); }
    QString ilike() const override { return QStringLiteral("LIKE"); }
    QString forUpdate() const override { return {}; }
    bool isUniqueViolation(const DbError& e) const override;
    bool isRetryable(const DbError& e) const override;
    QString weekOfYear(const QString& column) const override;
    QString firstRowOf(const QString& table) const override {
        return QStringLiteral("rowid = (select min(rowid) from ") + table + QLatin1Char(')');
    }
};

class PgDialect : public Dialect {
public:
    QString name() const override { return QStringLiteral("pg"); }
    QString beginWrite() const override { return QStringLiteral("BEGIN"); }
    QString moneyType() const override { return QStringLiteral("BIGINT"); }
    QString realType() const override { return QStringLiteral("DOUBLE PRECISION"); }
    QString blobType() const override { return QStringLiteral("BYTEA"); }
    QString ilike() const override { return QStringLiteral("ILIKE"); }
    QString forUpdate() const override { return QStringLiteral(" for update"); }
    bool isUniqueViolation(const DbError& e) const override;
    bool isRetryable(const DbError& e) const override;
    QString weekOfYear(const QString& column) const override;
    QString firstRowOf(const QString& table) const override {
        return QStringLiteral("ctid = (select ctid from ") + table + QStringLiteral(" limit 1)");
    }
};
