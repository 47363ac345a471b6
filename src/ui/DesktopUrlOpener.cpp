#include "ui/DesktopUrlOpener.h"

#include <QDesktopServices>
#include <QUrl>

namespace tessaly {

bool DesktopUrlOpener::open(const std::string& address) {
    return QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
}

}  // namespace tessaly
