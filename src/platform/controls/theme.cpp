#include "platform/controls/theme.h"

#include "platform/base/handle.h"

#include <uxtheme.h>

#include <vsstyle.h>
#include <cstdlib>

namespace vandrel {
namespace {

using ThemeHandle = UniqueHandle<HTHEME, CloseThemeData, nullHandle<HTHEME>>;
using MemoryContext = UniqueHandle<HDC, DeleteDC, nullHandle<HDC>>;
using BitmapHandle = UniqueHandle<HBITMAP, DeleteObject, nullHandle<HBITMAP>>;

int lightness(COLORREF color)
{
    return (3 * GetRValue(color) + 6 * GetGValue(color) + GetBValue(color)) / 10;
}

// Labels have the system's colour for text, whatever the style.
bool isReadableOn(COLORREF ground)
{
    constexpr int enough = 128;
    return std::abs(lightness(ground) - lightness(GetSysColor(COLOR_WINDOWTEXT))) >= enough;
}

} // namespace

void setThemed(HWND control, bool on)
{
    const wchar_t* const none = L" "; // no class of that name has a style
    SetWindowTheme(control, on ? nullptr : none, on ? nullptr : none);
}

// The style has no reliable entry for it, so a page is drawn and looked at.
COLORREF tabPageColor(HWND tabs)
{
    constexpr int side = 32;
    const ThemeHandle theme(OpenThemeData(tabs, L"Tab"));
    const HDC screen = GetDC(tabs);
    const MemoryContext context(CreateCompatibleDC(screen));
    const BitmapHandle bitmap(CreateCompatibleBitmap(screen, side, side));
    ReleaseDC(tabs, screen);
    COLORREF color = CLR_INVALID;
    if (theme && context && bitmap) {
        const HGDIOBJ before = SelectObject(context.get(), bitmap.get());
        const RECT area{0, 0, side, side};
        if (SUCCEEDED(DrawThemeBackground(theme.get(), context.get(), TABP_BODY, 0, &area, nullptr)))
            color = GetPixel(context.get(), side / 2, side / 2);
        SelectObject(context.get(), before);
    }
    return color != CLR_INVALID && isReadableOn(color) ? color : GetSysColor(COLOR_3DFACE);
}

} // namespace vandrel
