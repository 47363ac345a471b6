#include "AudioTestSupport.h"

#include <sndfile.h>
#include <unistd.h>

#include <atomic>
#include <cmath>
#include <numbers>
#include <sstream>

#include "app/script/ScriptDriver.h"

namespace tessaly::audio::testing {

TempFolder::TempFolder() {
    static std::atomic<int> counter{0};
    path_ = std::filesystem::temp_directory_path() /
            ("tessaly-audio-" + std::to_string(getpid()) + "-" + std::to_string(counter++));
    std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

std::vector<float> readWav(const std::string& path, int& rate) {
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    EXPECT_NE(file, nullptr) << path;
    if (!file) return {};
    std::vector<float> frames(static_cast<std::size_t>(info.frames * info.channels));
    sf_readf_float(file, frames.data(), info.frames);
    sf_close(file);
    rate = info.samplerate;
    EXPECT_EQ(info.channels, 2);
    return frames;
}

std::vector<float> renderScript(const std::string& script, int& rate, std::string* driverOutput) {
    TempFolder folder;
    ScriptOptions options;
    options.synth = true;
    options.soundFont = kTestSoundFont;
    options.wavPath = folder.file("take.wav");
    options.appDir = folder.file("app");
    std::ostringstream out;
    {
        ScriptDriver driver(options, out);
        std::istringstream in(script);
        EXPECT_EQ(driver.run(in), 0) << out.str();
    }
    if (driverOutput) *driverOutput = out.str();
    return readWav(options.wavPath, rate);
}

void writeSineWav(const std::string& path, double hz, int sampleRate, int channels, double seconds, double amplitude) {
    writeSineFile(path, SF_FORMAT_WAV | SF_FORMAT_PCM_16, hz, sampleRate, channels, seconds, amplitude);
}

SoundFile readSound(const std::string& path) {
    SoundFile sound;
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    EXPECT_NE(file, nullptr) << path << ": " << sf_strerror(nullptr);
    if (!file) return sound;
    sound.rate = info.samplerate;
    sound.channels = info.channels;
    sound.format = info.format;
    sound.samples.resize(static_cast<std::size_t>(info.frames * info.channels));
    const sf_count_t got = sf_readf_float(file, sound.samples.data(), info.frames);
    sound.samples.resize(static_cast<std::size_t>(got * info.channels));
    sf_close(file);
    return sound;
}

void writeSineFile(const std::string& path, int format, double hz, int sampleRate, int channels, double seconds,
                   double amplitude) {
    SF_INFO info{};
    info.samplerate = sampleRate;
    info.channels = channels;
    info.format = format;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    ASSERT_NE(file, nullptr) << sf_strerror(nullptr);
    const auto frames = static_cast<std::size_t>(seconds * sampleRate);
    std::vector<float> samples(frames * static_cast<std::size_t>(channels));
    for (std::size_t f = 0; f < frames; ++f) {
        const auto value = static_cast<float>(amplitude * std::sin(2 * std::numbers::pi * hz * static_cast<double>(f) / sampleRate));
        for (int c = 0; c < channels; ++c) samples[f * static_cast<std::size_t>(channels) + static_cast<std::size_t>(c)] = value;
    }
    sf_writef_float(file, samples.data(), static_cast<sf_count_t>(frames));
    sf_close(file);
}

}  // namespace tessaly::audio::testing
