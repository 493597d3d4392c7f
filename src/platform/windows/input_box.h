#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// Asks the user for a text; empty if cancelled.
std::wstring inputBox(HWND owner, const std::wstring& prompt, const std::wstring& title);

} // namespace vandrel
