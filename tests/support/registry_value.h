#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace vandrel::test {

// Sets a value of the registry until the end of the test. The name "" means the key's default value.
class RegistryValue {
  public:
    // Without a text the value is deleted.
    RegistryValue(HKEY root, const std::wstring& path, std::wstring name,
                  const std::optional<std::wstring>& text);
    RegistryValue(HKEY root, const std::wstring& path, std::wstring name, DWORD number);
    RegistryValue(const RegistryValue&) = delete;
    RegistryValue& operator=(const RegistryValue&) = delete;
    ~RegistryValue();

  private:
    void remember(HKEY root, const std::wstring& path);

    HKEY key_ = nullptr;
    std::wstring name_;
    bool wasThere_ = false;
    DWORD typeBefore_ = REG_SZ;
    std::vector<BYTE> before_;
};

} // namespace vandrel::test
