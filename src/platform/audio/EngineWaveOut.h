#pragma once
#include "platform/WaveOut.h"
#include "platform/audio/DecodedSounds.h"

namespace tessaly::audio {

class AudioEngine;

// Wave output through the audio engine: the volume word is the master gain,
// and sounds play on the engine's effect voice.
class EngineWaveOut : public WaveOut {
public:
    explicit EngineWaveOut(AudioEngine& engine) : engine_(engine) {}

    void setVolume(uint32_t volumeWord) override;
    // A file prepared before and unchanged since only starts the voice; any
    // other is read and converted here, on the calling thread. Flags are
    // accepted as given: sounds always play in the background and there is
    // no default sound to fall back on. False for a missing or unreadable file.
    bool playSound(const std::string& path, int flags) override;
    void prepareSound(const std::string& path) override { sounds_.prepare(path); }

private:
    AudioEngine& engine_;
    DecodedSounds sounds_;
};

}  // namespace tessaly::audio
