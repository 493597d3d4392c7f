#pragma once

#include <windows.h>

namespace vandrel::bench {

// Fills the window with controls like those of the program's main window, made and placed in the plainest way.
void makeBareControls(HWND window);

} // namespace vandrel::bench
