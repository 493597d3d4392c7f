#pragma once

#include <windows.h>

namespace vandrel {

// The clock that attempts which are repeated, and turns of long work, go by. A seam: a test puts a clock in
// its place whose time passes when the test says so.
class TickClock {
  public:
    virtual ~TickClock() = default;

    // Milliseconds since some moment in the past; never less than before.
    virtual ULONGLONG now() const;
    virtual void sleep(DWORD milliseconds);
};

// The clock in force: the system's own, unless a TickClockInForce says otherwise.
TickClock& tickClock();

// Puts a clock in force for the whole process, and the one before it again when it goes.
class TickClockInForce {
  public:
    explicit TickClockInForce(TickClock& clock);
    TickClockInForce(const TickClockInForce&) = delete;
    TickClockInForce& operator=(const TickClockInForce&) = delete;
    ~TickClockInForce();

  private:
    TickClock* before_;
};

// The time within which an attempt is repeated that another program stands in the way of.
class RetryTime {
  public:
    RetryTime(ULONGLONG milliseconds, DWORD pauseMilliseconds)
        : deadline_(tickClock().now() + milliseconds), pause_(pauseMilliseconds)
    {}
    bool isOver() const { return tickClock().now() >= deadline_; }
    // Sleeps between two attempts.
    void pause() const { tickClock().sleep(pause_); }

  private:
    ULONGLONG deadline_;
    DWORD pause_;
};

} // namespace vandrel
