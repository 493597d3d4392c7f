#pragma once

#include "platform/files/file_layer.h"

#include <memory>
#include <string_view>

namespace vandrel {

// Encodes a long text in the ANSI code page part by part (see encodeAnsi), in memory that is used over and
// over: to touch as much new memory as a large file has bytes takes longer than to write the file.
class AnsiTextWriter {
  public:
    explicit AnsiTextWriter(const WritePart& write);

    // Adds a piece of the text, which must live until the next call: how its end is written may depend on
    // what follows. False once a part could not be written: all further ones are in vain.
    bool add(std::wstring_view piece);
    // To be called once, behind the last piece.
    bool end();

  private:
    void encode(std::wstring_view text, wchar_t behind);
    void makeRoom(std::size_t bytes);
    void writeOut();

    const WritePart& write_;
    std::wstring_view waiting_;
    std::unique_ptr<char[]> bytes_;
    std::size_t room_ = 0;
    std::size_t used_ = 0;
    bool good_ = true;
};

} // namespace vandrel
