#include "platform/folder.h"

#include "platform/file_layer.h"
#include "platform/handle.h"

namespace vandrel {

std::vector<std::wstring> fileNamesIn(const std::wstring& folder)
{
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const FindHandle search(FindFirstFileExW((extendedPath(folder) + L"\\*").c_str(), FindExInfoBasic, &found,
                                             FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
    if (!search) return names;
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.emplace_back(found.cFileName);
    } while (FindNextFileW(search.get(), &found));
    return names;
}

std::wstring programFolder()
{
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) ==
           path.size()) {
        path.resize(path.size() * 2);
    }
    path.resize(length);
    if (path.starts_with(L"\\\\?\\") && !path.starts_with(L"\\\\?\\UNC\\")) path.erase(0, 4);
    return path.substr(0, path.rfind(L'\\'));
}

} // namespace vandrel
