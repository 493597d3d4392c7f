#pragma once

#include <string>

namespace vandrel {

// Today's date in the short form of the user's locale.
std::wstring todayAsText();

} // namespace vandrel
