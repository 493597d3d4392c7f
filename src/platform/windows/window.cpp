#include "platform/windows/window.h"

#include "platform/base/guarded.h"
#include "platform/base/system_error.h"
#include "platform/controls/control.h"
#include "platform/controls/window_text.h"

#include <utility>

namespace vandrel {

Window::Window(const Creation& creation)
{
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = windowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = creation.cursor != nullptr ? creation.cursor : LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
    windowClass.lpszClassName = creation.className;
    RegisterClassExW(&windowClass); // fails harmlessly if the class is registered already
    window_ = CreateWindowExW(creation.extendedStyle, creation.className, L"", creation.style, 0, 0, 0, 0,
                              creation.parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(creation.id)),
                              windowClass.hInstance, this);
    if (window_ == nullptr) raiseLastError();
}

Window::~Window() { destroy(); }

void Window::destroy()
{
    if (window_ != nullptr) DestroyWindow(window_);
}

LRESULT CALLBACK Window::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_NCCREATE) {
        const auto& creation = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
        auto* const made = static_cast<Window*>(creation.lpCreateParams);
        made->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    // Null before WM_NCCREATE, which is not the first message.
    auto* const object = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (object == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        object->window_ = nullptr;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (!object->answering_) return DefWindowProcW(window, message, wParam, lParam);
    return guarded(window, 0, [&] { return object->onMessage(message, wParam, lParam); });
}

LRESULT Window::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (const auto answer = reflect(message, wParam, lParam)) return *answer;
    return DefWindowProcW(window_, message, wParam, lParam);
}

std::wstring Window::caption() const { return windowText(window_); }

void Window::setCaption(const std::wstring& caption) { SetWindowTextW(window_, caption.c_str()); }

} // namespace vandrel
