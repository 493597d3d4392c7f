#pragma once

#include <array>
#include <string_view>

namespace vandrel {

// The letters of a code page in which every byte is one and ASCII is itself.
using CodePageLetters = std::array<wchar_t, 256>;

// Into `text`, which has room for as many units as there are bytes.
void decodeSingleBytes(std::string_view bytes, wchar_t* text, const CodePageLetters& letters);

} // namespace vandrel
