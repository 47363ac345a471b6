#pragma once
#include <cstdint>

namespace tessaly {

// Something a periodic timer calls when its period has run out.
class TimerClient {
public:
    virtual ~TimerClient() = default;
    virtual void timerDue() = 0;
};

// The one event thread's services: a millisecond clock, periodic timers and
// "let waiting events run". Real (Qt, monotonic clock) and virtual (tests,
// script driver) implementations stand behind it.
class EventLoop {
public:
    virtual ~EventLoop() = default;

    // Milliseconds of a monotonic clock, wrapping at 32 bits.
    virtual uint32_t nowMs() const = 0;

    // Starts (or restarts) the period of a timer: the first call comes one
    // whole interval from now. Ticks are scheduled against the clock so that
    // they do not drift. Called while the timer's own tick is being handled
    // (also from whatever that tick lets run), the period counts instead from
    // the time that tick was scheduled for, so a timer that sets its interval
    // at every tick keeps its grid however late the tick ran.
    virtual void startTimer(TimerClient& client, int intervalMs) = 0;
    virtual void stopTimer(TimerClient& client) = 0;

    // Serves the events that are waiting now, timers that have fallen due
    // among them; returns at once when there are none.
    virtual void doEvents() = 0;

    // Lets time pass while serving events, returning when something was
    // served or when the clock reaches deadlineMs, whichever comes first.
    virtual void idleUntil(uint32_t deadlineMs) = 0;
};

}  // namespace tessaly
