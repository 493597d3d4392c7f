#pragma once

#include <string>
#include <vector>

namespace vandrel {

// The names of the files in a folder, without its subfolders, in the file system's order. Empty if the
// folder cannot be listed. The system matches `pattern` with short names as well, and so may let more
// through.
std::vector<std::wstring> fileNamesIn(const std::wstring& folder, const wchar_t* pattern = L"*");

// The same for its subfolders, without hidden ones.
std::vector<std::wstring> folderNamesIn(const std::wstring& folder);

// Sorts by the rules of the user's language, ignoring case.
void sortNames(std::vector<std::wstring>& names);

// Throws RuntimeError if there is no such folder (76) or its drive cannot be read (71).
void requireFolder(const std::wstring& folder);

// The folder of the running program, without a trailing backslash.
std::wstring programFolder();

} // namespace vandrel
