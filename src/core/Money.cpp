#include "Money.h"
#include "Format.h"
#include "Val.h"
#include <charconv>
#include <cmath>
#include <cstdlib>

Money Money::fromDouble(double value) {
    if (!std::isfinite(value)) return {};
    // Typed amounts are range-checked before they get here; a product beyond 64 bits
    // saturates rather than wrapping into a negative sum.
    constexpr double Limit = 9.2e18;
    if (std::fabs(value * double(Scale)) >= Limit) return fromRaw(value < 0 ? -qint64(Limit) : qint64(Limit));
    // Scale, then read the product as its 15-digit decimal text so that a typed
    // 0.00015 is the tie it looks like; nearbyint then rounds ties to even.
    char buf[40];
    const auto res = std::to_chars(buf, buf + sizeof buf - 1, value * double(Scale), std::chars_format::general, 15);
    *res.ptr = '\0';
    return fromRaw(qint64(std::nearbyint(std::strtod(buf, nullptr))));
}

Money Money::fromText(const QString& text) { return fromDouble(Val(text)); }

Money Money::times(double factor) const { return fromDouble(toDouble() * factor); }

QString Money::toString2() const {
    const qint64 a = m_raw < 0 ? -m_raw : m_raw;
    qint64 cents = a / 100;
    if (a % 100 >= 50) ++cents;
    QString s = QString::number(cents / 100) + QLatin1Char('.') +
                QStringLiteral("%1").arg(cents % 100, 2, 10, QLatin1Char('0'));
    if (m_raw < 0 && cents != 0) s.prepend(QLatin1Char('-'));
    return s;
}

QString Money::toPlain() const {
    const qint64 a = m_raw < 0 ? -m_raw : m_raw;
    QString s = QString::number(a / Scale);
    if (qint64 frac = a % Scale) {
        QString f = QStringLiteral("%1").arg(frac, 4, 10, QLatin1Char('0'));
        while (f.endsWith(QLatin1Char('0'))) f.chop(1);
        s += QLatin1Char('.') + f;
    }
    if (m_raw < 0) s.prepend(QLatin1Char('-'));
    return s;
}
