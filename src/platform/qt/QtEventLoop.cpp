#include "platform/qt/QtEventLoop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <algorithm>

namespace tessaly {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

QtEventLoop::QtEventLoop() {
    wake_.setSingleShot(true);
    wake_.setTimerType(Qt::PreciseTimer);
}

QtEventLoop::~QtEventLoop() = default;

uint32_t QtEventLoop::nowMs() const {
    auto ms = std::chrono::duration_cast<milliseconds>(Clock::now().time_since_epoch()).count();
    return static_cast<uint32_t>(ms);
}

void QtEventLoop::startTimer(TimerClient& client, int intervalMs) {
    if (intervalMs <= 0) {
        stopTimer(client);
        return;
    }
    auto& slot = timers_[&client];
    if (!slot) {
        slot = std::make_unique<Armed>();
        slot->timer.setSingleShot(true);
        slot->timer.setTimerType(Qt::PreciseTimer);
        TimerClient* target = &client;
        QObject::connect(&slot->timer, &QTimer::timeout, this, [this, target] { onTimeout(target); });
    }
    slot->interval = milliseconds(intervalMs);
    slot->due = Clock::now() + slot->interval;
    slot->timer.start(slot->interval);
}

void QtEventLoop::stopTimer(TimerClient& client) {
    auto it = timers_.find(&client);
    if (it != timers_.end()) it->second->timer.stop();
}

void QtEventLoop::onTimeout(TimerClient* client) {
    auto it = timers_.find(client);
    if (it == timers_.end()) return;
    Armed& slot = *it->second;
    auto now = Clock::now();
    // Keep to the grid of the first tick; skip ticks that a long handler missed.
    do slot.due += slot.interval;
    while (slot.due <= now);
    auto wait = std::chrono::duration_cast<milliseconds>(slot.due - now);
    slot.timer.start(std::max(wait, milliseconds(0)));
    client->timerDue();
}

void QtEventLoop::doEvents() {
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void QtEventLoop::idleUntil(uint32_t deadlineMs) {
    uint32_t ahead = deadlineMs - nowMs();
    if (ahead > 0x7FFFFFFFu) return;
    wake_.start(static_cast<int>(std::min<uint32_t>(ahead, 0x7FFFFFFF)));
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

}  // namespace tessaly
