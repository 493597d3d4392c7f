#include "tests/support/registry_value.h"

#include <stdexcept>
#include <utility>

namespace vandrel::test {
namespace {

void require(LSTATUS status)
{
    if (status != ERROR_SUCCESS)
        throw std::runtime_error("the registry refused: error " + std::to_string(status));
}

} // namespace

RegistryValue::RegistryValue(HKEY root, const std::wstring& path, std::wstring name,
                             const std::optional<std::wstring>& text)
    : name_(std::move(name))
{
    remember(root, path);
    if (text) {
        require(RegSetValueExW(key_, name_.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text->c_str()),
                               static_cast<DWORD>((text->size() + 1) * sizeof(wchar_t))));
    } else {
        RegDeleteValueW(key_, name_.c_str());
    }
}

RegistryValue::RegistryValue(HKEY root, const std::wstring& path, std::wstring name, DWORD number)
    : name_(std::move(name))
{
    remember(root, path);
    require(RegSetValueExW(key_, name_.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                           sizeof number));
}

void RegistryValue::remember(HKEY root, const std::wstring& path)
{
    require(RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr));
    DWORD bytes = 0;
    wasThere_ = RegQueryValueExW(key_, name_.c_str(), nullptr, &typeBefore_, nullptr, &bytes) ==
                ERROR_SUCCESS;
    before_.resize(bytes);
    if (wasThere_) RegQueryValueExW(key_, name_.c_str(), nullptr, nullptr, before_.data(), &bytes);
}

RegistryValue::~RegistryValue()
{
    if (wasThere_) {
        RegSetValueExW(key_, name_.c_str(), 0, typeBefore_, before_.data(),
                       static_cast<DWORD>(before_.size()));
    } else {
        RegDeleteValueW(key_, name_.c_str());
    }
    RegCloseKey(key_);
}

} // namespace vandrel::test
