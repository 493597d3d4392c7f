#include "platform/ansi_text_file.h"

#include "platform/ansi_text.h"
#include "platform/file_layer.h"
#include "platform/handle.h"
#include "platform/system_error.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr ULONGLONG patienceMilliseconds = 500;
constexpr DWORD pauseMilliseconds = 25;

FileHandle openForReading(const std::wstring& path)
{
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const ULONGLONG deadline = GetTickCount64() + patienceMilliseconds;
    while (true) {
        FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
        if (file) return file;
        if (GetLastError() != ERROR_SHARING_VIOLATION || GetTickCount64() >= deadline) raiseLastError();
        Sleep(pauseMilliseconds);
    }
}

} // namespace

std::wstring AnsiTextFile::read() const
{
    constexpr std::size_t mostAtOnce = 256U << 20;
    const FileHandle file = openForReading(extendedPath(path_));
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size)) raiseLastError();
    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    std::size_t done = 0;
    while (done < bytes.size()) {
        DWORD got = 0;
        const auto wanted = static_cast<DWORD>(std::min(mostAtOnce, bytes.size() - done));
        if (!ReadFile(file.get(), bytes.data() + done, wanted, &got, nullptr)) raiseLastError();
        if (got == 0) break; // it became shorter meanwhile
        done += got;
    }
    bytes.resize(done);
    return decodeAnsi(bytes);
}

void AnsiTextFile::write(const std::string& bytes) const { replaceFile(path_, bytes); }

void AnsiTextFile::write(const std::string& bytes, FileLayer& files) const
{
    replaceFile(path_, bytes, files);
}

} // namespace vandrel
