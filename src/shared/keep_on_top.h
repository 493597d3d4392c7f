#pragma once

#include "platform/windows/topmost.h"

namespace vandrel {

// The keep-on-top flag of the main window, and the window it is about.
struct KeepOnTop {
    HWND window = nullptr;
    int flag = 0; // 1 while the window is kept in the topmost layer
};

// While a dialog shows, its owner is no topmost window, so that it never covers the dialog.
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
