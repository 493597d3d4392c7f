#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

// Identifies a file whatever name it was reached by: its volume, and its number there.
using FileIdentity = std::array<DWORD, 3>;

// All calls that change the disk. Each returns whether it succeeded and leaves the reason in the last error.
// Tests replace the layer with one that fails, or ends the process, at the n-th call, or with one that finds
// what the test machine's disk cannot have.
class FileLayer {
  public:
    virtual ~FileLayer() = default;

    // The path of the file's contents: the target of a symbolic link, as an extended path, else `path` itself.
    // Empty if the link leads nowhere.
    virtual std::wstring contentsOf(const std::wstring& path);
    virtual bool isEncrypted(const std::wstring& path);
    // No value if the file is missing, or on a drive that does not number its files.
    virtual std::optional<FileIdentity> identityOf(const std::wstring& path);

    // These four return INVALID_HANDLE_VALUE on failure.
    // Creates or empties the file, with exclusive access.
    virtual HANDLE createForWriting(const std::wstring& path);
    // The same, and nothing of it is ever on the disk unencrypted.
    virtual HANDLE createEncrypted(const std::wstring& path);
    // Opens an existing file, with its content, to be read and written with exclusive access.
    virtual HANDLE openForChange(const std::wstring& path);
    // Opens or creates a file that is written only at its end and that others may read.
    virtual HANDLE openForAppending(const std::wstring& path);

    virtual bool write(HANDLE file, const char* bytes, DWORD count);
    // Truncates the file, or extends it with undefined bytes. The file pointer stays where it is.
    virtual bool setSize(HANDLE file, std::size_t bytes);
    virtual bool flush(HANDLE file);
    virtual bool close(HANDLE file);

    // Gives `copy` the creation time, attributes and access rights of `original`, as far as the user may.
    virtual bool copyIdentity(const std::wstring& original, const std::wstring& copy);
    // Moves `replacement` to `target` in one step: at every moment `target` is the old file or the new one,
    // whole.
    virtual bool replace(const std::wstring& replacement, const std::wstring& target);
    // Copies a file with its attributes, over any file that is there.
    virtual bool copy(const std::wstring& from, const std::wstring& to);
    // Fails if there is a file called `to`.
    virtual bool rename(const std::wstring& from, const std::wstring& to);
    // Clears the attributes (hidden, system, read-only) that keep a file from being removed or overwritten.
    virtual bool clearAttributes(const std::wstring& path);
    virtual bool remove(const std::wstring& path);

    // Sets a value in an INI file and leaves the rest of the file alone.
    virtual bool writeProfileValue(const std::wstring& section, const std::wstring& key,
                                   const std::wstring& value, const std::wstring& path);

  protected:
    // For copyIdentity: gives the file the access rights of the descriptor.
    virtual bool setAccessRights(const std::wstring& path, PSECURITY_DESCRIPTOR rights);

  private:
    bool copyAccessRights(const std::wstring& original, const std::wstring& copy);
};

// The layer in use: the system's calls, unless a FilesInForce replaces them.
FileLayer& systemFiles();

// Replaces the layer for the whole process for as long as it lives.
class FilesInForce {
  public:
    explicit FilesInForce(FileLayer& files);
    FilesInForce(const FilesInForce&) = delete;
    FilesInForce& operator=(const FilesInForce&) = delete;
    ~FilesInForce();

  private:
    FileLayer* before_;
};

// The path in the form that the system takes literally: of any length, without device names or trimmed
// blanks. A relative path is returned unchanged.
std::wstring extendedPath(const std::wstring& path);

// Writes the next bytes of a file; false if that fails.
using WritePart = std::function<bool(std::string_view bytes)>;
// Writes the content of a file part by part; false if a part could not be written.
using WriteContents = std::function<bool(const WritePart& write)>;

// Replaces the content of the file with `contents`, all or nothing: they are written to a file beside it and
// flushed, and that file then takes its place. Retries for about two seconds while another program holds the
// file. If the user may not create a file beside it, or replace it, the existing file is overwritten (see
// saveInPlace). `contents` may be called several times. Throws RuntimeError (52, 57, 61, 70, 71, 75 or 76),
// or what `contents` throws, with the old file whole and nothing left beside it.
void replaceFile(const std::wstring& path, const WriteContents& contents, FileLayer& files = systemFiles());
void replaceFile(const std::wstring& path, std::string_view bytes, FileLayer& files = systemFiles());

// Empties the file and writes the contents to it; a failure leaves it partly written. For files that can be
// generated again, under names that the user typed: the system trims these as it does for every program.
// Throws RuntimeError.
void writeFile(const std::wstring& path, const WriteContents& contents, FileLayer& files = systemFiles());
void writeFile(const std::wstring& path, std::string_view bytes, FileLayer& files = systemFiles());

// Replaces `to` with a copy of `from`, all or nothing as in replaceFile, but never in place. Throws
// RuntimeError, also if both are the same file (70).
void copyFile(const std::wstring& from, const std::wstring& to, FileLayer& files = systemFiles());

// Throw RuntimeError if the file cannot be removed or renamed. Bare names mean files in the current directory,
// even if they are the names of devices.
void removeFile(const std::wstring& path, FileLayer& files = systemFiles());
void renameFile(const std::wstring& from, const std::wstring& to, FileLayer& files = systemFiles());

bool fileExists(const std::wstring& path);
// Whether both paths lead to one file: a folder can be reached in several ways, and a file may have several
// names. False if either is missing.
bool isSameFile(const std::wstring& one, const std::wstring& other, FileLayer& files = systemFiles());

} // namespace vandrel
