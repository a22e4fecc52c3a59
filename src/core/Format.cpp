#include "Format.h"
#include <QTimeZone>
#include <charconv>
#include <cmath>
#include <string>

namespace {
// Rounds the decimal text of `value` to `decimals` places, half away from zero.
// Returns digits (no point) and the count of whole digits.
QString roundedDigits(double value, int decimals, bool& negative) {
    negative = std::signbit(value) && value != 0.0;
    double a = std::fabs(value);
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, a, std::chars_format::scientific, 14);
    std::string sci(buf, res.ptr);
    // d.dddddddddddddde±XX
    const auto epos = sci.find('e');
    std::string mant = sci.substr(0, epos);
    const int exp = std::stoi(sci.substr(epos + 1));
    mant.erase(1, 1); // drop the point: 15 digits, the first is the units of 10^exp
    // Build a fixed string of digits with the point after position (exp + 1).
    std::string whole, frac;
    if (exp >= 0) {
        if (int(mant.size()) <= exp + 1) {
            whole = mant + std::string(exp + 1 - mant.size(), '0');
        } else {
            whole = mant.substr(0, exp + 1);
            frac = mant.substr(exp + 1);
        }
    } else {
        whole = "0";
        frac = std::string(-exp - 1, '0') + mant;
    }
    if (int(frac.size()) < decimals + 1) frac += std::string(decimals + 1 - frac.size(), '0');
    const bool up = frac[decimals] >= '5';
    std::string digits = whole + frac.substr(0, decimals);
    if (up) {
        int k = int(digits.size()) - 1;
        while (k >= 0 && digits[k] == '9') digits[k--] = '0';
        if (k < 0)
            digits.insert(digits.begin(), '1');
        else
            ++digits[k];
    }
    if (digits.find_first_not_of('0') == std::string::npos) negative = false;
    return QString::fromStdString(digits);
}
} // namespace

namespace {
// Commas between the thousands of the first run of digits.
QString grouped(const QString& s) {
    qsizetype start = 0;
    while (start < s.size() && !s[start].isDigit())
        ++start;
    qsizetype end = start;
    while (end < s.size() && s[end].isDigit())
        ++end;
    QString out = s;
    for (qsizetype at = end - 3; at > start; at -= 3)
        out.insert(at, QLatin1Char(','));
    return out;
}
} // namespace

QString FormatNumber(double value, const QString& pattern) {
    // "#,##0.00": the digit marks and the comma ask for thousands grouped.
    if (pattern.contains(QLatin1String("#,#"))) {
        QString plain = pattern;
        plain.remove(QLatin1Char('#'));
        plain.remove(QLatin1Char(','));
        if (!plain.contains(QLatin1Char('0'))) plain += QLatin1Char('0');
        return grouped(FormatNumber(value, plain));
    }
    if (!std::isfinite(value)) value = 0.0;
    const qsizetype first = pattern.indexOf(QLatin1Char('0'));
    if (first < 0) return pattern;
    qsizetype last = first;
    while (last + 1 < pattern.size() &&
           (pattern[last + 1] == QLatin1Char('0') || pattern[last + 1] == QLatin1Char('.')))
        ++last;
    const QString prefix = pattern.left(first);
    const QString suffix = pattern.mid(last + 1);
    const QString core = pattern.mid(first, last - first + 1);
    const qsizetype dot = core.indexOf(QLatin1Char('.'));
    const int wholeMin = int(dot < 0 ? core.size() : dot);
    const int decimals = int(dot < 0 ? 0 : core.size() - dot - 1);

    bool negative = false;
    QString digits = roundedDigits(value, decimals, negative);
    QString whole = digits.left(digits.size() - decimals);
    const QString frac = digits.right(decimals);
    while (whole.size() > 1 && whole.startsWith(QLatin1Char('0'))) whole.remove(0, 1);
    if (whole.size() < wholeMin) whole = QString(wholeMin - whole.size(), QLatin1Char('0')) + whole;
    if (wholeMin == 0 && whole == QLatin1String("0")) whole.clear();
    QString out = whole;
    if (decimals > 0) out += QLatin1Char('.') + frac;
    if (negative) out.prepend(QLatin1Char('-'));
    return prefix + out + suffix;
}

QString FormatText(const QString& text, const QString& pattern) {
    const qsizetype places = pattern.count(QLatin1Char('@'));
    if (text.size() >= places) return text;
    return QString(places - text.size(), QLatin1Char(' ')) + text;
}

QString FormatDate(const QDateTime& when, const QString& pattern) {
    QString p = pattern;
    p.replace(QLatin1String("hh"), QLatin1String("HH"));
    return when.toString(p);
}

QString TimeText(const QDateTime& when) { return when.toString(QLatin1String(TimeFormat)); }

QDateTime ParseTime(const QString& text) {
    const QString t = text.trimmed();
    for (const char* f : {"yyyy-MM-dd HH:mm", "yyyy-MM-dd HH:mm:ss", "yyyy-MM-dd"}) {
        QDateTime d = QDateTime::fromString(t, QLatin1String(f));
        if (d.isValid()) return d;
    }
    return {};
}

QDateTime ToMinute(const QDateTime& when) {
    QTime t = when.time();
    return QDateTime(when.date(), QTime(t.hour(), t.minute()), when.timeZone());
}

qint64 MinutesBetween(const QDateTime& from, const QDateTime& to) {
    return ToMinute(from).secsTo(ToMinute(to)) / 60;
}
