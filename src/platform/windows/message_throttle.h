#pragma once

#include "platform/base/tick_clock.h"

#include <algorithm>

namespace vandrel {

// Decides when long work takes a turn at running messages: often enough that the user notices no delay, and
// so rarely that painting takes no more than a fifth of the time.
class MessageThrottle {
  public:
    static constexpr ULONGLONG usualMilliseconds = 100;
    static constexpr ULONGLONG longestMilliseconds = 1000;

    // How long the work goes on after a turn that took `taken`. Limited, because a turn may last as long as
    // a dialog that the user opens in it, and messages must not then wait for minutes.
    static constexpr ULONGLONG pauseAfter(ULONGLONG taken, ULONGLONG usual = usualMilliseconds)
    {
        if (usual == 0) return 0;
        return std::max(usual, taken < longestMilliseconds / 4 ? 4 * taken : longestMilliseconds);
    }

    // 0: always due.
    explicit MessageThrottle(ULONGLONG milliseconds = usualMilliseconds)
        : MessageThrottle(milliseconds, milliseconds)
    {}
    // The first turn is due after `first` milliseconds, so shorter work is not interrupted.
    MessageThrottle(ULONGLONG milliseconds, ULONGLONG first)
        : milliseconds_(milliseconds), next_(tickClock().now() + first)
    {}

    ULONGLONG next() const { return next_; } // when the next turn is due, by tickClock
    bool due() const { return tickClock().now() >= next_; }
    // Runs `turn`; the longer it takes, the later the next one is due (see pauseAfter).
    template <typename Turn> void take(Turn turn)
    {
        const ULONGLONG start = tickClock().now();
        turn();
        const ULONGLONG end = tickClock().now();
        next_ = end + pauseAfter(end - start, milliseconds_);
    }

  private:
    ULONGLONG milliseconds_;
    ULONGLONG next_;
};

} // namespace vandrel
