#pragma once

#include <string>
#include <string_view>

namespace vandrel {

// The number at the start of `text`: blanks, a sign, digits, a fraction, an exponent. The rest is ignored; 0
// if there is no number. Raises no error.
double lenientNumber(std::wstring_view text);

// The same, rounded by roundedHalfEven.
long lenientWhole(std::wstring_view text, long lowest, long highest);

// Rounds halves to even, as the platform's own conversions do, and limits the result to lowest..highest. 0
// for NaN.
long roundedHalfEven(double value, long lowest, long highest);

// Decimal digits without grouping; a fraction only where there is one, and never an exponent.
std::wstring decimalText(long value);
std::wstring decimalText(float value);

} // namespace vandrel
