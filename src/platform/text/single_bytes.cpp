#include "platform/text/single_bytes.h"

#include "platform/text/simd_bytes.h"

#include <algorithm>
#include <bit>

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

std::size_t LatinBytes::prefixOf(std::string_view bytes) const
{
    const auto isSame = [this](char byte) { return same_[static_cast<unsigned char>(byte)]; };
    std::size_t at = 0;
    for (; bytes.size() - at >= bytesInVector; at += bytesInVector) {
        for (auto others = ByteVector::load(bytes.data() + at).mask(); others != 0; others &= others - 1) {
            const std::size_t byte = at + static_cast<std::size_t>(std::countr_zero(others));
            if (!isSame(bytes[byte])) return byte;
        }
    }
    while (at < bytes.size() && isSame(bytes[at])) ++at;
    return at;
}

} // namespace vandrel
