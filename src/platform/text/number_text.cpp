#include "platform/text/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace vandrel {
namespace {

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// The longest number at the start of `text`, in ASCII.
std::string numberAtStart(std::wstring_view text)
{
    std::size_t at = text.find_first_not_of(L" \t");
    if (at == std::wstring_view::npos) return {};
    std::string number;
    const auto take = [&] { number.push_back(static_cast<char>(text[at++])); };
    const auto takeDigits = [&] {
        const std::size_t before = at;
        while (at < text.size() && isDigit(text[at])) take();
        return at > before;
    };

    if (text[at] == L'+') ++at;
    else if (text[at] == L'-') take();
    bool digits = takeDigits();
    if (at < text.size() && text[at] == L'.') {
        take();
        digits = takeDigits() || digits;
    }
    if (!digits) return {};
    if (at < text.size() && (text[at] == L'e' || text[at] == L'E')) {
        std::size_t first = at + 1;
        if (first < text.size() && (text[first] == L'+' || text[first] == L'-')) ++first;
        if (first < text.size() && isDigit(text[first])) {
            take();
            if (text[at] == L'+') ++at;
            else if (text[at] == L'-') take();
            takeDigits();
        }
    }
    return number;
}

} // namespace

double lenientNumber(std::wstring_view text)
{
    const std::string number = numberAtStart(text);
    // A number that is too large becomes the largest there is. std::from_chars would not do: it reports too
    // large and too small alike. strtod expects a point, as the program stays in the "C" locale.
    constexpr double largest = std::numeric_limits<double>::max();
    return std::clamp(std::strtod(number.c_str(), nullptr), -largest, largest);
}

long roundedHalfEven(double value, long lowest, long highest)
{
    if (std::isnan(value)) return 0;
    const double rounded = std::nearbyint(value);
    if (rounded <= static_cast<double>(lowest)) return lowest;
    if (rounded >= static_cast<double>(highest)) return highest;
    return static_cast<long>(rounded);
}

long lenientWhole(std::wstring_view text, long lowest, long highest)
{
    return roundedHalfEven(lenientNumber(text), lowest, highest);
}

std::wstring decimalText(long value) { return std::to_wstring(value); }

// The fewest decimals that give the number back. std::to_chars would do it as well, with 170 KB of tables.
std::wstring decimalText(float value)
{
    if (!std::isfinite(value) || value == 0) return L"0";
    std::array<char, 64> digits{}; // room for every float
    for (int decimals = 0;; ++decimals) {
        const int length = std::snprintf(digits.data(), digits.size(), "%.*f", decimals,
                                         static_cast<double>(value));
        if (length < 0 || static_cast<std::size_t>(length) >= digits.size()) return L"0";
        if (std::strtof(digits.data(), nullptr) == value) return {digits.data(), digits.data() + length};
    }
}

} // namespace vandrel
