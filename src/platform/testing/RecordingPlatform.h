#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/EventLoop.h"
#include "platform/MciCommands.h"
#include "platform/MessageBoxes.h"
#include "platform/MidiPort.h"
#include "platform/UrlOpener.h"
#include "platform/WaveOut.h"
#include "platform/MciInterpreter.h"
#include "platform/testing/EventLog.h"
#include "platform/testing/ModelMciBackend.h"

namespace tessaly {

struct RecordedMidi {
    uint32_t timeMs;
    uint32_t message;
};

// A MIDI sink that records every message sent to the open device with the
// time of the clock. Given an inner port, it also forwards everything to it
// (the built-in synthesizer rendering offline) and lists its devices.
class RecordingMidiPort : public MidiPort {
public:
    static constexpr const char* kMapperName = "内置 GM 合成器";

    RecordingMidiPort(const EventLoop& clock, MidiPort* inner = nullptr) : clock_(clock), inner_(inner) {}

    int deviceCount() override;
    bool deviceName(int deviceId, std::string& name) override;
    int open(int deviceId, uint32_t& handle) override;
    int close(uint32_t handle) override;
    int shortMessage(uint32_t handle, uint32_t message) override;
    std::string errorText(int code) override;

    std::vector<RecordedMidi> take() { return std::exchange(sent_, {}); }
    const std::vector<RecordedMidi>& sent() const { return sent_; }
    bool isOpen() const { return handle_ != 0; }

    // Makes the next calls fail with this code (0 to stop failing).
    void failWith(int code) { failure_ = code; }

private:
    const EventLoop& clock_;
    MidiPort* inner_;
    uint32_t handle_ = 0;
    uint32_t innerHandle_ = 0;
    int failure_ = 0;
    std::vector<RecordedMidi> sent_;
};

class RecordingWaveOut : public WaveOut {
public:
    explicit RecordingWaveOut(EventLog& log, WaveOut* inner = nullptr) : log_(log), inner_(inner) {}
    void setVolume(uint32_t volumeWord) override;
    bool playSound(const std::string& path, int flags) override;
    void prepareSound(const std::string& path) override {
        if (inner_) inner_->prepareSound(path);
    }
    uint32_t volume() const { return volume_; }

private:
    EventLog& log_;
    WaveOut* inner_;
    uint32_t volume_ = 0xFFFFFFFF;
};

class RecordingMessageBoxes : public MessageBoxes {
public:
    explicit RecordingMessageBoxes(EventLog& log) : log_(log) {}
    void timedBox(const std::string& title, const std::string& text, int timeoutMs) override;
    void plainBox(const std::string& text) override;

private:
    EventLog& log_;
};

// Records every address as "url ADDRESS"; opens them all unless told to fail.
class RecordingUrlOpener : public UrlOpener {
public:
    explicit RecordingUrlOpener(EventLog& log) : log_(log) {}
    bool open(const std::string& address) override {
        log_.add("url " + address);
        return !failing_;
    }
    void setFailing(bool failing) { failing_ = failing; }

private:
    EventLog& log_;
    bool failing_ = false;
};

// Records every recorder command as "mci COMMAND". Given an inner recorder
// (the audio engine rendering offline), the commands go to it; otherwise a
// model of the device answers them without sound.
class RecordingMciCommands : public MciCommands {
public:
    explicit RecordingMciCommands(EventLog& log, MciCommands* inner = nullptr) : log_(log), inner_(inner) {}
    MciResult execute(const std::string& command) override;
    // The model's file comes to its end (an inner recorder ends by itself).
    void endOfFile() { model_.endOfFile(); }

private:
    EventLog& log_;
    MciCommands* inner_;
    ModelMciBackend model_;
    MciInterpreter modelled_{model_};
};

}  // namespace tessaly
