#pragma once

#include <string>
#include <vector>

namespace vandrel {

// The names of the files in a folder, not of its subfolders, in the order in which the file system gives
// them. A folder that cannot be listed has none. `pattern` is matched by the system, which looks at short
// names as well: what it lets through may be more.
std::vector<std::wstring> fileNamesIn(const std::wstring& folder, const wchar_t* pattern = L"*");

// Likewise of its subfolders, without those that the system hides.
std::vector<std::wstring> folderNamesIn(const std::wstring& folder);

// As the user's language orders them, whatever the case of their letters.
void sortNames(std::vector<std::wstring>& names);

// Throws RuntimeError when there is no such folder (76), or its drive cannot be read (71).
void requireFolder(const std::wstring& folder);

// The folder that holds the running program, without a backslash at its end.
std::wstring programFolder();

} // namespace vandrel
