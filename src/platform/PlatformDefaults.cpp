#include "platform/InstanceLock.h"
#include "platform/MciCommands.h"
#include "platform/MidiInput.h"
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

class NoKeyboards : public MidiInput {
public:
    std::vector<MidiInputPort> ports() override { return {}; }
    bool connect(const std::string&) override { return false; }
    void disconnect() override {}
    bool take(uint32_t&) override { return false; }
};

}  // namespace

MidiInput& noMidiInput() {
    static NoKeyboards keyboards;
    return keyboards;
}

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
