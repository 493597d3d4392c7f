#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

struct SiteDate {
    int year;  // 100 to 9999
    int month; // 1 to 12
    int day;

    friend bool operator==(const SiteDate&, const SiteDate&) = default;
};

// The parts of a date in the order in which a locale writes them.
enum class DatePart { day, month, year };
using DateOrder = std::array<DatePart, 3>;
inline constexpr DateOrder monthDayYear{DatePart::month, DatePart::day, DatePart::year};

// The order of d, M and y in a short-date pattern such as "dd.MM.yyyy"; month, day, year if one is missing.
DateOrder dateOrderOf(std::wstring_view pattern);

// The date in a text of three numbers with "/", "-", "." or blanks between them, in that order or, if they
// are no date in it, in the first other order in which they are. Two-digit years are 1930 to 2029.
std::optional<SiteDate> dateOfNumbers(std::wstring_view text, const DateOrder& order);

// Month, day and year, with two, two and four digits: "11-16-2002".
std::wstring monthDayYearText(const SiteDate& date);

} // namespace vandrel
