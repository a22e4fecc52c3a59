#include "Db.h"
#include "Dialect.h"
#include "Format.h"
#include "Val.h"
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QThread>
#include <QUuid>
#include <sqlite3.h>
#include <limits>

QString DbError::message(const QString& procedure, const QString& form, const QString& kind) const {
    return QStringLiteral("Error %1 (%2) in procedure %3 of %4 %5")
        .arg(number)
        .arg(description, procedure, kind, form);
}

DbConfig DbConfig::fromPgString(const QString& conn) {
    DbConfig c;
    c.backend = Backend::PostgreSQL;
    for (const QString& part : conn.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const qsizetype eq = part.indexOf(QLatin1Char('='));
        if (eq < 0) continue;
        const QString k = part.left(eq).trimmed().toLower();
        const QString v = part.mid(eq + 1).trimmed();
        if (k == QLatin1String("host"))
            c.host = v;
        else if (k == QLatin1String("port"))
            c.port = v.toInt();
        else if (k == QLatin1String("user"))
            c.user = v;
        else if (k == QLatin1String("password"))
            c.password = v;
        else if (k == QLatin1String("dbname"))
            c.name = v;
    }
    return c;
}

namespace {
DbError errorOf(const QSqlError& e) {
    bool ok = false;
    int number = e.nativeErrorCode().toInt(&ok);
    if (!ok) number = int(e.type()) + 3000;
    QString text = e.databaseText().trimmed();
    if (text.isEmpty()) text = e.text().trimmed();
    return DbError(number, text, e.nativeErrorCode());
}

bool isNumericType(const QVariant& v) {
    switch (v.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Bool:
        return true;
    default:
        return false;
    }
}
} // namespace

// ---- Rows ----

int RowsData::column(const QString& name) const {
    auto it = index.constFind(name.toLower());
    if (it == index.constEnd()) throw DbError(-1, QStringLiteral("Column %1 is not in the result").arg(name));
    return *it;
}

QVariant RowsData::at(size_t row, size_t col) const {
    const Cell& c = cells[row * width + col];
    switch (c.kind) {
    case Kind::Int: return QVariant(qlonglong(c.i));
    case Kind::Real: return QVariant(c.d);
    case Kind::Text: return QVariant(QString::fromUtf8(arena.constData() + c.s.off, qsizetype(c.s.len)));
    case Kind::Blob: return QVariant(QByteArray(arena.constData() + c.s.off, qsizetype(c.s.len)));
    case Kind::Other: return others[size_t(c.meta)];
    case Kind::Null: break;
    }
    return QVariant(QMetaType(c.meta));
}

void RowsData::addBytes(Kind kind, const char* data, qsizetype len) {
    const qsizetype off = arena.size();
    if (off + len > qsizetype(std::numeric_limits<quint32>::max()))
        throw DbError(-1, QStringLiteral("查询结果过大，请缩短查询的时间范围"));
    arena.append(data, len);
    Cell c{kind, {.i = 0}};
    c.s = {quint32(off), quint32(len)};
    cells.push_back(c);
}

void RowsData::add(const QVariant& v) {
    const int type = v.metaType().id();
    if (v.isNull()) return addNull(type);
    switch (type) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort: return addInt(v.toLongLong());
    case QMetaType::Double: return addReal(v.toDouble());
    case QMetaType::QString: {
        const QByteArray b = v.toString().toUtf8();
        return addBytes(Kind::Text, b.constData(), b.size());
    }
    case QMetaType::QByteArray: {
        const QByteArray b = v.toByteArray();
        return addBytes(Kind::Blob, b.constData(), b.size());
    }
    default:
        Cell c{Kind::Other, {.meta = int(others.size())}};
        others.push_back(v);
        cells.push_back(c);
    }
}

QVariant Row::value(const QString& c) const {
    return m_rows->at(size_t(m_index), size_t(m_rows->column(c)));
}
bool Row::has(const QString& c) const {
    return m_rows->index.contains(c.toLower());
}
bool Row::isNull(const QString& c) const {
    return value(c).isNull();
}

QString Row::text(const QString& c) const {
    const QVariant v = value(c);
    if (v.isNull()) return {};
    if (v.metaType().id() == QMetaType::Double) return QString::number(v.toDouble(), 'g', 15);
    return v.toString();
}

double Row::num(const QString& c) const {
    const QVariant v = value(c);
    if (v.isNull()) return 0.0;
    if (isNumericType(v)) return v.toDouble();
    return Val(v.toString());
}

namespace {
qint64 integerOf(const QVariant& v) {
    if (v.isNull()) return 0;
    switch (v.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return v.toLongLong();
    default:
        return RoundEven(isNumericType(v) ? v.toDouble() : Val(v.toString()));
    }
}

Money moneyOf(const QVariant& v) {
    if (v.isNull()) return {};
    switch (v.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return Money::fromRaw(v.toLongLong());
    default: {
        // Sums come back as a decimal or floating value of the raw count.
        const double d = isNumericType(v) ? v.toDouble() : Val(v.toString());
        return Money::fromRaw(RoundEven(d));
    }
    }
}
} // namespace

qint64 Row::integer(const QString& c) const {
    return integerOf(value(c));
}
Money Row::money(const QString& c) const {
    return moneyOf(value(c));
}
qint64 Rows::integer(int row, int col) const {
    return integerOf(at(row, col));
}
Money Rows::money(int row, int col) const {
    return moneyOf(at(row, col));
}

QString Row::date(const QString& c) const {
    const QVariant v = value(c);
    if (v.isNull()) return QLatin1String(DateSentinel);
    const QString s = v.toString();
    return s.isEmpty() ? QLatin1String(DateSentinel) : s;
}

QByteArray Row::bytes(const QString& c) const {
    return value(c).toByteArray();
}

// ---- Db ----

Db::Db(QString connectionName) : m_name(std::move(connectionName)) {
    if (m_name.isEmpty()) m_name = QUuid::createUuid().toString(QUuid::WithoutBraces);
}

Db::~Db() {
    close();
}

Db& Db::main() {
    // Never destroyed: it must not outlive Qt SQL's own globals at exit.
    static Db* db = new Db(QStringLiteral("singbox-main"));
    return *db;
}

QSqlDatabase Db::handle() const {
    return QSqlDatabase::database(m_name, false);
}

bool Db::isOpen() const {
    return QSqlDatabase::contains(m_name) && handle().isOpen();
}

void Db::open(const DbConfig& config) {
    close();
    m_config = config;
    QSqlDatabase db;
    if (config.backend == Backend::SQLite) {
        m_dialect = std::make_unique<SqliteDialect>();
        db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
        db.setDatabaseName(config.file);
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000"));
    } else {
        m_dialect = std::make_unique<PgDialect>();
        db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), m_name);
        db.setHostName(config.host);
        db.setPort(config.port);
        db.setUserName(config.user);
        db.setPassword(config.password);
        db.setDatabaseName(config.name);
        db.setConnectOptions(QStringLiteral("connect_timeout=5"));
    }
    if (!db.open()) {
        DbError e = errorOf(db.lastError());
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
        throw e;
    }
    if (config.backend == Backend::SQLite) {
        exec(QStringLiteral("PRAGMA journal_mode=WAL"));
        exec(QStringLiteral("PRAGMA synchronous=FULL"));
        exec(QStringLiteral("PRAGMA foreign_keys=ON"));
    } else {
        exec(QStringLiteral("SET client_min_messages TO WARNING"));
        if (!config.schema.isEmpty()) {
            if (!QRegularExpression(QStringLiteral("^[a-z_][a-z0-9_]*$")).match(config.schema).hasMatch())
                throw DbError(-1, QStringLiteral("invalid schema name"));
            exec(QStringLiteral("CREATE SCHEMA IF NOT EXISTS ") + config.schema);
            exec(QStringLiteral("SET search_path TO ") + config.schema);
        }
    }
}

void Db::close() {
    for (QSqlQuery* q : std::as_const(m_cache))
        delete q;
    m_cache.clear();
    finalizeNative();
    m_depth = 0;
    if (QSqlDatabase::contains(m_name)) {
        {
            QSqlDatabase db = QSqlDatabase::database(m_name, false);
            if (db.isOpen()) db.close();
        }
        QSqlDatabase::removeDatabase(m_name);
    }
}

QSqlQuery& Db::prepared(const QString& sql) {
    auto it = m_cache.find(sql);
    if (it != m_cache.end()) return **it;
    auto* q = new QSqlQuery(handle());
    q->setForwardOnly(true);
    if (!q->prepare(sql)) {
        DbError e = errorOf(q->lastError());
        delete q;
        throw e;
    }
    if (m_cache.size() > 400) {
        for (QSqlQuery* old : std::as_const(m_cache))
            delete old;
        m_cache.clear();
    }
    m_cache.insert(sql, q);
    return *q;
}

void Db::run(QSqlQuery& q, const QString& sql, const Params& params) {
    m_lastStatement = sql;
    ++m_statements;
    for (int i = 0; i < params.size(); ++i)
        q.bindValue(i, params[i].value());
    if (!q.exec()) {
        DbError e = errorOf(q.lastError());
        q.finish();
        if (m_depth > 0) m_failed = true;
        throw e;
    }
}

namespace {
// Statements a server will not prepare; they never carry values.
bool isUtility(const QString& sql) {
    static const QRegularExpression re(
        QStringLiteral("^\\s*(SET|CREATE|DROP|ALTER|PRAGMA|VACUUM|ANALYZE)\\b"),
        QRegularExpression::CaseInsensitiveOption);
    return re.match(sql).hasMatch();
}
} // namespace

int Db::exec(const QString& sql, const Params& params) {
    if (!isOpen()) throw DbError(-1, QStringLiteral("数据库未连接"));
    if (params.isEmpty() && isUtility(sql)) {
        QSqlQuery q(handle());
        if (!q.exec(sql)) {
            if (m_depth > 0) m_failed = true;
            throw errorOf(q.lastError());
        }
        return 0;
    }
    QSqlQuery& q = prepared(sql);
    run(q, sql, params);
    const int n = q.numRowsAffected();
    q.finish();
    return n < 0 ? 0 : n;
}

Rows Db::query(const QString& sql, const Params& params) {
    if (!isOpen()) throw DbError(-1, QStringLiteral("数据库未连接"));
    if (m_config.backend == Backend::SQLite) return querySqlite(sql, params);
    QSqlQuery& q = prepared(sql);
    run(q, sql, params);
    Rows rows;
    const QSqlRecord rec = q.record();
    const int n = rec.count();
    for (int i = 0; i < n; ++i) {
        const QString name = rec.fieldName(i).toLower();
        rows.m_d->names << name;
        if (!rows.m_d->index.contains(name)) rows.m_d->index.insert(name, i);
    }
    rows.m_d->width = size_t(n);
    while (q.next()) {
        for (int i = 0; i < n; ++i)
            rows.m_d->add(q.value(i));
        ++rows.m_d->count;
    }
    q.finish();
    return rows;
}

namespace {
sqlite3* nativeHandle(const QSqlDatabase& db) {
    const QVariant h = db.driver()->handle();
    if (qstrcmp(h.typeName(), "sqlite3*") != 0) return nullptr;
    return *static_cast<sqlite3* const*>(h.data());
}

DbError sqliteError(sqlite3* h, int code) {
    return DbError(code, QString::fromUtf8(sqlite3_errmsg(h)), QString::number(code));
}
} // namespace

Rows Db::querySqlite(const QString& sql, const Params& params) {
    sqlite3* h = nativeHandle(handle());
    if (!h) throw DbError(-1, QStringLiteral("数据库未连接"));
    m_lastStatement = sql;
    ++m_statements;
    sqlite3_stmt* st = m_native.value(sql);
    if (!st) {
        const QByteArray text = sql.toUtf8();
        const int rc = sqlite3_prepare_v2(h, text.constData(), int(text.size()), &st, nullptr);
        if (rc != SQLITE_OK) {
            sqlite3_finalize(st);
            throw sqliteError(h, sqlite3_extended_errcode(h));
        }
        m_native.insert(sql, st);
    }
    // Values as Qt's driver gives them: whole numbers as 64-bit, null as a null text.
    for (int i = 0; i < params.size(); ++i) {
        const QVariant& v = params[i].value();
        int rc = SQLITE_OK;
        if (v.isNull()) {
            rc = sqlite3_bind_null(st, i + 1);
        } else {
            switch (v.metaType().id()) {
            case QMetaType::Int:
            case QMetaType::LongLong:
            case QMetaType::UInt:
            case QMetaType::Bool: rc = sqlite3_bind_int64(st, i + 1, v.toLongLong()); break;
            case QMetaType::Double: rc = sqlite3_bind_double(st, i + 1, v.toDouble()); break;
            case QMetaType::QByteArray: {
                const QByteArray b = v.toByteArray();
                rc = sqlite3_bind_blob64(st, i + 1, b.constData(), sqlite3_uint64(b.size()), SQLITE_TRANSIENT);
                break;
            }
            default: {
                const QByteArray t = v.toString().toUtf8();
                rc = sqlite3_bind_text64(st, i + 1, t.constData(), sqlite3_uint64(t.size()), SQLITE_TRANSIENT,
                                         SQLITE_UTF8);
            }
            }
        }
        if (rc != SQLITE_OK) {
            sqlite3_reset(st);
            sqlite3_clear_bindings(st);
            throw sqliteError(h, rc);
        }
    }
    Rows rows;
    RowsData& d = *rows.m_d;
    const int n = sqlite3_column_count(st);
    for (int i = 0; i < n; ++i) {
        const QString name = QString::fromUtf8(sqlite3_column_name(st, i)).toLower();
        d.names << name;
        if (!d.index.contains(name)) d.index.insert(name, i);
    }
    d.width = size_t(n);
    const int nullText = QMetaType::QString;
    int rc;
    try {
        while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
            for (int i = 0; i < n; ++i) {
                switch (sqlite3_column_type(st, i)) {
                case SQLITE_INTEGER: d.addInt(sqlite3_column_int64(st, i)); break;
                case SQLITE_FLOAT: d.addReal(sqlite3_column_double(st, i)); break;
                case SQLITE_TEXT: {
                    const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(st, i));
                    d.addBytes(RowsData::Kind::Text, t, sqlite3_column_bytes(st, i));
                    break;
                }
                case SQLITE_BLOB: {
                    const auto* b = static_cast<const char*>(sqlite3_column_blob(st, i));
                    d.addBytes(RowsData::Kind::Blob, b, sqlite3_column_bytes(st, i));
                    break;
                }
                default: d.addNull(nullText);
                }
            }
            ++d.count;
        }
    } catch (const DbError&) {
        sqlite3_reset(st);
        sqlite3_clear_bindings(st);
        throw;
    }
    // Reset at once: no read keeps its snapshot of the file open.
    sqlite3_reset(st);
    sqlite3_clear_bindings(st);
    if (rc != SQLITE_DONE) {
        const DbError e = sqliteError(h, sqlite3_extended_errcode(h));
        if (m_depth > 0) m_failed = true;
        throw e;
    }
    return rows;
}

void Db::finalizeNative() {
    for (sqlite3_stmt* st : std::as_const(m_native))
        sqlite3_finalize(st);
    m_native.clear();
}

QVariant Db::scalar(const QString& sql, const Params& params) {
    Rows r = query(sql, params);
    if (r.isEmpty() || r.columns().isEmpty()) return {};
    return r.at(0, 0);
}

void Db::execScript(const QString& script) {
    const QStringList parts =
        script.split(QRegularExpression(QStringLiteral(";\\s*\\n")), Qt::SkipEmptyParts);
    for (QString stmt : parts) {
        // Drop comment lines.
        QStringList lines;
        for (const QString& l : stmt.split(QLatin1Char('\n')))
            if (!l.trimmed().startsWith(QLatin1String("--"))) lines << l;
        stmt = lines.join(QLatin1Char('\n')).trimmed();
        if (stmt.endsWith(QLatin1Char(';'))) stmt.chop(1);
        if (stmt.isEmpty()) continue;
        QSqlQuery q(handle());
        if (!q.exec(stmt)) {
            DbError e = errorOf(q.lastError());
            if (m_depth > 0) m_failed = true;
            throw DbError(e.number, e.description + QStringLiteral(" [") + stmt.left(80) + QLatin1Char(']'),
                          e.nativeCode);
        }
    }
}

void Db::announce(const QString& key) {
    if (m_depth > 0 && !m_announced.contains(key)) m_announced << key;
}

void Db::begin() {
    if (m_depth++ > 0) return;
    m_failed = false;
    m_announced.clear();
    QSqlQuery q(handle());
    if (!q.exec(m_dialect->beginWrite())) {
        m_depth = 0;
        throw errorOf(q.lastError());
    }
}

void Db::commit() {
    if (m_depth <= 0) return;
    if (m_depth == 1 && !m_failed && backend() == Backend::PostgreSQL) {
        // Delivered by the server only when the transaction commits.
        try {
            for (const QString& key : std::as_const(m_announced))
                query(QStringLiteral("select pg_notify(?, ?)"), {QString::fromLatin1(ChangeChannel), key});
        } catch (const DbError&) {
            m_failed = true;
        }
    }
    if (--m_depth > 0) return;
    QSqlQuery q(handle());
    if (m_failed || !q.exec(QStringLiteral("COMMIT"))) {
        DbError e = m_failed ? DbError(-1, QStringLiteral("transaction failed")) : errorOf(q.lastError());
        QSqlQuery r(handle());
        r.exec(QStringLiteral("ROLLBACK"));
        m_announced.clear();
        throw e;
    }
    const QStringList keys = std::exchange(m_announced, {});
    if (!keys.isEmpty() && m_onCommitted) m_onCommitted(keys);
}

void Db::rollback() {
    if (m_depth <= 0) return;
    if (--m_depth > 0) {
        m_failed = true;
        return;
    }
    m_announced.clear();
    QSqlQuery q(handle());
    q.exec(QStringLiteral("ROLLBACK"));
}

bool Db::retryable(const DbError& e) const {
    return m_dialect && m_dialect->isRetryable(e);
}

Transaction::Transaction(Db& db) : m_db(db) {
    m_db.begin();
}

Transaction::~Transaction() {
    if (!m_done) m_db.rollback();
}

void Transaction::commit() {
    m_done = true;
    m_db.commit();
}

bool Db::mayRetry(const DbError& e, int attempt) const {
    return attempt < WriteAttempts && m_dialect &&
           (m_dialect->isUniqueViolation(e) || m_dialect->isRetryable(e));
}

void Db::backOff(int attempt) const {
    // A short, growing, random pause keeps two workstations that just met from meeting again.
    const int ceiling = std::min(5 << attempt, 200);
    QThread::msleep(unsigned(QRandomGenerator::global()->bounded(1, ceiling + 1)));
}
