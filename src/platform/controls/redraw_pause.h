#pragma once

#include <windows.h>

namespace vandrel {

// Suspends painting of the control for as long as it lives, then paints it once.
class RedrawPause {
  public:
    explicit RedrawPause(HWND window) : window_(window) { SendMessageW(window_, WM_SETREDRAW, FALSE, 0); }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;
    ~RedrawPause()
    {
        SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(window_, nullptr, FALSE);
    }

  private:
    HWND window_;
};

} // namespace vandrel
