#pragma once

#include "platform/base/tick_clock.h"

#include <algorithm>

namespace vandrel {

// When long work lets messages run: not so rarely that a user notices, and not so often that painting takes
// more than a fifth of the time.
class MessageThrottle {
  public:
    static constexpr ULONGLONG usualMilliseconds = 100;
    static constexpr ULONGLONG longestMilliseconds = 1000;

    // How long the work goes on after a turn that took so long, before the next one. A turn lasts as long as
    // the dialogs that the user opens in it, and what waits behind these must not wait for minutes.
    static constexpr ULONGLONG pauseAfter(ULONGLONG taken, ULONGLONG usual = usualMilliseconds)
    {
        if (usual == 0) return 0;
        return std::max(usual, taken < longestMilliseconds / 4 ? 4 * taken : longestMilliseconds);
    }

    // 0: whenever it is asked.
    explicit MessageThrottle(ULONGLONG milliseconds = usualMilliseconds)
        : MessageThrottle(milliseconds, milliseconds)
    {}
    // The first one after `first` milliseconds: work that is done sooner is done in one go.
    MessageThrottle(ULONGLONG milliseconds, ULONGLONG first)
        : milliseconds_(milliseconds), next_(tickClock().now() + first)
    {}

    bool due() const { return tickClock().now() >= next_; }
    // Runs `turn`, and waits the longer for the next one the longer it takes; see pauseAfter.
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
