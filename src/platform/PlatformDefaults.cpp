#include "platform/InstanceLock.h"
#include "platform/MciCommands.h"

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

}  // namespace

InstanceLock& noInstanceLock() {
    static AlwaysFree lock;
    return lock;
}

MciCommands& noMciCommands() {
    static NoRecorder recorder;
    return recorder;
}

}  // namespace tessaly
