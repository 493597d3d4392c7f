#pragma once

#include "platform/base/tick_clock.h"
#include "platform/files/file_layer.h"

namespace vandrel {

// What the ways to write a file have in common. Reasons are the system's error numbers.

// All bytes, in as many calls as it takes.
bool writeBytes(FileLayer& files, HANDLE file, std::string_view bytes);

// A file that another program has open; for now, that is.
bool meansHeld(DWORD reason);
// Whether another program has the file open, be it only to look at it. Keeps the last error.
bool isHeld(const std::wstring& path);

// Tries for about two seconds, until `attempt` succeeds or what stops it is no reason that `passes` by
// itself. False leaves the reason in the last error. Needs no memory.
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

// Asked before a file is written over: whether a move or a write stops at a read-only mark is up to the system
// that keeps the file, which may be another machine's. Throws RuntimeError (75).
void requireReplaceable(const std::wstring& path);

} // namespace vandrel
