#include "tests/program/support/program_files.h"

#include "platform/files/file_layer.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace vandrel::test {

void putProgramInto(const std::wstring& folder)
{
    const std::wstring target = extendedPath(folder + L"\\Vandrel.exe");
    if (!CopyFileW(programUnderTest().c_str(), target.c_str(), TRUE) && GetLastError() != ERROR_FILE_EXISTS)
        throw std::runtime_error("the program cannot be copied: error " + std::to_string(GetLastError()));
}

std::wstring programUnderTest() { return nativePath(VANDREL_PROGRAM); }

std::wstring nativePath(const std::string& path)
{
    // On a Unix host every file is on drive Z.
    std::wstring native = (path.starts_with("/") ? L"Z:" : L"") + std::filesystem::path(path).wstring();
    std::ranges::replace(native, L'/', L'\\');
    return native;
}

std::wstring unixPath(const std::wstring& path)
{
    using Convert = char*(CDECL*)(const wchar_t*);
    const auto address = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name");
    if (address == nullptr) throw std::runtime_error("this system has no other form of a path");
    char* const converted = reinterpret_cast<Convert>(reinterpret_cast<void*>(address))(path.c_str());
    if (converted == nullptr) throw std::runtime_error("a path that has no other form");
    const std::wstring text(converted, converted + std::strlen(converted));
    HeapFree(GetProcessHeap(), 0, converted);
    return text;
}

std::optional<std::wstring> sharedFolder(const std::wstring& name)
{
    const auto folder = std::filesystem::path(nativePath(VANDREL_SOURCE_DIR)).parent_path() / L"shared" /
                        name;
    if (!std::filesystem::is_directory(folder)) return std::nullopt;
    return folder.wstring();
}

std::optional<std::wstring> environment(const wchar_t* name)
{
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    if (value.empty()) return std::nullopt;
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

std::string encodedIn(unsigned codePage, const std::wstring& text)
{
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(
        WideCharToMultiByte(codePage, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

std::string utf8(const std::wstring& text) { return encodedIn(CP_UTF8, text); }

} // namespace vandrel::test
