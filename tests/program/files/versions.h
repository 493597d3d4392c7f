#pragma once

#include <string>

namespace vandrel::test {

inline constexpr int versionCount = 3;
inline constexpr const wchar_t* savedFiles[] = {L"Books.udb", L"News.udb"};

// What the saving process writes: category files of a few hundred kilobytes. Every version has its own
// length, and its own content in every line.
inline std::string versionOf(int file, int version)
{
    std::string bytes;
    const int lines = 4000 + 1500 * version;
    for (int line = 0; line < lines; ++line) {
        bytes += "Site " + std::to_string(line) + "|http://host.example/" + std::to_string(file) + "/" +
                 std::to_string(version) + "|version " + std::to_string(version) +
                 " of this line|11/16/2002\r\n";
    }
    return bytes;
}

} // namespace vandrel::test
