#pragma once

#include <windows.h>

namespace vandrel {

// The clock for retries and for pacing long work. Tests replace it with one whose time they set.
class TickClock {
  public:
    virtual ~TickClock() = default;

    // Milliseconds since some moment in the past; never less than before.
    virtual ULONGLONG now() const;
    virtual void sleep(DWORD milliseconds);
};

// The clock in use: the system's, unless a TickClockInForce replaces it.
TickClock& tickClock();

// Replaces the clock for the whole process for as long as it lives.
class TickClockInForce {
  public:
    explicit TickClockInForce(TickClock& clock);
    TickClockInForce(const TickClockInForce&) = delete;
    TickClockInForce& operator=(const TickClockInForce&) = delete;
    ~TickClockInForce();

  private:
    TickClock* before_;
};

// The time during which an attempt that another program blocks is repeated.
class RetryTime {
  public:
    RetryTime(ULONGLONG milliseconds, DWORD pauseMilliseconds)
        : deadline_(tickClock().now() + milliseconds), pause_(pauseMilliseconds)
    {}
    bool isOver() const { return tickClock().now() >= deadline_; }
    // To be called between two attempts.
    void pause() const { tickClock().sleep(pause_); }

  private:
    ULONGLONG deadline_;
    DWORD pause_;
};

} // namespace vandrel
