#include "platform/files/folder.h"

#include "platform/base/handle.h"
#include "platform/base/system_error.h"
#include "platform/files/file_layer.h"

#include <algorithm>

namespace vandrel {

namespace {

template <typename Wanted>
std::vector<std::wstring> namesIn(const std::wstring& folder, const wchar_t* pattern, Wanted wanted)
{
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const FindHandle search(FindFirstFileExW(extendedPath(folder + L"\\" + pattern).c_str(), FindExInfoBasic,
                                             &found, FindExSearchNameMatch, nullptr,
                                             FIND_FIRST_EX_LARGE_FETCH));
    if (!search) return names;
    do {
        if (wanted(found)) names.emplace_back(found.cFileName);
    } while (FindNextFileW(search.get(), &found));
    return names;
}

bool isFolder(const WIN32_FIND_DATAW& found)
{
    return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace

std::vector<std::wstring> fileNamesIn(const std::wstring& folder, const wchar_t* pattern)
{
    return namesIn(folder, pattern, [](const WIN32_FIND_DATAW& found) { return !isFolder(found); });
}

std::vector<std::wstring> folderNamesIn(const std::wstring& folder)
{
    return namesIn(folder, L"*", [](const WIN32_FIND_DATAW& found) {
        const std::wstring_view name = found.cFileName;
        return isFolder(found) && (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) == 0 && name != L"." &&
               name != L"..";
    });
}

void sortNames(std::vector<std::wstring>& names)
{
    const auto length = [](const std::wstring& name) { return static_cast<int>(name.size()); };
    std::ranges::stable_sort(names, [&](const std::wstring& a, const std::wstring& b) {
        return CompareStringEx(LOCALE_NAME_USER_DEFAULT, LINGUISTIC_IGNORECASE, a.c_str(), length(a),
                               b.c_str(), length(b), nullptr, nullptr, 0) == CSTR_LESS_THAN;
    });
}

void requireFolder(const std::wstring& folder)
{
    const DWORD attributes = GetFileAttributesW(extendedPath(folder).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const DWORD reason = GetLastError();
        throw reason == ERROR_FILE_NOT_FOUND ? RuntimeError(error_number::pathNotFound)
                                             : runtimeErrorOf(reason);
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) throw RuntimeError(error_number::pathNotFound);
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
