#pragma once
#include <QObject>
#include <QTimer>
#include <chrono>
#include <memory>
#include <unordered_map>

#include "platform/EventLoop.h"

namespace tessaly {

// The program's event loop: Qt's dispatcher with precise single-shot timers,
// each tick re-armed against a monotonic clock so that periods do not drift.
class QtEventLoop : public QObject, public EventLoop {
public:
    QtEventLoop();
    ~QtEventLoop() override;

    uint32_t nowMs() const override;
    void startTimer(TimerClient& client, int intervalMs) override;
    void stopTimer(TimerClient& client) override;
    void doEvents() override;
    void idleUntil(uint32_t deadlineMs) override;

private:
    struct Armed {
        QTimer timer;
        std::chrono::steady_clock::time_point due;
        std::chrono::milliseconds interval{0};
    };
    void onTimeout(TimerClient* client);

    std::unordered_map<TimerClient*, std::unique_ptr<Armed>> timers_;
    QTimer wake_;
};

}  // namespace tessaly
