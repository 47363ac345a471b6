#pragma once
#include <memory>
#include <string>

#include "platform/audio/SoundBuffer.h"

namespace tessaly::audio {

// The longest stretch of a sound effect that is kept: effects are short
// sounds, and a long file plays its first minute rather than filling memory.
constexpr int kLongestEffectSeconds = 60;

// Reads a WAV file as a sound effect, converted to the engine's rate and
// channel count (libsndfile decodes, libsamplerate converts the rate), at
// most its first kLongestEffectSeconds. Null when the file is missing,
// unreadable, empty or of an absurd format (a rate below 1000 Hz or above
// 384 kHz, hundreds of channels), which then does not play.
std::unique_ptr<SoundBuffer> readSoundFile(const std::string& path);

}  // namespace tessaly::audio
