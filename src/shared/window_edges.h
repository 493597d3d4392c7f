#pragma once

#include <windows.h>

namespace vandrel::Off2000 {

// Gives the window the thin sunken edge.
void addStaticEdge(HWND window);

// The same, with 1 added to the style: this sets WS_EX_DLGMODALFRAME if it was clear, and carries into the
// next bit if it was set.
void addStaticAndDialogEdge(HWND window);

} // namespace vandrel::Off2000
