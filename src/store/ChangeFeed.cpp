#include "ChangeFeed.h"
#include "Db.h"
#include <QTimer>

ChangeFeed::ChangeFeed(Db& db, QObject* parent) : QObject(parent), m_db(db) {
    m_poll = new QTimer(this);
    m_poll->setInterval(PollMs);
    connect(m_poll, &QTimer::timeout, this, &ChangeFeed::poll);
}

ChangeFeed::~ChangeFeed() {
    m_db.setCommitListener({});
}

ChangeFeed& ChangeFeed::main() {
    static ChangeFeed* feed = new ChangeFeed(Db::main());
    return *feed;
}

void ChangeFeed::start() {
    // This program's own writes: told once the write has committed, after the service returns.
    m_db.setCommitListener([this](const QStringList& keys) {
        drain();
        const bool first = m_pending.isEmpty();
        for (const QString& k : keys)
            if (!m_pending.contains(k)) m_pending << k;
        if (first)
            QMetaObject::invokeMethod(this, [this] { deliver(std::exchange(m_pending, {}), false); },
                                      Qt::QueuedConnection);
    });
    m_dataVersion = -1;
    m_poll->setInterval(m_db.isOpen() && m_db.backend() == Backend::PostgreSQL ? DrainMs : PollMs);
    poll();
    m_poll->start();
}

void ChangeFeed::stop() {
    m_poll->stop();
    m_db.setCommitListener({});
    if (m_driver) {
        disconnect(m_driver, nullptr, this, nullptr);
        if (m_db.isOpen() && m_db.handle().driver() == m_driver)
            m_driver->unsubscribeFromNotification(QString::fromLatin1(Db::ChangeChannel));
    }
    m_driver = nullptr;
}

bool ChangeFeed::subscribed() const {
    return m_driver && m_db.isOpen() && m_db.handle().driver() == m_driver &&
           m_driver->subscribedToNotifications().contains(QString::fromLatin1(Db::ChangeChannel));
}

void ChangeFeed::deliver(const QStringList& keys, bool elsewhere) {
    if (keys.isEmpty()) return;
    Q_EMIT changed(keys);
    if (elsewhere) Q_EMIT changedElsewhere(keys);
    drain();
}

void ChangeFeed::drain() {
    // A notice that arrives while this program runs a statement of its own is taken off the
    // connection with the statement's answer and waits in the client library, where no
    // socket activity announces it: it is collected here, after the program's own work.
    if (m_driver && subscribed())
        QMetaObject::invokeMethod(m_driver, "_q_handleNotification", Qt::QueuedConnection);
}

void ChangeFeed::subscribe() {
    if (m_driver) disconnect(m_driver, nullptr, this, nullptr);
    m_driver = nullptr;
    QSqlDriver* driver = m_db.handle().driver();
    if (!driver || !driver->subscribeToNotification(QString::fromLatin1(Db::ChangeChannel))) return;
    m_driver = driver;
    connect(driver, &QSqlDriver::notification, this, &ChangeFeed::onNotice);
}

void ChangeFeed::onNotice(const QString& name, QSqlDriver::NotificationSource source,
                          const QVariant& payload) {
    // This program's own notices were passed on at its commit.
    if (name != QLatin1String(Db::ChangeChannel) || source == QSqlDriver::SelfSource) return;
    const QString key = payload.toString();
    deliver({key.isEmpty() ? QStringLiteral("*") : key}, true);
}

void ChangeFeed::poll() {
    if (!m_db.isOpen() || m_db.inTransaction()) return;
    if (m_db.backend() == Backend::PostgreSQL) {
        // A connection opened anew (sign-in again, lost and found) is listened to anew; until
        // then the board's refresh timer carries on alone.
        if (!subscribed()) subscribe();
        drain();
        return;
    }
    try {
        // Moves only when another connection committed to the file.
        const qint64 version = m_db.scalar(QStringLiteral("PRAGMA data_version")).toLongLong();
        if (m_dataVersion >= 0 && version != m_dataVersion) deliver({QStringLiteral("*")}, true);
        m_dataVersion = version;
    } catch (const DbError&) {
        // The refresh timer reports database trouble; the check tries again next time.
    }
}
