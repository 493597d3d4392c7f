#pragma once

#include <windows.h>

#include <cstddef>

namespace vandrel {

// Users run the program on Windows; Wine is only its test bench. Whatever is done for Wine alone is in this
// file and wine.cpp, with the version of Wine that needs it, and has no effect on Windows.

// Also false while a WineDisregarded lives.
bool runningUnderWine() noexcept;

// Wine 8.0: moving a window into the topmost layer, or out of it, moves the windows that it owns (tool tips,
// dialogs) but not the window itself. This moves all of them to `layer`, HWND_TOPMOST or HWND_NOTOPMOST, and
// keeps the active window.
void putInLayerUnderWine(HWND window, HWND layer) noexcept;

// Wine 8.0: selecting thousands of rows of a list one by one takes seconds while the list is painted, so it is
// not painted during a press with the Shift key. On Windows the control waits for the release during a press.
bool pausesPressesUnderWine() noexcept;

// Wine 8.0: a row of a list that is selected beside a selected one takes longer the more blocks of selected rows there
// are. How many rows could be selected in the time that this adds, if `rows` rows in `blocks` blocks are selected one
// by one.
std::size_t callsLostToBlocksUnderWine(std::size_t rows, std::size_t blocks) noexcept;

// For tests: while one lives, the program behaves as on Windows.
class WineDisregarded {
  public:
    WineDisregarded() noexcept;
    WineDisregarded(const WineDisregarded&) = delete;
    WineDisregarded& operator=(const WineDisregarded&) = delete;
    ~WineDisregarded();
};

} // namespace vandrel
