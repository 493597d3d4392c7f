#include "model/category_title.h"

namespace vandrel {

std::optional<std::wstring> titleOfFile(std::wstring_view fileName)
{
    // Contract: letter case counts in the extension.
    if (!fileName.ends_with(categoryExtension)) return std::nullopt;
    return std::wstring(fileName.substr(0, fileName.rfind(L'.')));
}

// Contract: < > | are named in the message but not tested; the file system refuses them.
bool hasRefusedCharacter(std::wstring_view title) { return title.find_first_of(L":\\/?*\"") != title.npos; }

std::wstring refusedTitleMessage()
{
    return L"The following characters are not allowed:\r\n          \\ / : * ? \" < > |";
}

bool isBlank(std::wstring_view text) { return text.find_first_not_of(L' ') == text.npos; }

} // namespace vandrel
