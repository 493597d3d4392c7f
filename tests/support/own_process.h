#pragma once

#include "platform/base/handle.h"
#include "tests/support/temp_folder.h"
#include "tests/support/wine.h"

#include <windows.h>

#include <optional>
#include <string>

namespace vandrel::test {

inline std::optional<std::wstring> environmentText(const wchar_t* name)
{
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    if (value.empty()) return std::nullopt;
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

// A second process of this test program, which runs a part of the current test; its task is in the
// environment variable. Under Wine its windows are on a hidden desktop: asking the display and the window
// manager about each of them would take most of the time.
class OwnProcess {
  public:
    OwnProcess(const wchar_t* variable, const std::wstring& value, const std::string& filter)
    {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        const FileHandle output(CreateFileW(folder_.file(L"output").c_str(), GENERIC_WRITE,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, CREATE_ALWAYS,
                                            FILE_ATTRIBUTE_NORMAL, nullptr));
        std::wstring program(MAX_PATH, L'\0');
        program.resize(GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
        std::wstring line = L"\"" + program + L"\" --gtest_filter=" +
                            std::wstring(filter.begin(), filter.end());
        std::wstring desktop = L"VandrelUnseen\\Default";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = startup.hStdError = output.get();
        if (runsUnderWine()) startup.lpDesktop = desktop.data();
        SetEnvironmentVariableW(variable, value.c_str());
        PROCESS_INFORMATION started{};
        if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                           &startup, &started) != 0) {
            CloseHandle(started.hThread);
            process_ = started.hProcess;
        }
        SetEnvironmentVariableW(variable, nullptr);
    }
    OwnProcess(const OwnProcess&) = delete;
    OwnProcess& operator=(const OwnProcess&) = delete;
    ~OwnProcess()
    {
        if (process_ == nullptr) return;
        TerminateProcess(process_, 1);
        WaitForSingleObject(process_, INFINITE); // before its folder is removed
        CloseHandle(process_);
    }

    // Null when it could not be started.
    HANDLE handle() const { return process_; }
    bool succeeded() const
    {
        DWORD code = 1;
        return process_ != nullptr && GetExitCodeProcess(process_, &code) != 0 && code == 0;
    }
    std::string output() const { return folder_.read(L"output"); }

  private:
    TempFolder folder_{L"own process"};
    HANDLE process_ = nullptr;
};

} // namespace vandrel::test
