#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>

namespace vandrel {

// The file calls that a save is made of. Each returns whether it succeeded and leaves the reason in the last
// error. A seam: a test puts a layer that fails at its n-th call in place of the system's.
class FileLayer {
  public:
    virtual ~FileLayer() = default;

    // Creates or empties the file, for this process alone; INVALID_HANDLE_VALUE when it fails.
    virtual HANDLE createForWriting(const std::wstring& path);
    virtual bool write(HANDLE file, const char* bytes, DWORD count);
    virtual bool flush(HANDLE file);
    virtual bool close(HANDLE file);
    // Gives `copy` the attributes, the creation time and the access rights of `original`.
    virtual bool copyIdentity(const std::wstring& original, const std::wstring& copy);
    // Puts `replacement` in the place of `target` in one step: at every moment one of the two is there, whole.
    virtual bool replace(const std::wstring& replacement, const std::wstring& target);
    virtual bool remove(const std::wstring& path);
};

FileLayer& systemFiles();

// The same path in the form that the system takes as it stands: any length, no device names, no trimmed blanks.
// Leaves a relative path alone.
std::wstring extendedPath(const std::wstring& path);

// Writes the next bytes of a file; false when they could not be written.
using WritePart = std::function<bool(std::string_view bytes)>;
// Writes what a file is to hold, part by part; false when a part was refused.
using WriteContents = std::function<bool(const WritePart& write)>;

// Puts `contents` in place of the file's content, all or nothing: they go to a file beside it, are flushed, and take
// its place. While another program holds the file it tries again for about two seconds, and may write the contents
// again. Throws RuntimeError (52, 57, 61, 70, 71, 75 or 76), or what `contents` throws, with the old file whole and nothing
// left beside it.
void replaceFile(const std::wstring& path, const WriteContents& contents, FileLayer& files = systemFiles());
void replaceFile(const std::wstring& path, std::string_view bytes, FileLayer& files = systemFiles());

// Puts `bytes` in the file, which is emptied first: what stops it leaves the file as far as it was written. For files
// that can be made again, under names that the user typed: the system trims them as it does for every program. Throws
// RuntimeError.
void writeFile(const std::wstring& path, std::string_view bytes, FileLayer& files = systemFiles());

// Puts a copy of `from` in the place of `to`, all or nothing, as replaceFile does. Throws RuntimeError, also when both
// are the same file (70).
void copyFile(const std::wstring& from, const std::wstring& to);

// Creates the file without content, or empties the one that is there. Throws RuntimeError.
void createEmptyFile(const std::wstring& path);
// Throw RuntimeError when the file cannot be removed or renamed.
void removeFile(const std::wstring& path);
void renameFile(const std::wstring& from, const std::wstring& to);

bool fileExists(const std::wstring& path);
// Under whatever names: a folder can be reached in many ways, and a file may have several. Two of which one is missing
// are not.
bool isSameFile(const std::wstring& one, const std::wstring& other);

} // namespace vandrel
