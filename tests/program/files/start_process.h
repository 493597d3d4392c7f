#pragma once

#include <windows.h>

#include <string>

namespace vandrel::test {

// Tests that run beside this one change the drives of the same Windows, so for a moment a program may not be
// found. False when it cannot be started within the limit. With standard streams it inherits the handles that can
// be. `folder` is its current directory, or this process's.
inline bool startProcess(std::wstring line, STARTUPINFOW& startup, PROCESS_INFORMATION& started,
                         DWORD limitMilliseconds, DWORD flags = 0, const wchar_t* folder = nullptr)
{
    const ULONGLONG deadline = GetTickCount64() + limitMilliseconds;
    const BOOL inherits = (startup.dwFlags & STARTF_USESTDHANDLES) != 0 ? TRUE : FALSE;
    while (CreateProcessW(nullptr, line.data(), nullptr, nullptr, inherits, flags, nullptr, folder, &startup,
                          &started) == 0) {
        if (GetTickCount64() >= deadline) return false;
        Sleep(20);
    }
    return true;
}

} // namespace vandrel::test
