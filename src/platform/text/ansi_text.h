#pragma once

#include "platform/text/single_bytes.h"

#include <string>
#include <string_view>

namespace vandrel {

// The text that `bytes` spell in the system's ANSI code page. Bytes that spell nothing there become lone
// surrogates (U+DC00 plus the byte), which encodeAnsi turns back, so that a file with a damaged letter
// survives being read and written.
std::wstring decodeAnsi(std::string_view bytes);
// Into `text`, which has room for as many units as there are bytes. Returns the number of units.
std::size_t decodeAnsi(std::string_view bytes, wchar_t* text);

// Whether a letter is always one byte, and ASCII is itself, so that a text may be cut between any two bytes.
bool ansiLettersAreBytes();
// Those letters; null where a letter may have several bytes.
const CodePageLetters* ansiLetters();

// Appends `text` in the ANSI code page. A letter that the code page lacks becomes "?", never one that merely
// looks like it: the full-width bar must not turn into the bar that separates fields.
// `behind` is the unit that will be written next: a loose byte must not make a letter of it.
void encodeAnsi(std::wstring_view text, std::string& bytes, wchar_t behind = L'|');
// The same into memory that has room for mostAnsiBytes(text.size()). Returns the end of what was written.
char* encodeAnsi(std::wstring_view text, char* bytes, wchar_t behind);
std::size_t mostAnsiBytes(std::size_t units);

} // namespace vandrel
