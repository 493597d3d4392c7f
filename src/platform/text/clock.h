#pragma once

#include <string>

namespace vandrel {

// Today's date in the short form of the user's locale.
// Contract: sites store their dates in this form.
std::wstring todayAsText();

} // namespace vandrel
