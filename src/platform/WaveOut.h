#pragma once
#include <cstdint>
#include <string>

namespace tessaly {

// Wave output: the master volume word and a one-voice sound player.
class WaveOut {
public:
    virtual ~WaveOut() = default;
    // Low word left, high word right, 0xFFFF full scale.
    virtual void setVolume(uint32_t volumeWord) = 0;
    // Plays a WAV file in the background, cutting the sound before. The path
    // "0" stops what plays. Flags: 1 background, 3 background and no default
    // sound. True when the sound started.
    virtual bool playSound(const std::string& path, int flags) = 0;
    // Starts reading the file away from the calling thread and keeps it, so
    // that a later playSound of it only starts the voice.
    virtual void prepareSound(const std::string& /*path*/) {}
};

}  // namespace tessaly
