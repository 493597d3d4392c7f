#pragma once

#include "platform/base/handle.h"

#include <string>
#include <vector>

namespace vandrel {

struct FontDescription {
    std::wstring name = L"Arial";
    int size = 8; // points
    bool bold = false;
    bool italic = false;

    friend bool operator==(const FontDescription&, const FontDescription&) = default;
};

FontHandle makeFont(const FontDescription& description, unsigned dpi);

// The names of the screen's fonts, in the system's order.
std::vector<std::wstring> screenFonts();

// The size in pixels of a text on one line; the height is the font's line height.
SIZE textSize(HFONT font, const std::wstring& text);

} // namespace vandrel
