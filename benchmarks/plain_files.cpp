#include "benchmarks/plain_files.h"

#include <windows.h>
#include <psapi.h>

#include <cstdio>

namespace vandrel::bench {

std::wstring currentFolder()
{
    wchar_t path[MAX_PATH + 1]{};
    GetCurrentDirectoryW(MAX_PATH, path);
    return path;
}

void writeFile(const wchar_t* name, const std::string& bytes)
{
    FILE* const file = _wfopen(name, L"wb");
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
}

std::string readWhole(const wchar_t* name)
{
    const HANDLE file = CreateFileW(name, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD got = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr);
    CloseHandle(file);
    return bytes;
}

std::wstring decodePlainly(const std::string& bytes)
{
    const int size = static_cast<int>(bytes.size());
    std::wstring text(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), static_cast<int>(text.size()));
    return text;
}

void writePlainly(const wchar_t* name, const std::wstring& text)
{
    const int size = static_cast<int>(text.size());
    std::string bytes(static_cast<std::size_t>(
                          WideCharToMultiByte(CP_ACP, 0, text.data(), size, nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), size, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    const HANDLE file = CreateFileW(name, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    FlushFileBuffers(file);
    CloseHandle(file);
}

double memoryInUse()
{
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.WorkingSetSize);
}

} // namespace vandrel::bench
