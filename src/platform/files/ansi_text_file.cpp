#include "platform/files/ansi_text_file.h"

#include "platform/base/handle.h"
#include "platform/base/system_error.h"
#include "platform/base/tick_clock.h"
#include "platform/files/ansi_text_writer.h"
#include "platform/files/file_layer.h"
#include "platform/text/ansi_text.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr ULONGLONG retryMilliseconds = 500;
constexpr DWORD pauseMilliseconds = 25;
constexpr std::size_t mostAtOnce = 64U << 20; // bytes

FileHandle openForReading(const std::wstring& path)
{
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const RetryTime time(retryMilliseconds, pauseMilliseconds);
    while (true) {
        FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
        if (file) return file;
        if (GetLastError() != ERROR_SHARING_VIOLATION || time.isOver()) raiseLastError();
        time.pause();
    }
}

std::size_t sizeOf(const FileHandle& file)
{
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size)) raiseLastError();
    return static_cast<std::size_t>(size.QuadPart);
}

// Decodes a file part by part, so that its bytes are never in memory all at once.
class PartDecoder {
  public:
    explicit PartDecoder(std::size_t fileSize) : text_(std::make_shared_for_overwrite<wchar_t[]>(fileSize)) {}

    // The buffer for the next `count` bytes.
    char* room(std::size_t count)
    {
        bytes_.resize(waiting_ + count);
        return bytes_.data() + waiting_;
    }
    // Takes the first `count` bytes of that buffer.
    void take(std::size_t count)
    {
        waiting_ += count;
        const std::string_view bytes(bytes_.data(), waiting_);
        decode(ansiLettersAreBytes() ? waiting_ : bytes.rfind('\n') + 1); // no character spans a line end
    }
    DecodedText finish()
    {
        decode(waiting_);
        return {std::move(text_), size_};
    }

  private:
    void decode(std::size_t count)
    {
        size_ += decodeAnsi({bytes_.data(), count}, text_.get() + size_);
        std::copy(bytes_.begin() + static_cast<std::ptrdiff_t>(count),
                  bytes_.begin() + static_cast<std::ptrdiff_t>(waiting_), bytes_.begin());
        waiting_ -= count;
    }

    std::shared_ptr<wchar_t[]> text_;
    std::size_t size_ = 0;
    std::string bytes_;
    std::size_t waiting_ = 0;
};

} // namespace

std::optional<std::string> fileBytes(const std::wstring& path)
{
    if (!fileExists(path)) return std::nullopt;
    const FileHandle file = openForReading(extendedPath(path));
    std::string bytes(sizeOf(file), '\0');
    DWORD got = 0;
    std::size_t done = 0;
    do {
        const auto wanted = static_cast<DWORD>(std::min(mostAtOnce, bytes.size() - done));
        if (!ReadFile(file.get(), bytes.data() + done, wanted, &got, nullptr)) raiseLastError();
        done += got;
    } while (got > 0 && done < bytes.size());
    bytes.resize(done);
    return bytes;
}

DecodedText AnsiTextFile::read() const
{
    constexpr std::size_t partSize = 256U << 10;
    const FileHandle file = openForReading(extendedPath(path_));
    std::size_t left = sizeOf(file);
    PartDecoder decoder(left);
    while (left > 0) {
        const auto wanted = static_cast<DWORD>(std::min(partSize, left));
        DWORD got = 0;
        if (!ReadFile(file.get(), decoder.room(wanted), wanted, &got, nullptr)) raiseLastError();
        if (got == 0) break; // the file has become shorter
        decoder.take(got);
        left -= got;
    }
    return decoder.finish();
}

void AnsiTextFile::write(const std::function<void(AnsiTextWriter& text)>& compose, FileLayer& files) const
{
    const auto contents = [&](const WritePart& write) {
        AnsiTextWriter text(write);
        compose(text);
        return text.end();
    };
    replaceFile(path_, contents, files);
}

} // namespace vandrel
