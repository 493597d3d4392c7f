#pragma once

#include <string>
#include <string_view>

namespace vandrel {

// The per-user settings store of the platform: named texts by application and section.
class SettingsStore {
  public:
    explicit SettingsStore(std::wstring application) : application_(std::move(application)) {}

    // Empty when there is no such value.
    std::wstring get(std::wstring_view section, std::wstring_view key) const;
    // Throws RuntimeError when the store refuses.
    void save(std::wstring_view section, std::wstring_view key, std::wstring_view text) const;

  private:
    std::wstring keyOf(std::wstring_view section) const;

    std::wstring application_;
};

} // namespace vandrel
