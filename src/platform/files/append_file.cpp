#include "platform/files/append_file.h"

#include "platform/base/system_error.h"
#include "platform/text/ansi_text.h"

namespace vandrel {

AppendFile::AppendFile(const std::wstring& path, FileLayer& files)
    : files_(files), file_(files.openForAppending(extendedPath(path)))
{
    if (file_ == INVALID_HANDLE_VALUE) raiseLastError();
}

AppendFile::~AppendFile() { files_.close(file_); }

void AppendFile::writeLine(const std::wstring& line)
{
    std::string bytes;
    encodeAnsi(line, bytes, L'\r');
    bytes += "\r\n";
    if (!files_.write(file_, bytes.data(), static_cast<DWORD>(bytes.size()))) raiseLastError();
}

} // namespace vandrel
