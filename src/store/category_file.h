#pragma once

#include "model/category.h"
#include "platform/files/file_layer.h"

#include <span>
#include <string>

namespace vandrel {

// The path of the category's file. `folder` has no trailing backslash.
std::wstring categoryPath(const std::wstring& folder, const std::wstring& title);

// Reads the category; a file missing from an existing folder is an empty category. Throws RuntimeError when
// the file or its folder cannot be reached or read.
Category readCategory(const std::wstring& folder, const std::wstring& title);

// Replaces the file's content with the rows, all or nothing; see replaceFile. Throws RuntimeError.
void writeCategory(const std::wstring& folder, const std::wstring& title, std::span<const RowTable::Row> rows,
                   FileLayer& files);

} // namespace vandrel
