#include "platform/base/program.h"

namespace vandrel {

std::wstring_view argumentsOf(std::wstring_view commandLine)
{
    // Quotes keep blanks within the program's name; they may stand anywhere in it.
    bool quoted = false;
    std::size_t at = 0;
    for (; at < commandLine.size(); ++at) {
        const wchar_t c = commandLine[at];
        if (c == L'"') quoted = !quoted;
        if (!quoted && (c == L' ' || c == L'\t')) break;
    }
    at = commandLine.find_first_not_of(L" \t", at);
    return at == std::wstring_view::npos ? std::wstring_view{} : commandLine.substr(at);
}

} // namespace vandrel
