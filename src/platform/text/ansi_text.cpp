#include "platform/text/ansi_text.h"

#include "platform/text/simd.h"
#include "platform/text/single_bytes.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace vandrel {
namespace {

constexpr wchar_t byteEscape = 0xDC00; // plus a byte: a lone low surrogate for an undecodable byte

constexpr std::ptrdiff_t block = unitsInVector; // ASCII characters handled in one step

bool isByteEscape(wchar_t unit) { return unit >= byteEscape + 0x80 && unit <= byteEscape + 0xFF; }
bool isHighSurrogate(wchar_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(wchar_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

int wideLength(std::string_view bytes)
{
    return MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                               nullptr, 0);
}

// The properties of the code page, determined once.
struct CodePage {
    bool singleByte = false;
    bool utf8 = GetACP() == CP_UTF8;
    int longestLetter = 1;
    CodePageLetters letters{}; // by byte; for single-byte code pages only

    CodePage()
    {
        CPINFO info{};
        if (GetCPInfo(CP_ACP, &info)) longestLetter = static_cast<int>(info.MaxCharSize);
        singleByte = longestLetter == 1;
        for (std::size_t byte = 0; singleByte && byte < letters.size(); ++byte) {
            const char letter = static_cast<char>(byte);
            wchar_t unit = 0;
            const bool spells = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, &letter, 1, &unit, 1) == 1;
            letters[byte] = spells ? unit : static_cast<wchar_t>(byteEscape + byte);
            // Every ANSI code page of the system has ASCII; one that had not would be decoded by the system.
            if (byte < 0x80 && letters[byte] != static_cast<wchar_t>(byte)) singleByte = false;
        }
    }
};

const CodePage& codePage()
{
    static const CodePage page;
    return page;
}

// Decodes character by character, for text with undecodable bytes. Returns the end of what it wrote.
wchar_t* decodeDamaged(std::string_view bytes, wchar_t* text)
{
    while (!bytes.empty()) {
        int got = 0;
        std::size_t used = std::min(bytes.size(), static_cast<std::size_t>(codePage().longestLetter));
        // Longest first, but two single-byte characters are not one double-byte character.
        for (; used > 0; --used) {
            if (used == 2 && !codePage().utf8 && !IsDBCSLeadByte(static_cast<BYTE>(bytes[0]))) continue;
            const std::string_view letter = bytes.substr(0, used);
            if (wideLength(letter) < 1) continue;
            if (codePage().utf8 && used > 1 && wideLength(bytes.substr(0, 1)) == 1) continue;
            std::array<wchar_t, 4> units{};
            got = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, letter.data(), static_cast<int>(used),
                                      units.data(), static_cast<int>(units.size()));
            text = std::copy_n(units.begin(), std::max(got, 0), text);
            break;
        }
        if (got <= 0) {
            const auto byte = static_cast<unsigned char>(bytes[0]);
            *text++ = static_cast<wchar_t>(byte < 0x80 ? byte : byteEscape + byte);
            used = 1;
        }
        bytes.remove_prefix(used);
    }
    return text;
}

// Null if any byte is undecodable.
wchar_t* decodeSound(std::string_view bytes, wchar_t* text)
{
    const int size = static_cast<int>(bytes.size());
    const int got = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, bytes.data(), size, text, size);
    return got > 0 ? text + got : nullptr;
}

wchar_t* decodeMultiByte(std::string_view bytes, wchar_t* text)
{
    if (wchar_t* const end = decodeSound(bytes, text)) return end;
    // No character spans a line end, so only damaged lines are decoded character by character.
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        const std::string_view line = bytes.substr(0, end == bytes.npos ? end : end + 1);
        bytes.remove_prefix(line.size());
        wchar_t* const lineEnd = decodeSound(line, text);
        text = lineEnd != nullptr ? lineEnd : decodeDamaged(line, text);
    }
    return text;
}

void encodeUnits(std::wstring_view units, std::string& bytes)
{
    const DWORD flags = codePage().utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* const instead = codePage().utf8 ? nullptr : "?";
    const std::size_t before = bytes.size();
    const std::size_t most = units.size() * static_cast<std::size_t>(std::max(codePage().longestLetter, 2));
    bytes.resize(before + most);
    const int written = WideCharToMultiByte(CP_ACP, flags, units.data(), static_cast<int>(units.size()),
                                            bytes.data() + before, static_cast<int>(most), instead, nullptr);
    bytes.resize(before + static_cast<std::size_t>(std::max(written, 0)));
}

// Writes an undecodable byte back as it was, or as "?" if it would now form a character with the byte after
// it, which could swallow a separator.
void encodeByteEscape(wchar_t unit, wchar_t following, std::string& bytes)
{
    std::string pair(1, static_cast<char>(unit - byteEscape));
    if (isByteEscape(following)) pair.push_back(static_cast<char>(following - byteEscape));
    else encodeUnits({&following, 1}, pair);
    const bool swallows = !codePage().singleByte && pair.size() > 1 && wideLength(pair.substr(0, 2)) == 1;
    bytes.push_back(swallows ? '?' : pair[0]);
}

// Encodes a run of units outside ASCII. `following` is the unit after it.
void encodeForeign(std::wstring_view text, wchar_t following, std::string& bytes)
{
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool paired = i > 0 && isHighSurrogate(text[i - 1]) && isLowSurrogate(text[i]);
        if (!isByteEscape(text[i]) || paired) continue;
        if (i > start) encodeUnits(text.substr(start, i - start), bytes);
        encodeByteEscape(text[i], i + 1 < text.size() ? text[i + 1] : following, bytes);
        start = i + 1;
    }
    if (start < text.size()) encodeUnits(text.substr(start), bytes);
}

} // namespace

bool ansiLettersAreBytes() { return codePage().singleByte; }

const CodePageLetters* ansiLetters() { return codePage().singleByte ? &codePage().letters : nullptr; }

const LatinBytes& latinInAnsi()
{
    static const LatinBytes bytes = [] {
        std::array<bool, 256> same{};
        for (std::size_t byte = 0; byte < same.size(); ++byte) {
            const auto letter = static_cast<wchar_t>(byte);
            std::string encoded;
            if (codePage().singleByte && codePage().letters[byte] == letter)
                encodeAnsi({&letter, 1}, encoded);
            same[byte] = byte < 0x80 || encoded == std::string(1, static_cast<char>(byte));
        }
        return LatinBytes(same);
    }();
    return bytes;
}

std::size_t decodeAnsi(std::string_view bytes, wchar_t* text)
{
    if (bytes.empty()) return 0;
    if (!codePage().singleByte) return static_cast<std::size_t>(decodeMultiByte(bytes, text) - text);
    decodeSingleBytes(bytes, text, codePage().letters);
    return bytes.size();
}

std::wstring decodeAnsi(std::string_view bytes)
{
    std::wstring text(bytes.size(), L'\0');
    text.resize(decodeAnsi(bytes, text.data()));
    return text;
}

std::size_t mostAnsiBytes(std::size_t units)
{
    return units * static_cast<std::size_t>(codePage().longestLetter);
}

char* encodeAnsi(std::wstring_view text, char* bytes, wchar_t behind)
{
    const wchar_t* at = text.data();
    const wchar_t* const end = at + text.size();
    while (at != end) {
        // Most characters are ASCII, in long runs.
        for (; end - at >= block; at += block, bytes += block) {
            if (!UnitVector::narrowAscii(at, bytes)) break;
        }
        while (at != end && *at < 0x80) *bytes++ = static_cast<char>(*at++);
        const wchar_t* const foreign = at;
        while (at != end && *at >= 0x80) ++at;
        if (at == foreign) continue;
        std::string letters;
        encodeForeign({foreign, static_cast<std::size_t>(at - foreign)}, at == end ? behind : *at, letters);
        bytes = std::copy(letters.begin(), letters.end(), bytes);
    }
    return bytes;
}

void encodeAnsi(std::wstring_view text, std::string& bytes, wchar_t behind)
{
    const std::size_t before = bytes.size();
    bytes.resize(before + mostAnsiBytes(text.size()));
    bytes.resize(static_cast<std::size_t>(encodeAnsi(text, bytes.data() + before, behind) - bytes.data()));
}

} // namespace vandrel
