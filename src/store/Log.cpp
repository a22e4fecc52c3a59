#include "Log.h"
#include "Clock.h"
#include "Dialect.h"
#include "Format.h"
#include "Gateway.h"
#include "NewID.h"
#include "Settings.h"
#include "Val.h"

void WriteLog(const QDateTime& when, const QString& operatorName, const QString& model, const QString& doName,
              int kind, bool ok, const QString& content, Db& db) {
    QString type;
    switch (kind) {
    case 1:
        type = QStringLiteral("新增");
        break;
    case 2:
        type = QStringLiteral("修改");
        break;
    case 3:
        type = QStringLiteral("删除");
        break;
    default:
        type = QStringLiteral("其它");
        break;
    }
    const QString dook = ok ? QStringLiteral("成功") : QStringLiteral("失败");
    // A key another workstation made in the same second is skipped here or, if it is not yet
    // committed there, makes the caller's write run again.
    db.write([&] {
        db.exec(QStringLiteral(
                    "Insert into s_log(logid,Logdate,theOperator,theModel,theDoName,Dotype,dook,theContent) "
                    "values (?,?,?,?,?,?,?,?)"),
                {FreshKey(QStringLiteral("s_log"), QStringLiteral("logid"), db), TimeText(when), operatorName,
                 model, doName, type, dook, content});
    });
}

int TrimLog(Db& db) {
    const int type = int(Val(GetSetup(QStringLiteral("LogType"), db)));
    qint64 keep = qint64(Val(GetSetup(QStringLiteral("LogSaveNumber"), db)));
    if (keep < 0) keep = 0;
    if (type == 0) {
        const QString limit = Now().date().addDays(-keep).toString(QLatin1String(DayFormat));
        return db.exec(QStringLiteral("delete from s_log where Logdate < ?"), {limit});
    }
    const qint64 count = db.scalar(QStringLiteral("select count(*) as c from s_log")).toLongLong();
    if (count <= keep) return 0;
    return db.exec(
        QStringLiteral("delete from s_log where logid in (select logid from s_log order by Logdate asc, "
                       "logid asc limit ?)"),
        {count - keep});
}
