#include "exchange/module1.h"

#include "platform/ansi_text.h"
#include "platform/handle.h"
#include "platform/modal_scope.h"

#include <shlobj.h>

#include <array>

namespace vandrel::Module1 {
namespace {

std::string ansi(const std::wstring& text)
{
    std::string bytes;
    encodeAnsi(text, bytes);
    return bytes;
}

bool isAnsiPath(const std::wstring& path) { return decodeAnsi(ansi(path)) == path && path.size() < MAX_PATH; }

// A path with letters that the code page lacks goes by its short name, which the file system makes of plain letters.
std::string ansiPath(const std::wstring& path)
{
    const std::string bytes = ansi(path);
    if (isAnsiPath(path)) return bytes;
    std::array<wchar_t, MAX_PATH> shortPath{};
    const DWORD length = GetShortPathNameW(path.c_str(), shortPath.data(),
                                           static_cast<DWORD>(shortPath.size()));
    return length > 0 && length < shortPath.size() ? ansi(shortPath.data()) : bytes;
}

} // namespace

std::wstring ReadINIValue(const std::wstring& section, const std::wstring& key, const std::wstring& fileName)
{
    std::array<char, 255> buffer{};
    const DWORD count = GetPrivateProfileStringA(ansi(section).c_str(), ansi(key).c_str(), "", buffer.data(),
                                                 static_cast<DWORD>(buffer.size()),
                                                 ansiPath(fileName).c_str());
    // Where the cut would halve a letter, the count has a byte more than was written.
    const std::string_view value(buffer.data(), count);
    return decodeAnsi(value.substr(0, value.find('\0')));
}

void WriteINIValue(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                   const std::wstring& fileName)
{
    // Only a file that is there has a short name.
    if (!isAnsiPath(fileName)) {
        const FileHandle file(CreateFileW(fileName.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                          nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    }
    WritePrivateProfileStringA(ansi(section).c_str(), ansi(key).c_str(), ansi(value).c_str(),
                               ansiPath(fileName).c_str());
}

std::wstring BrowseForFolder(HWND owner, const std::wstring& title)
{
    BROWSEINFOW settings{};
    settings.hwndOwner = owner;
    settings.lpszTitle = title.c_str();
    settings.ulFlags = BIF_RETURNONLYFSDIRS;
    const ModalScope others(nullptr, owner);
    const PIDLIST_ABSOLUTE chosen = SHBrowseForFolderW(&settings);
    if (chosen == nullptr) return {};
    std::array<wchar_t, MAX_PATH> path{};
    SHGetPathFromIDListW(chosen, path.data());
    CoTaskMemFree(chosen);
    return path.data();
}

} // namespace vandrel::Module1
