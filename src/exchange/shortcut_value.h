#pragma once

#include <string_view>

namespace vandrel {

// Whether `read`, what the system reads from a shortcut file, comes of `written`. The system takes away
// blanks and quotes around a value and what stands behind a line end, letters become what the code page has
// for them, and of a long value only the first 254 bytes are read; so it is compared by what cannot change.
bool readsBack(std::wstring_view written, std::wstring_view read);

} // namespace vandrel
