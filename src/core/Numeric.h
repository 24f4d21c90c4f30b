#pragma once
// The game's number rules: Int is the floor, conversions to whole numbers round half to even,
// Integer fields are 16-bit and Long fields 32-bit.
#include <QString>
#include <cstdint>

namespace grumbo {

using Integer = std::int16_t;
using Long = std::int32_t;

inline double Int(double x);
// Nearest whole number, ties to the even one, saturated at the 16-bit range.
Integer CInt(double x);
// Nearest whole number, ties to the even one, saturated at the 32-bit range.
Long CLng(double x);
// Rounds to `digits` decimals, ties to even.
double Round(double x, int digits);
// Reads the number at the start of a text ("12abc" -> 12, "abc" -> 0), like a lenient parser.
double Val(const QString& text);
// True when `text` is one or more decimal digits and nothing else.
bool IsDigits(const QString& text);
// A number as the game shows it: plain decimal, at most 15 significant digits.
QString Str(double x);

}  // namespace grumbo

#include <cmath>
inline double grumbo::Int(double x) { return std::floor(x); }
