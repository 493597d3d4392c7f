#pragma once

#include "platform/files/file_layer.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vandrel {

// vandrel-<process id>.tmp in the folder of that file: a save writes there first. The process id keeps two
// running copies of the program from writing to the same file.
std::wstring temporaryFileBeside(const std::wstring& path);

// vandrel-<process id>-<number>.tmp in that folder, for what writes several files before any gets its name.
std::wstring temporaryFileIn(const std::wstring& folder, std::size_t number);

// The names of all such files, of either form, that nobody will finish: see removeLeftBehind.
std::vector<std::wstring> leftBehindIn(const std::wstring& folder);

// Removes files of the first form that nobody will finish: those of ended processes, and those of this one, which must
// not be saving. Leaves those that are open or whose process id is in use. Raises no error.
void removeLeftBehind(const std::wstring& folder, FileLayer& files = systemFiles());

} // namespace vandrel
