#include "platform/control.h"

#include "platform/guarded.h"
#include "platform/system_error.h"

#include <commctrl.h>

#include <utility>

namespace vandrel {
namespace {

constexpr UINT_PTR subclassId = 1;
constexpr const wchar_t* objectProperty = L"Vandrel.Control";

} // namespace

Control::Control(HWND parent, const wchar_t* className, DWORD style, DWORD extendedStyle, int id)
    : window_(CreateWindowExW(extendedStyle, className, L"", style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
                              parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                              GetModuleHandleW(nullptr), nullptr))
{
    if (window_ == nullptr) raiseLastError();
    SetPropW(window_, objectProperty, this);
    SetWindowSubclass(window_, subclassProc, subclassId, reinterpret_cast<DWORD_PTR>(this));
}

Control::~Control()
{
    if (window_ != nullptr) {
        const HWND window = std::exchange(window_, nullptr);
        RemoveWindowSubclass(window, subclassProc, subclassId);
        RemovePropW(window, objectProperty);
        DestroyWindow(window);
    }
}

LRESULT CALLBACK Control::subclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                       DWORD_PTR object) noexcept
{
    auto* const control = reinterpret_cast<Control*>(object);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, subclassProc, subclassId);
        RemovePropW(window, objectProperty);
        control->window_ = nullptr;
        return DefSubclassProc(window, message, wParam, lParam);
    }
    return guarded(GetAncestor(window, GA_ROOT), 0,
                   [&] { return control->onMessage(message, wParam, lParam); });
}

LRESULT Control::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return DefSubclassProc(window_, message, wParam, lParam);
}

Control* Control::of(HWND window) { return static_cast<Control*>(GetPropW(window, objectProperty)); }

void Control::place(int left, int top, int width, int height)
{
    SetWindowPos(window_, nullptr, left, top, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void Control::setEnabled(bool on)
{
    if (enabled() != on) EnableWindow(window_, on);
}

void Control::setVisible(bool on)
{
    if (visible() != on) ShowWindow(window_, on ? SW_SHOWNA : SW_HIDE);
}

bool Control::hasFocus() const
{
    const HWND focus = GetFocus();
    return focus != nullptr && (focus == window_ || IsChild(window_, focus));
}

std::wstring Control::text() const
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)), L'\0');
    const int length = GetWindowTextW(window_, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void Control::setText(const std::wstring& text) { SetWindowTextW(window_, text.c_str()); }

void Control::setFont(const FontDescription& font)
{
    if (fontHandle_ && font == font_) return;
    font_ = font;
    applyFont();
}

void Control::applyFont()
{
    FontHandle font = makeFont(font_, dpi());
    if (!font) return;
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    fontHandle_ = std::move(font); // the old one goes only after the control has the new one
}

void Control::setForeColor(COLORREF color)
{
    if (color == foreColor_) return;
    foreColor_ = color;
    InvalidateRect(window_, nullptr, TRUE);
}

std::optional<LRESULT> Control::onColor(HDC context, UINT message)
{
    if (foreColor_ == 0 || message == WM_CTLCOLORBTN) return std::nullopt;
    const bool field = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
    SetTextColor(context, foreColor_);
    SetBkColor(context, GetSysColor(field ? COLOR_WINDOW : COLOR_3DFACE));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(field ? COLOR_WINDOW : COLOR_3DFACE));
}

std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_NOTIFY: {
        auto& header = *reinterpret_cast<NMHDR*>(lParam);
        Control* const control = Control::of(header.hwndFrom);
        return control != nullptr ? control->onNotify(header) : std::nullopt;
    }
    case WM_COMMAND: {
        Control* const control = lParam != 0 ? Control::of(reinterpret_cast<HWND>(lParam)) : nullptr;
        if (control == nullptr) return std::nullopt;
        control->onCommand(HIWORD(wParam), LOWORD(wParam));
        return 0;
    }
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN: {
        Control* const control = Control::of(reinterpret_cast<HWND>(lParam));
        return control != nullptr ? control->onColor(reinterpret_cast<HDC>(wParam), message) : std::nullopt;
    }
    default: return std::nullopt;
    }
}

} // namespace vandrel
