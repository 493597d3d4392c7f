#pragma once

#include "platform/files/file_layer.h"

namespace vandrel {

// Writes `contents` into the file that is there, an extended path, where its folder lets nobody put another
// one in its place. All or nothing as long as the process lives: the old bytes stay in memory until the new
// ones are flushed, and are put back when those are refused. Against an end of the process in between they
// lie in a file in the user's folder for temporary files as well, where that can be made: vandrel-<process
// id>-<file name>.old. It stays there when they could not be put back. Throws RuntimeError (57, 61, 70, 71,
// 75 ...), or what `contents` throws.
void saveInPlace(const std::wstring& target, const WriteContents& contents, FileLayer& files);

} // namespace vandrel
