#include "platform/testing/RecordingPlatform.h"

#include "platform/MidiErrors.h"

namespace tessaly {

int RecordingMidiPort::deviceCount() {
    return inner_ ? inner_->deviceCount() : 0;
}

bool RecordingMidiPort::deviceName(int deviceId, std::string& name) {
    if (inner_) return inner_->deviceName(deviceId, name);
    if (deviceId != -1) return false;
    name = kMapperName;
    return true;
}

int RecordingMidiPort::open(int deviceId, uint32_t& handle) {
    if (failure_) return failure_;
    if (handle_ != 0) return kMidiAllocated;
    if (inner_) {
        int result = inner_->open(deviceId, innerHandle_);
        if (result != kMidiOk) return result;
    } else if (deviceId != -1) {
        return kMidiBadDeviceId;
    }
    handle_ = 1;
    handle = handle_;
    return kMidiOk;
}

int RecordingMidiPort::close(uint32_t handle) {
    if (failure_) return failure_;
    if (handle == 0 || handle != handle_) return kMidiInvalidHandle;
    handle_ = 0;
    if (inner_) return inner_->close(std::exchange(innerHandle_, 0));
    return kMidiOk;
}

int RecordingMidiPort::shortMessage(uint32_t handle, uint32_t message) {
    if (failure_) return failure_;
    if (handle == 0 || handle != handle_) return kMidiInvalidHandle;
    sent_.push_back({clock_.nowMs(), message});
    return inner_ ? inner_->shortMessage(innerHandle_, message) : kMidiOk;
}

std::string RecordingMidiPort::errorText(int code) {
    return inner_ ? inner_->errorText(code) : midiErrorText(code);
}

void RecordingWaveOut::setVolume(uint32_t volumeWord) {
    volume_ = volumeWord;
    if (inner_) inner_->setVolume(volumeWord);
}

bool RecordingWaveOut::playSound(const std::string& path, int flags) {
    log_.add("wave " + path + "|" + std::to_string(flags));
    return inner_ ? inner_->playSound(path, flags) : path != "0";
}

void RecordingMessageBoxes::timedBox(const std::string& title, const std::string& text, int) {
    log_.add("box " + title + "|" + text);
}

void RecordingMessageBoxes::plainBox(const std::string& text) {
    log_.add("box |" + text);
}

MciResult RecordingMciCommands::execute(const std::string& command) {
    log_.add("mci " + command);
    return inner_ ? inner_->execute(command) : modelled_.execute(command);
}

}  // namespace tessaly
