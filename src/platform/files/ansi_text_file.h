#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

class AnsiTextWriter;
class FileLayer;

// The text of a file. It is as large as the file has bytes, or larger, so it is not filled twice.
struct DecodedText {
    std::shared_ptr<const wchar_t[]> units;
    std::size_t size = 0;

    operator std::wstring_view() const { return {units.get(), size}; }
};

// A text file in the ANSI code page, read and written whole: nothing stays open between two calls.
class AnsiTextFile {
  public:
    explicit AnsiTextFile(std::wstring path) : path_(std::move(path)) {}

    // The decoded content. While another program keeps the file to itself it tries again for a moment. Throws
    // RuntimeError (53 or 76 where there is no such file, 70, 75 and others where it cannot be read).
    DecodedText read() const;

    // Puts the text that `compose` adds, piece by piece, in place of the content, all or nothing; see
    // replaceFile. It is composed anew when the save is tried again.
    void write(const std::function<void(AnsiTextWriter& text)>& compose, FileLayer& files) const;

  private:
    std::wstring path_;
};

} // namespace vandrel
