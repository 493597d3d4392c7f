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
