#include "platform/files/ansi_text_file.h"

#include "platform/base/system_error.h"
#include "platform/files/ansi_text_writer.h"
#include "platform/files/file_bytes.h"
#include "platform/files/file_layer.h"
#include "platform/text/ansi_text.h"

#include <algorithm>

namespace vandrel {
namespace {

// Decodes a file part by part, so that its bytes are never in memory all at once.
class PartDecoder {
  public:
    explicit PartDecoder(std::size_t size) : text_(std::make_shared_for_overwrite<wchar_t[]>(size)) {}

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

DecodedText AnsiTextFile::read() const
{
    constexpr std::size_t partSize = 256U << 10;
    const FileHandle file = openForReading(path_);
    std::size_t left = fileSize(file);
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
