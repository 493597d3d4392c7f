#pragma once

#include "platform/files/file_layer.h"

#include <string>

namespace vandrel {

// A text file in the ANSI code page to which lines are appended. Each line is in the file when writeLine
// returns, so the lines before it survive, whole, however the program ends.
class AppendFile {
  public:
    // Creates the file if it is missing. Throws RuntimeError (70, 75, 76 ...) if it cannot be opened.
    explicit AppendFile(const std::wstring& path, FileLayer& files = systemFiles());
    AppendFile(const AppendFile&) = delete;
    AppendFile& operator=(const AppendFile&) = delete;
    ~AppendFile();

    // Writes the line and CR LF. Throws RuntimeError (61 ...) if that fails.
    void writeLine(const std::wstring& line);

  private:
    FileLayer& files_;
    HANDLE file_;
};

} // namespace vandrel
