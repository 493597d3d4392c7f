#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace vandrel {

// Sixteen bytes of text, looked at in one step. A code unit has two bytes on Windows and four elsewhere.
using TextUnit = std::conditional_t<sizeof(wchar_t) == 2, std::uint16_t, std::uint32_t>;
using UnitVector [[gnu::vector_size(16)]] = TextUnit;
inline constexpr std::size_t unitsInVector = sizeof(UnitVector) / sizeof(TextUnit);

// From memory of any alignment, of which as many units must be there.
inline UnitVector loadUnits(const wchar_t* text)
{
    UnitVector units;
    std::memcpy(&units, text, sizeof units);
    return units;
}

inline UnitVector allUnits(wchar_t unit) { return UnitVector{} + static_cast<TextUnit>(unit); }

// The index of the first unit for which a comparison holds, unitsInVector when it holds for none.
inline std::size_t firstUnit(UnitVector comparison)
{
    static_assert(std::endian::native == std::endian::little);
    constexpr int bitsInUnit = 8 * sizeof(TextUnit);
    std::array<std::uint64_t, 2> halves;
    std::memcpy(halves.data(), &comparison, sizeof halves);
    if (halves[0] != 0) return static_cast<std::size_t>(std::countr_zero(halves[0]) / bitsInUnit);
    if (halves[1] == 0) return unitsInVector;
    return unitsInVector / 2 + static_cast<std::size_t>(std::countr_zero(halves[1]) / bitsInUnit);
}

} // namespace vandrel
