#include "platform/append_file.h"

#include "platform/ansi_text.h"
#include "platform/file_layer.h"
#include "platform/system_error.h"

namespace vandrel {

AppendFile::AppendFile(const std::wstring& path)
    : file_(CreateFileW(extendedPath(path).c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                        FILE_ATTRIBUTE_NORMAL, nullptr))
{
    if (!file_) raiseLastError();
}

void AppendFile::writeLine(const std::wstring& line)
{
    std::string bytes;
    encodeAnsi(line, bytes, L'\r');
    bytes += "\r\n";
    DWORD written = 0;
    if (!WriteFile(file_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
        raiseLastError();
    if (written != bytes.size()) throw RuntimeError(error_number::diskFull);
}

} // namespace vandrel
