#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

class RuntimeError;

// The values are the system's own, so that each box is told apart by them.
enum class BoxIcon : UINT {
    critical = MB_ICONHAND,
    question = MB_ICONQUESTION,
    exclamation = MB_ICONEXCLAMATION,
    information = MB_ICONASTERISK,
};

void tell(HWND owner, const std::wstring& text, const std::wstring& title, BoxIcon icon);

// What Enter and the space bar press at first. No where a Yes cannot be undone.
enum class FirstButton { yes, no };

// Yes and No; true for Yes.
bool askYesNo(HWND owner, const std::wstring& text, const std::wstring& title, BoxIcon icon,
              FirstButton first = FirstButton::yes);

// What a failure that nothing trapped looks like to the user.
void showRuntimeError(HWND owner, const RuntimeError& error);

} // namespace vandrel
