#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

class AnsiTextWriter;
class FileLayer;

// The text of a file. The buffer has a unit for each byte of the file; the text takes up the first `size`. A
// std::wstring would fill it with zeros first.
struct DecodedText {
    std::shared_ptr<const wchar_t[]> units;
    std::size_t size = 0;

    operator std::wstring_view() const { return {units.get(), size}; }
};

// A text file in the ANSI code page, read and written whole and never kept open between calls.
class AnsiTextFile {
  public:
    explicit AnsiTextFile(std::wstring path) : path_(std::move(path)) {}

    // The decoded content. Retries for half a second while another program has exclusive access to the file.
    // Throws RuntimeError (53 or 76 if there is no such file; 70, 75 and others if it cannot be read).
    DecodedText read() const;

    // Replaces the content with the text that `compose` adds piece by piece, all or nothing (see
    // replaceFile). A retry calls `compose` again.
    void write(const std::function<void(AnsiTextWriter& text)>& compose, FileLayer& files) const;

  private:
    std::wstring path_;
};

} // namespace vandrel
