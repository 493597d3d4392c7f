#include "platform/windows/title_icons.h"

#include "platform/controls/image_list.h"

#include <utility>

namespace vandrel {
namespace {

constexpr const wchar_t* programIcon = L"a-vandrel";

void show(HWND window, WPARAM kind, IconHandle& shown, IconHandle icon)
{
    SendMessageW(window, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon.get()));
    shown = std::move(icon); // the one before is freed only now that the window has the new one
}

} // namespace

unsigned frameDpi(DPI_AWARENESS_CONTEXT awareness, unsigned dpi)
{
    const bool scales = AreDpiAwarenessContextsEqual(awareness, DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2) !=
                        0;
    return scales ? dpi : GetDpiForSystem();
}

void TitleIcons::showIn(HWND window, unsigned dpi)
{
    const int large = GetSystemMetricsForDpi(SM_CXICON, dpi);
    const int small = GetSystemMetricsForDpi(SM_CXSMICON,
                                             frameDpi(GetWindowDpiAwarenessContext(window), dpi));
    show(window, ICON_BIG, large_, loadIcon(programIcon, large));
    show(window, ICON_SMALL, small_, loadIcon(programIcon, small));
}

} // namespace vandrel
