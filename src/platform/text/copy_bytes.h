#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace vandrel {

// Copies bytes that do not overlap. For texts of some ten letters a call of the library's function would take
// longer than this, which never reads or writes beyond them: the last step overlaps the one before it.
inline void copyBytes(char* to, std::string_view bytes)
{
    const char* const from = bytes.data();
    const std::size_t size = bytes.size();
    if (size >= 16) {
        for (std::size_t at = 0; at < size - 16; at += 16) std::memcpy(to + at, from + at, 16);
        std::memcpy(to + size - 16, from + size - 16, 16);
    } else if (size >= 8) {
        std::memcpy(to, from, 8);
        std::memcpy(to + size - 8, from + size - 8, 8);
    } else if (size >= 4) {
        std::memcpy(to, from, 4);
        std::memcpy(to + size - 4, from + size - 4, 4);
    } else {
        for (std::size_t at = 0; at < size; ++at) to[at] = from[at];
    }
}

} // namespace vandrel
