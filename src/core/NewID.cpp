#include "NewID.h"
#include "Clock.h"
#include <atomic>

namespace {
std::atomic<int> counter{0};
}

QString NewID() {
    int c = counter.load();
    int next;
    do {
        next = (c > 99 ? 0 : c) + 1;
    } while (!counter.compare_exchange_weak(c, next));
    return Now().toString(QStringLiteral("yyyyMMddHHmmss")) + QStringLiteral("%1").arg(next, 2, 10, QLatin1Char('0'));
}

QString StripKey(const QString& key) { return key.mid(1); }
