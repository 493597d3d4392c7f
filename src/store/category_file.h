#pragma once

#include "model/category.h"
#include "platform/files/file_bytes.h"
#include "platform/files/file_layer.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vandrel {

// The path of the category's file. `folder` has no trailing backslash.
std::wstring categoryPath(const std::wstring& folder, const std::wstring& title);

// Reads the category; a file missing from an existing folder is an empty category. Throws RuntimeError when
// the file or its folder cannot be reached or read.
Category readCategory(const std::wstring& folder, const std::wstring& title);

// The bytes of its file, until `file` reads another one; none if the file is missing from an existing folder.
// Throws as readCategory does.
std::optional<std::string_view> categoryBytes(const std::wstring& folder, const std::wstring& title,
                                              FileBytes& file);

// Replaces the file's content with the rows, all or nothing; see replaceFile. Throws RuntimeError.
void writeCategory(const std::wstring& folder, const std::wstring& title, std::span<const RowTable::Row> rows,
                   FileLayer& files);

} // namespace vandrel
