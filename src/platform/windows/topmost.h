#pragma once

#include <windows.h>

namespace vandrel {

// Puts a window into the topmost layer or takes it out; position, size and the active window do not change.
// The windows that it owns go with it.
// Contract: an owned window made topmost by a call of its own stays so when its owner is not.
void setTopmost(HWND window, bool on) noexcept;

bool isTopmost(HWND window);

} // namespace vandrel
