#include "platform/text/single_bytes.h"

#include "platform/text/simd.h"

#include <algorithm>

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

} // namespace vandrel
