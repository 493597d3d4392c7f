#include "platform/base/system_error.h"
#include "platform/files/file_layer.h"
#include "platform/files/file_steps.h"
#include "platform/files/full_path.h"
#include "platform/files/left_behind.h"
#include "platform/files/save_in_place.h"

namespace vandrel {
namespace {

// The user lacks a right, or the means to encrypt a new file; waiting does not help.
bool meansRefused(DWORD reason)
{
    return reason == ERROR_ACCESS_DENIED || reason == ERROR_NETWORK_ACCESS_DENIED ||
           reason == ERROR_CANNOT_MAKE || (reason >= ERROR_ENCRYPTION_FAILED && reason <= ERROR_EFS_DISABLED);
}

// Throws RuntimeError when it is a link that leads nowhere.
std::wstring contentsOf(FileLayer& files, const std::wstring& path)
{
    std::wstring contents = files.contentsOf(path);
    if (contents.empty()) raiseLastError();
    return contents;
}

bool isPlainFile(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) == 0;
}

enum class Kept { plain, encrypted };

bool writeSibling(FileLayer& files, const std::wstring& path, const WriteContents& contents, Kept kept)
{
    const HANDLE file = kept == Kept::encrypted ? files.createEncrypted(path) : files.createForWriting(path);
    if (file == INVALID_HANDLE_VALUE) return false;
    // Noted at once: `contents` may go on after a part was refused and change the last error.
    DWORD reason = ERROR_SUCCESS;
    const auto noted = [&](bool done) {
        if (!done) reason = GetLastError();
        return done;
    };
    bool written = false;
    try {
        const WritePart write = [&](std::string_view bytes) { return noted(writeBytes(files, file, bytes)); };
        written = contents(write) && noted(files.flush(file));
    } catch (...) {
        files.close(file);
        throw;
    }
    const bool closed = files.close(file);
    if (!written) SetLastError(reason);
    return written && closed;
}

bool writeSiblingWithRetries(FileLayer& files, const std::wstring& sibling, const WriteContents& contents,
                             Kept kept)
{
    return retryWhile([&] { return writeSibling(files, sibling, contents, kept); },
                      [&](DWORD reason) {
                          return meansHeld(reason) || (reason == ERROR_ACCESS_DENIED && isPlainFile(sibling));
                      });
}

// ERROR_ACCESS_DENIED also means that the file is open elsewhere. If it is not open, a few more attempts
// follow: it may have been closed between the refusal and the check.
bool replaceWithRetries(FileLayer& files, const std::wstring& sibling, const std::wstring& target)
{
    int moreAttempts = 3;
    const auto passes = [&](DWORD reason) {
        if (reason != ERROR_ACCESS_DENIED) return meansHeld(reason);
        return isPlainFile(target) && (isHeld(target) || moreAttempts-- > 0);
    };
    if (retryWhile([&] { return files.replace(sibling, target); }, passes)) return true;
    if (GetLastError() == ERROR_ACCESS_DENIED && isHeld(target)) SetLastError(ERROR_SHARING_VIOLATION);
    return false;
}

bool replaceBySibling(FileLayer& files, const std::wstring& target, const std::wstring& sibling,
                      const WriteContents& contents)
{
    const Kept kept = files.isEncrypted(target) ? Kept::encrypted : Kept::plain;
    if (!writeSiblingWithRetries(files, sibling, contents, kept)) return false;
    // What cannot be copied, because the user may not or the file system does not support it, stays as the
    // folder gave it.
    retryWhileHeld([&] { return files.copyIdentity(target, sibling); });
    return replaceWithRetries(files, sibling, target);
}

} // namespace

void replaceFile(const std::wstring& path, std::string_view bytes, FileLayer& files)
{
    replaceFile(path, WriteContents([&](const WritePart& write) { return write(bytes); }), files);
}

void replaceFile(const std::wstring& path, const WriteContents& contents, FileLayer& files)
{
    const std::wstring target = contentsOf(files, extendedPath(path));
    requireReplaceable(target);
    const std::wstring sibling = temporaryFileBeside(target);
    DWORD reason = ERROR_SUCCESS;
    try {
        if (replaceBySibling(files, target, sibling, contents)) return;
        reason = GetLastError();
    } catch (...) {
        files.remove(sibling);
        throw;
    }
    files.remove(sibling);
    if (!meansRefused(reason) || !fileExists(target)) throw runtimeErrorOf(reason);
    saveInPlace(target, contents, files);
}

void copyFile(const std::wstring& from, const std::wstring& to, FileLayer& files)
{
    const std::wstring source = extendedPath(from);
    const std::wstring target = contentsOf(files, extendedPath(to));
    if (isSameFile(source, target, files)) throw RuntimeError(error_number::permissionDenied);
    requireReplaceable(target);
    const std::wstring sibling = temporaryFileBeside(target);
    if (files.copy(source, sibling) && replaceWithRetries(files, sibling, target)) return;
    const DWORD reason = GetLastError();
    files.clearAttributes(sibling); // it may be a copy of a read-only file
    files.remove(sibling);
    throw runtimeErrorOf(reason);
}

bool isSameFile(const std::wstring& one, const std::wstring& other, FileLayer& files)
{
    const auto first = files.identityOf(one);
    const auto second = files.identityOf(other);
    if (first && second) return *first == *second;
    if (!fileExists(one) || !fileExists(other)) return false;
    // A drive that does not number its files: what is left are their names.
    const std::wstring firstPath = extendedPath(fullPath(one));
    const std::wstring secondPath = extendedPath(fullPath(other));
    return CompareStringOrdinal(firstPath.c_str(), -1, secondPath.c_str(), -1, TRUE) == CSTR_EQUAL;
}

} // namespace vandrel
