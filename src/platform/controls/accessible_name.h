#pragma once

#include <windows.h>

namespace vandrel {

// Tells screen readers the name of a window whose text they do not take for its name, or which has none.
// Without effect where the system has no such service, or COM is not initialised.
void setNameForReaders(HWND window, const wchar_t* name) noexcept;

// To be called before a window with such a name is destroyed.
void dropNameForReaders(HWND window) noexcept;

} // namespace vandrel
