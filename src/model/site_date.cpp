#include "model/site_date.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace vandrel {
namespace {

struct Number {
    int value;
    std::size_t digits;
};

constexpr std::size_t longestNumber = 4;

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
bool isSeparator(wchar_t c) { return c == L'/' || c == L'-' || c == L'.' || c == L' '; }

// Exactly three, with at least one separator between them. Some locales end a date with a separator.
std::optional<std::array<Number, 3>> threeNumbers(std::wstring_view text)
{
    std::vector<Number> numbers;
    std::size_t at = text.find_first_not_of(L' ');
    while (at < text.size()) {
        const std::size_t start = at;
        while (at < text.size() && isDigit(text[at])) ++at;
        const std::size_t digits = at - start;
        if (digits == 0 || digits > longestNumber || numbers.size() == 3) return std::nullopt;
        int value = 0;
        for (const wchar_t digit : text.substr(start, digits)) value = value * 10 + (digit - L'0');
        numbers.push_back({value, digits});
        while (at < text.size() && isSeparator(text[at])) ++at;
    }
    if (numbers.size() != 3) return std::nullopt;
    return std::array{numbers[0], numbers[1], numbers[2]};
}

int yearOf(const Number& number)
{
    constexpr int lastOfThisCentury = 29;
    if (number.digits > 2) return number.value;
    return number.value + (number.value <= lastOfThisCentury ? 2000 : 1900);
}

std::optional<SiteDate> dateIn(const std::array<Number, 3>& numbers, const DateOrder& order)
{
    SiteDate date{};
    for (std::size_t i = 0; i < order.size(); ++i) {
        const bool isYear = order[i] == DatePart::year;
        if (!isYear && numbers[i].digits > 2) return std::nullopt;
        if (isYear) date.year = yearOf(numbers[i]);
        if (order[i] == DatePart::month) date.month = numbers[i].value;
        if (order[i] == DatePart::day) date.day = numbers[i].value;
    }
    const std::chrono::year_month_day onCalendar(std::chrono::year(date.year),
                                                 std::chrono::month(static_cast<unsigned>(date.month)),
                                                 std::chrono::day(static_cast<unsigned>(date.day)));
    return date.year >= 100 && onCalendar.ok() ? std::optional(date) : std::nullopt;
}

std::wstring digits(int number, std::size_t count)
{
    const std::wstring text = std::to_wstring(number);
    return std::wstring(count - std::min(count, text.size()), L'0') + text;
}

} // namespace

DateOrder dateOrderOf(std::wstring_view pattern)
{
    std::array<std::pair<std::size_t, DatePart>, 3> places{{{pattern.find(L'd'), DatePart::day},
                                                            {pattern.find(L'M'), DatePart::month},
                                                            {pattern.find(L'y'), DatePart::year}}};
    std::ranges::sort(places);
    if (places.back().first == std::wstring_view::npos) return monthDayYear;
    return {places[0].second, places[1].second, places[2].second};
}

std::optional<SiteDate> dateOfNumbers(std::wstring_view text, const DateOrder& order)
{
    const auto numbers = threeNumbers(text);
    if (!numbers) return std::nullopt;
    using enum DatePart;
    for (const DateOrder& tried : {order, monthDayYear, DateOrder{day, month, year},
                                   DateOrder{year, month, day}, DateOrder{year, day, month}}) {
        if (const auto date = dateIn(*numbers, tried)) return date;
    }
    return std::nullopt;
}

std::wstring monthDayYearText(const SiteDate& date)
{
    // Contract: month-day-year in every locale.
    return digits(date.month, 2) + L"-" + digits(date.day, 2) + L"-" + digits(date.year, 4);
}

} // namespace vandrel
