#pragma once

#include <windows.h>

namespace vandrel {

// The boundary between the program and the system. Whatever the system calls (window procedures, message
// filters, enumeration callbacks, drops, threads) does its work inside `guarded` or keeps the error in a
// CallbackError, because an exception must not pass through the system's code.

// To be called in a catch block. Shows the current exception in the run-time error box, over the window's
// top-level window, even when there is no memory left to compose the text. Errors that occur while such a
// box is open are not shown.
void showCaughtError(HWND window) noexcept;

// Runs the action of an event. An exception is shown to the user, and the event is answered with `fallback`.
template <typename Action> LRESULT guarded(HWND window, LRESULT fallback, Action action) noexcept
{
    try {
        return action();
    } catch (...) {
        showCaughtError(window);
    }
    return fallback;
}

} // namespace vandrel
