#pragma once

#include "platform/registry.h"

namespace vandrel::Registry_Module {

// The Favorites folder of the user, as the shell knows it; empty when it does not.
inline std::wstring favoritesFolder()
{
    return registryText(HKEY_CURRENT_USER,
                        L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                        L"Favorites");
}

} // namespace vandrel::Registry_Module
