#include "platform/system/registry.h"

#include "platform/base/handle.h"
#include "platform/base/system_error.h"

namespace vandrel {

std::wstring registryText(HKEY root, const std::wstring& key, const std::wstring& value)
{
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, key.c_str(), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS) return {};
    const RegistryKeyHandle handle(opened);
    DWORD type = 0;
    DWORD size = 0; // bytes
    if (RegQueryValueExW(opened, value.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
        type != REG_SZ) {
        return {};
    }
    std::wstring text(size / sizeof(wchar_t) + 1, L'\0');
    size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegQueryValueExW(opened, value.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(text.data()),
                         &size) != ERROR_SUCCESS ||
        type != REG_SZ) {
        return {};
    }
    return text.substr(0, text.find(L'\0'));
}

void setRegistryText(HKEY root, const std::wstring& key, const std::wstring& value, const std::wstring& text)
{
    HKEY opened = nullptr;
    LSTATUS status = RegCreateKeyExW(root, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &opened,
                                     nullptr);
    if (status == ERROR_SUCCESS) {
        const RegistryKeyHandle handle(opened);
        const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
        status = RegSetValueExW(opened, value.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                size);
    }
    if (status != ERROR_SUCCESS) throw runtimeErrorOf(static_cast<unsigned long>(status));
}

} // namespace vandrel
