#pragma once

#include <string>
#include <string_view>

namespace vandrel {

// The number that `text` begins with: blanks, a sign, digits, a fraction, an exponent. What follows is
// ignored; a text that begins with no number gives 0. Never raises.
double lenientNumber(std::wstring_view text);

// The same as a whole number, halves rounded to even, cut to the range lowest..highest.
long lenientWhole(std::wstring_view text, long lowest, long highest);

// Halves are rounded to even, as the platform's own conversions do.
long roundedHalfEven(double value, long lowest, long highest);

// Decimal digits without grouping; a fraction only where there is one, and never an exponent.
std::wstring decimalText(long value);
std::wstring decimalText(float value);

} // namespace vandrel
