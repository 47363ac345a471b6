#include "platform/InstanceLock.h"
#include "platform/MciCommands.h"
#include "platform/UrlOpener.h"

namespace tessaly {

namespace {

class AlwaysFree : public InstanceLock {
public:
    bool acquire(const std::string&) override { return true; }
};

class NoRecorder : public MciCommands {
public:
    MciResult execute(const std::string&) override { return {}; }
};

class NoBrowser : public UrlOpener {
public:
    bool open(const std::string&) override { return false; }
};

}  // namespace

InstanceLock& noInstanceLock() {
    static AlwaysFree lock;
    return lock;
}

UrlOpener& noUrlOpener() {
    static NoBrowser browser;
    return browser;
}

MciCommands& noMciCommands() {
    static NoRecorder recorder;
    return recorder;
}

}  // namespace tessaly
