#include "platform/base/tick_clock.h"

#include <utility>

namespace vandrel {
namespace {

constinit TickClock systemClock;
constinit TickClock* inForce = &systemClock;

} // namespace

ULONGLONG TickClock::now() const { return GetTickCount64(); }

void TickClock::sleep(DWORD milliseconds) { Sleep(milliseconds); }

TickClock& tickClock() { return *inForce; }

TickClockInForce::TickClockInForce(TickClock& clock) : before_(std::exchange(inForce, &clock)) {}

TickClockInForce::~TickClockInForce() { inForce = before_; }

} // namespace vandrel
