#pragma once

#include "model/row_table.h"

#include <string>
#include <string_view>

namespace vandrel {

// What became of reading a category's file.
enum class Reading {
    read,
    missing,    // there is no such file: the category has no sites
    unreadable, // it is there; to save over it would throw away what nobody has seen
};

// A category as it is on the disk.
struct Category {
    std::wstring title;
    RowTable sites; // in the file's order
    Reading reading = Reading::missing;
    std::wstring_view text; // in which the sites' texts lie one behind the other; lives as long as they do
};

} // namespace vandrel
