#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace vandrel {

// The user's short date pattern, such as "M/d/yyyy".
std::wstring shortDatePattern();

// The date that the system reads from a text, in which months may have their names in the user's language.
// No value if there is no date, or only a time of day.
std::optional<std::chrono::year_month_day> dateOfText(std::wstring text);

} // namespace vandrel
