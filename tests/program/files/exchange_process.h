#pragma once

#include "platform/base/handle.h"
#include "tests/program/files/start_process.h"
#include "tests/program/support/program_files.h"
#include "tests/support/temp_folder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace vandrel::test {

struct ProgramRun {
    DWORD status = 99;
    std::string output;
    std::string errors;
};

// Runs a program with this command line, in a folder of its own, until it ends. `flags` are those of
// CreateProcess.
inline ProgramRun runProgram(const std::wstring& program, const std::wstring& arguments, DWORD flags = 0)
{
    constexpr DWORD runLimitMilliseconds = 60'000;
    const TempFolder streams(L"streams");
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const auto stream = [&](const wchar_t* name) {
        return FileHandle(CreateFileW(streams.file(name).c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                      CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    };
    FileHandle output = stream(L"output");
    FileHandle errors = stream(L"errors");
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output.get();
    startup.hStdError = errors.get();
    PROCESS_INFORMATION started{};
    ProgramRun result;
    if (!startProcess(L"\"" + program + L"\" " + arguments, startup, started, runLimitMilliseconds, flags,
                      streams.path().c_str())) {
        ADD_FAILURE() << "not started: error " << GetLastError();
        return result;
    }
    if (WaitForSingleObject(started.hProcess, runLimitMilliseconds) != WAIT_OBJECT_0) {
        ADD_FAILURE() << "still running after a minute";
        TerminateProcess(started.hProcess, 98);
    }
    GetExitCodeProcess(started.hProcess, &result.status);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    output.reset();
    errors.reset();
    result.output = streams.read(L"output");
    result.errors = streams.read(L"errors");
    return result;
}

inline std::wstring exchangeProgram() { return nativePath(VANDREL_EXCHANGE); }

// VandrelExchange.exe.
inline ProgramRun runExchange(const std::wstring& arguments)
{
    return runProgram(exchangeProgram(), arguments);
}

inline std::wstring inFolder(const TempFolder& folder) { return L" --folder \"" + folder.path() + L"\""; }

inline ProgramRun runImport(const std::wstring& page, const TempFolder& folder)
{
    return runExchange(L"import \"" + page + L"\"" + inFolder(folder));
}

} // namespace vandrel::test
