#pragma once

#include <algorithm>
#include <cmath>
#include <compare>

namespace vandrel {

// A length in twips, 1/1440 inch, the unit of all geometry above the native controls. A separate type, so
// that a length cannot be mistaken for a number of pixels.
struct Twips {
    float value = 0;

    friend constexpr auto operator<=>(Twips, Twips) = default; // NOLINT(modernize-use-nullptr): it has none
    friend constexpr Twips operator+(Twips a, Twips b) { return {a.value + b.value}; }
    friend constexpr Twips operator-(Twips a, Twips b) { return {a.value - b.value}; }
};

constexpr Twips operator""_twips(unsigned long long value) { return {static_cast<float>(value)}; }

inline constexpr int twipsPerInch = 1440;

// The nearest whole pixel at `dpi`, limited to a million either way because a damaged preference may hold
// any length; 0 for NaN.
inline int toPixels(Twips length, unsigned dpi)
{
    constexpr double limit = 1e6;
    const double pixels = static_cast<double>(length.value) * dpi / twipsPerInch;
    return std::isnan(pixels) ? 0 : static_cast<int>(std::lround(std::clamp(pixels, -limit, limit)));
}

inline Twips toTwips(int pixels, unsigned dpi)
{
    return {static_cast<float>(static_cast<double>(pixels) * twipsPerInch / dpi)};
}

} // namespace vandrel
