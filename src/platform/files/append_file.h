#pragma once

#include "platform/files/file_layer.h"

#include <string>

namespace vandrel {

// A text file in the ANSI code page that grows at its end. Each line is in the file when writeLine returns,
// so whatever ends the program, the lines before it are there, whole.
class AppendFile {
  public:
    // Makes the file when it is missing. Throws RuntimeError (70, 75, 76 ...) when it cannot be opened.
    explicit AppendFile(const std::wstring& path, FileLayer& files = systemFiles());
    AppendFile(const AppendFile&) = delete;
    AppendFile& operator=(const AppendFile&) = delete;
    ~AppendFile();

    // The line and CR LF. Throws RuntimeError (61 ...) when the disk does not take it.
    void writeLine(const std::wstring& line);

  private:
    FileLayer& files_;
    HANDLE file_;
};

} // namespace vandrel
