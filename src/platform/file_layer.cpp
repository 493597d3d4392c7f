#include "platform/file_layer.h"

#include "platform/handle.h"
#include "platform/system_error.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <vector>

namespace vandrel {
namespace {

constexpr ULONGLONG patienceMilliseconds = 2000;
constexpr DWORD pauseMilliseconds = 25;

constexpr DWORD keptAttributes = FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                 FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

bool copyAccessRights(const std::wstring& original, const std::wstring& copy)
{
    DWORD size = 0;
    GetFileSecurityW(original.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    // A file system without access rights has none to keep.
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return true;
    std::vector<BYTE> descriptor(size);
    if (!GetFileSecurityW(original.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(), size, &size))
        return false;
    return SetFileSecurityW(copy.c_str(), DACL_SECURITY_INFORMATION, descriptor.data()) != 0;
}

// Runs `attempt` until it succeeds or what stops it does not pass by itself.
template <typename Attempt> bool withPatience(const std::wstring& path, Attempt attempt)
{
    const ULONGLONG deadline = GetTickCount64() + patienceMilliseconds;
    while (!attempt()) {
        const DWORD reason = GetLastError();
        const bool held = reason == ERROR_SHARING_VIOLATION || reason == ERROR_LOCK_VIOLATION;
        // Replacing a file that is open elsewhere is refused as a lack of access; so is replacing a folder, which
        // no waiting mends.
        const DWORD attributes = GetFileAttributesW(path.c_str());
        const bool refused = reason == ERROR_ACCESS_DENIED && attributes != INVALID_FILE_ATTRIBUTES &&
                             (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) == 0;
        SetLastError(reason);
        if ((!held && !refused) || GetTickCount64() >= deadline) return false;
        Sleep(pauseMilliseconds);
    }
    return true;
}

// The file that is written beside the one to be saved. One name for each process, so that two running copies of
// the program never write into the same one.
std::wstring siblingOf(const std::wstring& path)
{
    // Not made from the name of the file, which may be as long as a name can be.
    const std::size_t name = path.find_last_of(L"\\/") + 1;
    return path.substr(0, name) + L"vandrel-" + std::to_wstring(GetCurrentProcessId()) + L".tmp";
}

bool writePart(FileLayer& files, HANDLE file, std::string_view bytes)
{
    constexpr std::size_t mostAtOnce = 64U << 20;
    for (std::size_t done = 0; done < bytes.size();) {
        const std::size_t count = std::min(mostAtOnce, bytes.size() - done);
        if (!files.write(file, bytes.data() + done, static_cast<DWORD>(count))) return false;
        done += count;
    }
    return true;
}

bool writeSibling(FileLayer& files, const std::wstring& path, const WriteContents& contents)
{
    const HANDLE file = files.createForWriting(path);
    if (file == INVALID_HANDLE_VALUE) return false;
    // Taken at once: what composes the contents goes on after a part was refused, and may change the last error.
    DWORD reason = ERROR_SUCCESS;
    const auto noted = [&](bool done) {
        if (!done) reason = GetLastError();
        return done;
    };
    const WritePart write = [&](std::string_view bytes) { return noted(writePart(files, file, bytes)); };
    bool written = false;
    try {
        written = contents(write) && noted(files.flush(file));
    } catch (...) {
        files.close(file);
        files.remove(path);
        throw;
    }
    const bool closed = files.close(file);
    if (!written) SetLastError(reason);
    return written && closed;
}

// A move over a file would go past its read-only mark, and so would some systems that write into it.
void requireReplaceable(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY))) {
        throw RuntimeError(error_number::pathFileAccess);
    }
}

} // namespace

HANDLE FileLayer::createForWriting(const std::wstring& path)
{
    return CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

bool FileLayer::write(HANDLE file, const char* bytes, DWORD count)
{
    DWORD written = 0;
    if (!WriteFile(file, bytes, count, &written, nullptr)) return false;
    if (written == count) return true;
    SetLastError(ERROR_DISK_FULL);
    return false;
}

bool FileLayer::flush(HANDLE file) { return FlushFileBuffers(file) != 0; }

bool FileLayer::close(HANDLE file) { return CloseHandle(file) != 0; }

bool FileLayer::copyIdentity(const std::wstring& original, const std::wstring& copy)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(original.c_str(), GetFileExInfoStandard, &data)) {
        return GetLastError() == ERROR_FILE_NOT_FOUND; // a new file has nobody to take after
    }
    {
        const FileHandle file(CreateFileW(copy.c_str(), FILE_WRITE_ATTRIBUTES,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                          nullptr));
        if (!file || !SetFileTime(file.get(), &data.ftCreationTime, nullptr, nullptr)) return false;
    }
    const DWORD attributes = data.dwFileAttributes & keptAttributes;
    if (!SetFileAttributesW(copy.c_str(), attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL)) return false;
    return copyAccessRights(original, copy);
}

bool FileLayer::replace(const std::wstring& replacement, const std::wstring& target)
{
    return MoveFileExW(replacement.c_str(), target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

bool FileLayer::remove(const std::wstring& path) { return DeleteFileW(path.c_str()) != 0; }

FileLayer& systemFiles()
{
    static FileLayer files;
    return files;
}

std::wstring extendedPath(const std::wstring& path)
{
    if (path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\")) return path;
    if (path.starts_with(L"\\\\")) return L"\\\\?\\UNC\\" + path.substr(2);
    if (path.size() < 3 || path[1] != L':' || path[2] != L'\\') return path;
    // In this form two backslashes are no longer one, and the root of a drive ends with one.
    std::wstring single = path;
    const auto both = [](wchar_t a, wchar_t b) { return a == L'\\' && b == L'\\'; };
    single.erase(std::ranges::unique(single, both).begin(), single.end());
    return L"\\\\?\\" + single;
}

void replaceFile(const std::wstring& path, std::string_view bytes, FileLayer& files)
{
    replaceFile(path, WriteContents([&](const WritePart& write) { return write(bytes); }), files);
}

void replaceFile(const std::wstring& path, const WriteContents& contents, FileLayer& files)
{
    const std::wstring target = extendedPath(path);
    requireReplaceable(target);
    const std::wstring sibling = siblingOf(target);
    const bool written = withPatience(sibling, [&] { return writeSibling(files, sibling, contents); }) &&
                         files.copyIdentity(target, sibling);
    if (written && withPatience(target, [&] { return files.replace(sibling, target); })) return;
    const DWORD reason = GetLastError();
    files.remove(sibling);
    // Waited for in vain: a file that another program has open, whatever the move calls it.
    const bool held = written && reason == ERROR_ACCESS_DENIED && fileExists(path);
    throw runtimeErrorOf(held ? ERROR_SHARING_VIOLATION : reason);
}

void writeFile(const std::wstring& path, std::string_view bytes, FileLayer& files)
{
    requireReplaceable(path);
    const HANDLE file = files.createForWriting(path);
    if (file == INVALID_HANDLE_VALUE) raiseLastError();
    const bool written = writePart(files, file, bytes);
    const DWORD reason = GetLastError();
    const bool closed = files.close(file);
    if (!written) throw runtimeErrorOf(reason);
    if (!closed) raiseLastError();
}

void copyFile(const std::wstring& from, const std::wstring& to)
{
    const std::wstring source = extendedPath(from);
    const std::wstring target = extendedPath(to);
    if (isSameFile(source, target)) throw RuntimeError(error_number::permissionDenied);
    requireReplaceable(target);
    const std::wstring sibling = siblingOf(target);
    if (CopyFileW(source.c_str(), sibling.c_str(), FALSE) &&
        withPatience(target, [&] { return systemFiles().replace(sibling, target); })) {
        return;
    }
    const DWORD reason = GetLastError();
    SetFileAttributesW(sibling.c_str(), FILE_ATTRIBUTE_NORMAL); // it may be a copy of a read-only file
    systemFiles().remove(sibling);
    throw runtimeErrorOf(reason);
}

void createEmptyFile(const std::wstring& path)
{
    const FileHandle file(CreateFileW(extendedPath(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                      CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) raiseLastError();
}

void removeFile(const std::wstring& path)
{
    if (!DeleteFileW(extendedPath(path).c_str())) raiseLastError();
}

void renameFile(const std::wstring& from, const std::wstring& to)
{
    if (!MoveFileW(extendedPath(from).c_str(), extendedPath(to).c_str())) raiseLastError();
}

bool isSameFile(const std::wstring& one, const std::wstring& other)
{
    const auto identity = [](const std::wstring& path) {
        BY_HANDLE_FILE_INFORMATION info{};
        const FileHandle file(CreateFileW(path.c_str(), 0,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
        const bool known = file && GetFileInformationByHandle(file.get(), &info);
        return known ? std::optional(
                           std::array{info.dwVolumeSerialNumber, info.nFileIndexHigh, info.nFileIndexLow})
                     : std::nullopt;
    };
    const auto first = identity(one);
    return first && first == identity(other);
}

bool fileExists(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(extendedPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

} // namespace vandrel
