#pragma once

#include <string>
#include <string_view>

namespace vandrel {

// Joins an address and a name in a handed-over link. It never reaches a category file.
inline constexpr std::wstring_view linkSeparator = L"~-~";

inline constexpr std::wstring_view emptyAddress = L"http://";

struct LinkParts {
    std::wstring url;
    std::wstring name;
};

// What the site editor shows for a handed-over text: address and name, or the whole text as the address, or
// "http://" for an empty one.
LinkParts partsOfLink(std::wstring_view incomingLink);

// The text with every field separator replaced by "-".
std::wstring withoutSeparators(std::wstring text);

} // namespace vandrel
