#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

inline std::wstring currentDirectory()
{
    std::wstring path(GetCurrentDirectoryW(0, nullptr), L'\0'); // with room for the NUL
    path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
    return path;
}

// Restores the current directory of the process at the end of its life. The system's dialogs change it to the
// folder that they show: GetOpenFileName does so in spite of OFN_NOCHANGEDIR, and extensions of the shell may.
class CurrentDirectoryKept {
  public:
    CurrentDirectoryKept() = default;
    CurrentDirectoryKept(const CurrentDirectoryKept&) = delete;
    CurrentDirectoryKept& operator=(const CurrentDirectoryKept&) = delete;
    ~CurrentDirectoryKept() { SetCurrentDirectoryW(path_.c_str()); }

  private:
    std::wstring path_ = currentDirectory();
};

} // namespace vandrel
