#pragma once

#include <windows.h>

#include <string>

// What can be seen of another program's windows without asking the program.
namespace vandrel::test {

inline constexpr int fileNameId = 1148; // of the system's dialog for files

// What of a text can be printed everywhere.
std::string narrow(const std::wstring& text);
// For the message of a failure.
std::string described(HWND window);

// A dialog of the system that shows files or folders: what is typed or dragged there may move them.
bool showsFiles(HWND dialog);
bool isMessageBox(HWND dialog);
// The menu and the focus of the window's thread.
GUITHREADINFO inputOf(HWND window);
// The foremost window of the thread that takes input.
HWND frontWindowOf(HWND programWindow);
// Whether both are of one process.
bool isOf(HWND window, HWND programWindow);

} // namespace vandrel::test
