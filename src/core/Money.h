#pragma once
#include <QString>
#include <QtGlobal>
#include <compare>

// Money as an exact count of 1/10000 yuan in 64 bits. Never a double near a bill total.
class Money {
public:
    static constexpr qint64 Scale = 10000;

    constexpr Money() = default;
    static constexpr Money fromRaw(qint64 raw) {
        Money m;
        m.m_raw = raw;
        return m;
    }
    // Nearest 1/10000, ties to even.
    static Money fromDouble(double value);
    // Typed or shown money: the numeric prefix of the text (Val).
    static Money fromText(const QString& text);
    static constexpr Money yuan(qint64 whole) { return fromRaw(whole * Scale); }

    constexpr qint64 raw() const { return m_raw; }
    double toDouble() const { return double(m_raw) / double(Scale); }
    constexpr bool isZero() const { return m_raw == 0; }

    // Quantity times unit price, rounded once to 1/10000.
    Money times(double factor) const;

    // "0.00": two decimals, half away from zero.
    QString toString2() const;
    // "￥0.00"
    QString toYuan() const { return QStringLiteral("￥") + toString2(); }
    // Plain decimal text with up to four decimals and no trailing zeros ("12.5", "3").
    QString toPlain() const;

    constexpr Money operator+(Money o) const { return fromRaw(m_raw + o.m_raw); }
    constexpr Money operator-(Money o) const { return fromRaw(m_raw - o.m_raw); }
    constexpr Money operator-() const { return fromRaw(-m_raw); }
    constexpr Money& operator+=(Money o) {
        m_raw += o.m_raw;
        return *this;
    }
    constexpr Money& operator-=(Money o) {
        m_raw -= o.m_raw;
        return *this;
    }
    constexpr auto operator<=>(const Money&) const = default;

private:
    qint64 m_raw = 0;
};
