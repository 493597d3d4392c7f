#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// Asks for a text. Cancelling answers with the empty text.
std::wstring inputBox(HWND owner, const std::wstring& prompt, const std::wstring& title);

} // namespace vandrel
