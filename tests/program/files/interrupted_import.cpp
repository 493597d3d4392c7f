// Imports a page with VandrelExchange.exe and presses Ctrl+C in its console as soon as it has begun to write;
// see interrupted_import_test.cpp.
//   interrupted_import KEY VANDRELEXCHANGE PAGE FOLDER
// KEY is c or break. To be started in a console of its own: the key reaches every program in it. Returns the exit
// status of VandrelExchange.exe, or one of key_status.h.

#include "platform/base/handle.h"
#include "tests/program/files/key_status.h"
#include "tests/program/files/start_process.h"

#include <windows.h>

#include <string>

namespace {

using namespace vandrel::test;

constexpr DWORD limitMilliseconds = 30'000;

BOOL WINAPI leaveItToTheOther(DWORD) { return TRUE; }

bool hasBegunToWrite(const std::wstring& folder)
{
    WIN32_FIND_DATAW found{};
    return static_cast<bool>(
        vandrel::FindHandle(FindFirstFileW((folder + L"\\vandrel-*.tmp").c_str(), &found)));
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc != 5) return key_status::notStarted;
    const bool isBreak = std::wstring(argv[1]) == L"break";
    const std::wstring folder = argv[4];
    const std::wstring line = L"\"" + std::wstring(argv[2]) + L"\" import \"" + argv[3] + L"\" --folder \"" +
                              folder + L"\"";
    // A build server may start its work in such a way that Ctrl+C is ignored, which is inherited.
    SetConsoleCtrlHandler(nullptr, FALSE);
    SetConsoleCtrlHandler(leaveItToTheOther, TRUE);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started{};
    if (!startProcess(line, startup, started, limitMilliseconds)) return key_status::notStarted;
    while (!hasBegunToWrite(folder) && WaitForSingleObject(started.hProcess, 1) == WAIT_TIMEOUT) {}
    const bool pressed = GenerateConsoleCtrlEvent(isBreak ? CTRL_BREAK_EVENT : CTRL_C_EVENT, 0) != 0;
    if (!pressed) TerminateProcess(started.hProcess, key_status::notPressed);
    DWORD status = key_status::notEnded;
    if (WaitForSingleObject(started.hProcess, limitMilliseconds) == WAIT_OBJECT_0)
        GetExitCodeProcess(started.hProcess, &status);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return static_cast<int>(status);
}
