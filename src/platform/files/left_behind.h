#pragma once

#include "platform/files/file_layer.h"

namespace vandrel {

// vandrel-<process id>.tmp in the folder of that file: what is saved is written there first. One name for
// each process, so that two running copies of the program never write into the same one.
std::wstring temporaryFileBeside(const std::wstring& path);

// Removes such files from the folder that nobody will finish: of processes that have ended, or of this one,
// which must not be saving. Leaves those that are open, or whose process, or another of that number, runs.
// Raises nothing.
void removeLeftBehind(const std::wstring& folder, FileLayer& files = systemFiles());

} // namespace vandrel
