#pragma once

#include "tests/support/answers.h"

#include <array>

// Keys and mouse buttons as messages, through the queue, as the user's come.
namespace vandrel::test {

// A key that is down while messages are posted and answered.
class HeldKey {
  public:
    explicit HeldKey(int key)
    {
        GetKeyboardState(before_.data());
        auto now = before_;
        now[static_cast<std::size_t>(key)] = 0x80;
        SetKeyboardState(now.data());
    }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;
    ~HeldKey() { SetKeyboardState(before_.data()); }

  private:
    std::array<BYTE, 256> before_{};
};

inline void typeKey(HWND window, int key)
{
    PostMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    PostMessageW(window, WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001U));
    pump();
}

inline void leftClickAt(HWND window, POINT point, WPARAM keys = 0)
{
    const LPARAM place = MAKELPARAM(point.x, point.y);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, place);
    PostMessageW(window, WM_LBUTTONUP, keys, place);
    pump();
}

inline void rightClickAt(HWND window, POINT point)
{
    PostMessageW(window, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(point.x, point.y));
    PostMessageW(window, WM_RBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    pump();
}

} // namespace vandrel::test
