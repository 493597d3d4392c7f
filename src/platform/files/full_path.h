#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// The path from the root; the path as it is where the system makes none of it.
inline std::wstring fullPath(const std::wstring& path)
{
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0'); // with room for the NUL
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.empty() ? path : full;
}

} // namespace vandrel
