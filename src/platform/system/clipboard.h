#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// Replaces what is on the clipboard with the text. Retries for half a second while another program has the
// clipboard open; throws RuntimeError 521 if that does not help.
void setClipboardText(HWND owner, const std::wstring& text);

} // namespace vandrel
