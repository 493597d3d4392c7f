#include "exchange_tool/standard_output.h"

#include "bookmarks/letters.h"
#include "platform/files/file_layer.h"

#include <algorithm>
#include <string>

namespace vandrel {
namespace {

constexpr std::size_t mostAtOnce = 8192; // units; consoles take no more than 64 KB at a time

bool writeToConsole(HANDLE console, std::wstring_view text)
{
    while (!text.empty()) {
        DWORD written = 0;
        const auto wanted = static_cast<DWORD>(std::min(mostAtOnce, text.size()));
        if (WriteConsoleW(console, text.data(), wanted, &written, nullptr) == 0 || written == 0) return false;
        text.remove_prefix(written);
    }
    return true;
}

bool writeToFile(HANDLE file, std::wstring_view text)
{
    std::string bytes;
    while (!text.empty()) appendUtf8(bytes, takeLetter(text));
    return systemFiles().write(file, bytes.data(), static_cast<DWORD>(bytes.size()));
}

} // namespace

StandardStream::StandardStream(DWORD which) : stream_(GetStdHandle(which))
{
    DWORD mode = 0;
    console_ = GetConsoleMode(stream_, &mode) != 0;
}

bool StandardStream::write(std::wstring_view text) const
{
    if (stream_ == nullptr || stream_ == INVALID_HANDLE_VALUE) return true;
    return console_ ? writeToConsole(stream_, text) : writeToFile(stream_, text);
}

} // namespace vandrel
