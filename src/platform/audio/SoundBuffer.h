#pragma once
#include <cstddef>
#include <vector>

#include "platform/audio/AudioFormat.h"

namespace tessaly::audio {

// A whole sound in the engine's format, ready to be mixed as it is.
struct SoundBuffer {
    std::vector<float> samples;  // interleaved stereo at kSampleRate

    std::size_t frames() const { return samples.size() / kChannels; }
};

}  // namespace tessaly::audio
