#pragma once

#include "platform/windows/topmost.h"

namespace vandrel {

// The main window and its keep-on-top flag.
struct KeepOnTop {
    HWND window = nullptr;
    int flag = 0; // 1 while the window is kept in the topmost layer
};

// Takes the window out of the topmost layer while a dialog is shown, so that it never covers the dialog.
class TopmostPause {
  public:
    explicit TopmostPause(const KeepOnTop& keepOnTop) : keepOnTop_(keepOnTop)
    {
        if (keepOnTop_.flag == 1) setTopmost(keepOnTop_.window, false);
    }
    TopmostPause(const TopmostPause&) = delete;
    TopmostPause& operator=(const TopmostPause&) = delete;
    ~TopmostPause()
    {
        if (keepOnTop_.flag == 1) setTopmost(keepOnTop_.window, true);
    }

  private:
    const KeepOnTop& keepOnTop_;
};

} // namespace vandrel
