#pragma once

#include <windows.h>

namespace vandrel {

// Puts a window into the topmost layer or takes it out; place, size and the active window stay. The windows
// that it owns go along, those excepted that were put there by a call of their own.
void setTopmost(HWND window, bool on) noexcept;

bool isTopmost(HWND window);

} // namespace vandrel
