#pragma once

#include "platform/files/file_layer.h"

namespace vandrel {

// Overwrites `target` (an extended path, of a file that exists) with `contents`, for folders that do not let
// the user replace it. All or nothing as long as the process lives: the old bytes stay in memory until the
// new ones are flushed, and are put back if these are refused. In case the process ends in between, the old
// bytes are also kept, if possible, in the user's folder for temporary files, as vandrel-<process id>-<file
// name>.old. That file stays if they could not be put back. Throws RuntimeError (57, 61, 70, 71, 75 ...), or
// what `contents` throws.
void saveInPlace(const std::wstring& target, const WriteContents& contents, FileLayer& files);

} // namespace vandrel
