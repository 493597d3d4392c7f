#pragma once

#include <windows.h>

namespace vandrel {

// Suspends drawing in the window for as long as it lives. Afterwards the system repaints what would have been
// drawn, and nothing else. Only one window on the desktop can be frozen at a time, so never hold this across
// anything that waits.
// Contract: the layout freezes drawing with LockWindowUpdate.
class DrawingFreeze {
  public:
    explicit DrawingFreeze(HWND window) { LockWindowUpdate(window); }
    DrawingFreeze(const DrawingFreeze&) = delete;
    DrawingFreeze& operator=(const DrawingFreeze&) = delete;
    ~DrawingFreeze() { LockWindowUpdate(nullptr); }
};

} // namespace vandrel
