#pragma once

#include <windows.h>

namespace vandrel {

// The seam between the program and the system. Whatever the system calls - window procedures, message
// filters, the functions handed to an enumeration, drops, threads - runs its work through `guarded` or keeps
// the error in a CallbackError, because an exception must not pass through the system's own code.

// Shows the exception that is being handled as the run-time error box over the window's top-level window.
// Comes up with a box even when there is no memory left to word it; one box at a time. To be called in a
// catch block.
void showCaughtError(HWND window) noexcept;

// Runs what an event asks for. What it throws is shown to the user, and the program goes on with `fallback`
// as the event's answer.
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
