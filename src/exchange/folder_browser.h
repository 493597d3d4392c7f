#pragma once

#include <windows.h>

#include <string>

namespace vandrel::Module1 {

// Shows the system's folder browser. Returns the chosen folder, with a trailing backslash only if it is the
// root of a drive; empty if the user cancels or chooses something that is not a folder of the file system.
std::wstring BrowseForFolder(HWND owner, const std::wstring& title);

} // namespace vandrel::Module1
