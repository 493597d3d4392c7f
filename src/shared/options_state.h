#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace vandrel {

// Whether a font can have that size, in points.
bool isFontSize(long size);

// The display font: of the main window, the site editor, the search window and the import dialog.
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

// Reads the options by key; `read` gives an empty text for a missing value. What is missing or unusable
// gets its default.
OptionsState optionsFrom(const std::function<std::wstring(std::wstring_view key)>& read);

// Calls `write` with each key and its text, in the order in which they are to be stored.
void writeOptions(const OptionsState& options,
                  const std::function<void(std::wstring_view key, std::wstring_view text)>& write);

} // namespace vandrel
