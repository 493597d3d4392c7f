#pragma once

#include <windows.h>

namespace vandrel {

// Puts a window into the topmost layer or takes it out; place and size stay.
void setTopmost(HWND window, bool on);

bool isTopmost(HWND window);

} // namespace vandrel
