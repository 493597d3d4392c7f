#pragma once

#include <windows.h>

#include <string>

namespace vandrel::test {

// Types a colour into the system's dialog for colours.
inline void typeColor(HWND box, COLORREF color)
{
    constexpr int red = 706; // the fields for green and blue come next
    const int parts[] = {GetRValue(color), GetGValue(color), GetBValue(color)};
    for (int part = 0; part < 3; ++part)
        SetDlgItemTextW(box, red + part, std::to_wstring(parts[part]).c_str());
}

} // namespace vandrel::test
