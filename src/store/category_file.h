#pragma once

#include "platform/controls/list_rows.h"
#include "platform/files/file_layer.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace vandrel {

// Where the category of that title is kept in the folder, which has no backslash at its end.
std::wstring categoryPath(const std::wstring& folder, const std::wstring& title);

// The sites of a category file, in its order.
struct CategorySites {
    std::shared_ptr<const void> texts; // owns what the rows look into, one piece of memory in the rows' order
    std::size_t size = 0;              // of that piece, in UTF-16 units
    std::vector<ListRows::Row> rows;
};

// Reads the category, with copies of the rows of `behind` behind its own. A file that is missing from a
// folder that is there is an empty category. Throws RuntimeError when the file or its folder cannot be
// reached or read.
CategorySites readCategory(const std::wstring& folder, const std::wstring& title,
                           std::span<const ListRows::Row> behind = {});

// Puts the rows in place of what the file holds, all or nothing; see replaceFile. Throws RuntimeError.
void writeCategory(const std::wstring& folder, const std::wstring& title, std::span<const ListRows::Row> rows,
                   FileLayer& files);

} // namespace vandrel
