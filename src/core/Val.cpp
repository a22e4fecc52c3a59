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
} // namespace

double Val(const QString& text) {
    const qsizetype i = skipBlanks(text, 0);
    const qsizetype len = numberLength(text, i);
    if (len == 0) return 0.0;
    const std::string digits = text.mid(i, len).toStdString();
    const double v = std::strtod(digits.c_str(), nullptr);
    return std::isfinite(v) ? v : 0.0;
}

bool IsNumeric(const QString& text) {
    const qsizetype i = skipBlanks(text, 0);
    const qsizetype len = numberLength(text, i);
    if (len == 0) return false;
    return skipBlanks(text, i + len) == text.size();
}

qint64 RoundEven(double value) {
    if (!std::isfinite(value)) return 0;
    return qint64(std::nearbyint(value));
}
