#include "dialogs/incoming_link.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr std::wstring_view lineEnd = L"\r\n";

} // namespace

LinkParts partsOfLink(std::wstring_view incomingLink)
{
    if (incomingLink.empty()) return {std::wstring(emptyAddress), {}};
    const std::size_t end = incomingLink.find(linkSeparator);
    if (end == std::wstring_view::npos) return {std::wstring(incomingLink), {}};
    const std::wstring_view rest = incomingLink.substr(end + linkSeparator.size());
    return {std::wstring(incomingLink.substr(0, end)),
            std::wstring(rest.substr(0, rest.find(linkSeparator)))};
}

std::wstring withoutSeparators(std::wstring text)
{
    std::ranges::replace(text, L'|', L'-');
    for (std::size_t at = 0; (at = text.find(lineEnd, at)) != text.npos; ++at)
        text.replace(at, lineEnd.size(), L" ");
    return text;
}

} // namespace vandrel
