#include "platform/base/system_error.h"
#include "platform/files/file_layer.h"
#include "platform/files/file_steps.h"

namespace vandrel {

void writeFile(const std::wstring& path, std::string_view bytes, FileLayer& files)
{
    requireReplaceable(path);
    const HANDLE file = files.createForWriting(path);
    if (file == INVALID_HANDLE_VALUE) raiseLastError();
    const bool written = writeBytes(files, file, bytes);
    const DWORD reason = GetLastError();
    const bool closed = files.close(file);
    if (!written) throw runtimeErrorOf(reason);
    if (!closed) raiseLastError();
}

void removeFile(const std::wstring& path, FileLayer& files)
{
    if (!files.remove(extendedPath(path))) raiseLastError();
}

void renameFile(const std::wstring& from, const std::wstring& to, FileLayer& files)
{
    if (!files.rename(extendedPath(from), extendedPath(to))) raiseLastError();
}

} // namespace vandrel
