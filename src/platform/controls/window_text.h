#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// The caption or text of a window.
inline std::wstring windowText(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

} // namespace vandrel
