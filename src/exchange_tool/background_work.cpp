#include "exchange_tool/background_work.h"

#include "platform/base/callback_error.h"
#include "platform/base/handle.h"
#include "platform/base/runtime_error.h"
#include "platform/base/scope_exit.h"
#include "platform/windows/task_dialog.h"

#include <optional>
#include <system_error>
#include <thread>

namespace vandrel {

void workWithProgress(HWND owner, const std::wstring& title, const std::wstring& doing,
                      const std::function<void(Progress& progress)>& work)
{
    constexpr DWORD moment = 300; // milliseconds
    Progress progress;
    CallbackError error;
    const UniqueHandle<HANDLE, CloseHandle, nullHandle<HANDLE>> done(
        CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!done) throw RuntimeError(error_number::outOfMemory);
    std::thread thread;
    try {
        thread = std::thread([&]() noexcept {
            error.keep(0, [&] {
                work(progress);
                return 0;
            });
            SetEvent(done.get());
        });
    } catch (const std::system_error&) {
        throw RuntimeError(error_number::outOfMemory);
    }
    const auto ended = [&](DWORD milliseconds) {
        return WaitForSingleObject(done.get(), milliseconds) == WAIT_OBJECT_0;
    };
    {
        // Whatever happens to the box, the work ends before what it uses is gone.
        const ScopeExit join([&] {
            if (!ended(0)) progress.cancel();
            thread.join();
        });
        if (!ended(moment)) {
            TaskDialog box;
            box.title = title;
            box.instruction = doing;
            box.button = TDCBF_CANCEL_BUTTON;
            box.progress = [&] { return ended(0) ? std::nullopt : std::optional(progress.part()); };
            box.cancelled = [&] { progress.cancel(); };
            box.show(owner);
        }
    }
    error.rethrow();
}

} // namespace vandrel
