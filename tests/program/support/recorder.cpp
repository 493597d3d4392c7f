// Stands in for the programs that the system would start, such as a web browser: appends its whole command
// line, as UTF-8 and with a line end, to the file that the environment variable VANDREL_RECORD names.

#include <windows.h>

#include <string>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int)
{
    std::wstring path(GetEnvironmentVariableW(L"VANDREL_RECORD", nullptr, 0), L'\0');
    if (path.empty()) return 2;
    path.resize(GetEnvironmentVariableW(L"VANDREL_RECORD", path.data(), static_cast<DWORD>(path.size())));

    const std::wstring line = std::wstring(GetCommandLineW()) + L"\n";
    const int size = static_cast<int>(line.size());
    std::string bytes(static_cast<std::size_t>(
                          WideCharToMultiByte(CP_UTF8, 0, line.data(), size, nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(CP_UTF8, 0, line.data(), size, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);

    const HANDLE file = CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return 3;
    DWORD written = 0; // in one call, so that two recorders do not mix their lines
    const BOOL success = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    return success ? 0 : 4;
}
