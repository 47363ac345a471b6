#pragma once
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/EventLoop.h"

namespace tessaly {

// The program's event loop: Qt's dispatcher, with each timer on a timerfd of
// the monotonic clock armed at its absolute deadline, so ticks come to the
// microsecond (the dispatcher's own timers round to milliseconds) without
// anyone spinning, and keep to their grid.
class QtEventLoop : public QObject, public EventLoop {
public:
    using Clock = std::chrono::steady_clock;

    QtEventLoop();
    ~QtEventLoop() override;

    uint32_t nowMs() const override;
    void startTimer(TimerClient& client, int intervalMs) override;
    void stopTimer(TimerClient& client) override;
    void doEvents() override;
    void idleUntil(uint32_t deadlineMs) override;

private:
    struct Armed {
        ~Armed();
        int fd = -1;
        std::unique_ptr<QSocketNotifier> notifier;
        bool running = false;
        Clock::time_point due;
        Clock::duration interval{};
    };
    struct Firing {
        TimerClient* client;  // only compared
        Clock::time_point scheduled;
    };
    Armed& slotOf(TimerClient& client);
    Clock::time_point periodStart(const TimerClient& client) const;
    static void arm(Armed& slot);
    void onDue(TimerClient* client);

    std::unordered_map<TimerClient*, std::unique_ptr<Armed>> timers_;
    std::vector<Firing> firing_;
    QTimer wake_;
};

}  // namespace tessaly
