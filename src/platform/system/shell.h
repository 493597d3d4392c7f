#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// Opens an address or a file with whatever the user has chosen for it.
// Contract: a failure is not reported.
void shellOpen(HWND owner, const std::wstring& target);

// Starts a program in a normal window with the focus; the system parses the command line. Throws
// RuntimeError if the program cannot be started.
void startProgram(const std::wstring& commandLine);

} // namespace vandrel
