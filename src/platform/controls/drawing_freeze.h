#pragma once

#include <windows.h>

namespace vandrel {

// Suspends drawing in the window for as long as it lives, then redraws all of it, because contents that
// moved have taken stale pixels along. Only one window on the desktop can be frozen at a time, so never hold
// this across anything that waits.
// Contract: the layout freezes drawing with LockWindowUpdate.
class DrawingFreeze {
  public:
    explicit DrawingFreeze(HWND window) : window_(window) { LockWindowUpdate(window); }
    DrawingFreeze(const DrawingFreeze&) = delete;
    DrawingFreeze& operator=(const DrawingFreeze&) = delete;
    ~DrawingFreeze()
    {
        LockWindowUpdate(nullptr);
        RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    }

  private:
    HWND window_;
};

} // namespace vandrel
