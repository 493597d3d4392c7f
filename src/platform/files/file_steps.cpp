#include "platform/files/file_steps.h"

#include "platform/base/handle.h"
#include "platform/base/runtime_error.h"

#include <algorithm>

namespace vandrel {

bool writeBytes(FileLayer& files, HANDLE file, std::string_view bytes)
{
    constexpr std::size_t mostAtOnce = 64U << 20;
    for (std::size_t done = 0; done < bytes.size();) {
        const std::size_t count = std::min(mostAtOnce, bytes.size() - done);
        if (!files.write(file, bytes.data() + done, static_cast<DWORD>(count))) return false;
        done += count;
    }
    return true;
}

bool meansHeld(DWORD reason) { return reason == ERROR_SHARING_VIOLATION || reason == ERROR_LOCK_VIOLATION; }

bool isHeld(const std::wstring& path)
{
    const DWORD lastError = GetLastError();
    const FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    const bool held = !file && meansHeld(GetLastError());
    SetLastError(lastError);
    return held;
}

void requireReplaceable(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY))) {
        throw RuntimeError(error_number::pathFileAccess);
    }
}

} // namespace vandrel
