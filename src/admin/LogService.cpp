#include "LogService.h"
#include "Clock.h"
#include "Format.h"
#include "Log.h"
#include "Settings.h"
#include "Val.h"

Rows LogService::list(const LogQuery& q) const {
    QString sql = QStringLiteral("select * from s_log where Logdate >= ? and Logdate <= ?");
    Params p{TimeText(q.start), TimeText(q.end)};
    const QString search = q.search.trimmed();
    if (!search.isEmpty()) {
        QString pattern = search;
        pattern.replace(QLatin1Char('\\'), QStringLiteral("\\\\"))
            .replace(QLatin1Char('%'), QStringLiteral("\\%"))
            .replace(QLatin1Char('_'), QStringLiteral("\\_"));
        pattern = QLatin1Char('%') + pattern + QLatin1Char('%');
        sql += QStringLiteral(" and (theOperator like ? escape '\\' or theModel like ? escape '\\' or "
                              "theDoName like ? escape '\\' or theContent like ? escape '\\')");
        p << pattern << pattern << pattern << pattern;
    }
    return m_db.query(sql + QStringLiteral(" order by Logdate desc, logid desc"), p);
}

int LogService::removeAll(const QString& operatorName) {
    return m_db.write([&] {
        const int n = m_db.exec(QStringLiteral("delete from s_log"));
        WriteLog(Now(), operatorName, QStringLiteral("系统设置"), QStringLiteral("操作日志"), 3, true,
                 QString(), m_db);
        return n;
    });
}

LogRetention LogService::retention() const {
    LogRetention r;
    const QString number = QString::number(Val(GetSetup(QStringLiteral("LogSaveNumber"), m_db)), 'g', 15);
    r.type = Val(GetSetup(QStringLiteral("LogType"), m_db)) == 0 ? 0 : 1;
    (r.type == 0 ? r.days : r.rows) = number;
    return r;
}

Refused LogService::saveRetention(const LogRetention& r) {
    const bool byDays = r.type == 0;
    const std::optional<double> n = ReadNumber(byDays ? r.days : r.rows, Range::Int32);
    if (!n)
        return byDays ? Refusal{QStringLiteral("请输入日志的保留天数！"), QStringLiteral("Text10")}
                      : Refusal{QStringLiteral("请输入日志的保留条数！"), QStringLiteral("Text11")};
    const Refusal failed = Refusal::error(QStringLiteral("保存日志设置失败！"));
    try {
        return m_db.write([&]() -> Refused {
            if (!SetSetup(QStringLiteral("LogType"), byDays ? QStringLiteral("0") : QStringLiteral("1"),
                          m_db) ||
                !SetSetup(QStringLiteral("LogSaveNumber"), QString::number(*n, 'g', 15), m_db))
                return m_db.discard(Refused(failed));
            return std::nullopt;
        });
    } catch (const DbError& e) {
        return Refusal::error(e.message(QStringLiteral("OKButton_Click"), QStringLiteral("frmLogSetup")));
    }
}
