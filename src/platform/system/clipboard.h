#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// Clears the clipboard and puts the text on it, and nothing else. While another program has the clipboard
// open it tries again for half a second. Throws RuntimeError 521 when that does not help.
void setClipboardText(HWND owner, const std::wstring& text);

} // namespace vandrel
