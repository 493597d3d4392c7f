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

// The names of the fonts that the screen can show, in the order in which the system gives them.
std::vector<std::wstring> screenFonts();

// Pixels that a text takes on one line in the font; the height is that of the font's lines.
SIZE textSize(HFONT font, const std::wstring& text);

} // namespace vandrel
