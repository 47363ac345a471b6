#pragma once
#include "platform/UrlOpener.h"

namespace tessaly {

// Web addresses go to the desktop's default browser.
class DesktopUrlOpener : public UrlOpener {
public:
    bool open(const std::string& address) override;
};

}  // namespace tessaly
