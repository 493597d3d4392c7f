#pragma once

#include "platform/text/compact_text.h"
#include "platform/text/simd.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vandrel {

// Eight code units in eight bytes that compare as they do, the first unit in the highest byte. A byte is one
// more than its unit, and 0 beyond the end of the text. Units from 254 on share the byte 255, and what follows
// that is 0.
class SortKey {
  public:
    static constexpr std::size_t units = 8;

    // The key of `text` from `depth` on.
    static std::uint64_t plainOf(const CompactText& text, std::size_t depth)
    {
        std::uint64_t key = 0;
        const std::size_t end = std::min(text.size(), depth + units);
        for (std::size_t i = 0; depth + i < end; ++i) {
            const auto unit = static_cast<TextUnit>(text[depth + i]);
            const std::uint64_t byte = unit < shared ? unit + 1U : sharedByte;
            key |= byte << (8 * (units - 1 - i));
            if (byte == sharedByte) break;
        }
        return key;
    }

#ifdef VANDREL_SSE2
    static std::uint64_t of(const CompactText& text, std::size_t depth)
    {
        return text.isLatin() ? ofLatin(text, depth) : ofWide(text, depth);
    }
#else
    static std::uint64_t of(const CompactText& text, std::size_t depth) { return plainOf(text, depth); }
#endif

    // Whether texts with this key have ended; if it is not inexact, they are then equal.
    static bool ended(std::uint64_t key) { return (key & 0xFF) == 0; }
    // Whether texts with this key may differ within its units.
    static bool inexact(std::uint64_t key)
    {
        const std::uint64_t zeros = ~key; // where the shared byte is
        return ((zeros - each) & ~zeros & (each << 7)) != 0;
    }

  private:
    static constexpr std::uint64_t each = 0x0101010101010101U;
    static constexpr TextUnit shared = 254; // the first unit without a byte of its own
    static constexpr std::uint64_t sharedByte = 255;

#ifdef VANDREL_SSE2
    static std::uint64_t ofLatin(const CompactText& text, std::size_t depth)
    {
        if (text.size() < depth + units) return plainOf(text, depth);
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text.latin().data() + depth, units);
        if (hasShared(bytes)) return plainOf(text, depth);
        return firstInHighest(bytes + each);
    }
    static std::uint64_t ofWide(const CompactText& text, std::size_t depth)
    {
        if (unitsInVector != units || text.size() < depth + units) return plainOf(text, depth);
        const auto* const from = reinterpret_cast<const __m128i*>(text.wide().data() + depth);
        const __m128i part = _mm_loadu_si128(from);
        // All but the units that have a byte of their own.
        const __m128i others = _mm_subs_epu16(part, _mm_set1_epi16(shared - 1));
        const __m128i own = _mm_cmpeq_epi16(others, _mm_setzero_si128());
        if (_mm_movemask_epi8(own) != 0xFFFF) return plainOf(text, depth);
        const __m128i bytes = _mm_add_epi16(part, _mm_set1_epi16(1));
        return firstInHighest(static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_packus_epi16(bytes, bytes))));
    }
    static std::uint64_t firstInHighest(std::uint64_t key)
    {
        key = ((key & 0x00FF00FF00FF00FFU) << 8) | ((key >> 8) & 0x00FF00FF00FF00FFU);
        key = ((key & 0x0000FFFF0000FFFFU) << 16) | ((key >> 16) & 0x0000FFFF0000FFFFU);
        return std::rotl(key, 32);
    }
    // Whether one of eight bytes is 254 or 255.
    static bool hasShared(std::uint64_t bytes) { return inexact(bytes | each); }
#endif
};

} // namespace vandrel
