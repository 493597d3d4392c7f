#include "platform/controls/control.h"

#include "platform/base/guarded.h"
#include "platform/base/system_error.h"
#include "platform/controls/accessible_name.h"
#include "platform/controls/window_text.h"

#include <commctrl.h>

#include <utility>

namespace vandrel {
namespace {

constexpr UINT laterMessage = WM_APP + 1; // not used by the native controls

// Asks a window for its object. The system assigns the number, so it means nothing to any other window.
UINT objectMessage()
{
    static const UINT number = RegisterWindowMessageW(L"Vandrel.Control");
    return number;
}

} // namespace

Control::Control(HWND parent, const wchar_t* className, DWORD style, DWORD extendedStyle, int id)
    : window_(CreateWindowExW(extendedStyle, className, L"", style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
                              parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                              GetModuleHandleW(nullptr), nullptr))
{
    if (window_ == nullptr) raiseLastError();
    // GWLP_USERDATA gives the object at once. SetWindowSubclass would search the window's properties for
    // every message, and a list gets one for each text that it paints.
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    nativeProc_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(controlProc)));
}

// The last messages get the native behaviour, because the overrides of derived classes no longer apply.
Control::~Control()
{
    if (window_ == nullptr) return;
    forgetName();
    DestroyWindow(window_);
}

LRESULT CALLBACK Control::controlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* const control = reinterpret_cast<Control*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (control == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    if (message == objectMessage()) return reinterpret_cast<LRESULT>(control);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        control->forgetName();
        control->window_ = nullptr;
        return CallWindowProcW(control->nativeProc_, window, message, wParam, lParam);
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
    if (busy()) {
        ++held_;
        return;
    }
    const std::function<void()> action = std::move(waiting_.front());
    waiting_.pop_front();
    action();
}

void Control::resumeLater()
{
    while (held_ > 0 && PostMessageW(window_, laterMessage, 0, 0) != 0) --held_;
}

LRESULT Control::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return CallWindowProcW(nativeProc_, window_, message, wParam, lParam);
}

Control* Control::of(HWND window)
{
    // Asking a window of another thread would mean waiting for it.
    if (GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) return nullptr;
    // No message is needed unless another window procedure has been put in front of ours.
    if (GetWindowLongPtrW(window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(controlProc))
        return reinterpret_cast<Control*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return reinterpret_cast<Control*>(SendMessageW(window, objectMessage(), 0, 0));
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

// Some of the system's controls take the text of the window for their name, others do not.
void Control::setAccessibleName(const std::wstring& name)
{
    SetWindowTextW(window_, name.c_str());
    annotateName(name);
}

void Control::annotateName(const std::wstring& name)
{
    setNameForReaders(window_, name.c_str());
    annotated_ = true;
}

void Control::forgetName()
{
    if (std::exchange(annotated_, false)) dropNameForReaders(window_);
}

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
    fontHandle_ = std::move(font); // the old font is freed only now that the control has the new one
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
        if (control == nullptr) control = Control::of(GetParent(window)); // the text box in a combo box
        return control != nullptr ? control->onColor(reinterpret_cast<HDC>(wParam), message) : std::nullopt;
    }
    default: return std::nullopt;
    }
}

} // namespace vandrel
