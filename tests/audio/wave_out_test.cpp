#include <gtest/gtest.h>

#include <fcntl.h>
#include <sndfile.h>
#include <sys/stat.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <tuple>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"
#include "platform/audio/EngineWaveOut.h"
#include "platform/audio/OfflineRenderer.h"
#include "platform/audio/SoundFileReader.h"
#include "platform/audio/SoundFileWriter.h"

using namespace tessaly;
using namespace tessaly::audio;
using namespace tessaly::audio::testing;

// A file prepared ahead is not read again at the press while it is unchanged:
// here its bytes are spoilt in place with its size and time kept, and the
// press still plays the sound read before. A file changed otherwise is read afresh.
TEST(EngineWaveOut, APreparedSoundIsNotReadAgainAtThePress) {
    TempFolder folder;
    const std::string path = folder.file("bell.wav");
    writeSineWav(path, 1000.0, 48000, 2, 0.5, 0.5);
    AudioEngine engine{{AudioOutput::Offline}};
    EngineWaveOut wave(engine);
    wave.prepareSound(path);
    ASSERT_TRUE(wave.playSound(path, 1));

    struct stat before {};
    ASSERT_EQ(::stat(path.c_str(), &before), 0);
    {
        std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
        file.write(std::string(64, 'x').data(), 64);  // the header gone
    }
    const struct timespec times[2] = {before.st_atim, before.st_mtim};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    ASSERT_TRUE(wave.playSound(path, 1));
    EXPECT_NEAR(estimatePitchHz(channelOf(SynthRig::renderEngine(engine, 200), 0), kSampleRate), 1000.0, 10.0);

    writeSineWav(path, 440.0, 48000, 2, 0.25, 0.5);
    ASSERT_TRUE(wave.playSound(path, 1));
    EXPECT_NEAR(estimatePitchHz(channelOf(SynthRig::renderEngine(engine, 200), 0), kSampleRate), 440.0, 4.4);
}

TEST(EngineWaveOut, PlaysConvertsCutsAndStops) {
    TempFolder folder;
    const std::string low = folder.file("low.wav"), high = folder.file("high.wav");
    writeSineWav(low, 440.0, 22050, 1, 0.5, 0.5);   // other rate, mono
    writeSineWav(high, 1000.0, 48000, 2, 1.0, 0.5);

    AudioEngine engine{{AudioOutput::Offline}};
    EngineWaveOut wave(engine);
    EXPECT_FALSE(wave.playSound(folder.file("missing.wav"), 1));

    ASSERT_TRUE(wave.playSound(low, 1));
    std::vector<float> out = SynthRig::renderEngine(engine, 200);
    EXPECT_NEAR(estimatePitchHz(channelOf(out, 0), kSampleRate), 440.0, 4.4);
    EXPECT_NEAR(rms(channelOf(out, 1)), 0.5 / std::sqrt(2.0), 0.01);

    ASSERT_TRUE(wave.playSound(high, 3));
    out = SynthRig::renderEngine(engine, 200);
    EXPECT_NEAR(estimatePitchHz(channelOf(out, 0), kSampleRate), 1000.0, 10.0) << "the second sound cuts the first";

    EXPECT_TRUE(wave.playSound("0", 1));
    EXPECT_EQ(rms(SynthRig::renderEngine(engine, 100)), 0.0);
    EXPECT_FALSE(engine.mixer().effectVoice().sounding());

    // A sound that is left alone ends by itself: 0.5 s at the other rate.
    ASSERT_TRUE(wave.playSound(low, 1));
    EXPECT_TRUE(engine.mixer().effectVoice().sounding());
    out = SynthRig::renderEngine(engine, 600);
    EXPECT_GT(rms(channelOf(out, 0, 0, 490 * kFramesPerMs)), 0.3);
    EXPECT_EQ(rms(channelOf(out, 0, 501 * kFramesPerMs)), 0.0);
    EXPECT_FALSE(engine.mixer().effectVoice().sounding());

    // The volume word applies to effects too, each side on its own scale.
    const double fullLevel = 0.5 / std::sqrt(2.0);
    for (auto [word, left, right] : {std::tuple{0xFFFF0000u, 0.0, 1.0}, std::tuple{0x7FFFFFFFu, 1.0, 0.5},
                                     std::tuple{0x00003FFFu, 0.25, 0.0}}) {
        wave.setVolume(word);
        ASSERT_TRUE(wave.playSound(high, 1));
        out = SynthRig::renderEngine(engine, 100);
        EXPECT_NEAR(rms(channelOf(out, 0)), left * fullLevel, 0.002) << std::hex << word;
        EXPECT_NEAR(rms(channelOf(out, 1)), right * fullLevel, 0.002) << std::hex << word;
    }
}

TEST(EngineWaveOut, AbsurdRatesDoNotPlayAndLongSoundsKeepTheirFirstMinute) {
    TempFolder folder;
    // A rate of 1 Hz once took 15 s and 768 MB to convert by hand.
    const std::string oneHz = folder.file("one-hertz.wav"), slow = folder.file("slow.wav");
    writeSineFile(oneHz, SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 0.25, 1, 1, 400000.0, 0.5);
    writeSineWav(slow, 100.0, 1000, 1, 150.0, 0.5);  // 150 s at the lowest rate taken
    ASSERT_GT(std::filesystem::file_size(oneHz), 400000u);
    AudioEngine engine{{AudioOutput::Offline}};
    EngineWaveOut wave(engine);
    EXPECT_FALSE(wave.playSound(oneHz, 1));
    EXPECT_FALSE(engine.mixer().effectVoice().sounding());

    std::unique_ptr<SoundBuffer> sound = readSoundFile(slow);
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->frames(), static_cast<std::size_t>(kLongestEffectSeconds) * kSampleRate);
    // A file that is not a WAV is no sound effect, whatever its name.
    const std::string notWave = folder.file("flac.wav");
    writeSineFile(notWave, SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 440.0, 48000, 1, 0.2, 0.5);
    EXPECT_FALSE(wave.playSound(notWave, 1));
}

TEST(SoundFileWriter, OfflineRenderWritesExactMillisecondsAs16BitStereo) {
    TempFolder folder;
    const std::string path = folder.file("take.wav");
    const std::string tone = folder.file("tone.wav");
    writeSineWav(tone, 1000.0, 48000, 2, 0.2, 0.9);
    {
        AudioEngine engine{{AudioOutput::Offline, 100}};
        EngineWaveOut wave(engine);
        SoundFileWriter writer;
        ASSERT_TRUE(writer.open(path));
        OfflineRenderer renderer(engine, &writer);
        renderer.renderUntilMs(250);
        EXPECT_EQ(renderer.renderedFrames(), 250u * kFramesPerMs);
        wave.setVolume(0xFFFFFFFF);
        ASSERT_TRUE(wave.playSound(tone, 1));
        renderer.renderMs(10);
        renderer.renderUntilMs(100);  // already past: nothing
        EXPECT_EQ(writer.framesWritten(), 260 * kFramesPerMs);
        ASSERT_TRUE(writer.close());
    }
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(info.samplerate, 48000);
    EXPECT_EQ(info.channels, 2);
    EXPECT_EQ(info.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    ASSERT_EQ(info.frames, 260 * kFramesPerMs);
    std::vector<float> read(static_cast<std::size_t>(info.frames) * 2);
    sf_readf_float(file, read.data(), info.frames);
    sf_close(file);
    EXPECT_EQ(rms(channelOf(read, 0, 0, 250 * kFramesPerMs)), 0.0);
    EXPECT_NEAR(peak(channelOf(read, 1, 250 * kFramesPerMs)), 0.9f, 0.01f);
}

TEST(SoundFileWriter, ClipsInsteadOfWrappingPastFullScale) {
    TempFolder folder;
    const std::string path = folder.file("loud.wav");
    {
        SoundFileWriter writer;
        ASSERT_TRUE(writer.open(path));
        const float frames[4] = {1.5f, -1.5f, 0.25f, -0.25f};
        EXPECT_TRUE(writer.write(frames, 2));
        ASSERT_TRUE(writer.close());
        EXPECT_TRUE(std::filesystem::exists(path));
    }
    {
        // A file not closed is abandoned: what was there stays.
        SoundFileWriter writer;
        ASSERT_TRUE(writer.open(path));
        const float silence[2] = {};
        EXPECT_TRUE(writer.write(silence, 1));
    }
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    ASSERT_NE(file, nullptr);
    short read[4] = {};
    sf_readf_short(file, read, 2);
    sf_close(file);
    EXPECT_EQ(read[0], 32767);
    EXPECT_LE(read[1], -32767);
    EXPECT_EQ(read[2], 8192);
    EXPECT_EQ(read[3], -8192);
}
