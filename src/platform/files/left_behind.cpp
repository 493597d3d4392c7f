#include "platform/files/left_behind.h"

#include "platform/base/handle.h"
#include "platform/files/file_steps.h"
#include "platform/files/folder.h"

#include <cwchar>
#include <optional>

namespace vandrel {
namespace {

constexpr std::wstring_view prefix = L"vandrel-";
constexpr std::wstring_view extension = L".tmp";

std::wstring temporaryNameOf(DWORD process)
{
    return std::wstring(prefix) + std::to_wstring(process) + std::wstring(extension);
}

// No value for a name that the program never gives: the file belongs to somebody else.
std::optional<DWORD> processOfName(const std::wstring& name)
{
    if (!name.starts_with(prefix) || !name.ends_with(extension)) return std::nullopt;
    const DWORD process = std::wcstoul(name.c_str() + prefix.size(), nullptr, 10);
    return process != 0 && name == temporaryNameOf(process) ? std::optional(process) : std::nullopt;
}

std::wstring numberedNameOf(DWORD process, std::size_t number)
{
    return std::wstring(prefix) + std::to_wstring(process) + L"-" + std::to_wstring(number) +
           std::wstring(extension);
}

std::optional<DWORD> processOfNumberedName(const std::wstring& name)
{
    const std::size_t hyphen = name.find(L'-', prefix.size());
    if (!name.starts_with(prefix) || hyphen == std::wstring::npos) return std::nullopt;
    const DWORD process = std::wcstoul(name.c_str() + prefix.size(), nullptr, 10);
    const std::size_t number = std::wcstoul(name.c_str() + hyphen + 1, nullptr, 10);
    return process != 0 && name == numberedNameOf(process, number) ? std::optional(process) : std::nullopt;
}

bool hasEnded(DWORD process)
{
    if (process == GetCurrentProcessId()) return true; // left by an earlier process with this id
    using ProcessHandle = UniqueHandle<HANDLE, CloseHandle, nullHandle<HANDLE>>;
    const ProcessHandle running(OpenProcess(SYNCHRONIZE, FALSE, process));
    if (!running) return GetLastError() == ERROR_INVALID_PARAMETER; // no such process
    return WaitForSingleObject(running.get(), 0) == WAIT_OBJECT_0;
}

} // namespace

std::wstring temporaryFileBeside(const std::wstring& path)
{
    // Does not contain the name of the file, which may already be as long as a name can be.
    return path.substr(0, path.find_last_of(L"\\/") + 1) + temporaryNameOf(GetCurrentProcessId());
}

std::wstring temporaryFileIn(const std::wstring& folder, std::size_t number)
{
    return folder + L"\\" + numberedNameOf(GetCurrentProcessId(), number);
}

std::vector<std::wstring> leftBehindIn(const std::wstring& folder)
{
    std::vector<std::wstring> left;
    for (const std::wstring& name : fileNamesIn(folder, L"vandrel-*.tmp")) {
        const auto single = processOfName(name);
        const auto process = single ? single : processOfNumberedName(name);
        if (process && hasEnded(*process) && !isHeld(extendedPath(folder + L"\\" + name)))
            left.push_back(name);
    }
    return left;
}

void removeLeftBehind(const std::wstring& folder, FileLayer& files)
{
    for (const std::wstring& name : fileNamesIn(folder, L"vandrel-*.tmp")) {
        const auto process = processOfName(name);
        const std::wstring path = extendedPath(folder + L"\\" + name);
        if (!process || !hasEnded(*process) || isHeld(path)) continue;
        if (!files.remove(path) && files.clearAttributes(path))
            files.remove(path); // a copy of a read-only file
    }
}

} // namespace vandrel
