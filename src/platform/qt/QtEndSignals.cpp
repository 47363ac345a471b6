#include "platform/qt/QtEndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <cerrno>
#include <csignal>

namespace tessaly {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGHUP, SIGINT};
int pipeEnds[2] = {-1, -1};

void onSignal(int number) {
    const int saved = errno;
    const unsigned char byte = static_cast<unsigned char>(number);
    // A full pipe already holds a signal to handle: losing this one is harmless.
    [[maybe_unused]] const ssize_t written = ::write(pipeEnds[1], &byte, 1);
    errno = saved;
}

}  // namespace

QtEndSignals::QtEndSignals(std::function<void(int)> handler) : onSignal_(std::move(handler)) {
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) return;
    notifier_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] {
        unsigned char byte = 0;
        while (::read(pipeEnds[0], &byte, 1) == 1) onSignal_(byte);
    });
    struct sigaction action {};
    action.sa_handler = &tessaly::onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int number : kSignals) ::sigaction(number, &action, nullptr);
}

QtEndSignals::~QtEndSignals() {
    for (int number : kSignals) std::signal(number, SIG_DFL);
    notifier_.reset();
    for (int& end : pipeEnds) {
        if (end >= 0) ::close(end);
        end = -1;
    }
}

}  // namespace tessaly
