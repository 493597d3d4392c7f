#include "platform/controls/tab_strip.h"

#include <commctrl.h>

#include <algorithm>

namespace vandrel {

TabStrip::TabStrip(HWND parent, int id)
    : Control(parent, WC_TABCONTROLW, WS_TABSTOP | WS_CLIPSIBLINGS | TCS_TABS, 0, id)
{}

void TabStrip::add(const std::wstring& caption)
{
    std::wstring text = caption;
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    SendMessageW(handle(), TCM_INSERTITEMW, count(), reinterpret_cast<LPARAM>(&item));
}

std::size_t TabStrip::count() const
{
    return static_cast<std::size_t>(SendMessageW(handle(), TCM_GETITEMCOUNT, 0, 0));
}

std::size_t TabStrip::selected() const
{
    return static_cast<std::size_t>(std::max<LRESULT>(SendMessageW(handle(), TCM_GETCURSEL, 0, 0), 0));
}

void TabStrip::select(std::size_t tab) { SendMessageW(handle(), TCM_SETCURSEL, tab, 0); }

RECT TabStrip::placeAround(const RECT& page)
{
    RECT whole = page;
    SendMessageW(handle(), TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&whole));
    place(whole.left, whole.top, whole.right - whole.left, whole.bottom - whole.top);
    return whole;
}

bool TabStrip::takeKey(const MSG& message)
{
    if (message.message != WM_KEYDOWN || GetKeyState(VK_CONTROL) >= 0 || count() < 2) return false;
    const bool tab = message.wParam == VK_TAB;
    if (!tab && message.wParam != VK_NEXT && message.wParam != VK_PRIOR) return false;
    const bool back = tab ? GetKeyState(VK_SHIFT) < 0 : message.wParam == VK_PRIOR;
    setFocus(); // the page of the control that has it may be about to disappear
    select((selected() + (back ? count() - 1 : 1)) % count());
    if (Click) Click();
    return true;
}

std::optional<LRESULT> TabStrip::onNotify(NMHDR& header)
{
    if (header.code != static_cast<UINT>(TCN_SELCHANGE)) return std::nullopt;
    if (Click) Click();
    return 0;
}

} // namespace vandrel
