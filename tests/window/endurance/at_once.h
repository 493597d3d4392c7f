#pragma once

#include "platform/windows/window.h"

#include <functional>
#include <utility>

namespace vandrel::test {

// Answers each dialog and message box of this thread from inside its own loop the moment it is shown: with
// thousands of them, waiting for a timer would take too long.
class AtOnce : private Window {
  public:
    AtOnce()
        : Window({.className = L"Vandrel.AtOnce", .style = 0, .parent = HWND_MESSAGE}),
          hook_(SetWindowsHookExW(WH_CBT, shown, nullptr, GetCurrentThreadId()))
    {
        startAnswering();
        alive() = this;
    }
    ~AtOnce() override
    {
        UnhookWindowsHookEx(hook_);
        alive() = nullptr;
    }

    // Must close the dialog or do something that closes it.
    std::function<void(HWND dialog)> answer;

    int answered() const { return answered_; }

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != dialogShown) return Window::onMessage(message, wParam, lParam);
        const auto dialog = reinterpret_cast<HWND>(wParam);
        if (!answer || IsWindowVisible(dialog) == 0) return 0;
        ++answered_;
        answer(dialog);
        return 0;
    }

  private:
    static constexpr UINT dialogShown = WM_APP + 1;

    static AtOnce*& alive()
    {
        static AtOnce* one = nullptr;
        return one;
    }
    static bool isDialog(HWND window)
    {
        return GetClassLongPtrW(window, GCW_ATOM) == reinterpret_cast<ULONG_PTR>(WC_DIALOG);
    }
    static LRESULT CALLBACK shown(int code, WPARAM wParam, LPARAM lParam)
    {
        AtOnce* const self = alive();
        const auto window = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_ACTIVATE && self != nullptr && isDialog(window) && window != self->last_) {
            self->last_ = window; // it may become active again while it closes
            PostMessageW(self->handle(), dialogShown, wParam, 0);
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    HHOOK hook_;
    HWND last_ = nullptr;
    int answered_ = 0;
};

} // namespace vandrel::test
