#pragma once

#include <windows.h>

#include <string>

namespace vandrel::test {

// Tests that run beside this one change the drives of the same Windows, so for a moment a program may not be
// found. False when it cannot be started within the limit.
inline bool startProcess(std::wstring line, STARTUPINFOW& startup, PROCESS_INFORMATION& started,
                         DWORD limitMilliseconds)
{
    const ULONGLONG deadline = GetTickCount64() + limitMilliseconds;
    while (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                          &started) == 0) {
        if (GetTickCount64() >= deadline) return false;
        Sleep(20);
    }
    return true;
}

} // namespace vandrel::test
