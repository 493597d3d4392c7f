#include "platform/controls/link_label.h"

#include <commctrl.h>

namespace vandrel {
namespace {

// In some plain themes the link colour of the system is unreadable.
constexpr COLORREF linkColor = RGB(0x00, 0x50, 0xB0);

// True in high contrast and for some colour schemes of the user. Our colours are for light surfaces.
bool surfaceIsDark()
{
    const COLORREF surface = GetSysColor(COLOR_3DFACE);
    return GetRValue(surface) + GetGValue(surface) + GetBValue(surface) < 3 * 128;
}

} // namespace

LinkLabel::LinkLabel(HWND parent, int id, const std::wstring& text)
    : Control(parent, WC_STATICW, WS_TABSTOP | SS_NOTIFY | SS_NOPREFIX | SS_ENDELLIPSIS, 0, id)
{
    setText(text);
}

void LinkLabel::setLook(COLORREF color, bool underlined)
{
    if (color_ == color && isUnderlined_ == underlined) return;
    color_ = color;
    isUnderlined_ = underlined;
    applyFont();
    InvalidateRect(handle(), nullptr, TRUE);
}

COLORREF LinkLabel::textColor() const
{
    if (surfaceIsDark()) return GetSysColor(isUnderlined_ ? COLOR_HOTLIGHT : COLOR_BTNTEXT);
    return color_.value_or(linkColor);
}

void LinkLabel::onCommand(WORD code, WORD)
{
    if (code == STN_CLICKED && Click) Click();
}

std::optional<LRESULT> LinkLabel::onColor(HDC context, UINT)
{
    SetTextColor(context, textColor());
    SetBkColor(context, GetSysColor(COLOR_3DFACE));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_3DFACE));
}

LRESULT LinkLabel::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_GETDLGCODE: {
        // Otherwise Enter would press the dialog's default button.
        const auto* const key = reinterpret_cast<const MSG*>(lParam);
        return key != nullptr && key->wParam == VK_RETURN ? DLGC_WANTMESSAGE : 0;
    }
    case WM_KEYDOWN:
        if ((wParam == VK_RETURN || wParam == VK_SPACE) && Click) Click();
        return 0;
    case WM_LBUTTONDOWN: setFocus(); break;
    case WM_MOUSEMOVE:
        if (MouseMove) MouseMove();
        break;
    case WM_SETCURSOR: SetCursor(LoadCursorW(nullptr, IDC_HAND)); return TRUE;
    case WM_SETFOCUS:
    case WM_KILLFOCUS: InvalidateRect(handle(), nullptr, TRUE); break;
    case WM_PAINT: {
        const LRESULT result = Control::onMessage(message, wParam, lParam);
        if (hasFocus()) drawFocus();
        return result;
    }
    default: break;
    }
    return Control::onMessage(message, wParam, lParam);
}

void LinkLabel::drawFocus()
{
    RECT area{};
    GetClientRect(handle(), &area);
    const HDC context = GetDC(handle());
    DrawFocusRect(context, &area);
    ReleaseDC(handle(), context);
}

void LinkLabel::applyFont()
{
    Control::applyFont();
    if (!isUnderlined_) return;
    LOGFONTW font{};
    GetObjectW(fontHandle(), sizeof font, &font);
    font.lfUnderline = TRUE;
    FontHandle underlined(CreateFontIndirectW(&font));
    if (!underlined) return;
    SendMessageW(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(underlined.get()), TRUE);
    underlined_ = std::move(underlined);
}

} // namespace vandrel
