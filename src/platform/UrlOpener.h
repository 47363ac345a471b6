#pragma once
#include <string>

namespace tessaly {

// Hands a web address to the system's default browser.
class UrlOpener {
public:
    virtual ~UrlOpener() = default;
    // False when the system could not open it.
    virtual bool open(const std::string& address) = 0;
};

// For callers with no browser (unit tests): every address fails to open.
UrlOpener& noUrlOpener();

}  // namespace tessaly
