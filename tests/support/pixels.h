#pragma once

#include <windows.h>

#include <cstddef>
#include <vector>

namespace vandrel::test {

// The pixels of a window's client area as the screen shows them, 0x00RRGGBB.
inline std::vector<DWORD> pixelsOf(HWND window)
{
    RECT area{};
    GetClientRect(window, &area);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = area.right;
    info.bmiHeader.biHeight = -area.bottom;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HDC screen = GetDC(window);
    const HDC context = CreateCompatibleDC(screen);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(context, bitmap);
    BitBlt(context, 0, 0, area.right, area.bottom, screen, 0, 0, SRCCOPY);
    GdiFlush();
    const auto* const first = static_cast<const DWORD*>(bits);
    std::vector<DWORD> pixels(first, first + std::ptrdiff_t{area.right} * area.bottom);
    for (DWORD& pixel : pixels) pixel &= 0xFFFFFF;
    SelectObject(context, before);
    DeleteObject(bitmap);
    DeleteDC(context);
    ReleaseDC(window, screen);
    return pixels;
}

} // namespace vandrel::test
