#include "Gateway.h"
#include "NewID.h"
#include <QFile>
#include <QRegularExpression>

bool IsIdentifier(const QString& name) {
    static const QRegularExpression re(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    return re.match(name).hasMatch();
}

namespace {
void requireIdentifiers(std::initializer_list<QString> names) {
    for (const QString& n : names)
        if (!IsIdentifier(n)) throw DbError(-1, QStringLiteral("无效的名称：") + n);
}
} // namespace

int ExecuteSQL(const QString& sql, const Params& params, Db& db) { return db.exec(sql, params); }

int UpdateTable(const QString& table, const QList<Assign>& assignments, const QString& condition,
                const Params& conditionParams, Db& db) {
    requireIdentifiers({table});
    QStringList sets;
    Params params;
    for (const Assign& a : assignments) {
        requireIdentifiers({a.column});
        sets << a.column + QStringLiteral("=?");
        params << a.value;
    }
    params << conditionParams;
    return db.exec(QStringLiteral("Update ") + table + QStringLiteral(" Set ") + sets.join(QLatin1Char(',')) +
                       QStringLiteral(" where ") + condition,
                   params);
}

int DeleteByField(const QString& table, const QString& field, const QString& value, Db& db) {
    try {
        requireIdentifiers({table, field});
        db.exec(QStringLiteral("delete From ") + table + QStringLiteral(" where ") + field + QStringLiteral("=?"),
                {value});
        return 1;
    } catch (const DbError&) {
        return 0;
    }
}

bool WriteDataToDB(const QString& table, const QString& field, const QString& keyColumn, const QString& key,
                   const QString& path, QString* error, Db& db) {
    try {
        requireIdentifiers({table, field, keyColumn});
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly)) throw DbError(-1, f.errorString());
        db.exec(QStringLiteral("UPDATE ") + table + QStringLiteral(" SET ") + field + QStringLiteral("=? WHERE ") +
                    keyColumn + QStringLiteral("=?"),
                {f.readAll(), key});
        return true;
    } catch (const DbError& e) {
        if (error) *error = e.message(QStringLiteral("WriteDataToDB"), QStringLiteral("mdQNDbToForm"), QStringLiteral("Module"));
        return false;
    }
}

bool ReadDataDB(const QString& table, const QString& field, const QString& keyColumn, const QString& key,
                const QString& path, QString* error, Db& db) {
    try {
        requireIdentifiers({table, field, keyColumn});
        const QVariant v = db.scalar(QStringLiteral("SELECT ") + field + QStringLiteral(" FROM ") + table +
                                         QStringLiteral(" WHERE ") + keyColumn + QStringLiteral("=?"),
                                     {key});
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) throw DbError(-1, f.errorString());
        f.write(v.toByteArray());
        return true;
    } catch (const DbError& e) {
        if (error) *error = e.message(QStringLiteral("ReadDataDB"), QStringLiteral("mdQNDbToForm"), QStringLiteral("Module"));
        return false;
    }
}

QString FreshKey(const QString& table, const QString& column, Db& db) {
    const QString sql = QStringLiteral("select count(*) from ") + table + QStringLiteral(" where ") + column +
                        QStringLiteral("=?");
    for (int attempt = 0;; ++attempt) {
        QString id = NewID();
        if (attempt >= 100) id += QString::number(attempt);
        if (db.scalar(sql, {id}).toLongLong() == 0) return id;
    }
}
