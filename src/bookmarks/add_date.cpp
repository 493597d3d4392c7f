#include "bookmarks/add_date.h"

#include "bookmarks/page_tokens.h"

#include <charconv>
#include <chrono>

namespace vandrel {

std::optional<AddDate> addDateOf(std::string_view attribute)
{
    constexpr AddDate latest = 100'000'000'000; // seconds: the year 5138
    constexpr AddDate thousand = 1000;
    while (!attribute.empty() && isAsciiBlank(attribute.front())) attribute.remove_prefix(1);
    while (!attribute.empty() && isAsciiBlank(attribute.back())) attribute.remove_suffix(1);
    AddDate time = 0;
    const char* const end = attribute.data() + attribute.size();
    const auto read = std::from_chars(attribute.data(), end, time);
    if (read.ec != std::errc() || read.ptr != end || time <= 0) return std::nullopt;
    if (time > latest) time /= thousand;
    if (time > latest) time /= thousand;
    return time <= latest ? std::optional(time) : std::nullopt;
}

std::optional<AddDate> addDateOf(const SiteDate& day)
{
    using namespace std::chrono;
    const sys_days date(year(day.year) / static_cast<int>(day.month) / day.day);
    const AddDate noon = duration_cast<seconds>(date.time_since_epoch() + hours(12)).count();
    return noon > 0 ? std::optional(noon) : std::nullopt;
}

} // namespace vandrel
