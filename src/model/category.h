#pragma once

#include "model/row_table.h"

#include <string>
#include <string_view>

namespace vandrel {

// How reading a category's file went.
enum class Reading {
    read,
    missing,    // there is no such file: the category has no sites
    unreadable, // saving over it would throw away what nobody has seen
};

// A category as it is on the disk.
struct Category {
    std::wstring title;
    RowTable sites; // in the file's order
    Reading reading = Reading::missing;
    // The decoded file if the sites' texts are views of it, otherwise none. It lives as long as they do.
    std::wstring_view text;
};

} // namespace vandrel
