#pragma once
#include "Db.h"
#include <QDateTime>

// Adds one row to the operation log. kind: 1 新增, 2 修改, 3 删除, anything else 其它.
// Throws DbError.
void WriteLog(const QDateTime& when, const QString& operatorName, const QString& model, const QString& doName,
              int kind, bool ok, const QString& content, Db& db = DB());

// The retention run at exit: LogType 0 keeps LogSaveNumber days (rows from before today
// minus N go), any other type keeps the newest N rows. A negative number counts as 0.
// Returns the rows deleted.
int TrimLog(Db& db = DB());
