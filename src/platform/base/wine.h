#pragma once

#include <windows.h>

namespace vandrel {

// Windows is what the program runs on, and Wine what it is tried on. Whatever is done for Wine's sake alone
// stands in this file and the one beside it, with the version of Wine that needs it, and does not run on
// Windows.

// Asks once whether the system's core library is Wine's.
bool runningUnderWine() noexcept;

// Wine 8.0: a move into the topmost layer, or out of it, moves the windows that a window owns (tool tips,
// dialogs) and leaves the window itself where it was. `layer` is HWND_TOPMOST or HWND_NOTOPMOST; all of them
// go there, and the active window stays.
void putInLayerUnderWine(HWND window, HWND layer) noexcept;

// Wine 8.0: selecting thousands of rows of a list one by one takes seconds while the list is painted, so it is
// not for the time of a press with the Shift key. On Windows the control waits for the release meanwhile.
bool pausesPressesUnderWine() noexcept;

// While one lives, the program does what it does on Windows. For tests.
class WineDisregarded {
  public:
    WineDisregarded() noexcept;
    WineDisregarded(const WineDisregarded&) = delete;
    WineDisregarded& operator=(const WineDisregarded&) = delete;
    ~WineDisregarded();
};

} // namespace vandrel
