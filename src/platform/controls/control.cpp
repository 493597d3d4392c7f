#include "platform/controls/control.h"

#include "platform/base/guarded.h"
#include "platform/base/system_error.h"
#include "platform/controls/window_text.h"

#include <commctrl.h>

#include <unordered_map>
#include <utility>

namespace vandrel {
namespace {

constexpr UINT laterMessage = WM_APP + 1; // the native controls use none of these numbers

// The controls by their windows, all of one thread. The system offers window properties and subclassing of
// its own for this, but each of these asks another process in Wine, and a list gets a message for every text
// that it paints.
std::unordered_map<HWND, Control*>& controlsByWindow()
{
    static std::unordered_map<HWND, Control*> controls;
    return controls;
}

} // namespace

Control::Control(HWND parent, const wchar_t* className, DWORD style, DWORD extendedStyle, int id)
    : window_(CreateWindowExW(extendedStyle, className, L"", style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
                              parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                              GetModuleHandleW(nullptr), nullptr))
{
    if (window_ == nullptr) raiseLastError();
    controlsByWindow()[window_] = this;
    nativeProc_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(controlProc)));
}

Control::~Control()
{
    if (window_ == nullptr) return;
    const HWND window = window_;
    detach();
    DestroyWindow(window);
}

void Control::detach()
{
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(nativeProc_));
    controlsByWindow().erase(window_);
    window_ = nullptr;
}

LRESULT CALLBACK Control::controlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    Control* const control = of(window);
    if (control == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        const WNDPROC native = control->nativeProc_;
        control->detach();
        return CallWindowProcW(native, window, message, wParam, lParam);
    }
    return guarded(window, 0, [&]() -> LRESULT {
        if (message != laterMessage) return control->onMessage(message, wParam, lParam);
        control->runNext();
        return 0;
    });
}

void Control::later(std::function<void()> action)
{
    waiting_.push_back(std::move(action));
    if (PostMessageW(window_, laterMessage, 0, 0) != 0) return;
    waiting_.pop_back();
    raiseLastError();
}

void Control::runNext()
{
    if (waiting_.empty()) return;
    const std::function<void()> action = std::move(waiting_.front());
    waiting_.pop_front();
    action();
}

LRESULT Control::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return CallWindowProcW(nativeProc_, window_, message, wParam, lParam);
}

Control* Control::of(HWND window)
{
    const auto found = controlsByWindow().find(window);
    return found != controlsByWindow().end() ? found->second : nullptr;
}

void Control::place(int left, int top, int width, int height)
{
    SetWindowPos(window_, nullptr, left, top, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

int Control::outerHeight() const
{
    RECT area{};
    GetWindowRect(window_, &area);
    return area.bottom - area.top;
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

std::wstring Control::text() const { return windowText(window_); }

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

void tellSystemColors(HWND window)
{
    EnumChildWindows(
        window,
        [](HWND child, LPARAM) -> BOOL {
            SendMessageW(child, WM_SYSCOLORCHANGE, 0, 0);
            return TRUE;
        },
        0);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
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
    case WM_DRAWITEM: {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        Control* const control = Control::of(item.hwndItem);
        if (control == nullptr) return std::nullopt;
        control->onDrawItem(item);
        return TRUE;
    }
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN: {
        const HWND window = reinterpret_cast<HWND>(lParam);
        Control* control = Control::of(window);
        if (control == nullptr) control = Control::of(GetParent(window)); // the text box of a combo box
        return control != nullptr ? control->onColor(reinterpret_cast<HDC>(wParam), message) : std::nullopt;
    }
    default: return std::nullopt;
    }
}

} // namespace vandrel
