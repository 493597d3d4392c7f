#pragma once

#include <windows.h>

namespace vandrel::Off2000 {

// Gives the window the thin sunken edge.
void addStaticEdge(HWND window);

// The same, and 1 is added to the style: the edge of a dialog where the window has none, and the next bit of
// the style where it has one already.
void addStaticAndDialogEdge(HWND window);

} // namespace vandrel::Off2000
