#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <thread>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"
#include "platform/audio/EngineWaveOut.h"

using namespace tessaly;
using namespace tessaly::audio;
using namespace tessaly::audio::testing;

namespace {

template <typename Done>
bool waitFor(Done done) {
    for (int i = 0; i < 500 && !done(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return done();
}

}  // namespace

TEST(AudioEngine, WithoutADeviceSaysSoOnceAndStillRuns) {
    ScopedEnv driver("SDL_AUDIODRIVER", "tessaly-no-such-driver");
    AudioEngine engine;
    EXPECT_FALSE(engine.hasDevice());
    EXPECT_FALSE(engine.deviceError().empty());
    EXPECT_EQ(engine.takeStatusMessage(), AudioEngine::kNoDeviceMessage);
    EXPECT_EQ(engine.takeStatusMessage(), "");
    float block[2 * kDefaultPeriodFrames];
    EXPECT_FALSE(engine.renderFrames(block, kDefaultPeriodFrames)) << "only offline engines render on demand";

    // The silent sink plays a sound through to its end.
    TempFolder folder;
    writeSineWav(folder.file("click.wav"), 1000.0, 48000, 1, 0.05, 0.5);
    EngineWaveOut wave(engine);
    ASSERT_TRUE(wave.playSound(folder.file("click.wav"), 1));
    EXPECT_TRUE(waitFor([&] { return !engine.mixer().effectVoice().sounding(); }));
}

TEST(AudioEngine, DeviceCallbackPlaysTheSynth) {
    TempFolder folder;
    const std::string rawOut = folder.file("device.raw");
    ScopedEnv driver("SDL_AUDIODRIVER", "disk");
    ScopedEnv file("SDL_DISKAUDIOFILE", rawOut);
    {
        AudioEngine engine{{AudioOutput::Device, 256}};
        ASSERT_TRUE(engine.hasDevice()) << engine.deviceError();
        EXPECT_EQ(engine.takeStatusMessage(), "");
        SystemMidiPort port(engine, {"", kTestSoundFont});
        uint32_t handle = 0;
        ASSERT_EQ(port.open(-1, handle), kMidiOk);
        ASSERT_EQ(port.shortMessage(handle, pack(0x90, 60, 100)), kMidiOk);
        // The disk driver writes in real time; wait for well over half a second.
        EXPECT_TRUE(waitFor([&] { return std::filesystem::file_size(rawOut) > 48000 * 2 * sizeof(float) * 7 / 10; }));
    }
    std::ifstream in(rawOut, std::ios::binary);
    std::vector<float> stereo(std::filesystem::file_size(rawOut) / sizeof(float));
    in.read(reinterpret_cast<char*>(stereo.data()), static_cast<std::streamsize>(stereo.size() * sizeof(float)));
    ASSERT_GT(stereo.size(), 2u * 600 * kFramesPerMs);
    EXPECT_GT(rms(stereo), 0.01);
    EXPECT_NEAR(estimatePitchHz(channelOf(stereo, 0, 100 * kFramesPerMs), kSampleRate), 261.63, 2.6);
}
