#include "bookmarks/page_text.h"

#include "bookmarks/letters.h"
#include "bookmarks/page_tokens.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace vandrel {
namespace {

using namespace std::literals;

enum class ByteOrder { littleEndian, bigEndian };

// An odd byte at the end is left out.
std::string utf8OfUtf16(std::string_view bytes, ByteOrder order)
{
    const std::size_t low = order == ByteOrder::littleEndian ? 0 : 1;
    std::string converted;
    converted.reserve(bytes.size() / 2 + bytes.size() / 16);
    std::array<wchar_t, 2> units{};
    std::size_t count = 0;
    const auto convert = [&] {
        std::wstring_view letters(units.data(), count);
        appendUtf8(converted, takeLetter(letters));
        count = letters.size();
        if (count > 0) units[0] = letters[0];
    };
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto unit = static_cast<unsigned>(static_cast<unsigned char>(bytes[at + low])) |
                          static_cast<unsigned>(static_cast<unsigned char>(bytes[at + 1 - low])) << 8;
        units[count++] = static_cast<wchar_t>(unit);
        const bool mayGoOn = count == 1 && unit >= 0xD800 && unit <= 0xDBFF;
        if (!mayGoOn) convert();
    }
    while (count > 0) convert();
    return converted;
}

// The name of the encoding that the page says it has; empty when it says none.
std::string_view declaredCharset(std::string_view page)
{
    constexpr std::size_t headLength = 4096;
    PageTokens tokens(page.substr(0, headLength));
    while (const auto token = tokens.next()) {
        if (token->kind != PageToken::Kind::startTag || token->tag != PageTag::meta) continue;
        if (token->charset) return *token->charset;
        if (!token->content) continue;
        // "text/html; charset=UTF-8"
        std::string_view type = *token->content;
        for (std::size_t at = type.find('='); at != type.npos; at = type.find('=', at + 1)) {
            std::string_view before = type.substr(0, at);
            while (before.ends_with(' ')) before.remove_suffix(1);
            constexpr std::string_view key = "charset";
            if (before.size() < key.size() || !isAsciiText(before.substr(before.size() - key.size()), key))
                continue;
            type.remove_prefix(at + 1);
            type.remove_prefix(std::min(type.find_first_not_of(" '\""), type.size()));
            return type.substr(0, type.find_first_of(" ;'\""));
        }
    }
    return {};
}

bool isWestern(std::string_view charset)
{
    while (charset.starts_with(' ')) charset.remove_prefix(1);
    while (charset.ends_with(' ')) charset.remove_suffix(1);
    return std::ranges::any_of(std::array{"windows-1252"sv, "iso-8859-1"sv, "cp1252"sv, "x-cp1252"sv,
                                          "latin1"sv, "iso8859-1"sv, "iso_8859-1"sv, "ansi"sv},
                               [&](std::string_view name) { return isAsciiText(charset, name); });
}

std::string_view withoutAsciiFront(std::string_view bytes)
{
    std::uint64_t eight = 0;
    constexpr std::uint64_t beyondAscii = 0x8080'8080'8080'8080;
    for (; bytes.size() >= sizeof eight; bytes.remove_prefix(sizeof eight)) {
        std::memcpy(&eight, bytes.data(), sizeof eight);
        if ((eight & beyondAscii) != 0) break;
    }
    while (!bytes.empty() && static_cast<unsigned char>(bytes.front()) < 0x80) bytes.remove_prefix(1);
    return bytes;
}

bool isMostlyUtf8(std::string_view bytes)
{
    std::size_t right = 0;
    std::size_t wrong = 0;
    for (bytes = withoutAsciiFront(bytes); !bytes.empty(); bytes = withoutAsciiFront(bytes)) {
        const Utf8Letter letter = utf8LetterAt(bytes);
        right += letter.state == Utf8Letter::State::whole;
        wrong += letter.state == Utf8Letter::State::wrong;
        bytes.remove_prefix(letter.length);
    }
    return right >= wrong;
}

} // namespace

PageText::PageText(std::string_view page)
{
    if (page.starts_with("\xEF\xBB\xBF"sv)) {
        bytes_ = page.substr(3);
    } else if (page.starts_with("\xFF\xFE"sv) || page.starts_with("\xFE\xFF"sv)) {
        converted_ = utf8OfUtf16(page.substr(2),
                                 page.starts_with('\xFF') ? ByteOrder::littleEndian : ByteOrder::bigEndian);
        bytes_ = converted_;
    } else {
        bytes_ = page;
        if (isWestern(declaredCharset(page)) || !isMostlyUtf8(page)) encoding_ = PageEncoding::windows1252;
    }
}

char32_t PageText::takeLetter(std::string_view& bytes) const
{
    if (encoding_ == PageEncoding::windows1252) {
        const char32_t letter = windows1252Letter(static_cast<unsigned char>(bytes.front()));
        bytes.remove_prefix(1);
        return letter;
    }
    const Utf8Letter letter = utf8LetterAt(bytes);
    bytes.remove_prefix(letter.length);
    return letter.letter;
}

} // namespace vandrel
