#include "shared/stored_date.h"

#include "platform/text/date_reading.h"

#include <algorithm>
#include <cwctype>

namespace vandrel {
namespace {

// The system takes any number to be a date; only a text with a month's name or a time of day is left to it.
bool mayBeWordedDate(const std::wstring& text)
{
    return std::ranges::any_of(text, [](wchar_t c) { return std::iswalpha(c) != 0 || c == L':'; }) &&
           std::ranges::any_of(text, [](wchar_t c) { return std::iswdigit(c) != 0; });
}

} // namespace

std::optional<SiteDate> storedDate(const std::wstring& stored, const DateOrder& order)
{
    if (const auto date = dateOfNumbers(stored, order)) return date;
    if (!mayBeWordedDate(stored)) return std::nullopt;
    const auto date = dateOfText(stored);
    if (!date) return std::nullopt;
    return SiteDate{.year = static_cast<int>(date->year()),
                    .month = static_cast<int>(static_cast<unsigned>(date->month())),
                    .day = static_cast<int>(static_cast<unsigned>(date->day()))};
}

} // namespace vandrel
