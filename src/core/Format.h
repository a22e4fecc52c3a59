#pragma once
#include <QDateTime>
#include <QString>

// Number format texts as the program uses them: a literal prefix, zeros for the
// whole part's least digits, and an optional "." with zeros for the decimals:
// "0.00", "0", "00", "00000", "￥0.00". Rounding is half away from zero on the
// value's own decimal text (15 significant digits), so 2.675 gives "2.68".
QString FormatNumber(double value, const QString& pattern);

// Text padding: each "@" is one place, text stands right-aligned, blanks fill the left.
// "@@@@@@@@" pads "abc" to "     abc"; longer text is kept whole.
QString FormatText(const QString& text, const QString& pattern);

// Date formats. In these texts "hh" is the 24-hour hour like "HH".
QString FormatDate(const QDateTime& when, const QString& pattern);

// The program's stored and shown time texts.
inline constexpr const char* TimeFormat = "yyyy-MM-dd HH:mm";
inline constexpr const char* DayFormat = "yyyy-MM-dd";
// No date set.
inline constexpr const char* DateSentinel = "1900-01-01 01:01";

QString TimeText(const QDateTime& when);  // "yyyy-MM-dd HH:mm"
QDateTime ParseTime(const QString& text); // "yyyy-MM-dd HH:mm[:ss]" or "yyyy-MM-dd"; invalid when neither

// Whole minutes from `from` to `to`, counting minute boundaries: seconds are ignored.
qint64 MinutesBetween(const QDateTime& from, const QDateTime& to);

// A time cut to its minute.
QDateTime ToMinute(const QDateTime& when);
