#pragma once

#include <string>
#include <string_view>

namespace vandrel {

// The platform's per-user settings store: named texts, by application and section.
// Contract: in the registry, under "Software\VB and VBA Program Settings".
class SettingsStore {
  public:
    explicit SettingsStore(std::wstring application) : application_(std::move(application)) {}

    // Empty if there is no such value.
    std::wstring get(std::wstring_view section, std::wstring_view key) const;
    // Throws RuntimeError if the store refuses the text.
    void save(std::wstring_view section, std::wstring_view key, std::wstring_view text) const;

  private:
    std::wstring keyOf(std::wstring_view section) const;

    std::wstring application_;
};

} // namespace vandrel
