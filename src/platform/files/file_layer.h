#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

// What a file is told by, whatever names it has: the volume and its number there.
using FileIdentity = std::array<DWORD, 3>;

// Every call that changes the disk. Each returns whether it succeeded and leaves the reason in the last
// error. A seam: a test puts a layer that fails, or ends the process, at its n-th call in place of the
// system's, or one that finds what the disk of the test's machine cannot have.
class FileLayer {
  public:
    virtual ~FileLayer() = default;

    // Where the contents are: of a symbolic link the file that it leads to, an extended path, else `path`
    // itself. Empty when the link leads nowhere.
    virtual std::wstring contentsOf(const std::wstring& path);
    virtual bool isEncrypted(const std::wstring& path);
    // None where there is no such file, and on drives that do not number theirs.
    virtual std::optional<FileIdentity> identityOf(const std::wstring& path);

    // The four that open a file return INVALID_HANDLE_VALUE when they fail.
    // Creates or empties the file, for this process alone.
    virtual HANDLE createForWriting(const std::wstring& path);
    // The same, and nothing of it is ever on the disk in plain.
    virtual HANDLE createEncrypted(const std::wstring& path);
    // Opens a file that is there, as it is, to be read and written by this process alone.
    virtual HANDLE openForChange(const std::wstring& path);
    // Opens or creates a file that others may read and that is written at its end only.
    virtual HANDLE openForAppending(const std::wstring& path);

    virtual bool write(HANDLE file, const char* bytes, DWORD count);
    // Cuts the file, or makes it longer by bytes of whatever value. Where it is written next stays.
    virtual bool setSize(HANDLE file, std::size_t bytes);
    virtual bool flush(HANDLE file);
    virtual bool close(HANDLE file);

    // Gives `copy` the creation time, the attributes and the access rights of `original`, as many of them as
    // it may.
    virtual bool copyIdentity(const std::wstring& original, const std::wstring& copy);
    // Puts `replacement` in the place of `target` in one step: at every moment one of the two is there,
    // whole.
    virtual bool replace(const std::wstring& replacement, const std::wstring& target);
    // Writes a copy, attributes included, over whatever file is there.
    virtual bool copy(const std::wstring& from, const std::wstring& to);
    // Takes no other file's name.
    virtual bool rename(const std::wstring& from, const std::wstring& to);
    // Takes the marks away (hidden, system, read-only) that keep a file from being removed or written over.
    virtual bool clearAttributes(const std::wstring& path);
    virtual bool remove(const std::wstring& path);

    // Puts a value into an INI file, or adds it. What else the file holds stays.
    virtual bool writeProfileValue(const std::wstring& section, const std::wstring& key,
                                   const std::wstring& value, const std::wstring& path);

  protected:
    // Of copyIdentity: gives the file the list of who may do what that the descriptor has.
    virtual bool setAccessRights(const std::wstring& path, PSECURITY_DESCRIPTOR rights);

  private:
    bool copyAccessRights(const std::wstring& original, const std::wstring& copy);
};

// The layer in force: the system's own calls, but while a FilesInForce says otherwise.
FileLayer& systemFiles();

// Puts a layer in force for the whole process, and when it goes the one before.
class FilesInForce {
  public:
    explicit FilesInForce(FileLayer& files);
    FilesInForce(const FilesInForce&) = delete;
    FilesInForce& operator=(const FilesInForce&) = delete;
    ~FilesInForce();

  private:
    FileLayer* before_;
};

// The same path in the form that the system takes as it stands: any length, no device names, no trimmed
// blanks. Leaves a relative path alone.
std::wstring extendedPath(const std::wstring& path);

// Writes the next bytes of a file; false when they could not be written.
using WritePart = std::function<bool(std::string_view bytes)>;
// Writes what a file is to hold, part by part; false when a part was refused.
using WriteContents = std::function<bool(const WritePart& write)>;

// Puts `contents` in place of the file's content, all or nothing: they go to a file beside it, are flushed,
// and take its place. While another program holds the file it tries again for about two seconds. Where the
// user has no right to make a file beside it, or to replace it, the file that is there is written in its
// place (see saveInPlace). The contents may be written several times. Throws RuntimeError (52, 57, 61, 70,
// 71, 75 or 76), or what `contents` throws, with the old file whole and nothing left beside it.
void replaceFile(const std::wstring& path, const WriteContents& contents, FileLayer& files = systemFiles());
void replaceFile(const std::wstring& path, std::string_view bytes, FileLayer& files = systemFiles());

// Puts `bytes` in the file, which is emptied first: what stops it leaves the file as far as it was written.
// For files that can be made again, under names that the user typed: the system trims them as it does for
// every program. Throws RuntimeError.
void writeFile(const std::wstring& path, std::string_view bytes, FileLayer& files = systemFiles());

// Puts a copy of `from` in the place of `to`, all or nothing, as replaceFile does, but never writes in place.
// Throws RuntimeError, also when both are the same file (70).
void copyFile(const std::wstring& from, const std::wstring& to, FileLayer& files = systemFiles());

// Throw RuntimeError when the file cannot be removed or renamed. Bare names are of files in the current directory, also
// where they are those of devices.
void removeFile(const std::wstring& path, FileLayer& files = systemFiles());
void renameFile(const std::wstring& from, const std::wstring& to, FileLayer& files = systemFiles());

bool fileExists(const std::wstring& path);
// Under whatever names: a folder can be reached in many ways, and a file may have several. Two of which one
// is missing are not.
bool isSameFile(const std::wstring& one, const std::wstring& other, FileLayer& files = systemFiles());

} // namespace vandrel
