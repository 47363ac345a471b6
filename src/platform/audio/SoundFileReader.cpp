#include "platform/audio/SoundFileReader.h"

#include <algorithm>

#include "platform/audio/AudioFileStream.h"

namespace tessaly::audio {

std::unique_ptr<SoundBuffer> readSoundFile(const std::string& path) {
    AudioFileStream stream;
    if (!stream.open(path, AudioFileStream::Accept::WaveOnly)) return nullptr;
    constexpr std::size_t kLongest = static_cast<std::size_t>(kLongestEffectSeconds) * kSampleRate;
    constexpr std::size_t kPiece = 4096;
    auto sound = std::make_unique<SoundBuffer>();
    std::size_t frames = 0;
    while (frames < kLongest) {
        const std::size_t want = std::min(kPiece, kLongest - frames);
        sound->samples.resize((frames + want) * kChannels);
        const std::size_t got = stream.read(sound->samples.data() + frames * kChannels, want);
        frames += got;
        if (got < want) break;
    }
    sound->samples.resize(frames * kChannels);
    if (frames == 0) return nullptr;
    return sound;
}

}  // namespace tessaly::audio
