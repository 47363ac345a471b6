#pragma once
#include <memory>
#include <string>

#include "platform/audio/SoundBuffer.h"

namespace tessaly::audio {

// Reads a sound file that libsndfile understands and converts it to the
// engine's rate and channel count. Null when the file is missing, unreadable
// or empty. Runs on the calling thread; it may take a while for long files.
std::unique_ptr<SoundBuffer> readSoundFile(const std::string& path);

}  // namespace tessaly::audio
