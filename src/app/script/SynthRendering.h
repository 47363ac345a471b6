#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "platform/EventLoop.h"
#include "platform/MidiPort.h"
#include "platform/WaveOut.h"
#include "platform/audio/AudioEngine.h"
#include "platform/audio/EngineWaveOut.h"
#include "platform/audio/MciDevice.h"
#include "platform/audio/OfflineRenderer.h"
#include "platform/audio/SystemMidiPort.h"
#include "platform/audio/SoundFileWriter.h"

namespace tessaly {

// The built-in synthesizer, the effect voice and the recorder's device
// rendered offline in step with virtual time: before anything reaches the
// engine, what it had to play up to the current millisecond is rendered, so
// each message sounds at its own time. The recorder's device moves its sound
// between files and engine after every stretch of its service interval.
class SynthRendering {
public:
    // soundFont: a .sf2 to use instead of the usual search (empty: search).
    SynthRendering(const EventLoop& clock, const std::string& appDir, const std::string& soundFont,
                   const std::string& wavPath);
    ~SynthRendering();

    MidiPort& midi() { return midi_; }
    WaveOut& wave() { return wave_; }
    MciCommands& mci() { return mci_; }
    // Renders up to the clock's present.
    void catchUp();

private:
    class SteppedMidi : public MidiPort {
    public:
        SteppedMidi(SynthRendering& owner, MidiPort& inner) : owner_(owner), inner_(inner) {}
        int deviceCount() override { return inner_.deviceCount(); }
        bool deviceName(int id, std::string& name) override { return inner_.deviceName(id, name); }
        int open(int id, uint32_t& handle) override { return inner_.open(id, handle); }
        int close(uint32_t handle) override;
        int shortMessage(uint32_t handle, uint32_t message) override;
        std::string errorText(int code) override { return inner_.errorText(code); }

    private:
        SynthRendering& owner_;
        MidiPort& inner_;
    };
    class SteppedWave : public WaveOut {
    public:
        SteppedWave(SynthRendering& owner, WaveOut& inner) : owner_(owner), inner_(inner) {}
        void setVolume(uint32_t volumeWord) override;
        bool playSound(const std::string& path, int flags) override;

    private:
        SynthRendering& owner_;
        WaveOut& inner_;
    };
    class SteppedMci : public MciCommands {
    public:
        SteppedMci(SynthRendering& owner, MciCommands& inner) : owner_(owner), inner_(inner) {}
        MciResult execute(const std::string& command) override;

    private:
        SynthRendering& owner_;
        MciCommands& inner_;
    };

    const EventLoop& clock_;
    uint64_t elapsedMs_ = 0;  // the clock's milliseconds since the start, unwrapped
    uint32_t lastClock_;
    audio::AudioEngine engine_;
    audio::SystemMidiPort synth_;
    audio::EngineWaveOut effects_;
    audio::MciDevice recorder_;
    audio::SoundFileWriter writer_;
    std::string wavPath_;
    std::unique_ptr<audio::OfflineRenderer> renderer_;
    SteppedMidi midi_;
    SteppedWave wave_;
    SteppedMci mci_;
};

}  // namespace tessaly
