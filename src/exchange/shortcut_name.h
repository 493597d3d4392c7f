#pragma once

#include <string>
#include <string_view>

namespace vandrel {

inline constexpr std::wstring_view shortcutExtension = L".url";

// The site's name from a shortcut file's name: all before its last dot. Throws RuntimeError 5 if there is
// none.
std::wstring siteNameOf(std::wstring_view fileName);

// A valid file name for a site's name: "-" for what is not allowed, no blank or dot at either end that the
// system would drop, no device's name, at most 120 units. A valid name stays as it is.
std::wstring fileNameFor(std::wstring_view siteName);

// The path of the shortcut file that the user named; the extension is added if it was left out.
std::wstring shortcutPath(const std::wstring& named);

} // namespace vandrel
