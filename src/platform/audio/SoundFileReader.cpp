#include "platform/audio/SoundFileReader.h"

#include <sndfile.h>

#include <cmath>
#include <vector>

namespace tessaly::audio {

namespace {

// Mono is heard on both sides; of more channels the first two are kept.
std::vector<float> toStereo(const std::vector<float>& in, int channels, std::size_t frames) {
    std::vector<float> out(frames * kChannels);
    for (std::size_t f = 0; f < frames; ++f) {
        const float* frame = &in[f * static_cast<std::size_t>(channels)];
        out[f * 2] = frame[0];
        out[f * 2 + 1] = channels > 1 ? frame[1] : frame[0];
    }
    return out;
}

// Linear interpolation between neighbouring frames: plenty for short effects.
std::vector<float> resampleStereo(const std::vector<float>& in, int fromRate) {
    const std::size_t inFrames = in.size() / kChannels;
    if (fromRate == kSampleRate || inFrames == 0) return in;
    const double step = static_cast<double>(fromRate) / kSampleRate;
    const auto outFrames = static_cast<std::size_t>(std::ceil(static_cast<double>(inFrames) / step));
    std::vector<float> out(outFrames * kChannels);
    for (std::size_t f = 0; f < outFrames; ++f) {
        const double at = static_cast<double>(f) * step;
        const auto i = static_cast<std::size_t>(at);
        const auto frac = static_cast<float>(at - static_cast<double>(i));
        const std::size_t j = i + 1 < inFrames ? i + 1 : i;
        for (int c = 0; c < kChannels; ++c) {
            const float a = in[i * kChannels + static_cast<std::size_t>(c)];
            const float b = in[j * kChannels + static_cast<std::size_t>(c)];
            out[f * kChannels + static_cast<std::size_t>(c)] = a + (b - a) * frac;
        }
    }
    return out;
}

}  // namespace

std::unique_ptr<SoundBuffer> readSoundFile(const std::string& path) {
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (!file) return nullptr;
    if (info.channels < 1 || info.samplerate < 1 || info.frames < 1) {
        sf_close(file);
        return nullptr;
    }
    std::vector<float> raw(static_cast<std::size_t>(info.frames) * static_cast<std::size_t>(info.channels));
    const sf_count_t got = sf_readf_float(file, raw.data(), info.frames);
    sf_close(file);
    if (got <= 0) return nullptr;

    auto sound = std::make_unique<SoundBuffer>();
    sound->samples = resampleStereo(toStereo(raw, info.channels, static_cast<std::size_t>(got)), info.samplerate);
    return sound;
}

}  // namespace tessaly::audio
