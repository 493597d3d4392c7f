#include "model/incoming_link.h"

#include <algorithm>

namespace vandrel {

LinkParts partsOfLink(std::wstring_view incomingLink)
{
    if (incomingLink.empty()) return {std::wstring(emptyAddress), {}};
    const std::size_t end = incomingLink.find(linkSeparator);
    if (end == std::wstring_view::npos) return {std::wstring(incomingLink), {}};
    const std::wstring_view rest = incomingLink.substr(end + linkSeparator.size());
    return {std::wstring(incomingLink.substr(0, end)),
            // Contract: whatever follows a second separator is ignored.
            std::wstring(rest.substr(0, rest.find(linkSeparator)))};
}

std::wstring withoutSeparators(std::wstring text)
{
    std::ranges::replace(text, L'|', L'-');
    return text;
}

} // namespace vandrel
