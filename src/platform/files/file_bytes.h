#pragma once

#include "platform/base/handle.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

// Opens a file from end to end; while another program keeps it to itself it tries again for a moment. Throws
// RuntimeError (53 or 76 where there is no such file, 70, 75 and others where it cannot be read).
FileHandle openForReading(const std::wstring& path);
std::size_t fileSize(const FileHandle& file);

// What the file holds, byte for byte; none when there is no such file. Throws as openForReading does.
std::optional<std::string> fileBytes(const std::wstring& path);

// Reads one file after the other into memory that is used again.
class FileBytes {
  public:
    // The file's bytes, until the next one is read. Throws as openForReading does; there are none then.
    std::string_view read(const std::wstring& path);

  private:
    std::unique_ptr<char[]> bytes_;
    std::size_t room_ = 0;
};

} // namespace vandrel
