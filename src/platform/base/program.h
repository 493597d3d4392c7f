#pragma once

#include <string>
#include <string_view>

namespace vandrel {

// The program's title: of its boxes, of its window and in the settings store.
inline constexpr const wchar_t* programTitle = L"Vandrel";

// What stands behind the program's own name in a command line, as it stands; empty when there is nothing.
std::wstring_view argumentsOf(std::wstring_view commandLine);

} // namespace vandrel
