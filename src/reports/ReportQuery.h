#pragma once
#include "Db.h"
#include <QObject>
#include <QPointer>
#include <functional>

class QProgressBar;
class QThread;
class QWidget;

// Runs a report's reads on a thread of their own, with a connection of their own, so a
// long period never freezes the window. One read at a time: while it runs the button that
// starts it is disabled and the progress bar moves.
class ReportQuery : public QObject {
    Q_OBJECT
  public:
    ReportQuery(QWidget* trigger, QProgressBar* progress, QObject* parent);
    // A read still running ends on its own; its results go nowhere.
    ~ReportQuery() override;

    bool busy() const { return m_thread != nullptr; }
    // `read` runs on the worker thread with its own connection to the venue's database;
    // then, on the window's thread, `done`, or `failed` with the database error. False, and
    // nothing started, while a read runs.
    bool run(std::function<void(Db&)> read, std::function<void()> done,
             std::function<void(const DbError&)> failed);
    // Serves events until no read runs, `ms` at most; false when one still runs.
    bool wait(int ms = 60000);

  Q_SIGNALS:
    void finished();

  private:
    void ended();
    QPointer<QWidget> m_trigger;
    QPointer<QProgressBar> m_progress;
    QThread* m_thread = nullptr;
};
