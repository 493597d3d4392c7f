#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

class RuntimeError;

// The system's values, as MessageBox takes them.
enum class BoxIcon : UINT {
    critical = MB_ICONHAND,
    question = MB_ICONQUESTION,
    exclamation = MB_ICONEXCLAMATION,
    information = MB_ICONASTERISK,
};

void tell(HWND owner, const std::wstring& text, const std::wstring& title, BoxIcon icon);

// The button that Enter and the space bar press at first: No where a Yes cannot be undone.
enum class FirstButton { yes, no };

// Yes and No buttons; true for Yes.
bool askYesNo(HWND owner, const std::wstring& text, const std::wstring& title, BoxIcon icon,
              FirstButton first = FirstButton::yes);

// Shows the user a failure that no command has handled.
void showRuntimeError(HWND owner, const RuntimeError& error);

} // namespace vandrel
