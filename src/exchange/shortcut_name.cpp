#include "exchange/shortcut_name.h"

#include "platform/base/runtime_error.h"

#include <algorithm>

namespace vandrel {
namespace {

// Leaves enough for the folder of the 260 units that the system's shortcut functions take as a path.
constexpr std::size_t longestName = 120;

wchar_t asciiLower(wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c; }

std::wstring asciiLower(std::wstring_view text)
{
    std::wstring lower(text);
    std::ranges::transform(lower, lower.begin(), [](wchar_t c) { return asciiLower(c); });
    return lower;
}

bool isSurrogate(wchar_t c) { return c >= 0xD800 && c <= 0xDFFF; }
bool isFirstSurrogate(wchar_t c) { return c >= 0xD800 && c <= 0xDBFF; }

bool isAllowed(wchar_t c)
{
    return c >= L' ' && c != 0x7F && std::wstring_view(L"\\/:*?\"<>|").find(c) == std::wstring_view::npos;
}

// "CON", "con.backup" and the like name a device, not a file.
bool isDevice(std::wstring_view name)
{
    std::wstring base = asciiLower(name.substr(0, name.find(L'.')));
    while (base.ends_with(L' ')) base.pop_back();
    for (const std::wstring_view device : {L"con", L"prn", L"aux", L"nul"}) {
        if (base == device) return true;
    }
    const bool numbered = base.starts_with(L"com") || base.starts_with(L"lpt");
    // The superscript digits count as well.
    return numbered && base.size() == 4 &&
           std::wstring_view(L"123456789\u00B9\u00B2\u00B3").find(base[3]) != std::wstring_view::npos;
}

} // namespace

std::wstring siteNameOf(std::wstring_view fileName)
{
    const std::size_t dot = fileName.rfind(L'.');
    if (dot == std::wstring_view::npos) throw RuntimeError(error_number::invalidCall);
    return std::wstring(fileName.substr(0, dot));
}

std::wstring fileNameFor(std::wstring_view siteName)
{
    std::wstring name;
    for (std::size_t i = 0; i < siteName.size(); ++i) {
        const bool pair = isFirstSurrogate(siteName[i]) && i + 1 < siteName.size() &&
                          isSurrogate(siteName[i + 1]) && !isFirstSurrogate(siteName[i + 1]);
        if (name.size() + (pair ? 2 : 1) > longestName) break;
        if (pair) {
            name += siteName.substr(i, 2);
            ++i;
        } else {
            name += isAllowed(siteName[i]) && !isSurrogate(siteName[i]) ? siteName[i] : L'-';
        }
    }
    while (name.starts_with(L' ')) name.erase(0, 1);
    if (isDevice(name)) name.insert(0, 1, L'-');
    if (name.size() > longestName)
        name.resize(isFirstSurrogate(name[longestName - 1]) ? longestName - 1 : longestName);
    while (name.ends_with(L' ') || name.ends_with(L'.')) name.pop_back();
    return name;
}

std::wstring shortcutPath(const std::wstring& named)
{
    const std::wstring lower = asciiLower(named);
    return lower.ends_with(shortcutExtension) ? named : named + std::wstring(shortcutExtension);
}

} // namespace vandrel
