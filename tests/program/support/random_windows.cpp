#include "tests/program/support/random_windows.h"

#include "tests/support/window_facts.h"

#include <algorithm>

namespace vandrel::test {
namespace {

bool holds(HWND window, const wchar_t* className)
{
    struct Search {
        std::wstring className;
        bool found = false;
    } search{className};
    EnumChildWindows(
        window,
        [](HWND child, LPARAM param) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(param);
            wanted.found = wanted.className == classOf(child);
            return !wanted.found;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

} // namespace

std::string narrow(const std::wstring& text)
{
    std::string letters(text.size(), '?');
    std::ranges::transform(text, letters.begin(),
                           [](wchar_t c) { return c >= L' ' && c < 127 ? static_cast<char>(c) : '?'; });
    return letters;
}

bool showsFiles(HWND dialog)
{
    return GetDlgItem(dialog, fileNameId) != nullptr || holds(dialog, L"SHELLDLL_DefView") ||
           holds(dialog, L"SysTreeView32");
}

bool isMessageBox(HWND dialog)
{
    constexpr int textId = 0xFFFF;
    return GetDlgItem(dialog, textId) != nullptr;
}

GUITHREADINFO inputOf(HWND window)
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info;
}

std::string described(HWND window)
{
    return "<" + narrow(captionOf(window)) + "> of class " + narrow(classOf(window)) +
           (IsWindowEnabled(window) != 0 ? "" : ", disabled") +
           (IsWindowVisible(window) != 0 ? "" : ", hidden") + (IsIconic(window) != 0 ? ", minimised" : "");
}

HWND frontWindowOf(HWND programWindow)
{
    HWND found = nullptr;
    EnumThreadWindows(
        GetWindowThreadProcessId(programWindow, nullptr),
        [](HWND window, LPARAM param) -> BOOL {
            const bool usable = IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0 &&
                                (GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
            if (usable) *reinterpret_cast<HWND*>(param) = window;
            return !usable;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

bool isOf(HWND window, HWND programWindow)
{
    DWORD process = 0;
    DWORD programProcess = 0;
    GetWindowThreadProcessId(window, &process);
    GetWindowThreadProcessId(programWindow, &programProcess);
    return window != nullptr && process == programProcess;
}

} // namespace vandrel::test
