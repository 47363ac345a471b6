#pragma once
#include <functional>
#include <memory>

class QSocketNotifier;

namespace tessaly {

// SIGTERM, SIGHUP and SIGINT become a call on the event thread: the handler
// only writes the signal's number into a pipe that the event loop watches, so
// nothing but that write happens inside the handler. One object at a time.
class QtEndSignals {
public:
    explicit QtEndSignals(std::function<void(int signal)> onSignal);
    ~QtEndSignals();
    QtEndSignals(const QtEndSignals&) = delete;
    QtEndSignals& operator=(const QtEndSignals&) = delete;

private:
    std::function<void(int)> onSignal_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tessaly
