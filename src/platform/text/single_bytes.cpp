#include "platform/text/single_bytes.h"

#include "platform/text/copy_bytes.h"
#include "platform/text/simd_bytes.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace vandrel {

// Most bytes are ASCII, and most of those are next to each other.
void decodeSingleBytes(std::string_view bytes, wchar_t* text, const CodePageLetters& letters)
{
    constexpr std::ptrdiff_t block = unitsInVector;
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (at != end) {
        for (; end - at >= block; at += block, text += block) {
            if (!UnitVector::widenAscii(at, text)) break;
        }
        const char* const blockEnd = at + std::min(block, end - at);
        while (at != blockEnd) *text++ = letters[static_cast<unsigned char>(*at++)];
    }
}

// Looks at sixteen bytes at a time, the last ones even if some of them were among those before, and tells `take`
// where they begin. Stops at the first other byte.
template <typename Take> std::size_t LatinBytes::passPrefix(std::string_view bytes, Take take) const
{
    const auto isSame = [this](char byte) { return same_[static_cast<unsigned char>(byte)]; };
    const auto sameFrom = [&](std::size_t at) {
        for (auto others = ByteVector::load(bytes.data() + at).mask(); others != 0; others &= others - 1) {
            const auto byte = static_cast<std::size_t>(std::countr_zero(others));
            if (!isSame(bytes[at + byte])) return byte;
        }
        return bytesInVector;
    };
    std::size_t at = 0;
    if (bytes.size() >= bytesInVector) {
        const std::size_t last = bytes.size() - bytesInVector;
        while (true) {
            const std::size_t same = sameFrom(at);
            take(at);
            if (same < bytesInVector) return at + same;
            if (at == last) return bytes.size();
            at = std::min(at + bytesInVector, last);
        }
    }
    for (; at < bytes.size() && isSame(bytes[at]); ++at) {}
    return at;
}

std::size_t LatinBytes::prefixOf(std::string_view bytes) const
{
    return passPrefix(bytes, [](std::size_t) {});
}

std::size_t LatinBytes::copyPrefix(std::string_view bytes, char* to) const
{
    const std::size_t size = passPrefix(bytes, [&](std::size_t at) {
        std::memcpy(to + at, bytes.data() + at, bytesInVector);
    });
    if (bytes.size() < bytesInVector) copyBytes(to, bytes.substr(0, size));
    return size;
}

} // namespace vandrel
