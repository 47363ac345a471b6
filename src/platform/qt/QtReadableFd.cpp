#include "platform/qt/QtReadableFd.h"

#include <QSocketNotifier>

namespace tessaly {

QtReadableFd::QtReadableFd(int fd, std::function<void()> onReadable) {
    if (fd < 0) return;
    notifier_ = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [call = std::move(onReadable)] { call(); });
}

QtReadableFd::~QtReadableFd() = default;

}  // namespace tessaly
