// Playing files on the audio engine's playback slot: every format the player
// takes is heard at its pitch and level and ends in "stopped"; what it cannot
// take fails to open or ends, never hangs or breaks the sound.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <chrono>
#include <cmath>
#include <fstream>
#include <numbers>
#include <random>
#include <thread>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"
#include "platform/audio/MciDevice.h"

using namespace tessaly;
using namespace tessaly::audio;
using namespace tessaly::audio::testing;

namespace {

// An offline engine with nothing but the player.
struct PlayerRig {
    TempFolder folder;
    AudioEngine engine{{AudioOutput::Offline, kDefaultPeriodFrames}};
    MciDevice mci{engine.mixer(), {folder.path().string()}};
    // The status after each 100 ms rendered.
    std::vector<std::string> modes;

    int open(const std::string& path, const char* type) {
        mci.execute("CLOSE NN");
        return mci.execute("OPEN " + path + " TYPE " + type + " ALIAS NN").error;
    }
    void play() {
        mci.execute("seek NN to start");
        mci.execute("PLAY NN FROM 0");
    }
    std::vector<float> render(int ms) {
        std::vector<float> out;
        modes.clear();
        for (int done = 0; done < ms; done += MciDevice::kServiceMs) {
            std::vector<float> piece = SynthRig::renderEngine(engine, MciDevice::kServiceMs);
            out.insert(out.end(), piece.begin(), piece.end());
            mci.service();
            if ((done + MciDevice::kServiceMs) % 100 == 0) modes.push_back(mci.execute("status NN mode").reply);
        }
        return out;
    }
    // The first 100 ms step at which the status said "stopped", in ms; -1 never.
    int stoppedAtMs() const {
        for (std::size_t i = 0; i < modes.size(); ++i)
            if (modes[i] == "stopped") return static_cast<int>(i + 1) * 100;
        return -1;
    }
};

std::size_t frameAt(int ms) { return static_cast<std::size_t>(ms) * kFramesPerMs; }

// The last frame louder than -40 dBFS, in ms.
double lastSoundMs(const std::vector<float>& stereo) {
    for (std::size_t f = stereo.size() / 2; f-- > 0;)
        if (std::fabs(stereo[f * 2]) > 0.01f) return static_cast<double>(f) / kFramesPerMs;
    return 0.0;
}

struct FileCase {
    const char* name;
    int format;
    int rate;
    int channels;
    double levelTolerance;  // of the RMS, relative
};

}  // namespace

TEST(RecorderPlayback, EveryFormatIsHeardAtItsPitchAndLevelAndEndsStopped) {
    const int wav = SF_FORMAT_WAV, mp3 = SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III;
    const FileCase cases[] = {
        {"u8.wav", wav | SF_FORMAT_PCM_U8, 22050, 1, 0.03},  {"s16.wav", wav | SF_FORMAT_PCM_16, 44100, 2, 0.01},
        {"s24.wav", wav | SF_FORMAT_PCM_24, 96000, 1, 0.01}, {"f32.wav", wav | SF_FORMAT_FLOAT, 48000, 2, 0.01},
        {"s16m.wav", wav | SF_FORMAT_PCM_16, 8000, 1, 0.01}, {"m8k.mp3", mp3, 8000, 1, 0.05},
        {"m11k.mp3", mp3, 11025, 2, 0.05},                   {"m22k.mp3", mp3, 22050, 1, 0.05},
        {"m32k.mp3", mp3, 32000, 2, 0.05},                   {"m44k.mp3", mp3, 44100, 2, 0.05},
        {"m48k.mp3", mp3, 48000, 1, 0.05},
    };
    for (const FileCase& c : cases) {
        SCOPED_TRACE(c.name);
        PlayerRig rig;
        const std::string path = rig.folder.file(c.name);
        writeSineFile(path, c.format, 440.0, c.rate, c.channels, 1.0, 0.5);
        const bool isMp3 = (c.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_MPEG;
        ASSERT_EQ(rig.open(path, isMp3 ? "MPEGVideo" : "WaveAudio"), kMciOk);
        rig.play();
        std::vector<float> out = rig.render(1500);

        for (int side = 0; side < 2; ++side) {
            std::vector<float> middle = channelOf(out, side, frameAt(200), frameAt(800));
            EXPECT_NEAR(estimatePitchHz(middle, kSampleRate), 440.0, 440.0 * 0.005);
            EXPECT_NEAR(rms(middle), 0.5 / std::numbers::sqrt2, 0.5 / std::numbers::sqrt2 * c.levelTolerance);
        }
        // Lossless files come through the rate converter as a clean sine.
        if (!isMp3 && (c.format & SF_FORMAT_SUBMASK) != SF_FORMAT_PCM_U8) {
            EXPECT_EQ(sineBreaks(channelOf(out, 0, frameAt(100), frameAt(900)), 440.0, kSampleRate, 2e-4).size(), 0u);
        }
        EXPECT_NEAR(lastSoundMs(out), 1000.0, 5.0);
        EXPECT_EQ(rig.modes[4], "playing");
        // The end is told by the first status after it (at 1000 ms when the last
        // frame fell on that very block).
        EXPECT_GE(rig.stoppedAtMs(), 1000);
        EXPECT_LE(rig.stoppedAtMs(), 1100);
    }
}

TEST(RecorderPlayback, StereoSidesStayApart) {
    PlayerRig rig;
    const std::string path = rig.folder.file("sides.wav");
    SF_INFO info{};
    info.samplerate = 44100;
    info.channels = 2;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    ASSERT_NE(file, nullptr);
    std::vector<float> frames(44100 * 2);
    for (std::size_t f = 0; f < 44100; ++f) {
        const double t = static_cast<double>(f) / 44100;
        frames[f * 2] = static_cast<float>(0.4 * std::sin(2 * std::numbers::pi * 440 * t));
        frames[f * 2 + 1] = static_cast<float>(0.2 * std::sin(2 * std::numbers::pi * 660 * t));
    }
    sf_writef_float(file, frames.data(), 44100);
    sf_close(file);

    ASSERT_EQ(rig.open(path, "WaveAudio"), kMciOk);
    rig.play();
    std::vector<float> out = rig.render(600);
    EXPECT_NEAR(estimatePitchHz(channelOf(out, 0, frameAt(100), frameAt(500)), kSampleRate), 440.0, 2.0);
    EXPECT_NEAR(estimatePitchHz(channelOf(out, 1, frameAt(100), frameAt(500)), kSampleRate), 660.0, 3.0);
    EXPECT_NEAR(rms(channelOf(out, 1, frameAt(100), frameAt(500))), 0.2 / std::numbers::sqrt2, 0.002);
}

TEST(RecorderPlayback, TheTypeDecidesWhatOpens) {
    PlayerRig rig;
    writeSineFile(rig.folder.file("a.mp3"), SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 440, 44100, 1, 0.5, 0.5);
    writeSineWav(rig.folder.file("b.wav"), 440, 44100, 1, 0.5, 0.5);
    EXPECT_EQ(rig.open(rig.folder.file("a.mp3"), "WaveAudio"), kMciCannotOpenFile) << "an MP3 is no wave file";
    EXPECT_EQ(rig.open(rig.folder.file("a.mp3"), "MPEGVideo"), kMciOk);
    EXPECT_EQ(rig.open(rig.folder.file("b.wav"), "MPEGVideo"), kMciOk) << "the MPEG player takes a WAV too";
    EXPECT_EQ(rig.open(rig.folder.file("b.wav"), "WaveAudio"), kMciOk);
}

TEST(RecorderPlayback, BrokenFilesFailToOpenOrEndQuietly) {
    PlayerRig rig;
    const auto& dir = rig.folder;
    writeSineWav(dir.file("whole.wav"), 440, 44100, 2, 2.0, 0.5);
    writeSineFile(dir.file("whole.mp3"), SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 440, 44100, 2, 2.0, 0.5);
    auto bytesOf = [](const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    };
    auto write = [&](const std::string& name, const std::string& bytes) {
        std::ofstream(dir.file(name), std::ios::binary) << bytes;
        return dir.file(name);
    };
    std::string noise(20000, '\0');
    std::mt19937 random(7);
    for (char& c : noise) c = static_cast<char>(random());
    const std::string wave = bytesOf(dir.file("whole.wav")), mp3 = bytesOf(dir.file("whole.mp3"));
    // What the decoder itself makes of the first half of the MP3.
    write("half.mp3", mp3.substr(0, mp3.size() / 2));
    const SoundFile half = readSound(dir.file("half.mp3"));
    const double cutMp3Ms = 1000.0 * static_cast<double>(half.frames()) / half.rate;
    EXPECT_GT(cutMp3Ms, 500.0);

    struct Broken {
        std::string path;
        const char* type;
        bool opens;
        double heardMs;  // how long it sounds when it opens
    };
    const Broken files[] = {
        {dir.file("missing.wav"), "WaveAudio", false, 0},
        {write("empty.wav", ""), "WaveAudio", false, 0},
        {write("text.mp3", "这不是声音，只是一行字。\r\n"), "MPEGVideo", false, 0},
        {write("noise.wav", noise), "WaveAudio", false, 0},
        {write("header.wav", wave.substr(0, 44)), "WaveAudio", true, 0},
        // The header promises two seconds; a quarter of them are there.
        {write("cut.wav", wave.substr(0, 44 + 44100 * 4 / 2)), "WaveAudio", true, 500},
        {write("cut.mp3", mp3.substr(0, mp3.size() / 2)), "MPEGVideo", true, cutMp3Ms},
    };
    for (const Broken& b : files) {
        SCOPED_TRACE(b.path);
        const int opened = rig.open(b.path, b.type);
        EXPECT_EQ(opened == kMciOk, b.opens);
        if (opened != kMciOk) {
            // The rest of the play commands fail on the closed alias, and the status is empty.
            EXPECT_EQ(rig.mci.execute("PLAY NN FROM 0").error, kMciNotOpen);
            EXPECT_EQ(rig.mci.execute("status NN mode").reply, "");
            continue;
        }
        rig.play();
        std::vector<float> out = rig.render(3000);
        for (float s : out) ASSERT_TRUE(std::isfinite(s));
        EXPECT_NEAR(lastSoundMs(out), b.heardMs, 60.0);
        EXPECT_GE(rig.stoppedAtMs(), 100);
        EXPECT_LE(rig.stoppedAtMs(), static_cast<int>(b.heardMs) + 200);
    }
}

TEST(RecorderPlayback, StopKeepsThePlaceSeekGoesBackCloseSilencesAtOnce) {
    PlayerRig rig;
    writeSineWav(rig.folder.file("tone.wav"), 440, 44100, 1, 1.0, 0.5);
    ASSERT_EQ(rig.open(rig.folder.file("tone.wav"), "WaveAudio"), kMciOk);
    rig.play();
    rig.render(400);
    rig.mci.execute("STOP NN");
    EXPECT_EQ(rig.mci.execute("status NN mode").reply, "stopped");
    EXPECT_LT(peak(rig.render(300)), 1e-6f) << "stopped is silent";
    rig.mci.execute("PLAY NN");
    std::vector<float> rest = rig.render(1000);
    EXPECT_NEAR(lastSoundMs(rest), 600.0, 25.0) << "play goes on from where it stopped";

    rig.play();  // seek to start, play from 0
    rig.render(200);
    rig.mci.execute("CLOSE NN");
    EXPECT_LT(peak(rig.render(100)), 1e-6f);
    EXPECT_EQ(rig.mci.execute("status NN mode").reply, "");
}

// In real time, with the renderer on its own thread: a file streamed through
// the rate converter is taken back by the recording tap without a break.
TEST(RecorderPlayback, InRealTimeTheStreamHasNoBreak) {
    ScopedEnv driver("SDL_AUDIODRIVER", "tessaly-no-such-driver");
    TempFolder folder;
    writeSineWav(folder.file("tone.wav"), 1000.0, 44100, 2, 2.5, 0.5);
    AudioEngine engine;
    ASSERT_FALSE(engine.hasDevice());
    MciDevice mci(engine.mixer(), {folder.path().string()});
    TakeRecorder tap(engine.mixer().captureTap(), folder.path().string());
    ASSERT_TRUE(tap.start());
    ASSERT_EQ(mci.execute("OPEN " + folder.file("tone.wav") + " TYPE WaveAudio ALIAS NN").error, kMciOk);
    mci.execute("PLAY NN FROM 0");
    const auto start = std::chrono::steady_clock::now();
    std::string mode = "playing";
    while (mode == "playing" && std::chrono::steady_clock::now() - start < std::chrono::seconds(10)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(MciDevice::kServiceMs));
        mci.service();
        tap.drain();
        mode = mci.execute("status NN mode").reply;
    }
    EXPECT_EQ(mode, "stopped");
    const double playedS = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_GT(playedS, 2.4) << "the file is heard at its own pace";
    ASSERT_TRUE(tap.save(folder.file("take.wav"), {16, kSampleRate, 2}));
    EXPECT_EQ(tap.lostFrames(), 0u);
    EXPECT_EQ(engine.mixer().playbackVoice().missedFrames(), 0u);

    SoundFile take = readSound(folder.file("take.wav"));
    std::vector<float> left = channelOf(take.samples, 0);
    // The part of the take where the tone sounds, less its edges.
    std::size_t first = 0, last = left.size();
    while (first < left.size() && std::fabs(left[first]) < 0.01f) ++first;
    while (last > first && std::fabs(left[last - 1]) < 0.01f) --last;
    ASSERT_GT(last - first, static_cast<std::size_t>(2.4 * kSampleRate));
    std::vector<float> tone(left.begin() + static_cast<long>(first + 100), left.begin() + static_cast<long>(last - 100));
    EXPECT_EQ(sineBreaks(tone, 1000.0, kSampleRate, 4.0 / 32768).size(), 0u);
}
