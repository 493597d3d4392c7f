#pragma once

#include <string>

namespace vandrel {

// The whole number that a text represents in the user's locale, converted as the platform does: halves are
// rounded to even, surrounding blanks ignored. Throws RuntimeError 13 if the text is not a number, 6 if it
// is outside -32768 to 32767.
// Contract: the range is that of a 16-bit integer.
int wholeNumberOf(std::wstring text);

} // namespace vandrel
