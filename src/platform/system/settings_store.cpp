#include "platform/system/settings_store.h"

#include "platform/system/registry.h"

namespace vandrel {

std::wstring SettingsStore::keyOf(std::wstring_view section) const
{
    return L"Software\\VB and VBA Program Settings\\" + application_ + L"\\" + std::wstring(section);
}

std::wstring SettingsStore::get(std::wstring_view section, std::wstring_view key) const
{
    return registryText(HKEY_CURRENT_USER, keyOf(section), std::wstring(key));
}

void SettingsStore::save(std::wstring_view section, std::wstring_view key, std::wstring_view text) const
{
    setRegistryText(HKEY_CURRENT_USER, keyOf(section), std::wstring(key), std::wstring(text));
}

} // namespace vandrel
