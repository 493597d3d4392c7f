#pragma once

#include <windows.h>

#include <string>
#include <vector>

// What the system knows of a window, whatever program it belongs to.
namespace vandrel::test {

inline std::wstring classOf(HWND window)
{
    wchar_t name[64]{};
    GetClassNameW(window, name, 64);
    return name;
}

// The caption, read without asking the window, which may disappear at any moment.
inline std::wstring captionOf(HWND window)
{
    wchar_t text[256]{};
    GetWindowTextW(window, text, 256);
    return text;
}

inline std::vector<HWND> childrenOf(HWND window)
{
    std::vector<HWND> all;
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        all.push_back(child);
    }
    return all;
}

inline HFONT fontHandleOf(HWND window)
{
    return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
}

inline LOGFONTW fontOf(HWND window)
{
    LOGFONTW font{};
    GetObjectW(fontHandleOf(window), sizeof font, &font);
    return font;
}

// The place of a window in the client area of its parent, in pixels.
inline RECT placeOf(HWND window)
{
    RECT area{};
    GetWindowRect(window, &area);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&area), 2);
    return area;
}

// The place of a window on the screen, in pixels.
inline RECT outerPlace(HWND window)
{
    RECT area{};
    GetWindowRect(window, &area);
    return area;
}

inline RECT clientOf(HWND window)
{
    RECT area{};
    GetClientRect(window, &area);
    return area;
}

inline int widthOf(const RECT& area) { return area.right - area.left; }
inline int heightOf(const RECT& area) { return area.bottom - area.top; }

inline bool isWithin(const RECT& inner, const RECT& outer)
{
    RECT both{};
    UnionRect(&both, &inner, &outer);
    return EqualRect(&both, &outer) != 0;
}

} // namespace vandrel::test
