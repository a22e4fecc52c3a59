#include "ReportQuery.h"
#include <QAtomicInteger>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProgressBar>
#include <QPointer>
#include <QThread>
#include <QWidget>
#include <optional>

ReportQuery::ReportQuery(QWidget* trigger, QProgressBar* progress, QObject* parent)
    : QObject(parent), m_trigger(trigger), m_progress(progress) {
    if (m_progress) {
        m_progress->setRange(0, 0);
        m_progress->setTextVisible(false);
        m_progress->hide();
    }
}

namespace {
// Searches whose window closed before they ended. They finish on their own; the program
// waits for them only when it quits, so that no read outlives the database connections.
QList<QPointer<QThread>>& orphans() {
    static QList<QPointer<QThread>> list;
    return list;
}

void adopt(QThread* thread) {
    if (orphans().isEmpty() && QCoreApplication::instance())
        QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit,
                         QCoreApplication::instance(), [] {
                             for (const QPointer<QThread>& t : std::as_const(orphans()))
                                 if (t) t->wait();
                         });
    orphans().removeAll(nullptr);
    orphans() << thread;
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    if (thread->isFinished()) thread->deleteLater();
}
} // namespace

ReportQuery::~ReportQuery() {
    // A window closed while its search runs doesn't wait for it.
    if (m_thread) {
        QObject::disconnect(m_thread, nullptr, this, nullptr);
        adopt(m_thread);
    }
}

bool ReportQuery::run(std::function<void(Db&)> read, std::function<void()> done,
                      std::function<void(const DbError&)> failed) {
    if (m_thread) return false;
    const DbConfig config = DB().config();
    auto error = std::make_shared<std::optional<DbError>>();
    m_thread = QThread::create([config, read = std::move(read), error] {
        try {
            Db db;
            db.open(config);
            read(db);
        } catch (const DbError& e) {
            *error = e;
        } catch (const std::exception& e) {
            *error = DbError(-1, QString::fromLocal8Bit(e.what()));
        }
    });
    // Delivered to this object's thread; dropped with it when the window is gone first.
    connect(m_thread, &QThread::finished, this,
            [this, done = std::move(done), failed = std::move(failed), error] {
                ended();
                if (*error) {
                    if (failed) failed(**error);
                } else if (done) {
                    done();
                }
                Q_EMIT finished();
            },
            Qt::QueuedConnection);
    if (m_trigger) m_trigger->setEnabled(false);
    if (m_progress) m_progress->show();
    m_thread->start();
    return true;
}

void ReportQuery::ended() {
    if (m_thread) {
        m_thread->wait();
        delete m_thread;
        m_thread = nullptr;
    }
    if (m_trigger) m_trigger->setEnabled(true);
    if (m_progress) m_progress->hide();
}

bool ReportQuery::wait(int ms) {
    QDeadlineTimer deadline(ms);
    while (m_thread && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    return m_thread == nullptr;
}
