#pragma once

#include <windows.h>

#include <string>

// What can be seen of another program's windows without asking the program.
namespace vandrel::test {

inline constexpr int fileNameId = 1148; // of the system's dialog for files

// The text with "?" for all but printable ASCII.
std::string narrow(const std::wstring& text);
// For failure messages.
std::string described(HWND window);

// Whether a dialog of the system shows files or folders, which typing and dragging there may move.
bool showsFiles(HWND dialog);
bool isMessageBox(HWND dialog);
// The menu and the focus of the window's thread.
GUITHREADINFO inputOf(HWND window);
// The frontmost window of the thread that takes input.
HWND frontWindowOf(HWND programWindow);
// Whether both windows belong to one process.
bool isOf(HWND window, HWND programWindow);

} // namespace vandrel::test
