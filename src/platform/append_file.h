#pragma once

#include "platform/handle.h"

#include <string>

namespace vandrel {

// A text file in the ANSI code page that grows at its end. Each line is in the file when writeLine returns, so whatever
// ends the program, the lines before it are there, whole.
class AppendFile {
  public:
    // Makes the file when it is missing. Throws RuntimeError (70, 75, 76 ...) when it cannot be opened.
    explicit AppendFile(const std::wstring& path);

    // The line and CR LF. Throws RuntimeError (61 ...) when the disk does not take it.
    void writeLine(const std::wstring& line);

  private:
    FileHandle file_;
};

} // namespace vandrel
