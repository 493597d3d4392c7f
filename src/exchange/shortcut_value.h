#pragma once

#include <string_view>

namespace vandrel {

// Whether `read`, which the system read from a shortcut file, comes from `written`. The system drops blanks
// and quotes around a value and everything after a line end; letters become what the code page has for
// them; and only the first 254 bytes of a value are read. So only what cannot change is compared.
bool readsBack(std::wstring_view written, std::wstring_view read);

} // namespace vandrel
