#pragma once

#include <string>

namespace vandrel {

// The whole number that a text writes in the user's locale, as the platform's own conversion reads it: halves
// are rounded to even, blanks around it do not count. Throws RuntimeError 13 where the text is no number, 6
// where it is beyond -32768 to 32767.
int wholeNumberOf(std::wstring text);

} // namespace vandrel
