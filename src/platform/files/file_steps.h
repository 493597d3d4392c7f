#pragma once

#include "platform/base/tick_clock.h"
#include "platform/files/file_layer.h"

namespace vandrel {

// Steps that the functions that write files share. Reasons are system error numbers.

// Writes all bytes, in as many calls as it takes.
bool writeBytes(FileLayer& files, HANDLE file, std::string_view bytes);

// Whether the reason is that another program has the file open, which may pass.
bool meansHeld(DWORD reason);
// Whether another program has the file open, if only for reading. Preserves the last error.
bool isHeld(const std::wstring& path);

// Repeats `attempt` for about two seconds, until it succeeds or fails for a reason that is not temporary
// according to `passes`. If the result is false, the reason is in the last error. Uses no memory.
template <typename Attempt, typename Passes> bool retryWhile(Attempt attempt, Passes passes)
{
    constexpr ULONGLONG retryMilliseconds = 2000;
    constexpr DWORD pauseMilliseconds = 25;
    const RetryTime time(retryMilliseconds, pauseMilliseconds);
    while (!attempt()) {
        const DWORD reason = GetLastError();
        const bool again = passes(reason) && !time.isOver();
        SetLastError(reason);
        if (!again) return false;
        time.pause();
    }
    return true;
}
template <typename Attempt> bool retryWhileHeld(Attempt attempt) { return retryWhile(attempt, meansHeld); }

// To be called before a file is overwritten. Throws RuntimeError (75) if it is read-only or a folder. The
// system that holds the file, possibly another machine, may not refuse to move or write over a read-only
// file.
void requireReplaceable(const std::wstring& path);

} // namespace vandrel
