#include "platform/system/shell.h"

#include "platform/base/handle.h"
#include "platform/base/system_error.h"

#include <shellapi.h>

namespace vandrel {

void shellOpen(HWND owner, const std::wstring& target)
{
    ShellExecuteW(owner, L"open", target.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

void startProgram(const std::wstring& commandLine)
{
    std::wstring writable = commandLine; // CreateProcess may modify it
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION started{};
    if (CreateProcessW(nullptr, writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &started) == 0) {
        raiseLastError();
    }
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
}

} // namespace vandrel
