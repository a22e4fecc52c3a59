#pragma once
#include <QDateTime>
#include <memory>

// The one source of "now". Tests install a fixed clock.
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;

    static const Clock& instance();
    // Installs a clock for the process (nullptr restores the system clock).
    static void install(std::unique_ptr<Clock> clock);
};

class FixedClock : public Clock {
public:
    explicit FixedClock(QDateTime at) : m_at(std::move(at)) {}
    QDateTime now() const override { return m_at; }
    void set(const QDateTime& at) { m_at = at; }
    void advanceMinutes(qint64 m) { m_at = m_at.addSecs(m * 60); }

private:
    QDateTime m_at;
};

inline QDateTime Now() { return Clock::instance().now(); }
