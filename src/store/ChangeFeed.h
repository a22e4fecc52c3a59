#pragma once
#include <QObject>
#include <QPointer>
#include <QSqlDriver>
#include <QStringList>

class Db;
class QTimer;

// What the other tills changed, as soon as it is known. Write services announce the rooms and
// bills they change (Db::announceRoom / announceBill); this passes them on to the windows
// showing them:
// - writes of this program: right after their commit;
// - writes of other tills on PostgreSQL: through the server's notices on one channel;
// - writes of other programs on the same SQLite file: a cheap check of the file's change
//   counter on a short timer, which cannot say what changed ("*").
// The board's refresh timer stays as the fallback for anything missed.
class ChangeFeed : public QObject {
    Q_OBJECT
  public:
    explicit ChangeFeed(Db& db, QObject* parent = nullptr);
    ~ChangeFeed() override;

    // The feed of the program's one connection.
    static ChangeFeed& main();

    // Starts listening; again after the connection was opened anew, it listens on the new one.
    void start();
    void stop();
    // Whether the server's notices reach this program now (PostgreSQL).
    bool subscribed() const;
    // How often the change counter is read on SQLite; on PostgreSQL, how often notices held
    // back by the program's own statements are collected (no round trip to the server).
    static constexpr int PollMs = 250;
    static constexpr int DrainMs = 50;

    static bool isAnyChange(const QStringList& keys) { return keys.contains(QStringLiteral("*")); }
    static QString roomOf(const QString& key) { return key.startsWith(u'R') ? key.mid(1) : QString(); }
    static QString billOf(const QString& key) { return key.startsWith(u'E') ? key.mid(1) : QString(); }

  Q_SIGNALS:
    // "R" + TheID, "E" + ExpenseID, or "*" when the change is not known.
    void changed(const QStringList& keys);
    // The same for changes made by other programs only (other tills): a window does not
    // hear again what it wrote itself.
    void changedElsewhere(const QStringList& keys);

  private:
    void poll();
    void subscribe();
    void onNotice(const QString& name, QSqlDriver::NotificationSource source, const QVariant& payload);
    void deliver(const QStringList& keys, bool elsewhere);
    void drain();

    Db& m_db;
    QTimer* m_poll = nullptr;
    QPointer<QSqlDriver> m_driver;
    qint64 m_dataVersion = -1;
    QStringList m_pending;
};
