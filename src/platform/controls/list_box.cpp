#include "platform/controls/list_box.h"

#include "platform/controls/redraw_pause.h"

#include <commctrl.h>

#include <algorithm>

namespace vandrel {

ListBox::ListBox(HWND parent, int id, DWORD style)
    : Control(parent, WC_LISTBOXW,
              WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_HASSTRINGS |
                  style,
              WS_EX_CLIENTEDGE, id)
{}

std::size_t ListBox::count() const
{
    return static_cast<std::size_t>(std::max<LRESULT>(SendMessageW(handle(), LB_GETCOUNT, 0, 0), 0));
}

std::wstring ListBox::text(std::size_t entry) const
{
    const LRESULT length = SendMessageW(handle(), LB_GETTEXTLEN, entry, 0);
    if (length == LB_ERR) return {};
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    SendMessageW(handle(), LB_GETTEXT, entry, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

void ListBox::fill(const std::vector<std::wstring>& texts)
{
    {
        const RedrawPause pause(handle());
        SendMessageW(handle(), LB_RESETCONTENT, 0, 0);
        for (const std::wstring& text : texts) {
            SendMessageW(handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        }
    }
    updateScrollWidth();
}

std::optional<std::size_t> ListBox::selected() const
{
    const LRESULT entry = SendMessageW(handle(), LB_GETCURSEL, 0, 0);
    return entry == LB_ERR ? std::nullopt : std::optional(static_cast<std::size_t>(entry));
}

void ListBox::select(std::size_t entry) { SendMessageW(handle(), LB_SETCURSEL, entry, 0); }

std::optional<std::size_t> ListBox::find(const std::wstring& text) const
{
    const LRESULT entry = SendMessageW(handle(), LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(text.c_str()));
    return entry == LB_ERR ? std::nullopt : std::optional(static_cast<std::size_t>(entry));
}

void ListBox::onCommand(WORD code, WORD)
{
    if (code == LBN_SELCHANGE && Click) Click();
    if (code == LBN_DBLCLK) opened();
}

void ListBox::applyFont()
{
    Control::applyFont();
    updateScrollWidth();
}

void ListBox::updateScrollWidth()
{
    int widest = 0;
    for (std::size_t entry = 0; entry < count(); ++entry) {
        widest = std::max<int>(widest, indent(entry) + sizeOf(text(entry)).cx);
    }
    const int extent = widest + pixels(120_twips);
    SendMessageW(handle(), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extent), 0);
}

} // namespace vandrel
