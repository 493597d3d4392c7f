#pragma once

#include "platform/base/twips.h"
#include "platform/system/settings_store.h"
#include "shared/options_state.h"

#include <string>

namespace vandrel {

// The program's preferences by name, in the units in which the program holds them. Missing and damaged
// values read as 0 or as their default; reading raises no error.
class Preferences {
  public:
    explicit Preferences(SettingsStore store) : store_(std::move(store)) {}

    OptionsState options() const;
    void saveOptions(const OptionsState& options) const;

    // "GridLines", "HoverSel", "KeepTop"
    int flag(const wchar_t* key) const;
    void saveFlag(const wchar_t* key, int flag) const;

    // "Left", "Top", "Width", "Height", "Col1" to "Col4"
    Twips length(const std::wstring& key) const;
    void saveWhole(const std::wstring& key, long twips) const;
    void saveLength(const std::wstring& key, Twips length) const;

  private:
    SettingsStore store_;
};

} // namespace vandrel
