#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace vandrel {

// How the user's locale writes short dates, such as "M/d/yyyy".
std::wstring shortDatePattern();

// The day that the system reads out of a text, names of months in the user's language included. No value when
// it reads none, or a time of day alone.
std::optional<SYSTEMTIME> dateOfText(std::wstring text);

} // namespace vandrel
