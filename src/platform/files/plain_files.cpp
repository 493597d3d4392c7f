#include "platform/base/current_directory.h"
#include "platform/base/system_error.h"
#include "platform/files/file_layer.h"
#include "platform/files/file_steps.h"

namespace vandrel {
namespace {

// Makes a bare name a full path, and any path an extended one: as a bare name, CON.udb would be the console.
std::wstring pathOf(const std::wstring& name)
{
    if (name.find_first_of(L"\\/:") != std::wstring::npos) return extendedPath(name);
    const std::wstring directory = currentDirectory();
    return directory.empty() ? name : extendedPath(directory + L"\\" + name);
}

} // namespace

void writeFile(const std::wstring& path, std::string_view bytes, FileLayer& files)
{
    writeFile(path, WriteContents([&](const WritePart& write) { return write(bytes); }), files);
}

void writeFile(const std::wstring& path, const WriteContents& contents, FileLayer& files)
{
    requireReplaceable(path);
    const HANDLE file = files.createForWriting(path);
    if (file == INVALID_HANDLE_VALUE) raiseLastError();
    const bool written = contents([&](std::string_view bytes) { return writeBytes(files, file, bytes); });
    const DWORD reason = GetLastError();
    const bool closed = files.close(file);
    if (!written) throw runtimeErrorOf(reason);
    if (!closed) raiseLastError();
}

void removeFile(const std::wstring& path, FileLayer& files)
{
    if (!files.remove(pathOf(path))) raiseLastError();
}

void renameFile(const std::wstring& from, const std::wstring& to, FileLayer& files)
{
    if (!files.rename(pathOf(from), pathOf(to))) raiseLastError();
}

} // namespace vandrel
