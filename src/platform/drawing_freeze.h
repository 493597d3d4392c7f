#pragma once

#include <windows.h>

namespace vandrel {

// Nothing of the window is drawn while this lives. One window of the whole desktop can be frozen at a time, so
// never hold it across anything that waits.
class DrawingFreeze {
  public:
    explicit DrawingFreeze(HWND window) { LockWindowUpdate(window); }
    DrawingFreeze(const DrawingFreeze&) = delete;
    DrawingFreeze& operator=(const DrawingFreeze&) = delete;
    ~DrawingFreeze() { LockWindowUpdate(nullptr); }
};

} // namespace vandrel
