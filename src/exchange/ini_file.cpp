#include "exchange/ini_file.h"

#include "platform/files/file_layer.h"
#include "platform/text/ansi_text.h"

#include <windows.h>

#include <array>

namespace vandrel::Module1 {
namespace {

// Contract: longer values are cut.
constexpr std::size_t mostValueBytes = 254;

std::string ansi(std::wstring_view text)
{
    std::string bytes;
    encodeAnsi(text, bytes);
    return bytes;
}

// The text after a round trip through the ANSI code page.
std::wstring throughCodePage(const std::wstring& text)
{
    const std::string bytes = ansi(text);
    std::wstring result(bytes.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()),
                                           result.data(), static_cast<int>(result.size()));
    result.resize(static_cast<std::size_t>(length));
    return result;
}

std::wstring shortName(const std::wstring& path)
{
    std::array<wchar_t, MAX_PATH> name{};
    const DWORD length = GetShortPathNameW(extendedPath(path).c_str(), name.data(),
                                           static_cast<DWORD>(name.size()));
    return length < name.size() ? std::wstring(name.data(), length) : std::wstring();
}

// The system's functions are not documented to take long paths. A file that does not exist yet has no short
// name, but its folder has.
std::wstring profilePath(const std::wstring& path)
{
    if (path.size() < MAX_PATH) return path;
    if (std::wstring whole = shortName(path); !whole.empty()) return whole;
    const std::size_t slash = path.rfind(L'\\');
    const std::wstring folder = shortName(path.substr(0, slash));
    return folder.empty() ? extendedPath(path) : folder + path.substr(slash);
}

// As many whole letters of the text as fit into `most` bytes of the code page.
std::wstring firstBytes(std::wstring_view text, std::size_t most)
{
    std::string bytes;
    while (!text.empty()) {
        const bool pair = text.size() > 1 && IS_HIGH_SURROGATE(text[0]) && IS_LOW_SURROGATE(text[1]);
        const std::string letter = ansi(text.substr(0, pair ? 2 : 1));
        if (bytes.size() + letter.size() > most) break;
        bytes += letter;
        text.remove_prefix(pair ? 2 : 1);
    }
    return decodeAnsi(bytes);
}

} // namespace

std::wstring ReadINIValue(const std::wstring& section, const std::wstring& key, const std::wstring& fileName)
{
    // No letter takes more units than bytes, so a letter cut in half here is dropped below.
    std::array<wchar_t, mostValueBytes + 2> buffer{};
    const DWORD count = GetPrivateProfileStringW(throughCodePage(section).c_str(),
                                                 throughCodePage(key).c_str(), L"", buffer.data(),
                                                 static_cast<DWORD>(buffer.size()),
                                                 profilePath(fileName).c_str());
    return firstBytes({buffer.data(), count}, mostValueBytes);
}

void WriteINIValue(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                   const std::wstring& fileName)
{
    systemFiles().writeProfileValue(throughCodePage(section), throughCodePage(key), throughCodePage(value),
                                    profilePath(fileName));
}

} // namespace vandrel::Module1
