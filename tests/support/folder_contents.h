#pragma once

#include "tests/support/temp_folder.h"

#include <map>
#include <string>

namespace vandrel::test {

// The files of a folder with their bytes, to be compared with those later.
inline std::map<std::wstring, std::string> contentsOf(const TempFolder& folder)
{
    std::map<std::wstring, std::string> contents;
    for (const std::wstring& name : folder.names()) contents[name] = folder.read(name);
    return contents;
}

} // namespace vandrel::test
