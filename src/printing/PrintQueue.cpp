#include "PrintQueue.h"
#include "AppState.h"
#include "Clock.h"
#include "Format.h"
#include "Gateway.h"
#include "PrintTarget.h"
#include "Settings.h"

QString RoleSetting(PrintRole role) {
    switch (role) {
    case PrintRole::Bill:
        return QStringLiteral("Printer");
    case PrintRole::Kitchen:
        return QStringLiteral("PrinterHC");
    case PrintRole::Bar:
        return QStringLiteral("PrinterBT");
    }
    return QStringLiteral("Printer");
}

QString RoleText(PrintRole role) {
    switch (role) {
    case PrintRole::Bill:
        return QStringLiteral("收银");
    case PrintRole::Kitchen:
        return QStringLiteral("后厨");
    case PrintRole::Bar:
        return QStringLiteral("吧台");
    }
    return {};
}

void PrintOutcome::add(const PrintOutcome& o) {
    jobs += o.jobs;
    failures += o.failures;
}

QString PrintOutcome::message() const {
    QStringList parts;
    for (const PrintFailure& f : failures)
        parts << QStringLiteral("“") + f.document + QStringLiteral("”没有打印出来。\n打印机：") +
                     PrinterShown(f.printer) + QStringLiteral("\n原因：") + f.error;
    if (parts.isEmpty()) return {};
    return parts.join(QStringLiteral("\n\n")) +
           QStringLiteral("\n\n单据已保存在打印队列中，可以重新打印，或改送其它打印机。");
}

namespace {
// The paper of a printer: that of the role it serves, else the job's own.
int paperFor(const QString& printer, int jobPaper, Db& db) {
    for (PrintRole r : {PrintRole::Bill, PrintRole::Kitchen, PrintRole::Bar})
        if (GetSetup(RoleSetting(r), db).trimmed() == printer.trimmed())
            return int(PaperFromSetting(GetSetup(RoleSetting(r) + QStringLiteral("Paper"), db)));
    return jobPaper;
}
} // namespace

namespace PrintQueue {
QString Enqueue(PrintRole role, const Receipt& receipt, int copies, const JobSource& source, Db& db) {
    const QString setting = RoleSetting(role);
    const QString printer = GetSetup(setting, db).trimmed();
    const Paper paper = PaperFromSetting(GetSetup(setting + QStringLiteral("Paper"), db));
    return db.write([&] {
        const QString id = FreshKey(QStringLiteral("PrintJob"), QStringLiteral("JobID"), db);
        const qint64 seq =
            db.scalar(QStringLiteral("select coalesce(max(Seq), 0) + 1 from PrintJob")).toLongLong();
        db.exec(
            QStringLiteral(
                "insert into PrintJob (JobID, Seq, Role, Printer, Paper, Design, Caption, SourceID, TheID, "
                "ThisCode, Document, Copies, CreateTime, State, Error, Tries, operatorname) "
                "values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, '', 0, ?)"),
            {id, seq, setting, printer, int(paper), receipt.design(), receipt.caption(), source.sourceID,
             source.theID, source.thisCode, receipt.toJson(), std::max(copies, 1), TimeText(Now()),
             App().CurrentOperatorName});
        return id;
    });
}

std::optional<Delivery> Prepare(const QString& jobID, const std::optional<QString>& printer, Db& db) {
    const Rows rows = db.query(QStringLiteral("select * from PrintJob where JobID=?"), {jobID});
    if (rows.isEmpty()) return std::nullopt;
    const Row job = rows.first();
    Delivery d;
    d.jobID = jobID;
    d.target = printer ? printer->trimmed() : job.text(QStringLiteral("Printer"));
    d.paper = printer ? paperFor(d.target, int(job.integer(QStringLiteral("Paper"))), db)
                      : int(job.integer(QStringLiteral("Paper")));
    d.caption = job.text(QStringLiteral("Caption"));
    d.fileName = job.text(QStringLiteral("Design")) + QLatin1Char('-') + jobID;
    d.receipt = Receipt::fromJson(job.text(QStringLiteral("Document")));
    d.copies = int(job.integer(QStringLiteral("Copies")));
    return d;
}

QString Deliver(const Delivery& d) {
    return SendReceipt(d.target, d.receipt, d.paper == 58 ? Paper::mm58 : Paper::mm80, d.copies, d.fileName);
}

void Record(const Delivery& d, const QString& error, Db& db) {
    db.write([&] {
        db.exec(QStringLiteral("update PrintJob set State=?, Error=?, PrintTime=?, Printer=?, Paper=?, "
                               "Tries=Tries+1 where JobID=?"),
                {error.isEmpty() ? Printed : Failed, error, TimeText(Now()), d.target, d.paper, d.jobID});
    });
}

namespace {
thread_local Collector* collector = nullptr;
}

Collector::Collector() : m_outer(collector) {
    collector = this;
}
Collector::~Collector() {
    collector = m_outer;
}

PrintOutcome Send(const QString& jobID, const std::optional<QString>& printer, Db& db) {
    PrintOutcome out;
    out.jobs << jobID;
    if (collector && !printer) {
        collector->jobs << jobID;
        return out;
    }
    const std::optional<Delivery> d = Prepare(jobID, printer, db);
    if (!d) {
        out.failures << PrintFailure{jobID, printer.value_or(QString()), jobID,
                                     QStringLiteral("打印队列中没有这个单据")};
        return out;
    }
    const QString error = Deliver(*d);
    Record(*d, error, db);
    if (!error.isEmpty()) out.failures << PrintFailure{jobID, d->target, d->caption, error};
    return out;
}

PrintOutcome SendAll(const QStringList& jobIDs, Db& db) {
    PrintOutcome out;
    for (const QString& id : jobIDs)
        out.add(Send(id, std::nullopt, db));
    return out;
}

Rows Jobs(bool unprintedOnly, Db& db) {
    return db.query(
        QStringLiteral("select JobID, Role, Printer, Paper, Design, Caption, SourceID, Copies, CreateTime, "
                       "PrintTime, State, Error, Tries, operatorname from PrintJob") +
        (unprintedOnly ? QStringLiteral(" where State<>1") : QString()) +
        QStringLiteral(" order by Seq desc"));
}

Receipt Document(const QString& jobID, Db& db) {
    return Receipt::fromJson(
        db.scalar(QStringLiteral("select Document from PrintJob where JobID=?"), {jobID}).toString());
}

QString LastBillJob(const QString& theID, Db& db) {
    const Rows r =
        db.query(QStringLiteral("select JobID from PrintJob where TheID=? and Role='Printer' and Design "
                                "like 'DREndExpense%' order by Seq desc"),
                 {theID});
    return r.isEmpty() ? QString() : r.first().text(QStringLiteral("JobID"));
}
QStringList LastTicketJobs(const QString& expenseID, Db& db) {
    const Rows last =
        db.query(QStringLiteral("select ThisCode from PrintJob where SourceID=? and ThisCode<>'' "
                                "order by Seq desc"),
                 {expenseID});
    QStringList out;
    if (last.isEmpty()) return out;
    for (const Row r :
         db.query(QStringLiteral("select JobID from PrintJob where SourceID=? and ThisCode=? order by Seq"),
                  {expenseID, last.first().text(QStringLiteral("ThisCode"))}))
        out << r.text(QStringLiteral("JobID"));
    return out;
}
} // namespace PrintQueue
