#pragma once

#include "platform/text/simd.h"

namespace vandrel {

inline constexpr std::size_t bytesInVector = 16;

// Sixteen bytes, looked at one by one. What a comparison returns is for &, | and mask(): all bits of a
// byte for which it holds, none of the others.
class PlainBytes {
  public:
    // From memory of any alignment, of which as many bytes must be there.
    static PlainBytes load(const char* bytes)
    {
        PlainBytes vector;
        std::memcpy(vector.bytes_.data(), bytes, bytesInVector);
        return vector;
    }
    static PlainBytes all(char byte)
    {
        PlainBytes vector;
        vector.bytes_.fill(static_cast<unsigned char>(byte));
        return vector;
    }
    PlainBytes equal(const PlainBytes& other) const
    {
        return each(other, [](unsigned a, unsigned b) { return a == b ? 0xFFU : 0U; });
    }
    PlainBytes atMost(const PlainBytes& other) const
    {
        return each(other, [](unsigned a, unsigned b) { return a <= b ? 0xFFU : 0U; });
    }
    PlainBytes operator&(const PlainBytes& other) const
    {
        return each(other, [](unsigned a, unsigned b) { return a & b; });
    }
    PlainBytes operator|(const PlainBytes& other) const
    {
        return each(other, [](unsigned a, unsigned b) { return a | b; });
    }
    // A bit for each byte, the lowest for the first.
    std::uint32_t mask() const
    {
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < bytesInVector; ++i)
            bits |= static_cast<std::uint32_t>(bytes_[i] >> 7U) << i;
        return bits;
    }

  private:
    template <typename Function> PlainBytes each(const PlainBytes& other, Function function) const
    {
        PlainBytes result;
        for (std::size_t i = 0; i < bytesInVector; ++i)
            result.bytes_[i] = static_cast<unsigned char>(function(bytes_[i], other.bytes_[i]));
        return result;
    }

    std::array<unsigned char, bytesInVector> bytes_{};
};

#ifdef VANDREL_SSE2

// The same in one instruction each.
class SseBytes {
  public:
    static SseBytes load(const char* bytes)
    {
        return SseBytes(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)));
    }
    static SseBytes all(char byte) { return SseBytes(_mm_set1_epi8(byte)); }
    SseBytes equal(SseBytes other) const { return SseBytes(_mm_cmpeq_epi8(bytes_, other.bytes_)); }
    SseBytes atMost(SseBytes other) const
    {
        return SseBytes(_mm_cmpeq_epi8(_mm_min_epu8(bytes_, other.bytes_), bytes_));
    }
    SseBytes operator&(SseBytes other) const { return SseBytes(_mm_and_si128(bytes_, other.bytes_)); }
    SseBytes operator|(SseBytes other) const { return SseBytes(_mm_or_si128(bytes_, other.bytes_)); }
    std::uint32_t mask() const { return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes_)); }

  private:
    explicit SseBytes(__m128i bytes) : bytes_(bytes) {}

    __m128i bytes_;
};

using ByteVector = SseBytes;

#else

using ByteVector = PlainBytes;

#endif

} // namespace vandrel
