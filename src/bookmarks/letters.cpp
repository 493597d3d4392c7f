#include "bookmarks/letters.h"

#include <array>

namespace vandrel {
namespace {

constexpr char32_t beyondBasicPlane = 0x10000;

bool isFirstHalf(wchar_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isSecondHalf(wchar_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

char byteOf(char32_t value) { return static_cast<char>(static_cast<unsigned char>(value)); }

} // namespace

Utf8Letter utf8LetterAt(std::string_view bytes)
{
    using enum Utf8Letter::State;
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    const unsigned char first = byte(0);
    if (first < 0x80) return {first, 1, whole};
    if (first < 0xC2 || first > 0xF4) return {replacementLetter, 1, wrong};

    const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    auto letter = static_cast<char32_t>(first & (0x7F >> length));
    // The second byte is narrower where a shorter spelling, half a pair or nothing at all would be spelt.
    unsigned char lowest = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    unsigned char highest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    for (std::size_t at = 1; at < length; ++at) {
        if (at == bytes.size()) return {replacementLetter, at, cut};
        if (byte(at) < lowest || byte(at) > highest) return {replacementLetter, at, wrong};
        letter = letter << 6 | (byte(at) & 0x3FU);
        lowest = 0x80;
        highest = 0xBF;
    }
    return {letter, length, whole};
}

char32_t windows1252Letter(unsigned char byte)
{
    static constexpr std::array<char16_t, 32> from80{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020,
                                                     0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D,
                                                     0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D,
                                                     0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A,
                                                     0x0153, 0x009D, 0x017E, 0x0178};
    return byte >= 0x80 && byte < 0xA0 ? from80[byte - 0x80U] : byte;
}

char32_t takeLetter(std::wstring_view& text)
{
    const wchar_t first = text.front();
    text.remove_prefix(1);
    if (isFirstHalf(first) && !text.empty() && isSecondHalf(text.front())) {
        const wchar_t second = text.front();
        text.remove_prefix(1);
        return beyondBasicPlane + ((static_cast<char32_t>(first) - 0xD800) << 10) +
               (static_cast<char32_t>(second) - 0xDC00);
    }
    return isFirstHalf(first) || isSecondHalf(first) ? replacementLetter : static_cast<char32_t>(first);
}

void appendLetter(std::wstring& text, char32_t letter)
{
    if (letter < beyondBasicPlane) {
        text += static_cast<wchar_t>(letter);
        return;
    }
    const char32_t pair = letter - beyondBasicPlane;
    text += static_cast<wchar_t>(0xD800 + (pair >> 10));
    text += static_cast<wchar_t>(0xDC00 + (pair & 0x3FF));
}

void appendUtf8(std::string& bytes, char32_t letter)
{
    if (letter < 0x80) {
        bytes += byteOf(letter);
        return;
    }
    const std::size_t length = letter < 0x800 ? 2 : letter < beyondBasicPlane ? 3 : 4;
    bytes += byteOf((0xF00U >> length & 0xF0U) | letter >> 6 * (length - 1));
    for (std::size_t left = length - 1; left > 0; --left)
        bytes += byteOf(0x80 | (letter >> 6 * (left - 1) & 0x3F));
}

} // namespace vandrel
