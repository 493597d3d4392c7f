#pragma once

#include <string>
#include <vector>

namespace vandrel {

// The names of the files in a folder, not of its subfolders, in the order in which the file system gives them.
// A folder that cannot be listed has none.
std::vector<std::wstring> fileNamesIn(const std::wstring& folder);

// The folder that holds the running program, without a backslash at its end.
std::wstring programFolder();

} // namespace vandrel
