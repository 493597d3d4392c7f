#pragma once

#include "platform/base/handle.h"

#include <windows.h>

namespace vandrel {

// The DPI at which the system draws the frame and the title bar of a window that is at `dpi`. Only with the
// second version of awareness for each monitor, new in version 1703 of Windows 10, is it the same.
unsigned frameDpi(DPI_AWARENESS_CONTEXT awareness, unsigned dpi);

// The program's icon in a window's title bar, in the taskbar and where windows are switched.
class TitleIcons {
  public:
    // Loads the icon in the sizes for a window at that DPI. The icons are freed with the object.
    void showIn(HWND window, unsigned dpi);

  private:
    IconHandle large_;
    IconHandle small_;
};

} // namespace vandrel
