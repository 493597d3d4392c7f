#pragma once

#include <windows.h>

namespace vandrel {

// Nothing of the window is drawn while this lives, and all of it after: what moved its contents meanwhile
// took old pixels along. One window of the whole desktop can be frozen at a time, so never hold it across
// anything that waits.
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
