#pragma once

#include <string>
#include <string_view>

namespace vandrel {

// The text that `bytes` spell in the system's ANSI code page. Bytes that spell nothing there become lone
// surrogates (U+DC00 plus the byte), which encodeAnsi turns back, so that a file with a damaged letter survives
// being read and written.
std::wstring decodeAnsi(std::string_view bytes);

// Appends `text` in the ANSI code page. A letter that the code page lacks becomes "?", never one that merely
// looks like it: the full-width bar must not turn into the bar that separates fields.
void encodeAnsi(std::wstring_view text, std::string& bytes);

} // namespace vandrel
