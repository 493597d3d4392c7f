#pragma once

#include <windows.h>

namespace vandrel {

// A lock for std::lock_guard. Unlike std::mutex it needs no memory and cannot fail.
class SlimLock {
  public:
    SlimLock() = default;
    SlimLock(const SlimLock&) = delete;
    SlimLock& operator=(const SlimLock&) = delete;

    void lock() noexcept { AcquireSRWLockExclusive(&lock_); }
    void unlock() noexcept { ReleaseSRWLockExclusive(&lock_); }

  private:
    SRWLOCK lock_ = SRWLOCK_INIT;
};

} // namespace vandrel
