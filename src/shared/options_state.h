#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace vandrel {

// Points; whether a font can have that size.
bool isFontSize(long size);

// The font that every window of the program shows its texts in.
struct DisplayFont {
    std::wstring name;
    std::uint32_t color = 0; // 0x00BBGGRR
    int size = 0;            // points
    bool bold = false;
    bool italic = false;

    friend bool operator==(const DisplayFont&, const DisplayFont&) = default;
};

// The preferences of section "Options", held here while the program runs and written back when it closes.
struct OptionsState {
    DisplayFont font;
    std::wstring htmlFont;
    std::wstring htmlTableWidth; // a percentage such as "75%", or a number of pixels; kept as typed
    int htmlBorder = 0;
    bool generateEmpty = false;

    friend bool operator==(const OptionsState&, const OptionsState&) = default;
};

// Reads the state by key; a missing value is an empty text. Defaults stand in for what is missing or
// unusable.
OptionsState optionsFrom(const std::function<std::wstring(std::wstring_view key)>& read);

// Hands out each key with its text, in the order in which the store is to get them.
void writeOptions(const OptionsState& options,
                  const std::function<void(std::wstring_view key, std::wstring_view text)>& write);

} // namespace vandrel
