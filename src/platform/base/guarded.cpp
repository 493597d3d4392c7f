#include "platform/base/guarded.h"

#include "platform/base/message_box.h"
#include "platform/base/program.h"
#include "platform/base/runtime_error.h"
#include "platform/base/scope_exit.h"

#include <new>

namespace vandrel {
namespace {

void showCurrent(HWND owner)
{
    try {
        throw;
    } catch (const RuntimeError& error) {
        showRuntimeError(owner, error);
    } catch (const std::bad_alloc&) {
        showRuntimeError(owner, RuntimeError(error_number::outOfMemory));
    } catch (...) {
        showRuntimeError(owner, RuntimeError(error_number::internalError));
    }
}

} // namespace

void showCaughtError(HWND window) noexcept
{
    // Timers and painting carry on while a box is open. One that keeps failing must not pile up boxes.
    static bool showing = false;
    if (std::exchange(showing, true)) return;
    const ScopeExit shown([] { showing = false; });
    const HWND owner = GetAncestor(window, GA_ROOT);
    try {
        showCurrent(owner);
    } catch (...) {
        // Composing the text has failed, so this one is ready-made.
        MessageBoxW(owner, L"Run-time error '7':\r\n\r\nOut of memory", programTitle, MB_OK | MB_ICONHAND);
    }
}

} // namespace vandrel
