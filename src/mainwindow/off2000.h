#pragma once

#include <windows.h>

namespace vandrel::Off2000 {

// Gives the window the thin sunken edge.
void addStaticEdge(HWND window);

} // namespace vandrel::Off2000
