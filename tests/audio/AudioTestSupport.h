#pragma once
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/MidiPort.h"
#include "platform/audio/AudioEngine.h"
#include "platform/audio/SystemMidiPort.h"

namespace tessaly::audio::testing {

// An environment variable set for a scope: SDL reads its driver choice when
// the audio subsystem starts.
struct ScopedEnv {
    ScopedEnv(const char* name, const std::string& value) : name_(name) { setenv(name, value.c_str(), 1); }
    ~ScopedEnv() { unsetenv(name_); }
    const char* name_;
};

// The small SoundFont: loads in a few milliseconds.
inline const std::string kTestSoundFont = "/usr/share/sounds/sf2/TimGM6mb.sf2";

// The synthesizer's reverb keeps a tiny offset against denormal numbers, so
// "silent" means below -100 dBFS rather than exactly zero.
inline constexpr float kSilentPeak = 1e-5f;

constexpr uint32_t pack(int status, int data1, int data2) {
    return static_cast<uint32_t>(status) | static_cast<uint32_t>(data1) << 8 | static_cast<uint32_t>(data2) << 16;
}

// An offline engine with the built-in synthesizer open on it.
struct SynthRig {
    AudioEngine engine{{AudioOutput::Offline, kDefaultPeriodFrames}};
    SystemMidiPort port{engine, {"", kTestSoundFont}};
    uint32_t handle = 0;

    SynthRig() { EXPECT_EQ(port.open(SystemMidiPort::kSynthId, handle), kMidiOk); }

    void send(int status, int data1, int data2) {
        EXPECT_EQ(port.shortMessage(handle, pack(status, data1, data2)), kMidiOk);
    }

    std::vector<float> render(int ms) { return renderEngine(engine, ms); }

    static std::vector<float> renderEngine(AudioEngine& engine, int ms) {
        std::vector<float> out(static_cast<std::size_t>(ms * kFramesPerMs * kChannels));
        EXPECT_TRUE(engine.renderFrames(out.data(), ms * kFramesPerMs));
        return out;
    }
};

// A fresh folder under the system's temporary folder, removed at the end.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    const std::filesystem::path& path() const { return path_; }
    std::string file(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

// A 16-bit stereo WAV as interleaved frames; rate gets its sample rate.
std::vector<float> readWav(const std::string& path, int& rate);

// Runs a driver script with the real synthesizer (the small SoundFont) in a
// fresh data folder and returns everything rendered, from virtual time 0;
// driverOutput, when given, gets what the driver printed.
std::vector<float> renderScript(const std::string& script, int& rate, std::string* driverOutput = nullptr);

// A sine tone WAV of the given rate and channel count, 16-bit.
void writeSineWav(const std::string& path, double hz, int sampleRate, int channels, double seconds, double amplitude);
// The same in any format libsndfile writes (SF_FORMAT_... major and subtype).
void writeSineFile(const std::string& path, int format, double hz, int sampleRate, int channels, double seconds,
                   double amplitude);

// A whole sound file as interleaved floats, with what its header says.
struct SoundFile {
    int rate = 0, channels = 0, format = 0;
    std::vector<float> samples;
    std::size_t frames() const { return channels ? samples.size() / static_cast<std::size_t>(channels) : 0; }
};
SoundFile readSound(const std::string& path);

}  // namespace tessaly::audio::testing
