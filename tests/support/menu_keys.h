#pragma once

#include "tests/support/answers.h"

#include <initializer_list>
#include <vector>

namespace vandrel::test {

// Types keys into the pop-up menu that the code under test opens, as soon as it is open. Create it before.
class MenuKeys {
  public:
    MenuKeys(HWND owner, std::initializer_list<int> keys) : owner_(owner), keys_(keys)
    {
        active() = this;
        timer_ = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { active()->look(); });
    }
    MenuKeys(const MenuKeys&) = delete;
    MenuKeys& operator=(const MenuKeys&) = delete;
    ~MenuKeys()
    {
        KillTimer(nullptr, timer_);
        pump(); // keys that the menu has not taken
    }

  private:
    static MenuKeys*& active()
    {
        static MenuKeys* keys = nullptr;
        return keys;
    }
    void look()
    {
        GUITHREADINFO state{};
        state.cbSize = sizeof state;
        if (!GetGUIThreadInfo(GetCurrentThreadId(), &state) || (state.flags & GUI_INMENUMODE) == 0) return;
        KillTimer(nullptr, timer_);
        for (const int key : keys_) PostMessageW(owner_, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    }

    HWND owner_;
    std::vector<int> keys_;
    UINT_PTR timer_ = 0;
};

} // namespace vandrel::test
