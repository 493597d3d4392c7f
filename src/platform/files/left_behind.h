#pragma once

#include "platform/files/file_layer.h"

namespace vandrel {

// vandrel-<process id>.tmp in the folder of that file: a save writes there first. The process id keeps two
// running copies of the program from writing to the same file.
std::wstring temporaryFileBeside(const std::wstring& path);

// Removes such files that nobody will finish: those of ended processes, and those of this one, which must
// not be saving. Leaves those that are open or whose process id is in use. Raises no error.
void removeLeftBehind(const std::wstring& folder, FileLayer& files = systemFiles());

} // namespace vandrel
