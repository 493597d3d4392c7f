#pragma once

#include "platform/text/single_bytes.h"

#include <string>
#include <string_view>

namespace vandrel {

// Decodes `bytes` from the system's ANSI code page. An undecodable byte becomes a lone surrogate (U+DC00
// plus the byte), which encodeAnsi turns back, so that damaged text survives being read and written.
std::wstring decodeAnsi(std::string_view bytes);
// Decodes into `text`, which must hold as many units as there are bytes. Returns the number of units.
std::size_t decodeAnsi(std::string_view bytes, wchar_t* text);

// Whether every character is a single byte and ASCII is itself, so that text can be cut between any two
// bytes.
bool ansiLettersAreBytes();
// Those characters; null where one may have several bytes.
const CodePageLetters* ansiLetters();

// The letters that are the same byte in the ANSI code page and in Latin-1: ASCII at least.
const LatinBytes& latinInAnsi();

// Appends `text` in the ANSI code page. A character that the code page lacks becomes "?", never a
// look-alike: a full-width bar must not turn into the bar that separates fields. `behind` is the unit that
// will be written next: an undecodable byte at the end of `text` must not form a character with it.
void encodeAnsi(std::wstring_view text, std::string& bytes, wchar_t behind = L'|');
// The same, into memory for at least mostAnsiBytes(text.size()) bytes. Returns the end of what was written.
char* encodeAnsi(std::wstring_view text, char* bytes, wchar_t behind);
std::size_t mostAnsiBytes(std::size_t units);

} // namespace vandrel
