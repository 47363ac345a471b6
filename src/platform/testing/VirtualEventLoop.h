#pragma once
#include <cstdint>
#include <vector>

#include "platform/EventLoop.h"

namespace tessaly {

// Virtual time: the clock moves only when told to, and every due timer fires
// in time order, so a run is deterministic. doEvents and idleUntil work from
// inside a handler exactly as they would on the real loop.
class VirtualEventLoop : public EventLoop {
public:
    uint32_t nowMs() const override { return static_cast<uint32_t>(now_); }
    void startTimer(TimerClient& client, int intervalMs) override;
    void stopTimer(TimerClient& client) override;
    void doEvents() override;
    void idleUntil(uint32_t deadlineMs) override;

    // Runs the clock ms milliseconds on, firing every timer that falls due.
    void advance(uint64_t ms);
    uint64_t now() const { return now_; }

private:
    struct Armed {
        TimerClient* client;
        uint64_t interval;
        uint64_t due;
        uint64_t order;  // ties at the same instant fire in the order of arming
    };
    // A tick being handled, innermost last; client is only compared.
    struct Firing {
        TimerClient* client;
        uint64_t scheduled;
    };
    const Armed* nextDue() const;
    void fire(TimerClient* client);

    uint64_t now_ = 0;
    uint64_t sequence_ = 0;
    std::vector<Armed> timers_;
    std::vector<Firing> firing_;
};

}  // namespace tessaly
