#include "platform/testing/VirtualEventLoop.h"

#include <algorithm>

namespace tessaly {

void VirtualEventLoop::startTimer(TimerClient& client, int intervalMs) {
    stopTimer(client);
    if (intervalMs <= 0) return;
    uint64_t from = now_;
    for (auto it = firing_.rbegin(); it != firing_.rend(); ++it) {
        if (it->client != &client) continue;
        from = it->scheduled;
        break;
    }
    auto interval = static_cast<uint64_t>(intervalMs);
    timers_.push_back({&client, interval, from + interval, sequence_++});
}

void VirtualEventLoop::stopTimer(TimerClient& client) {
    std::erase_if(timers_, [&](const Armed& a) { return a.client == &client; });
}

const VirtualEventLoop::Armed* VirtualEventLoop::nextDue() const {
    const Armed* best = nullptr;
    for (const Armed& a : timers_)
        if (!best || a.due < best->due || (a.due == best->due && a.order < best->order)) best = &a;
    return best;
}

void VirtualEventLoop::fire(TimerClient* client) {
    auto it = std::find_if(timers_.begin(), timers_.end(), [&](const Armed& a) { return a.client == client; });
    if (it == timers_.end()) return;
    const uint64_t scheduled = it->due;
    // The next tick keeps to the grid of the first one; ticks missed while a
    // handler held the thread are not made up, as a platform timer does.
    while (it->due <= now_) it->due += it->interval;
    firing_.push_back({client, scheduled});
    try {
        client->timerDue();
    } catch (...) {
        firing_.pop_back();
        throw;
    }
    firing_.pop_back();
}

void VirtualEventLoop::doEvents() {
    // Each timer due now fires once; ones that come due during these handlers
    // wait for the next call.
    std::vector<TimerClient*> due;
    for (const Armed& a : timers_)
        if (a.due <= now_) due.push_back(a.client);
    for (TimerClient* client : due) {
        auto it = std::find_if(timers_.begin(), timers_.end(), [&](const Armed& a) { return a.client == client; });
        if (it != timers_.end() && it->due <= now_) fire(client);
    }
}

void VirtualEventLoop::idleUntil(uint32_t deadlineMs) {
    uint32_t ahead = deadlineMs - nowMs();
    if (ahead > 0x7FFFFFFFu) ahead = 0;  // a deadline already passed
    uint64_t deadline = now_ + ahead;
    const Armed* next = nextDue();
    if (next && next->due <= deadline) {
        now_ = std::max(now_, next->due);
        fire(next->client);
    } else {
        now_ = deadline;
    }
}

void VirtualEventLoop::advance(uint64_t ms) {
    uint64_t target = now_ + ms;
    for (const Armed* next = nextDue(); next && next->due <= target; next = nextDue()) {
        now_ = std::max(now_, next->due);
        fire(next->client);
    }
    now_ = std::max(now_, target);
}

}  // namespace tessaly
