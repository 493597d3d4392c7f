#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

// SSE2 is part of every x64 processor; GCC and MSVC announce it differently.
#if defined(__SSE2__) || defined(_M_X64)
# define VANDREL_SSE2
# include <emmintrin.h>
#endif

namespace vandrel {

// Text is examined sixteen bytes at a time. A code unit has two bytes on Windows and four elsewhere.
using TextUnit = std::conditional_t<sizeof(wchar_t) == 2, std::uint16_t, std::uint32_t>;
inline constexpr std::size_t unitsInVector = 16 / sizeof(TextUnit);

// For processors without SSE2. A comparison sets all bits of each unit for which it holds and clears all
// others; its results are meant for &, | and first().
class PlainUnits {
  public:
    // Reads unitsInVector units, from any alignment.
    static PlainUnits load(const wchar_t* text)
    {
        PlainUnits units;
        std::memcpy(units.units_.data(), text, sizeof units.units_);
        return units;
    }
    static PlainUnits all(wchar_t unit)
    {
        PlainUnits units;
        units.units_.fill(static_cast<TextUnit>(unit));
        return units;
    }
    PlainUnits equal(const PlainUnits& other) const
    {
        return each(other, [](TextUnit a, TextUnit b) { return a == b ? every : 0; });
    }
    PlainUnits atMost(const PlainUnits& other) const
    {
        return each(other, [](TextUnit a, TextUnit b) { return a <= b ? every : 0; });
    }
    PlainUnits operator&(const PlainUnits& other) const
    {
        return each(other, [](TextUnit a, TextUnit b) { return a & b; });
    }
    PlainUnits operator|(const PlainUnits& other) const
    {
        return each(other, [](TextUnit a, TextUnit b) { return a | b; });
    }
    // The index of the first unit for which the comparison holds; unitsInVector if there is none.
    std::size_t first() const
    {
        std::size_t unit = 0;
        while (unit < unitsInVector && units_[unit] == 0) ++unit;
        return unit;
    }

    // Converts unitsInVector characters if all are ASCII; otherwise writes nothing and returns false.
    static bool widenAscii(const char* bytes, wchar_t* text)
    {
        for (std::size_t i = 0; i < unitsInVector; ++i) {
            if (static_cast<unsigned char>(bytes[i]) >= 0x80) return false;
        }
        for (std::size_t i = 0; i < unitsInVector; ++i) text[i] = static_cast<wchar_t>(bytes[i]);
        return true;
    }
    // The same for letters of Latin-1, which are all converted.
    static void widenLatin(const char* bytes, wchar_t* text)
    {
        for (std::size_t i = 0; i < unitsInVector; ++i)
            text[i] = static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]));
    }
    static bool narrowAscii(const wchar_t* text, char* bytes)
    {
        for (std::size_t i = 0; i < unitsInVector; ++i) {
            if (static_cast<TextUnit>(text[i]) >= 0x80) return false;
        }
        for (std::size_t i = 0; i < unitsInVector; ++i) bytes[i] = static_cast<char>(text[i]);
        return true;
    }

  private:
    static constexpr TextUnit every = static_cast<TextUnit>(~TextUnit{});

    template <typename Function> PlainUnits each(const PlainUnits& other, Function function) const
    {
        PlainUnits result;
        for (std::size_t i = 0; i < unitsInVector; ++i)
            result.units_[i] = static_cast<TextUnit>(function(units_[i], other.units_[i]));
        return result;
    }

    std::array<TextUnit, unitsInVector> units_{};
};

#ifdef VANDREL_SSE2

// The same with SSE2.
class SseUnits {
  public:
    static SseUnits load(const wchar_t* text)
    {
        return SseUnits(_mm_loadu_si128(reinterpret_cast<const __m128i*>(text)));
    }
    static SseUnits all(wchar_t unit)
    {
        if constexpr (twoBytes) return SseUnits(_mm_set1_epi16(static_cast<short>(unit)));
        else return SseUnits(_mm_set1_epi32(static_cast<int>(unit)));
    }
    SseUnits equal(SseUnits other) const
    {
        if constexpr (twoBytes) return SseUnits(_mm_cmpeq_epi16(units_, other.units_));
        else return SseUnits(_mm_cmpeq_epi32(units_, other.units_));
    }
    SseUnits atMost(SseUnits other) const
    {
        if constexpr (twoBytes) { // a <= b if the saturating difference is 0
            return SseUnits(_mm_cmpeq_epi16(_mm_subs_epu16(units_, other.units_), _mm_setzero_si128()));
        } else { // _mm_cmpgt_epi32 is signed
            const __m128i lowest = _mm_set1_epi32(INT32_MIN);
            const __m128i above = _mm_cmpgt_epi32(_mm_xor_si128(units_, lowest),
                                                  _mm_xor_si128(other.units_, lowest));
            return SseUnits(_mm_xor_si128(above, _mm_set1_epi32(-1)));
        }
    }
    SseUnits operator&(SseUnits other) const { return SseUnits(_mm_and_si128(units_, other.units_)); }
    SseUnits operator|(SseUnits other) const { return SseUnits(_mm_or_si128(units_, other.units_)); }
    std::size_t first() const
    {
        const auto bytes = static_cast<unsigned>(_mm_movemask_epi8(units_));
        return bytes == 0 ? unitsInVector
                          : static_cast<std::size_t>(std::countr_zero(bytes)) / sizeof(TextUnit);
    }

    static bool widenAscii(const char* bytes, wchar_t* text)
    {
        if constexpr (!twoBytes) return PlainUnits::widenAscii(bytes, text);
        const __m128i some = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(bytes));
        if (_mm_movemask_epi8(some) != 0) return false;
        _mm_storeu_si128(reinterpret_cast<__m128i*>(text), _mm_unpacklo_epi8(some, _mm_setzero_si128()));
        return true;
    }
    static void widenLatin(const char* bytes, wchar_t* text)
    {
        if constexpr (!twoBytes) return PlainUnits::widenLatin(bytes, text);
        const __m128i some = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(bytes));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(text), _mm_unpacklo_epi8(some, _mm_setzero_si128()));
    }
    static bool narrowAscii(const wchar_t* text, char* bytes)
    {
        if constexpr (!twoBytes) return PlainUnits::narrowAscii(text, bytes);
        const __m128i units = load(text).units_;
        const __m128i beyondAscii = _mm_and_si128(units, _mm_set1_epi16(~0x7F));
        if (_mm_movemask_epi8(_mm_cmpeq_epi8(beyondAscii, _mm_setzero_si128())) != 0xFFFF) return false;
        _mm_storel_epi64(reinterpret_cast<__m128i*>(bytes), _mm_packus_epi16(units, units));
        return true;
    }

  private:
    static constexpr bool twoBytes = sizeof(TextUnit) == 2;
    explicit SseUnits(__m128i units) : units_(units) {}

    __m128i units_;
};

using UnitVector = SseUnits;

#else

using UnitVector = PlainUnits;

#endif

} // namespace vandrel
