#include "exchange/shortcut_value.h"

#include <string>

namespace vandrel {
namespace {

// 254 bytes, less a letter that is cut off whole; no code page takes more than three bytes for a unit.
constexpr std::size_t shortestCutValue = 250 / 3;

std::wstring lasting(std::wstring_view value)
{
    std::wstring letters;
    for (const wchar_t letter : value) {
        if (letter == L'\r' || letter == L'\n' || letter == L'\0') break;
        const bool plain = letter > L' ' && letter < L'\x7F';
        if (plain && letter != L'"' && letter != L'\'' && letter != L'?') letters += letter;
    }
    return letters;
}

} // namespace

bool readsBack(std::wstring_view written, std::wstring_view read)
{
    const std::wstring whole = lasting(written);
    const std::wstring part = lasting(read);
    return part == whole || (read.size() >= shortestCutValue && whole.starts_with(part));
}

} // namespace vandrel
