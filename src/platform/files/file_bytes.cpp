#include "platform/files/file_bytes.h"

#include "platform/base/system_error.h"
#include "platform/base/tick_clock.h"
#include "platform/files/file_layer.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr ULONGLONG retryMilliseconds = 500;
constexpr DWORD pauseMilliseconds = 25;
constexpr std::size_t mostAtOnce = 64U << 20; // bytes

// Returns how many there were: the file may have become shorter meanwhile.
std::size_t readInto(const FileHandle& file, char* bytes, std::size_t size)
{
    std::size_t done = 0;
    DWORD got = 0;
    do {
        const auto wanted = static_cast<DWORD>(std::min(mostAtOnce, size - done));
        if (!ReadFile(file.get(), bytes + done, wanted, &got, nullptr)) raiseLastError();
        done += got;
    } while (got > 0 && done < size);
    return done;
}

} // namespace

FileHandle openForReading(const std::wstring& path)
{
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const std::wstring extended = extendedPath(path);
    const RetryTime time(retryMilliseconds, pauseMilliseconds);
    while (true) {
        FileHandle file(CreateFileW(extended.c_str(), GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
        if (file) return file;
        if (GetLastError() != ERROR_SHARING_VIOLATION || time.isOver()) raiseLastError();
        time.pause();
    }
}

std::size_t fileSize(const FileHandle& file)
{
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size)) raiseLastError();
    return static_cast<std::size_t>(size.QuadPart);
}

std::optional<std::string> fileBytes(const std::wstring& path)
{
    if (!fileExists(path)) return std::nullopt;
    const FileHandle file = openForReading(path);
    std::string bytes(fileSize(file), '\0');
    bytes.resize(readInto(file, bytes.data(), bytes.size()));
    return bytes;
}

std::string_view FileBytes::read(const std::wstring& path)
{
    const FileHandle file = openForReading(path);
    const std::size_t size = fileSize(file);
    if (size > room_) {
        room_ = 0;
        bytes_.reset(); // first, so that both never are in memory
        bytes_ = std::make_unique_for_overwrite<char[]>(size);
        room_ = size;
    }
    return {bytes_.get(), readInto(file, bytes_.get(), size)};
}

} // namespace vandrel
