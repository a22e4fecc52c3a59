#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QDateTime>
#include <QString>

// Which log rows the viewer shows: a period and, when given, a text any of the
// operator, subsystem, action or content contains.
struct LogQuery {
    QDateTime start, end;
    QString search;
};

// How long the log is kept, as the retention dialog edits it.
struct LogRetention {
    int type = 0; // 0 keep days, 1 keep rows
    QString days = QStringLiteral("30"), rows = QStringLiteral("300");
};

// The operation log as its viewer and its retention dialog use it.
class LogService {
  public:
    explicit LogService(Db& db = DB()) : m_db(db) {}

    Rows list(const LogQuery& q) const;
    // Deletes every row, then logs the deletion itself, in one transaction. The count deleted.
    int removeAll(const QString& operatorName);

    LogRetention retention() const;
    Refused saveRetention(const LogRetention& r);

  private:
    Db& m_db;
};
