#include "Val.h"
#include <cmath>
#include <cstdlib>
#include <string>

namespace {
// Length of the numeric prefix starting at `i`; 0 when there is no digit.
qsizetype numberLength(const QString& s, qsizetype i) {
    const qsizetype start = i;
    const qsizetype n = s.size();
    auto digit = [&](qsizetype k) { return k < n && s[k] >= QLatin1Char('0') && s[k] <= QLatin1Char('9'); };
    if (i < n && (s[i] == QLatin1Char('+') || s[i] == QLatin1Char('-'))) ++i;
    bool any = false;
    while (digit(i)) ++i, any = true;
    if (i < n && s[i] == QLatin1Char('.')) {
        ++i;
        while (digit(i)) ++i, any = true;
    }
    if (!any) return 0;
    if (i < n && (s[i] == QLatin1Char('e') || s[i] == QLatin1Char('E'))) {
        qsizetype k = i + 1;
        if (k < n && (s[k] == QLatin1Char('+') || s[k] == QLatin1Char('-'))) ++k;
        if (digit(k)) {
            while (digit(k)) ++k;
            i = k;
        }
    }
    return i - start;
}

qsizetype skipBlanks(const QString& s, qsizetype i) {
    while (i < s.size() && s[i].isSpace()) ++i;
    return i;
}

// The numeric prefix as read, infinite when it overflows a double; `whole` tells whether
// nothing but blanks follows it. Nothing when the text has no number.
std::optional<double> readPrefix(const QString& text, bool* whole) {
    const qsizetype i = skipBlanks(text, 0);
    const qsizetype len = numberLength(text, i);
    if (whole) *whole = len > 0 && skipBlanks(text, i + len) == text.size();
    if (len == 0) return std::nullopt;
    const std::string digits = text.mid(i, len).toStdString();
    return std::strtod(digits.c_str(), nullptr);
}

bool within(double v, NumberRange range) {
    return std::isfinite(v) && v >= range.lowest && v <= range.highest;
}
} // namespace

double Val(const QString& text) {
    const double v = readPrefix(text, nullptr).value_or(0.0);
    return std::isfinite(v) ? v : 0.0;
}

bool IsNumeric(const QString& text) {
    bool whole = false;
    const std::optional<double> v = readPrefix(text, &whole);
    return whole && std::isfinite(*v);
}

std::optional<double> ReadNumber(const QString& text, NumberRange range) {
    bool whole = false;
    const std::optional<double> v = readPrefix(text, &whole);
    if (!whole || !within(*v, range)) return std::nullopt;
    return *v;
}

bool ValFits(const QString& text, NumberRange range) {
    const std::optional<double> v = readPrefix(text, nullptr);
    return !v || within(*v, range);
}

qint64 RoundEven(double value) {
    if (!std::isfinite(value)) return 0;
    return qint64(std::nearbyint(value));
}
