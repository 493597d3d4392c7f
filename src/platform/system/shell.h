#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// Hands an address or a file to whatever the user opens such things with. That it cannot be opened is not
// reported.
void shellOpen(HWND owner, const std::wstring& target);

// Starts a program in a normal window with the focus; the command line is the system's to take apart. Throws
// RuntimeError when the program cannot be started.
void startProgram(const std::wstring& commandLine);

} // namespace vandrel
