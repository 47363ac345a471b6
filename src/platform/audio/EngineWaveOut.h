#pragma once
#include "platform/WaveOut.h"

namespace tessaly::audio {

class AudioEngine;

// Wave output through the audio engine: the volume word is the master gain,
// and sounds play on the engine's effect voice.
class EngineWaveOut : public WaveOut {
public:
    explicit EngineWaveOut(AudioEngine& engine) : engine_(engine) {}

    void setVolume(uint32_t volumeWord) override;
    // The file is read and converted here, on the calling thread. Flags are
    // accepted as given: sounds always play in the background and there is
    // no default sound to fall back on. False for a missing or unreadable file.
    bool playSound(const std::string& path, int flags) override;

private:
    AudioEngine& engine_;
};

}  // namespace tessaly::audio
