#pragma once

#include <windows.h>
#include <commctrl.h>

#include <functional>
#include <vector>

namespace vandrel::test {

// Records the menu commands that reach a window, and keeps them from it.
class CommandRecorder {
  public:
    explicit CommandRecorder(HWND window) : window_(window)
    {
        SetWindowSubclass(window, proc, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    CommandRecorder(const CommandRecorder&) = delete;
    CommandRecorder& operator=(const CommandRecorder&) = delete;
    ~CommandRecorder() { RemoveWindowSubclass(window_, proc, 1); }

    std::vector<int> commands;

  private:
    static LRESULT CALLBACK proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                 DWORD_PTR object)
    {
        if (message != WM_COMMAND || lParam != 0) return DefSubclassProc(window, message, wParam, lParam);
        reinterpret_cast<CommandRecorder*>(object)->commands.push_back(LOWORD(wParam));
        return 0;
    }

    HWND window_;
};

// Calls `look` whenever the message reaches the window, before the window sees it.
class MessageWatch {
  public:
    MessageWatch(HWND window, UINT message, std::function<void()> look)
        : window_(window), message_(message), look_(std::move(look))
    {
        SetWindowSubclass(window_, proc, 2, reinterpret_cast<DWORD_PTR>(this));
    }
    MessageWatch(const MessageWatch&) = delete;
    MessageWatch& operator=(const MessageWatch&) = delete;
    ~MessageWatch() { RemoveWindowSubclass(window_, proc, 2); }

  private:
    static LRESULT CALLBACK proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                 DWORD_PTR object)
    {
        auto* const watch = reinterpret_cast<MessageWatch*>(object);
        if (message == watch->message_) watch->look_();
        return DefSubclassProc(window, message, wParam, lParam);
    }

    HWND window_;
    UINT message_;
    std::function<void()> look_;
};

} // namespace vandrel::test
