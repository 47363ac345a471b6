#include "platform/audio/SystemMidiPort.h"

#include <unistd.h>

#include <rtmidi/RtMidi.h>

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/MidiErrors.h"
#include "platform/audio/AudioEngine.h"
#include "platform/audio/BuiltInSynth.h"
#include "platform/audio/ShortMessage.h"
#include "runtime/FileAccess.h"
#include "runtime/Text.h"

namespace tessaly::audio {

namespace {

constexpr const char* kClientName = "tessaly";

// Only ALSA: the JACK back end constructs but crashes when a port is opened.
// The constructor throws when there is no ALSA sequencer, after RtMidi and
// ALSA have printed their complaints: without the device nothing is tried.
std::unique_ptr<RtMidiOut> makeAlsaOut() {
    if (::access("/dev/snd/seq", R_OK | W_OK) != 0) return nullptr;
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
    // A preload nobody took (the program ended during the splash) is waited
    // for by the future itself.
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

SystemMidiPort::LoadedSynth SystemMidiPort::loadSynth(const SoundFontChoice& choice) {
    LoadedSynth loaded{locateSoundFont(choice), std::make_unique<BuiltInSynth>()};
    if (loaded.path.empty() || !loaded.synth->loadSoundFont(loaded.path)) loaded.synth.reset();
    return loaded;
}

void SystemMidiPort::preloadSynth() {
    if (preloadStarted_) return;
    preloadStarted_ = true;
    preloaded_ = std::async(std::launch::async, &SystemMidiPort::loadSynth, soundFont_);
}

int SystemMidiPort::openSynth() {
    // The preloaded synthesizer serves the first opening. A later one (after
    // a close) takes the closed synthesizer back when the SoundFont it would
    // load is the same file, unchanged; otherwise it loads afresh.
    LoadedSynth loaded;
    if (preloaded_.valid()) {
        loaded = preloaded_.get();
        ++loads_;
    } else if (KeptSynth kept = std::exchange(kept_, {}); kept.synth && !kept.path.empty() &&
               locateSoundFont(soundFont_) == kept.path && fileStamp(kept.path) == kept.stamp) {
        kept.synth->reset();
        loaded = LoadedSynth{kept.path, std::move(kept.synth)};
    } else {
        loaded = loadSynth(soundFont_);
        ++loads_;
    }
    if (!loaded.synth) return kMidiSoundFontMissing;
    synth_ = std::move(loaded.synth);
    soundFontPath_ = loaded.path;
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
        kept_ = KeptSynth{std::move(synth_), soundFontPath_, fileStamp(soundFontPath_)};
    } else {
        device->port->closePort();
    }
    std::erase_if(open_, [&](const auto& d) { return d.get() == device; });
    return kMidiOk;
}

int SystemMidiPort::shortMessage(uint32_t handle, uint32_t message) {
    OpenDevice* device = handle == 0 ? nullptr : findOpen(handle);
    if (!device) return kMidiInvalidHandle;
    if (device->deviceId == kSynthId) {
        // Stamped, so that the callback sounds it at the frame of its sending.
        const int64_t sentNs = std::chrono::duration_cast<std::chrono::nanoseconds>(
                                   std::chrono::steady_clock::now().time_since_epoch()).count();
        return engine_.mixer().postMidi(message, sentNs) ? kMidiOk : kMidiSendFailed;
    }

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
