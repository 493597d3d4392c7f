#include "platform/windows/dialog.h"

#include "platform/base/guarded.h"
#include "platform/base/modal_scope.h"
#include "platform/base/system_error.h"
#include "platform/controls/control.h"

#include <algorithm>

namespace vandrel {
namespace {

// A template without controls; the three zero words mean no menu, the standard class and no title.
struct EmptyTemplate {
    DLGTEMPLATE header{};
    WORD rest[3]{};
};

} // namespace

Dialog::Dialog(HWND owner, const std::wstring& caption, Border border) : owner_(owner), border_(border)
{
    EmptyTemplate dialog;
    dialog.header.style = WS_POPUP | WS_CAPTION | WS_SYSMENU;
    dialog.header.style |= border == Border::fixed
                               ? DS_MODALFRAME
                               : WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_CLIPCHILDREN;
    // Without a button in the taskbar, which a window with an owner does not get by itself, the minimised
    // dialog would stay above the taskbar as a bare title.
    if (border == Border::sizable) dialog.header.dwExtendedStyle = WS_EX_APPWINDOW;
    window_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &dialog.header, owner, dialogProc, 0);
    if (window_ == nullptr) raiseLastError();
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    setCaption(caption);
    icons_.showIn(window_, dpi());
}

Dialog::~Dialog()
{
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

INT_PTR CALLBACK Dialog::dialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* const dialog = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (dialog == nullptr) return FALSE;
    return guarded(window, TRUE, [&] { return dialog->onMessage(message, wParam, lParam); });
}

INT_PTR Dialog::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    // Buttons with these ids raise Click themselves; without a window it is the Enter or Esc key.
    if (message == WM_COMMAND && lParam == 0) {
        if (LOWORD(wParam) == IDOK) onOk();
        if (LOWORD(wParam) == IDCANCEL) onCancel();
        return TRUE;
    }
    if (message == WM_CLOSE) {
        onCancel();
        return TRUE;
    }
    if (border_ == Border::sizable && message == WM_SIZE && wParam != SIZE_MINIMIZED) {
        layOut();
        return TRUE;
    }
    if (border_ == Border::sizable && message == WM_GETMINMAXINFO) {
        const SIZE smallest = smallestSize();
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {smallest.cx, smallest.cy};
        return TRUE;
    }
    if (message == WM_SYSCOLORCHANGE) {
        tellSystemColors(window_);
        return TRUE;
    }
    if (message == WM_DPICHANGED) {
        dpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
        return TRUE;
    }
    const auto answer = reflect(message, wParam, lParam);
    if (!answer) return FALSE;
    if (message == WM_NOTIFY) {
        SetWindowLongPtrW(window_, DWLP_MSGRESULT, *answer);
        return TRUE;
    }
    return message == WM_COMMAND ? TRUE : *answer;
}

void Dialog::dpiChanged(unsigned dpi, const RECT& suggested)
{
    icons_.showIn(window_, dpi);
    for (Control* const control : controls()) control->dpiChanged(dpi);
    scaleChanged(dpi);
    SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    layOut();
}

// The frame is measured, not computed: whether it scales with the display depends on the version of Windows.
// A second time, because it may change with the size.
void Dialog::setClientSize(int width, int height)
{
    constexpr int attempts = 2;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        RECT outer{};
        RECT inner{};
        GetWindowRect(window_, &outer);
        GetClientRect(window_, &inner);
        if (inner.right == width && inner.bottom == height) return;
        SetWindowPos(window_, nullptr, 0, 0, outer.right - outer.left - inner.right + width,
                     outer.bottom - outer.top - inner.bottom + height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

// Centred on the owner.
POINT Dialog::firstCorner(SIZE own, const RECT& around, const RECT&) const
{
    return {(around.left + around.right - own.cx) / 2, (around.top + around.bottom - own.cy) / 2};
}

// Wholly on the owner's screen.
void Dialog::placeOverOwner()
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    const bool overOwner = owner_ != nullptr && IsWindowVisible(owner_) && !IsIconic(owner_);
    GetMonitorInfoW(MonitorFromWindow(overOwner ? owner_ : window_, MONITOR_DEFAULTTOPRIMARY), &monitor);
    RECT around = monitor.rcWork;
    if (overOwner) GetWindowRect(owner_, &around);
    RECT own{};
    GetWindowRect(window_, &own);
    const LONG width = own.right - own.left;
    const LONG height = own.bottom - own.top;
    const POINT corner = firstCorner({width, height}, around, monitor.rcWork);
    const LONG left = std::min(corner.x, monitor.rcWork.right - width);
    const LONG top = std::min(corner.y, monitor.rcWork.bottom - height);
    SetWindowPos(window_, nullptr, std::max(left, monitor.rcWork.left), std::max(top, monitor.rcWork.top), 0,
                 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Dialog::unload()
{
    unloaded_ = true;
    if (!modelessKeys_) return;
    // The owner is activated before the dialog is hidden; otherwise another program's window would come to
    // the front.
    if (GetActiveWindow() == window_ && owner_ != nullptr) SetActiveWindow(owner_);
    ShowWindow(window_, SW_HIDE);
}

bool Dialog::filterMessage(MSG& message)
{
    if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
    return filterKey(message) || IsDialogMessageW(window_, &message);
}

void Dialog::giveFirstFocus()
{
    if (firstFocus_ != nullptr)
        SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(firstFocus_), TRUE);
}

void Dialog::showModeless()
{
    modelessKeys_.emplace(MessageLoop::current(), [this](MSG& message) { return filterMessage(message); });
    placeOverOwner();
    ShowWindow(window_, SW_SHOW);
    giveFirstFocus();
}

void Dialog::bringForward()
{
    ShowWindow(window_, IsIconic(window_) ? SW_RESTORE : SW_SHOW);
    SetActiveWindow(window_);
}

void Dialog::showModal()
{
    MessageLoop& loop = MessageLoop::current();
    const MessageLoop::Registration keys(loop, [this](MSG& message) { return filterMessage(message); });
    placeOverOwner();
    std::optional<ModalScope> others(std::in_place, window_, owner_);
    const bool disabled = owner_ != nullptr && EnableWindow(owner_, FALSE) == 0;
    ShowWindow(window_, SW_SHOW);
    giveFirstFocus();
    loop.runUntil([this] { return unloaded_; });
    // The owner is enabled before the dialog is hidden; otherwise another program's window would come to the
    // front.
    others.reset();
    if (disabled) EnableWindow(owner_, TRUE);
    ShowWindow(window_, SW_HIDE);
    if (disabled) SetActiveWindow(owner_);
}

} // namespace vandrel
