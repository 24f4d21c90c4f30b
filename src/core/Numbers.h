#pragma once
// The game's number rules: conversions to whole numbers round half to even, texts are read as
// far as they hold a number, and numbers are shown in plain decimal.
#include <QString>

namespace core {

// Nearest whole number, ties to the even one (2.5 -> 2, 3.5 -> 4), saturated at int's range.
int roundHalfEven(double x);
// `x` rounded to `digits` decimals, ties to even.
double roundDecimals(double x, int digits);
// The number at the start of `text` ("12abc" -> 12, " -3.5x" -> -3.5); 0 when there is none.
double leadingNumber(const QString& text);
// True when `text` is one or more of the digits 0 to 9 and nothing else.
bool isDigits(const QString& text);
// A number as the game shows it: plain decimal, at most 15 significant digits.
QString numberText(double x);

}  // namespace core
