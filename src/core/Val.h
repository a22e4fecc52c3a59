#pragma once
#include <QString>

// The numeric value of the longest numeric prefix of the text, 0 when there is none.
// Leading blanks are skipped; then an optional sign, digits with at most one decimal
// point, and an exponent (e/E with optional sign) only when digits follow it.
// "12abc" is 12, "" is 0, " -3.5kg" is -3.5, "1e3" is 1000, "1e" is 1, "." is 0.
double Val(const QString& text);

// True when the whole text, blanks around it aside, is one number by the rule of Val:
// "12", " 12.5 ", "-3", ".5", "1e3" are numeric; "", "12abc", "1,000", "-", "." are not.
// Every "isn't numeric" check of the program uses this one rule.
bool IsNumeric(const QString& text);

// Whole number nearest to the value, ties to even (2.5 -> 2, 3.5 -> 4), in 64 bits.
qint64 RoundEven(double value);
