#pragma once

#include "platform/system/registry.h"

namespace vandrel::Registry_Module {

// The user's Favorites folder as the shell knows it; empty if it does not.
inline std::wstring favoritesFolder()
{
    return registryText(HKEY_CURRENT_USER,
                        L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                        L"Favorites");
}

// The path of the system's web browser, unquoted; empty when none is installed.
inline std::wstring browserPath()
{
    return registryText(HKEY_LOCAL_MACHINE,
                        L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\IEXPLORE.EXE", L"");
}

} // namespace vandrel::Registry_Module
