#pragma once

#include "platform/message_box.h"
#include "platform/runtime_error.h"

#include <new>

namespace vandrel {

// Runs what an event asks for. What it throws never passes through the system: it is shown as the run-time error
// box, and the program goes on with `fallback` as the event's answer.
template <typename Action> LRESULT guarded(HWND owner, LRESULT fallback, Action action) noexcept
{
    try {
        return action();
    } catch (const RuntimeError& error) {
        showRuntimeError(owner, error);
    } catch (const std::bad_alloc&) {
        showRuntimeError(owner, RuntimeError(error_number::outOfMemory));
    } catch (...) {
        showRuntimeError(owner, RuntimeError(error_number::internalError));
    }
    return fallback;
}

} // namespace vandrel
