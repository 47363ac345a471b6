#pragma once
#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/MidiPort.h"
#include "platform/audio/SoundFontLocator.h"
#include "runtime/FileAccess.h"

class RtMidiOut;

namespace tessaly::audio {

class AudioEngine;
class BuiltInSynth;

// The MIDI output devices of this machine: id -1 is the built-in synthesizer,
// rendered by the audio engine; ids 0.. are the output ports of the ALSA
// sequencer. Without an ALSA sequencer the synthesizer is the only device.
class SystemMidiPort : public MidiPort {
public:
    static constexpr const char* kSynthName = "内置 GM 合成器";
    static constexpr int kSynthId = -1;
    // The capabilities record holds at most this many characters of a name.
    static constexpr std::size_t kMaxNameChars = 31;

    SystemMidiPort(AudioEngine& engine, SoundFontChoice soundFont);
    ~SystemMidiPort() override;

    int deviceCount() override;
    bool deviceName(int deviceId, std::string& name) override;
    int open(int deviceId, uint32_t& handle) override;
    int close(uint32_t handle) override;
    int shortMessage(uint32_t handle, uint32_t message) override;
    std::string errorText(int code) override;

    // Starts building the synthesizer and loading its SoundFont on a worker
    // thread (a large one takes a good part of a second), so that opening
    // the synthesizer later only takes it over. Once; later calls do nothing.
    void preloadSynth();

    // The SoundFont the synthesizer loaded when it was last opened.
    const std::string& soundFontPath() const { return soundFontPath_; }
    // How many times a SoundFont was loaded: a reopening that finds the
    // same file unchanged takes the closed synthesizer back instead.
    int soundFontLoads() const { return loads_; }

private:
    struct OpenDevice {
        int deviceId;
        uint32_t handle;
        std::unique_ptr<RtMidiOut> port;  // null for the synthesizer
        bool failed = false;              // set by RtMidi's error callback
    };

    std::vector<std::string> listPorts();
    OpenDevice* findOpen(uint32_t handle);
    int openSynth();
    int openPort(OpenDevice& device);

    AudioEngine& engine_;
    SoundFontChoice soundFont_;
    struct LoadedSynth {
        std::string path;
        std::unique_ptr<BuiltInSynth> synth;  // null when the SoundFont did not load
    };
    static LoadedSynth loadSynth(const SoundFontChoice& choice);

    std::unique_ptr<BuiltInSynth> synth_;
    // The synthesizer of the last close, kept with what its file was then.
    struct KeptSynth {
        std::unique_ptr<BuiltInSynth> synth;
        std::string path;
        std::optional<FileStamp> stamp;
    };
    KeptSynth kept_;
    int loads_ = 0;
    std::future<LoadedSynth> preloaded_;
    bool preloadStarted_ = false;
    std::string soundFontPath_;
    std::vector<std::unique_ptr<OpenDevice>> open_;
    uint32_t nextHandle_ = 1;
};

}  // namespace tessaly::audio
