#pragma once
#include "Money.h"
#include <QHash>
#include <QSqlDatabase>
#include <QStringBuilder>
#include <QVariant>
#include <QStringList>
#include <exception>
#include <functional>
#include <memory>
#include <vector>

class QSqlQuery;
class Dialect;
struct sqlite3_stmt;

// A database failure, carried up to the service that turns it into the user's message.
class DbError : public std::exception {
  public:
    DbError(int number, QString description, QString nativeCode = {})
        : number(number), description(std::move(description)), nativeCode(std::move(nativeCode)),
          m_what(this->description.toUtf8()) {}
    const char* what() const noexcept override { return m_what.constData(); }
    // "Error <number> (<description>) in procedure <proc> of Form <form>"
    QString message(const QString& procedure, const QString& form,
                    const QString& kind = QStringLiteral("Form")) const;

    int number;
    QString description;
    QString nativeCode;

  private:
    QByteArray m_what;
};

// One bound value. Money binds as its exact 64-bit count.
class Param {
  public:
    // Empty text is stored as empty text, not as null.
    Param(const QString& v) : m_v(v) {
        if (v.isNull()) m_v = QVariant(QStringLiteral(""));
    }
    Param(const QByteArray& v) : m_v(v) {}
    template <typename A, typename B> Param(const QStringBuilder<A, B>& b) : m_v(QString(b)) {}
    Param(int v) : m_v(v) {}
    Param(qint64 v) : m_v(qlonglong(v)) {}
    Param(double v) : m_v(v) {}
    Param(bool v) : m_v(v ? 1 : 0) {}
    Param(Money v) : m_v(qlonglong(v.raw())) {}
    Param(std::nullptr_t) : m_v(QMetaType::fromType<QString>()) {}
    explicit Param(const QVariant& v) : m_v(v) {}
    const QVariant& value() const { return m_v; }

  private:
    QVariant m_v;
};
using Params = QList<Param>;

// A fully read result, shared by the rows taken from it: column lookup is
// case-insensitive, as the schema's names are. Values are kept compact (numbers as they
// are, texts as their UTF-8 bytes) and become QVariants when read, so a report of a year
// costs little more than SQLite's own stepping.
struct RowsData {
    QStringList names;
    QHash<QString, int> index;
    size_t width = 0; // values per row
    size_t count = 0; // rows
    int column(const QString& name) const;
    QVariant at(size_t row, size_t col) const;

    enum class Kind : quint8 { Null, Int, Real, Text, Blob, Other };
    struct Cell {
        Kind kind;
        union {
            qint64 i;
            double d;
            struct {
                quint32 off, len;
            } s;
            int meta; // Null: the type of the null; Other: index into `others`
        };
    };
    std::vector<Cell> cells;
    QByteArray arena;
    std::vector<QVariant> others;

    void addNull(int meta) { cells.push_back(Cell{Kind::Null, {.meta = meta}}); }
    void addInt(qint64 v) { cells.push_back(Cell{Kind::Int, {.i = v}}); }
    void addReal(double v) { cells.push_back(Cell{Kind::Real, {.d = v}}); }
    void addBytes(Kind kind, const char* data, qsizetype len);
    void add(const QVariant& v);
};

// One row of a result. Reads map nulls the way the whole program expects:
// text "", numbers 0, dates the sentinel "1900-01-01 01:01".
class Row {
  public:
    Row(std::shared_ptr<const RowsData> rows, int index) : m_rows(std::move(rows)), m_index(index) {}
    QVariant value(const QString& column) const;
    bool isNull(const QString& column) const;
    QString text(const QString& column) const;
    double num(const QString& column) const;
    qint64 integer(const QString& column) const;
    Money money(const QString& column) const;
    QString date(const QString& column) const;
    QByteArray bytes(const QString& column) const;
    bool has(const QString& column) const;

  private:
    std::shared_ptr<const RowsData> m_rows;
    int m_index;
};

class Rows {
  public:
    Rows() : m_d(std::make_shared<RowsData>()) {}
    int count() const { return int(m_d->count); }
    bool isEmpty() const { return m_d->count == 0; }
    Row operator[](int i) const { return Row(m_d, i); }
    Row first() const { return Row(m_d, 0); }
    int column(const QString& name) const { return m_d->column(name); }
    QVariant at(int row, int col) const { return m_d->at(size_t(row), size_t(col)); }
    // A value read as Row reads it, by column index: for loops over long results.
    Money money(int row, int col) const;
    qint64 integer(int row, int col) const;
    QStringList columns() const { return m_d->names; }

    struct iterator {
        const Rows* r;
        int i;
        Row operator*() const { return (*r)[i]; }
        iterator& operator++() {
            ++i;
            return *this;
        }
        bool operator!=(const iterator& o) const { return i != o.i; }
    };
    iterator begin() const { return {this, 0}; }
    iterator end() const { return {this, count()}; }

  private:
    friend class Db;
    std::shared_ptr<RowsData> m_d;
};

enum class Backend { SQLite, PostgreSQL };

struct DbConfig {
    Backend backend = Backend::SQLite;
    QString file; // SQLite
    QString host = QStringLiteral("127.0.0.1");
    int port = 5432;
    QString user, password, name; // PostgreSQL
    QString schema;               // PostgreSQL: search_path of this connection

    // "host=... port=... user=... password=... dbname=..."
    static DbConfig fromPgString(const QString& conn);
};

class Db {
  public:
    explicit Db(QString connectionName = {});
    ~Db();
    Db(const Db&) = delete;
    Db& operator=(const Db&) = delete;

    void open(const DbConfig& config); // throws DbError
    void close();
    bool isOpen() const;
    const DbConfig& config() const { return m_config; }
    Backend backend() const { return m_config.backend; }
    const Dialect& dialect() const { return *m_dialect; }

    int exec(const QString& sql, const Params& params = {});
    Rows query(const QString& sql, const Params& params = {});
    QVariant scalar(const QString& sql, const Params& params = {});
    // Runs several statements separated by ";" lines (migrations), no parameters.
    void execScript(const QString& script);

    bool inTransaction() const { return m_depth > 0; }
    QSqlDatabase handle() const;

    // The one way to write. Runs `work` inside one write transaction and commits it, again
    // from the start on a deadlock or serialization failure (PostgreSQL), a busy database
    // (SQLite) or a key another workstation made at the same moment, a few times at most.
    // `work` must therefore start from scratch on every run. Rows are locked in one order
    // everywhere: bill, room, member, goods. A refusal found inside the work is returned
    // after discard(); a nested write joins the outer transaction and does not retry.
    template <class F> auto write(F&& work) -> decltype(work());
    // Inside write(): nothing of this run is kept; write() rolls back and returns what the
    // work returns. Returns `value` for a one-line `return db.discard(refusal);`.
    template <class T> T discard(T value) {
        m_discard = true;
        return value;
    }
    // Inside write(): tells the other tills, once this write commits, that the room `theID`
    // (`announceRoom`) or the bill `expenseID` (`announceBill`) changed. On PostgreSQL the
    // notice goes out in the committing transaction, so it arrives only if the change stands;
    // a write that rolls back announces nothing.
    void announceRoom(const QString& theID) { announce(QStringLiteral("R") + theID); }
    void announceBill(const QString& expenseID) { announce(QStringLiteral("E") + expenseID); }
    void announce(const QString& key);
    // Called after each committed write that announced something, with its keys.
    void setCommitListener(std::function<void(const QStringList&)> listener) {
        m_onCommitted = std::move(listener);
    }
    // The channel of the notices on PostgreSQL.
    static constexpr const char* ChangeChannel = "singbox_change";
    // Statements run on this connection so far (benchmarks count the cost of a refresh).
    qint64 statements() const { return m_statements; }
    // The text of the statement run last (benchmarks run the same text bare).
    const QString& lastStatement() const { return m_lastStatement; }

    // Whether a write that failed on its `attempt`-th try should run again.
    bool mayRetry(const DbError& e, int attempt) const;
    static constexpr int WriteAttempts = 8;

    // The process's one connection.
    static Db& main();

  private:
    friend class Transaction;
    QSqlQuery& prepared(const QString& sql);
    // Reads of the embedded file step through SQLite itself: Qt's driver converts every
    // text to UTF-16 inside SQLite first, which doubles the time of a long report.
    Rows querySqlite(const QString& sql, const Params& params);
    void finalizeNative();
    void run(QSqlQuery& q, const QString& sql, const Params& params);
    void begin();
    void commit();
    void rollback();
    bool retryable(const DbError& e) const;
    void backOff(int attempt) const;

    QString m_name;
    DbConfig m_config;
    std::unique_ptr<Dialect> m_dialect;
    QHash<QString, QSqlQuery*> m_cache;
    QHash<QString, sqlite3_stmt*> m_native;
    int m_depth = 0;
    bool m_failed = false;
    bool m_discard = false;
    QStringList m_announced;
    std::function<void(const QStringList&)> m_onCommitted;
    qint64 m_statements = 0;
    QString m_lastStatement;
};

inline Db& DB() {
    return Db::main();
}

// Rolls back unless committed. Nested guards join the outer transaction.
class Transaction {
  public:
    explicit Transaction(Db& db = DB());
    ~Transaction();
    void commit();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

  private:
    Db& m_db;
    bool m_done = false;
};

template <class F> auto Db::write(F&& work) -> decltype(work()) {
    const bool outermost = m_depth == 0;
    for (int attempt = 1;; ++attempt) {
        if (outermost) m_discard = false;
        try {
            Transaction t(*this);
            if constexpr (std::is_void_v<decltype(work())>) {
                work();
                if (outermost && m_discard) return;
                t.commit();
                return;
            } else {
                auto r = work();
                if (outermost && m_discard) return r;
                t.commit();
                return r;
            }
        } catch (const DbError& e) {
            if (!outermost || !mayRetry(e, attempt)) throw;
            backOff(attempt);
        }
    }
}
