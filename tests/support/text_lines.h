#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace vandrel::test {

// The lines of a file, without their ends, which are CR LF.
inline std::vector<std::string> linesOf(const std::string& bytes)
{
    std::vector<std::string> lines;
    for (std::size_t start = 0, end = 0; start < bytes.size(); start = end + 2) {
        end = std::min(bytes.find("\r\n", start), bytes.size());
        lines.push_back(bytes.substr(start, end - start));
    }
    return lines;
}

} // namespace vandrel::test
