#pragma once

#include <string>
#include <vector>

namespace vandrel {

// Throws RuntimeError, with a description that names the folder, if it cannot be reached.
void requireCategoryFolder(const std::wstring& folder);

// The titles of the categories in the folder, in alphabetical order. Throws as requireCategoryFolder does.
std::vector<std::wstring> sortedTitles(const std::wstring& folder);

} // namespace vandrel
