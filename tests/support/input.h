#pragma once

#include "platform/windows/message_loop.h"
#include "tests/support/answers.h"

#include <windows.h>

#include <array>
#include <vector>

// Keys and mouse buttons as messages through the queue, as they come from the user.
namespace vandrel::test {

// Keys that are down while messages are posted and answered: VK_CONTROL, VK_SHIFT, VK_MENU.
class HeldKeys {
  public:
    explicit HeldKeys(const std::vector<int>& keys)
    {
        GetKeyboardState(before_.data());
        auto now = before_;
        for (const int key : keys) {
            const int left = VK_LSHIFT + 2 * (key - VK_SHIFT);
            for (const int down : {key, left}) now[static_cast<std::size_t>(down)] = 0x80;
        }
        SetKeyboardState(now.data());
    }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
    ~HeldKeys() { SetKeyboardState(before_.data()); }

  private:
    std::array<BYTE, 256> before_{};
};

inline std::vector<int> controlAndShift(bool control, bool shift)
{
    std::vector<int> keys;
    if (control) keys.push_back(VK_CONTROL);
    if (shift) keys.push_back(VK_SHIFT);
    return keys;
}

// Presses a key in the window that has the focus, and lets the program's own message loop deal with it.
inline void pressKey(WORD key, bool control = false, bool shift = false)
{
    const HeldKeys held(controlAndShift(control, shift));
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
    MessageLoop::current().dispatchPending();
}

// Presses and releases a key in a window that has a message loop of its own, or none.
inline void typeKey(HWND window, int key)
{
    PostMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    PostMessageW(window, WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001U));
    pump();
}

// `held`: MK_CONTROL, MK_SHIFT. Posted, because a list that has received the press waits for what the mouse
// does next.
inline void clickAt(HWND window, POINT point, WPARAM held = 0)
{
    const LPARAM place = MAKELPARAM(point.x, point.y);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | held, place);
    PostMessageW(window, WM_LBUTTONUP, held, place);
    pump();
}

inline void rightClickAt(HWND window, POINT point)
{
    PostMessageW(window, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(point.x, point.y));
    PostMessageW(window, WM_RBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    pump();
}

} // namespace vandrel::test
