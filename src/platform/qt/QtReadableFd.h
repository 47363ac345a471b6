#pragma once
#include <functional>
#include <memory>

class QSocketNotifier;

namespace tessaly {

// Calls a function on the event thread whenever a descriptor becomes
// readable: how another thread wakes the loop at once, through a pipe or an
// eventfd, instead of waiting for a timer's tick. The function must read
// what made the descriptor readable, or it is called again.
class QtReadableFd {
public:
    QtReadableFd(int fd, std::function<void()> onReadable);
    ~QtReadableFd();
    QtReadableFd(const QtReadableFd&) = delete;
    QtReadableFd& operator=(const QtReadableFd&) = delete;

private:
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tessaly
