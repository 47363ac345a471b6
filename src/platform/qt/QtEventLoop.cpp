#include "platform/qt/QtEventLoop.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

namespace tessaly {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

namespace {

// The steady clock is CLOCK_MONOTONIC on Linux, the clock the timerfd runs on.
timespec toTimespec(QtEventLoop::Clock::time_point t) {
    const auto ns = std::chrono::duration_cast<nanoseconds>(t.time_since_epoch()).count();
    timespec ts{};
    ts.tv_sec = static_cast<time_t>(ns / 1'000'000'000);
    ts.tv_nsec = static_cast<long>(ns % 1'000'000'000);
    // A zero value would disarm the timer instead of firing it at once.
    if (ts.tv_sec == 0 && ts.tv_nsec == 0) ts.tv_nsec = 1;
    return ts;
}

}  // namespace

QtEventLoop::Armed::~Armed() {
    notifier.reset();
    if (fd >= 0) ::close(fd);
}

QtEventLoop::QtEventLoop() {
    wake_.setSingleShot(true);
    wake_.setTimerType(Qt::PreciseTimer);
}

QtEventLoop::~QtEventLoop() = default;

uint32_t QtEventLoop::nowMs() const {
    auto ms = std::chrono::duration_cast<milliseconds>(Clock::now().time_since_epoch()).count();
    return static_cast<uint32_t>(ms);
}

QtEventLoop::Armed& QtEventLoop::slotOf(TimerClient& client) {
    auto& slot = timers_[&client];
    if (slot) return *slot;
    slot = std::make_unique<Armed>();
    slot->fd = ::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
    if (slot->fd < 0) throw std::runtime_error(std::string("timerfd_create: ") + std::strerror(errno));
    slot->notifier = std::make_unique<QSocketNotifier>(slot->fd, QSocketNotifier::Read);
    TimerClient* target = &client;
    QObject::connect(slot->notifier.get(), &QSocketNotifier::activated, this, [this, target] { onDue(target); });
    return *slot;
}

QtEventLoop::Clock::time_point QtEventLoop::periodStart(const TimerClient& client) const {
    for (auto it = firing_.rbegin(); it != firing_.rend(); ++it)
        if (it->client == &client) return it->scheduled;
    return Clock::now();
}

void QtEventLoop::arm(Armed& slot) {
    itimerspec deadline{};
    deadline.it_value = toTimespec(slot.due);
    ::timerfd_settime(slot.fd, TFD_TIMER_ABSTIME, &deadline, nullptr);
}

void QtEventLoop::startTimer(TimerClient& client, int intervalMs) {
    if (intervalMs <= 0) {
        stopTimer(client);
        return;
    }
    const Clock::time_point from = periodStart(client);
    Armed& slot = slotOf(client);
    slot.interval = milliseconds(intervalMs);
    slot.due = from + slot.interval;
    slot.running = true;
    arm(slot);
}

void QtEventLoop::stopTimer(TimerClient& client) {
    auto it = timers_.find(&client);
    if (it == timers_.end()) return;
    Armed& slot = *it->second;
    slot.running = false;
    itimerspec off{};
    ::timerfd_settime(slot.fd, 0, &off, nullptr);
}

void QtEventLoop::onDue(TimerClient* client) {
    auto it = timers_.find(client);
    if (it == timers_.end()) return;
    Armed& slot = *it->second;
    uint64_t expirations = 0;
    // Nothing to read: the timer was stopped or re-armed after it became due
    // and before this notification was delivered.
    if (::read(slot.fd, &expirations, sizeof expirations) != sizeof expirations || !slot.running) return;
    const Clock::time_point scheduled = slot.due;
    const Clock::time_point now = Clock::now();
    // Keep to the grid of the first tick; skip ticks that a long handler missed.
    do slot.due += slot.interval;
    while (slot.due <= now);
    arm(slot);
    firing_.push_back({client, scheduled});
    try {
        client->timerDue();
    } catch (...) {
        firing_.pop_back();
        throw;
    }
    firing_.pop_back();
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
