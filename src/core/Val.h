#pragma once
#include <QString>
#include <optional>

// The numeric value of the longest numeric prefix of the text, 0 when there is none.
// Leading blanks are skipped; then an optional sign, digits with at most one decimal
// point, and an exponent (e/E with optional sign) only when digits follow it.
// "12abc" is 12, "" is 0, " -3.5kg" is -3.5, "1e3" is 1000, "1e" is 1, "." is 0.
double Val(const QString& text);

// True when the whole text, blanks around it aside, is one finite number by the rule of Val:
// "12", " 12.5 ", "-3", ".5", "1e3" are numeric; "", "12abc", "1,000", "-", ".", "1e309" are not.
// Every "isn't numeric" check of the program uses this one rule.
bool IsNumeric(const QString& text);

// What a typed number is stored as decides the values it can hold.
struct NumberRange {
    double lowest;
    double highest;
};
namespace Range {
// Money in 1/10000 yuan fits 64 bits with room for the sums of a day's bills.
inline constexpr NumberRange Money{-1e12, 1e12};
// Quantities and points: room to multiply by a price and stay money.
inline constexpr NumberRange Quantity{-1e9, 1e9};
inline constexpr NumberRange Int16{-32768, 32767};
inline constexpr NumberRange Int32{-2147483648.0, 2147483647.0};
} // namespace Range

// The one reader of typed numbers: the value when the whole text is numeric and the field
// can hold it, nothing for text, infinity or a value beyond the range. Checks of typed
// numbers refuse with the field's own message when this gives nothing.
std::optional<double> ReadNumber(const QString& text, NumberRange range);

// For boxes read through Val without a numeric check (text counts as 0): false only when
// the number the box starts with is infinite or beyond the range.
bool ValFits(const QString& text, NumberRange range);

// Whole number nearest to the value, ties to even (2.5 -> 2, 3.5 -> 4), in 64 bits.
qint64 RoundEven(double value);
