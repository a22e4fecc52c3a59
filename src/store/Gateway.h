#pragma once
#include "Db.h"
#include <QString>

// The shared operations every screen uses, on the process connection unless told otherwise.
// Table and column names come from the program, never from user text; values are bound.

// Runs one statement, returns the rows affected; errors propagate as DbError.
int ExecuteSQL(const QString& sql, const Params& params = {}, Db& db = DB());

struct Assign {
    QString column;
    Param value;
};
// "Update <table> Set <col>=?, ... where <condition>"; the condition carries its own placeholders.
int UpdateTable(const QString& table, const QList<Assign>& assignments, const QString& condition,
                const Params& conditionParams = {}, Db& db = DB());

// Deletes the rows whose field equals the value. 1 on success, 0 on any failure (no message).
int DeleteByField(const QString& table, const QString& field, const QString& value, Db& db = DB());

// Loads a file into a binary field of one row / saves a binary field to a file.
// False with `error` set on failure.
bool WriteDataToDB(const QString& table, const QString& field, const QString& keyColumn, const QString& key,
                   const QString& path, QString* error = nullptr, Db& db = DB());
bool ReadDataDB(const QString& table, const QString& field, const QString& keyColumn, const QString& key,
                const QString& path, QString* error = nullptr, Db& db = DB());

// A new key for `table`.`column` that no row holds yet. Keys are made per second, so a burst
// or another workstation in the same second can meet a stored key; the next one is tried.
QString FreshKey(const QString& table, const QString& column, Db& db = DB());

// True for a plain SQL identifier.
bool IsIdentifier(const QString& name);
