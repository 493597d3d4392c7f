#pragma once

#include "model/category.h"
#include "platform/files/file_layer.h"

#include <span>
#include <string>

namespace vandrel {

// Where the category of that title is kept in the folder, which has no backslash at its end.
std::wstring categoryPath(const std::wstring& folder, const std::wstring& title);

// Reads the category. A file that is missing from a folder that is there is an empty category. Throws
// RuntimeError when the file or its folder cannot be reached or read.
Category readCategory(const std::wstring& folder, const std::wstring& title);

// Puts the rows in place of what the file holds, all or nothing; see replaceFile. Throws RuntimeError.
void writeCategory(const std::wstring& folder, const std::wstring& title, std::span<const RowTable::Row> rows,
                   FileLayer& files);

} // namespace vandrel
