#pragma once

#include <windows.h>

namespace vandrel::test {

inline bool runsUnderWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

} // namespace vandrel::test
