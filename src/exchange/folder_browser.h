#pragma once

#include <windows.h>

#include <string>

namespace vandrel::Module1 {

// Shows the system's folder browser. Returns the chosen folder, with a backslash at its end only where it is
// the root of a drive; empty when the user cancels or chooses what is no folder of the file system.
std::wstring BrowseForFolder(HWND owner, const std::wstring& title);

} // namespace vandrel::Module1
