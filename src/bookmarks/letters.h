#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vandrel {

// Stands for what is no letter.
inline constexpr char32_t replacementLetter = 0xFFFD;

struct Utf8Letter {
    enum class State { whole, wrong, cut }; // cut: by the end of the bytes

    char32_t letter; // the replacement letter where it is not whole
    std::size_t length;
    State state;
};

// The letter at the front of `bytes`, of which there must be one at least. Bytes that spell none are taken
// together as far as a letter could have begun with them.
Utf8Letter utf8LetterAt(std::string_view bytes);

// The letter of a byte in code page 1252. The five bytes without a letter there are control characters, as
// for browsers and for Windows.
char32_t windows1252Letter(unsigned char byte);

// Takes a letter off the front of UTF-16; half a pair becomes the replacement letter.
char32_t takeLetter(std::wstring_view& text);

void appendLetter(std::wstring& text, char32_t letter);
void appendUtf8(std::string& bytes, char32_t letter);

} // namespace vandrel
