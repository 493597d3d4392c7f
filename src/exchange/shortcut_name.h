#pragma once

#include <string>
#include <string_view>

namespace vandrel {

inline constexpr std::wstring_view shortcutExtension = L".url";

// The site's name that a shortcut file's name holds: what stands before its last dot. Throws RuntimeError 5
// when there is none.
std::wstring siteNameOf(std::wstring_view fileName);

// A name that a file can have, for a site's: "-" in place of what is not allowed in one, no blank or dot at
// either end that the system would drop, no device's name, at most 120 units. A name that is allowed stays as
// it is.
std::wstring fileNameFor(std::wstring_view siteName);

// The path of the shortcut file that the user named: with the extension, which may be left out.
std::wstring shortcutPath(const std::wstring& named);

} // namespace vandrel
