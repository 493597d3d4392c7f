#include "platform/files/save_in_place.h"

#include "platform/base/system_error.h"
#include "platform/files/file_steps.h"

#include <algorithm>
#include <array>

namespace vandrel {
namespace {

std::string composed(const WriteContents& contents)
{
    std::string bytes;
    contents([&bytes](std::string_view part) {
        bytes += part;
        return true;
    });
    return bytes;
}

// A file opened with exclusive access.
class OpenFile {
  public:
    OpenFile(FileLayer& files, const std::wstring& path) : files_(files)
    {
        const auto open = [&] {
            file_ = files_.openForChange(path);
            return file_ != INVALID_HANDLE_VALUE;
        };
        if (!retryWhileHeld(open)) raiseLastError();
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    // Whatever closing returns, what was flushed is on the disk.
    ~OpenFile() { files_.close(file_); }

    std::string read() const
    {
        LARGE_INTEGER size{};
        if (!GetFileSizeEx(file_, &size)) raiseLastError();
        std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
        constexpr std::size_t mostAtOnce = 64U << 20;
        for (std::size_t done = 0; done < bytes.size();) {
            const auto wanted = static_cast<DWORD>(std::min(mostAtOnce, bytes.size() - done));
            DWORD got = 0;
            if (!ReadFile(file_, bytes.data() + done, wanted, &got, nullptr)) raiseLastError();
            if (got == 0) throw RuntimeError(error_number::deviceError);
            done += got;
        }
        return bytes;
    }
    bool flush() { return files_.flush(file_); }
    // Extends the file first and truncates it last: a full disk shows before an old byte is lost, and the
    // old bytes still fit.
    bool overwrite(std::string_view bytes, std::size_t sizeBefore)
    {
        if (bytes.size() > sizeBefore && !files_.setSize(file_, bytes.size())) return false;
        if (!writeFromStart(bytes) || !flush()) return false;
        return bytes.size() >= sizeBefore || cut(bytes.size());
    }
    bool putBack(std::string_view bytes) { return writeFromStart(bytes) && cut(bytes.size()); }

  private:
    bool writeFromStart(std::string_view bytes)
    {
        return SetFilePointerEx(file_, {}, nullptr, FILE_BEGIN) && writeBytes(files_, file_, bytes);
    }
    bool cut(std::size_t size) { return files_.setSize(file_, size) && flush(); }

    FileLayer& files_;
    HANDLE file_ = INVALID_HANDLE_VALUE;
};

// A copy of the old bytes in the user's folder for temporary files. If it cannot be made, the copy in memory
// has to do.
class KeptBytes {
  public:
    KeptBytes(FileLayer& files, const std::wstring& target, std::string_view bytes)
        : files_(files), path_(freePath(target))
    {
        if (path_.empty() || write(bytes, files.isEncrypted(target))) return;
        remove();
    }
    KeptBytes(const KeptBytes&) = delete;
    KeptBytes& operator=(const KeptBytes&) = delete;
    ~KeptBytes() { remove(); }

    // Leaves the copy for the user.
    void leave() { path_.clear(); }

  private:
    // An unused name: a copy left for the user is never overwritten.
    static std::wstring freePath(const std::wstring& target)
    {
        std::array<wchar_t, MAX_PATH + 1> folder{};
        const DWORD length = GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
        if (length == 0 || length >= folder.size()) return {};
        constexpr std::size_t mostOfName = 200; // a file name has at most 255 characters
        const std::wstring name = target.substr(target.find_last_of(L"\\/") + 1).substr(0, mostOfName);
        const std::wstring start = extendedPath(folder.data()) + L"vandrel-" +
                                   std::to_wstring(GetCurrentProcessId());
        std::wstring path = start + L"-" + name + L".old";
        for (int other = 2; fileExists(path); ++other) {
            path = start + L"-" + std::to_wstring(other) + L"-" + name + L".old";
        }
        return path;
    }
    // The bytes of an encrypted file are kept encrypted or not at all.
    bool write(std::string_view bytes, bool encrypted)
    {
        const HANDLE file = encrypted ? files_.createEncrypted(path_) : files_.createForWriting(path_);
        if (file == INVALID_HANDLE_VALUE) return false;
        const bool written = writeBytes(files_, file, bytes) && files_.flush(file);
        return files_.close(file) && written;
    }
    void remove()
    {
        if (!path_.empty()) files_.remove(path_);
        path_.clear();
    }

    FileLayer& files_;
    std::wstring path_;
};

} // namespace

void saveInPlace(const std::wstring& target, const WriteContents& contents, FileLayer& files)
{
    // All memory is allocated before the first byte is written.
    const std::string bytes = composed(contents);
    OpenFile file(files, target);
    const std::string before = file.read();
    KeptBytes kept(files, target, before);
    // A disk that no longer accepts writes should fail here, while the file is still whole.
    if (!file.flush()) raiseLastError();
    if (file.overwrite(bytes, before.size())) return;
    const DWORD reason = GetLastError();
    if (!file.putBack(before)) kept.leave();
    throw runtimeErrorOf(reason);
}

} // namespace vandrel
