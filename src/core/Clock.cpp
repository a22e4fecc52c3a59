#include "Clock.h"

namespace {
class SystemClock : public Clock {
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};

std::unique_ptr<Clock>& current() {
    static std::unique_ptr<Clock> c = std::make_unique<SystemClock>();
    return c;
}
} // namespace

const Clock& Clock::instance() { return *current(); }

void Clock::install(std::unique_ptr<Clock> clock) {
    current() = clock ? std::move(clock) : std::make_unique<SystemClock>();
}
