#include "platform/system/registry.h"

#include "platform/base/system_error.h"

#include <algorithm>

namespace vandrel {

std::wstring registryText(HKEY root, const std::wstring& key, const std::wstring& value)
{
    // Contract: only REG_SZ counts as text. REG_EXPAND_SZ reads as empty.
    constexpr DWORD onlyText = RRF_RT_REG_SZ | RRF_NOEXPAND;
    std::wstring text(256, L'\0');
    LSTATUS status = ERROR_MORE_DATA;
    while (status == ERROR_MORE_DATA) { // again, if the text has grown in the meantime
        auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        status = RegGetValueW(root, key.c_str(), value.c_str(), onlyText, nullptr, text.data(), &size);
        if (status == ERROR_MORE_DATA) text.resize(std::max(size / sizeof(wchar_t) + 1, 2 * text.size()));
    }
    if (status != ERROR_SUCCESS) return {};
    text.resize(text.find(L'\0')); // there is always one
    return text;
}

void setRegistryText(HKEY root, const std::wstring& key, const std::wstring& value, const std::wstring& text)
{
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    const LSTATUS status = RegSetKeyValueW(root, key.c_str(), value.c_str(), REG_SZ, text.c_str(), size);
    if (status != ERROR_SUCCESS) throw runtimeErrorOf(static_cast<unsigned long>(status));
}

} // namespace vandrel
