#include "platform/audio/SystemMidiPort.h"

#include <rtmidi/RtMidi.h>

#include <algorithm>

#include "platform/MidiErrors.h"
#include "platform/audio/AudioEngine.h"
#include "platform/audio/BuiltInSynth.h"
#include "platform/audio/ShortMessage.h"
#include "runtime/Text.h"

namespace tessaly::audio {

namespace {

constexpr const char* kClientName = "tessaly";

// Only ALSA: the JACK back end constructs but crashes when a port is opened.
// The constructor throws when there is no ALSA sequencer.
std::unique_ptr<RtMidiOut> makeAlsaOut() {
    try {
        return std::make_unique<RtMidiOut>(RtMidi::LINUX_ALSA, kClientName);
    } catch (const RtMidiError&) {
        return nullptr;
    }
}

void markFailed(RtMidiError::Type, const std::string&, void* device) {
    *static_cast<bool*>(device) = true;
}

}  // namespace

SystemMidiPort::SystemMidiPort(AudioEngine& engine, SoundFontChoice soundFont)
    : engine_(engine), soundFont_(std::move(soundFont)) {}

SystemMidiPort::~SystemMidiPort() {
    while (!open_.empty()) close(open_.back()->handle);
}

std::vector<std::string> SystemMidiPort::listPorts() {
    std::vector<std::string> names;
    std::unique_ptr<RtMidiOut> probe = makeAlsaOut();
    if (!probe) return names;
    bool failed = false;
    probe->setErrorCallback(&markFailed, &failed);
    const unsigned int count = probe->getPortCount();
    for (unsigned int i = 0; i < count && !failed; ++i) names.push_back(probe->getPortName(i));
    if (failed) names.clear();
    return names;
}

int SystemMidiPort::deviceCount() {
    return static_cast<int>(listPorts().size());
}

bool SystemMidiPort::deviceName(int deviceId, std::string& name) {
    if (deviceId == kSynthId) {
        name = kSynthName;
        return true;
    }
    if (deviceId < 0) return false;
    const std::vector<std::string> ports = listPorts();
    if (static_cast<std::size_t>(deviceId) >= ports.size()) return false;
    name = charSubstr(ports[static_cast<std::size_t>(deviceId)], 0, kMaxNameChars);
    return true;
}

SystemMidiPort::OpenDevice* SystemMidiPort::findOpen(uint32_t handle) {
    for (auto& device : open_) {
        if (device->handle == handle) return device.get();
    }
    return nullptr;
}

int SystemMidiPort::open(int deviceId, uint32_t& handle) {
    if (deviceId < kSynthId) return kMidiBadDeviceId;
    if (std::any_of(open_.begin(), open_.end(), [&](const auto& d) { return d->deviceId == deviceId; })) {
        return kMidiAllocated;
    }
    auto device = std::make_unique<OpenDevice>(OpenDevice{deviceId, nextHandle_, nullptr});
    const int result = deviceId == kSynthId ? openSynth() : openPort(*device);
    if (result != kMidiOk) return result;
    handle = nextHandle_++;
    open_.push_back(std::move(device));
    return kMidiOk;
}

int SystemMidiPort::openSynth() {
    const std::string path = locateSoundFont(soundFont_);
    auto synth = std::make_unique<BuiltInSynth>();
    if (path.empty() || !synth->loadSoundFont(path)) return kMidiSoundFontMissing;
    synth_ = std::move(synth);
    soundFontPath_ = path;
    engine_.mixer().attachSynth(synth_.get());
    return kMidiOk;
}

int SystemMidiPort::openPort(OpenDevice& device) {
    std::unique_ptr<RtMidiOut> out = makeAlsaOut();
    if (!out) return kMidiNoDriver;
    if (static_cast<unsigned int>(device.deviceId) >= out->getPortCount()) return kMidiBadDeviceId;
    out->setErrorCallback(&markFailed, &device.failed);
    out->openPort(static_cast<unsigned int>(device.deviceId), kClientName);
    if (device.failed) return kMidiPortVanished;
    device.port = std::move(out);
    return kMidiOk;
}

int SystemMidiPort::close(uint32_t handle) {
    OpenDevice* device = handle == 0 ? nullptr : findOpen(handle);
    if (!device) return kMidiInvalidHandle;
    if (device->deviceId == kSynthId) {
        engine_.mixer().detachSynth();
        synth_.reset();
    } else {
        device->port->closePort();
    }
    std::erase_if(open_, [&](const auto& d) { return d.get() == device; });
    return kMidiOk;
}

int SystemMidiPort::shortMessage(uint32_t handle, uint32_t message) {
    OpenDevice* device = handle == 0 ? nullptr : findOpen(handle);
    if (!device) return kMidiInvalidHandle;
    if (device->deviceId == kSynthId) return engine_.mixer().postMidi(message) ? kMidiOk : kMidiSendFailed;

    // Same rule as the synthesizer: a data byte above 127 is not sent.
    const ShortMessage m = ShortMessage::unpack(message);
    if (!m.wellFormed()) return kMidiOk;
    const unsigned char bytes[3] = {m.status, m.data1, m.data2};
    device->failed = false;
    device->port->sendMessage(bytes, static_cast<std::size_t>(m.length()));
    return device->failed ? kMidiPortVanished : kMidiOk;
}

std::string SystemMidiPort::errorText(int code) {
    return midiErrorText(code);
}

}  // namespace tessaly::audio
