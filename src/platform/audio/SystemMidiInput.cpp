#include "platform/audio/SystemMidiInput.h"

#include <rtmidi/RtMidi.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>

namespace tessaly::audio {

namespace {

constexpr const char* kClientName = "tessaly";
constexpr const char* kSequencerDevice = "/dev/snd/seq";

// RtMidi prints to the error stream before it throws, and ALSA prints when
// its device is missing: without the device nothing is tried at all.
std::unique_ptr<RtMidiIn> makeAlsaIn() {
    if (::access(kSequencerDevice, R_OK | W_OK) != 0) return nullptr;
    try {
        return std::make_unique<RtMidiIn>(RtMidi::LINUX_ALSA, kClientName);
    } catch (const RtMidiError&) {
        return nullptr;
    }
}

void markFailed(RtMidiError::Type, const std::string&, void* flag) { *static_cast<bool*>(flag) = true; }

void onRtMidiMessage(double, std::vector<unsigned char>* message, void* input) {
    static_cast<SystemMidiInput*>(input)->arrived(message->data(), message->size());
}

}  // namespace

SystemMidiInput::SystemMidiInput() : wakeFd_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}

SystemMidiInput::~SystemMidiInput() {
    // RtMidi's thread ends with the connection, before the queue and the descriptor go.
    connected_.reset();
    lister_.reset();
    if (wakeFd_ >= 0) ::close(wakeFd_);
}

MidiInputPort SystemMidiInput::splitPortName(const std::string& full) {
    const std::size_t space = full.rfind(' ');
    if (space == std::string::npos) return {full, full};
    const std::string tail = full.substr(space + 1);
    const std::size_t colon = tail.find(':');
    auto digits = [](const std::string& s) {
        return !s.empty() && std::all_of(s.begin(), s.end(), [](unsigned char c) { return std::isdigit(c); });
    };
    if (colon == std::string::npos || !digits(tail.substr(0, colon)) || !digits(tail.substr(colon + 1)))
        return {full, full};
    return {tail, full.substr(0, space)};
}

RtMidiIn* SystemMidiInput::lister() {
    if (!lister_) {
        lister_ = makeAlsaIn();
        if (lister_) lister_->setErrorCallback(&markFailed, &listerFailed_);
    }
    return lister_.get();
}

std::vector<MidiInputPort> SystemMidiInput::ports() {
    std::vector<MidiInputPort> ports;
    RtMidiIn* midi = lister();
    if (!midi) return ports;
    listerFailed_ = false;
    const unsigned int count = midi->getPortCount();
    for (unsigned int i = 0; i < count && !listerFailed_; ++i) {
        const std::string name = midi->getPortName(i);
        if (!listerFailed_ && !name.empty()) ports.push_back(splitPortName(name));
    }
    // A port that went away between counting and naming spoils this reading
    // only: the last whole one stands until the next.
    if (listerFailed_) return lastPorts_;
    lastPorts_ = ports;
    return ports;
}

int SystemMidiInput::findPort(RtMidiIn& midi, const std::string& address, bool& failed) {
    const unsigned int count = midi.getPortCount();
    for (unsigned int i = 0; i < count && !failed; ++i)
        if (splitPortName(midi.getPortName(i)).address == address) return static_cast<int>(i);
    return -1;
}

bool SystemMidiInput::connect(const std::string& address) {
    disconnect();
    std::unique_ptr<RtMidiIn> midi = makeAlsaIn();
    if (!midi) return false;
    connectedFailed_ = false;
    midi->setErrorCallback(&markFailed, &connectedFailed_);
    const int index = findPort(*midi, address, connectedFailed_);
    if (index < 0 || connectedFailed_) return false;
    // Clock, active sensing and system exclusive play nothing: RtMidi drops them.
    midi->ignoreTypes(true, true, true);
    midi->setCallback(&onRtMidiMessage, this);
    midi->openPort(static_cast<unsigned int>(index), "keyboard");
    if (connectedFailed_) return false;
    connected_ = std::move(midi);
    return true;
}

void SystemMidiInput::disconnect() {
    // Destroying the port joins RtMidi's thread: no message arrives after this.
    connected_.reset();
}

void SystemMidiInput::arrived(const unsigned char* bytes, std::size_t size) {
    if (size == 0 || size > 3) return;
    uint32_t message = 0;
    for (std::size_t i = 0; i < size; ++i) message |= static_cast<uint32_t>(bytes[i]) << (8 * i);
    if (!queue_.push(message)) {
        dropped_.fetch_add(1, std::memory_order_relaxed);
        return;
    }
    const uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(wakeFd_, &one, sizeof one);
}

void SystemMidiInput::acknowledgeWake() {
    uint64_t count = 0;
    [[maybe_unused]] const ssize_t read = ::read(wakeFd_, &count, sizeof count);
}

bool SystemMidiInput::take(uint32_t& message) { return queue_.pop(message); }

}  // namespace tessaly::audio
