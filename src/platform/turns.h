#pragma once

#include <windows.h>

#include <algorithm>

namespace vandrel {

// When long work lets messages run: not so rarely that a user notices, and not so often that painting takes more than
// a fifth of the time.
class Turns {
  public:
    static constexpr ULONGLONG usualMilliseconds = 100;

    // 0: whenever it is asked.
    explicit Turns(ULONGLONG milliseconds = usualMilliseconds) : Turns(milliseconds, milliseconds) {}
    // The first one after `first` milliseconds: work that is done sooner is done in one go.
    Turns(ULONGLONG milliseconds, ULONGLONG first)
        : milliseconds_(milliseconds), next_(GetTickCount64() + first)
    {}

    bool due() const { return GetTickCount64() >= next_; }
    // Runs `turn`, and waits the longer for the next one the longer it takes.
    template <typename Turn> void take(Turn turn)
    {
        const ULONGLONG start = GetTickCount64();
        turn();
        waitFor(GetTickCount64() - start);
    }

  private:
    void waitFor(ULONGLONG taken)
    {
        next_ = GetTickCount64() + (milliseconds_ == 0 ? 0 : std::max(milliseconds_, 4 * taken));
    }

    ULONGLONG milliseconds_;
    ULONGLONG next_;
};

} // namespace vandrel
