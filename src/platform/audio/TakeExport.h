#pragma once
#include <cstdint>
#include <string>

#include "platform/MciInterpreter.h"

namespace tessaly::audio {

// Writes a take (raw float stereo at the engine's rate) as a PCM WAV file of
// the given bits (8 unsigned, 16 signed), rate and channels. The file is
// written beside its final place under a temporary name and renamed over it
// only when complete, so a failed save leaves whatever was there. False when
// anything could not be read or written.
bool exportTake(const std::string& takePath, uint64_t frames, const std::string& target, const MciWaveFormat& format);

}  // namespace tessaly::audio
