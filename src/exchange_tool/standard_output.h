#pragma once

#include <windows.h>

#include <string_view>

namespace vandrel {

// One of the process's standard streams: STD_OUTPUT_HANDLE or STD_ERROR_HANDLE. Consoles get letters as they
// are, files and other programs UTF-8.
class StandardStream {
  public:
    explicit StandardStream(DWORD which);

    // Writes at once. False if that failed; a process without such a stream writes nothing, successfully.
    bool write(std::wstring_view text) const;

  private:
    HANDLE stream_;
    bool console_ = false;
};

} // namespace vandrel
