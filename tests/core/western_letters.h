#pragma once

#include "platform/text/single_bytes.h"

namespace vandrel {

// A code page like those of Western Europe, with letters above U+00FF and a byte that spells nothing.
inline CodePageLetters westernLetters()
{
    CodePageLetters letters;
    for (std::size_t byte = 0; byte < letters.size(); ++byte) letters[byte] = static_cast<wchar_t>(byte);
    letters[0x80] = L'\u20AC';
    letters[0x81] = L'\xDC81';
    letters[0x8C] = L'\u0152';
    letters[0x9C] = L'\u0153';
    return letters;
}

} // namespace vandrel
