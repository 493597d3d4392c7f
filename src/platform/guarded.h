#pragma once

#include "platform/message_box.h"
#include "platform/runtime_error.h"

#include <new>

namespace vandrel {

// Runs what an event asks for. What it throws never passes through the system: it is shown as the run-time error
// box over the window's top-level window, and the program goes on with `fallback` as the event's answer.
template <typename Action> LRESULT guarded(HWND window, LRESULT fallback, Action action) noexcept
{
    const auto show = [window](const RuntimeError& error) {
        showRuntimeError(GetAncestor(window, GA_ROOT), error);
    };
    try {
        return action();
    } catch (const RuntimeError& error) {
        show(error);
    } catch (const std::bad_alloc&) {
        show(RuntimeError(error_number::outOfMemory));
    } catch (...) {
        show(RuntimeError(error_number::internalError));
    }
    return fallback;
}

} // namespace vandrel
