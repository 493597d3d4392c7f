#pragma once

#include "platform/base/tick_clock.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace vandrel::test {

// The program's clock as long as this object lives. Its time passes only when the program sleeps, which
// returns at once, or when a test says so.
class TestClock : public TickClock {
  public:
    TestClock() = default;
    TestClock(const TestClock&) = delete;
    TestClock& operator=(const TestClock&) = delete;
    ~TestClock() override { EXPECT_EQ(&tickClock(), this) << "clocks that overlap end in the wrong order"; }

    ULONGLONG now() const override { return now_; }
    void sleep(DWORD milliseconds) override
    {
        pass(milliseconds);
        slept_ += milliseconds;
        if (act_ && slept_ >= actAfter_) std::exchange(act_, nullptr)();
    }

    void pass(ULONGLONG milliseconds) { now_ += milliseconds; }
    // How long the program has slept, in milliseconds.
    ULONGLONG slept() const { return slept_; }
    // Calls `act` once, when the program has slept for this many milliseconds from now on.
    void afterSleeping(ULONGLONG milliseconds, std::function<void()> act)
    {
        actAfter_ = slept_ + milliseconds;
        act_ = std::move(act);
    }

  private:
    ULONGLONG now_ = GetTickCount64();
    ULONGLONG slept_ = 0;
    ULONGLONG actAfter_ = 0;
    std::function<void()> act_;
    const TickClockInForce inForce_{*this};
};

} // namespace vandrel::test
