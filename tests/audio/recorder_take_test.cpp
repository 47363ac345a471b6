// Recording on the audio engine: what the mixer renders goes whole into the
// take and out again as a WAV at the format asked, without touching the sound.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <chrono>
#include <cmath>
#include <fstream>
#include <thread>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"
#include "platform/audio/EngineWaveOut.h"
#include "platform/audio/MciDevice.h"

using namespace tessaly;
using namespace tessaly::audio;
using namespace tessaly::audio::testing;

namespace {

const char* const kRecordCommands[] = {"CLOSE NN", "OPEN NEW TYPE WaveAudio ALIAS NN", "Set NN assemble record off",
                                       "Set NN file format tag pcm", "Set NN algorithm pcm"};

void startRecording(MciDevice& mci, int bits, int rate, int channels = 2) {
    for (const char* command : kRecordCommands) mci.execute(command);
    EXPECT_EQ(mci.execute("Set NN bitspersample " + std::to_string(bits)).error, kMciOk);
    EXPECT_EQ(mci.execute("Set NN samplespersec " + std::to_string(rate)).error, kMciOk);
    EXPECT_EQ(mci.execute("Set NN channels " + std::to_string(channels)).error, kMciOk);
    EXPECT_EQ(mci.execute("RECORD NN").error, kMciOk);
}

// Renders ms of sound in engine periods, letting the device move its frames
// every 20 ms as the program's timer would.
std::vector<float> renderServiced(SynthRig& rig, MciDevice* mci, int ms) {
    std::vector<float> all;
    for (int done = 0; done < ms; done += MciDevice::kServiceMs) {
        std::vector<float> piece = rig.render(MciDevice::kServiceMs);
        all.insert(all.end(), piece.begin(), piece.end());
        if (mci) mci->service();
    }
    return all;
}

// A phrase on the piano: A4 from 100 ms to 900 ms, then E5 to 1500 ms.
std::vector<float> playPhrase(SynthRig& rig, MciDevice* mci) {
    std::vector<float> out = renderServiced(rig, mci, 100);
    rig.send(0x90, 69, 100);
    auto more = renderServiced(rig, mci, 800);
    out.insert(out.end(), more.begin(), more.end());
    rig.send(0x80, 69, 0);
    rig.send(0x90, 76, 100);
    more = renderServiced(rig, mci, 600);
    out.insert(out.end(), more.begin(), more.end());
    rig.send(0x80, 76, 0);
    more = renderServiced(rig, mci, 500);
    out.insert(out.end(), more.begin(), more.end());
    return out;
}

}  // namespace

TEST(RecorderTake, RecordingWhileNotesPlayKeepsEveryFrameAndChangesNothingHeard) {
    TempFolder folder;
    SynthRig plain;
    const std::vector<float> reference = playPhrase(plain, nullptr);

    SynthRig rig;
    MciDevice mci(rig.engine.mixer(), {folder.path().string()});
    startRecording(mci, 16, kSampleRate);
    const std::vector<float> heard = playPhrase(rig, &mci);
    EXPECT_EQ(mci.execute("status NN mode").reply, "recording");
    ASSERT_EQ(mci.execute("stop NN").error, kMciOk);
    ASSERT_EQ(mci.execute("save NN " + folder.file("take.wav")).error, kMciOk);
    EXPECT_EQ(mci.recorder().lostFrames(), 0u);
    mci.execute("close NN");

    // What the device rendered is what it would have rendered unrecorded.
    ASSERT_EQ(heard.size(), reference.size());
    for (std::size_t i = 0; i < heard.size(); ++i) ASSERT_EQ(heard[i], reference[i]) << "sample " << i;

    // The take holds every frame, each rounded to the nearest step of 16 bits.
    SoundFile take = readSound(folder.file("take.wav"));
    EXPECT_EQ(take.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    EXPECT_EQ(take.rate, kSampleRate);
    ASSERT_EQ(take.channels, 2);
    ASSERT_EQ(take.samples.size(), heard.size());
    float worst = 0.0f;
    for (std::size_t i = 0; i < heard.size(); ++i) worst = std::max(worst, std::fabs(take.samples[i] - heard[i]));
    EXPECT_LE(worst, 0.5001f / 32768.0f);
    EXPECT_GT(peak(take.samples), 0.05f) << "the notes are in it";
}

TEST(RecorderTake, SavedAtTheRateBitsAndChannelsAsked) {
    TempFolder folder;
    SynthRig rig;
    MciDevice mci(rig.engine.mixer(), {folder.path().string()});

    struct Case {
        int bits, rate, channels, subtype;
    };
    for (Case c : {Case{16, 44100, 2, SF_FORMAT_PCM_16}, Case{8, 22050, 2, SF_FORMAT_PCM_U8},
                   Case{8, 44100, 1, SF_FORMAT_PCM_U8}, Case{16, 11025, 1, SF_FORMAT_PCM_16}}) {
        SCOPED_TRACE(std::to_string(c.bits) + " bits " + std::to_string(c.rate) + " Hz");
        startRecording(mci, c.bits, c.rate, c.channels);
        playPhrase(rig, &mci);
        const std::string path = folder.file("take" + std::to_string(c.rate) + ".wav");
        ASSERT_EQ(mci.execute("save NN " + path).error, kMciOk);
        mci.execute("close NN");

        SoundFile take = readSound(path);
        EXPECT_EQ(take.format, SF_FORMAT_WAV | c.subtype);
        EXPECT_EQ(take.rate, c.rate);
        EXPECT_EQ(take.channels, c.channels);
        // 2 s of phrase, at the file's rate (the converter may round by a frame).
        EXPECT_NEAR(static_cast<double>(take.frames()), 2.0 * c.rate, 2.0);
        std::vector<float> left = channelOf(take.channels == 2 ? take.samples : [&] {
            std::vector<float> stereo;
            for (float s : take.samples) stereo.insert(stereo.end(), {s, s});
            return stereo;
        }(), 0);
        // A4 at 200..800 ms and E5 at 1000..1400 ms, whatever the file's rate.
        auto at = [&](int ms) { return static_cast<std::size_t>(ms) * static_cast<std::size_t>(c.rate) / 1000; };
        std::vector<float> first(left.begin() + static_cast<long>(at(200)), left.begin() + static_cast<long>(at(800)));
        std::vector<float> second(left.begin() + static_cast<long>(at(1000)), left.begin() + static_cast<long>(at(1400)));
        EXPECT_NEAR(estimatePitchHz(first, c.rate), 440.0, 440.0 * 0.01);
        EXPECT_NEAR(estimatePitchHz(second, c.rate), 659.26, 659.26 * 0.01);
    }
}

TEST(RecorderTake, ASaveThatCannotBeWrittenLeavesTheTakeAndTheOldFile) {
    TempFolder folder;
    SynthRig rig;
    MciDevice mci(rig.engine.mixer(), {folder.path().string()});
    startRecording(mci, 16, 44100);
    playPhrase(rig, &mci);

    // Beside a file that is already there: a folder that does not exist, a
    // "folder" that is a file, and the old file's place taken by a folder.
    const std::string old = folder.file("old.wav");
    std::ofstream(old) << "old contents";
    std::filesystem::create_directory(folder.file("busy.wav"));
    for (const std::string& path : {folder.file("missing/take.wav"), old + "/take.wav", folder.file("busy.wav")})
        EXPECT_EQ(mci.execute("save NN " + path).error, kMciCannotSave) << path;
    std::ifstream in(old);
    std::string contents((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(contents, "old contents");
    // No half-written file is left behind in the folder.
    int entries = 0;
    for (auto& entry : std::filesystem::directory_iterator(folder.path())) entries += entry.path().filename().string()[0] == '.';
    EXPECT_EQ(entries, 0);

    // The take is still there and saves over the old file.
    ASSERT_EQ(mci.execute("save NN " + old).error, kMciOk);
    EXPECT_EQ(readSound(old).frames(), 88200u);
    mci.execute("close NN");
    EXPECT_EQ(mci.execute("save NN " + old).error, kMciNotOpen);
}

// The take lives in a file with no name in the folder, so that a program
// killed in the middle of a take leaves nothing behind there.
TEST(RecorderTake, TheTakeFileHasNoNameInItsFolder) {
    TempFolder folder;
    SynthRig rig;
    MciDevice mci(rig.engine.mixer(), {folder.path().string()});
    startRecording(mci, 16, 44100);
    renderServiced(rig, &mci, 200);
    auto names = [&] { return std::distance(std::filesystem::directory_iterator(folder.path()), {}); };
    EXPECT_EQ(names(), 0) << "a take growing";
    mci.execute("stop NN");
    EXPECT_EQ(names(), 0) << "a stopped take";
    EXPECT_EQ(mci.execute("save NN " + folder.file("take.wav")).error, kMciOk) << "the take is still there to save";
    EXPECT_NEAR(static_cast<double>(readSound(folder.file("take.wav")).frames()), 8820.0, 441.0) << "200 ms";
    mci.execute("close NN");
    EXPECT_EQ(names(), 1);
}

// In real time: the renderer runs on its own thread (the silent sink, as
// without a sound card), a sine sounds, and the take is emptied from this
// thread at the program's pace, however late the scheduler lets it run.
TEST(RecorderTake, InRealTimeTheTakeOfASineHasNoBreak) {
    ScopedEnv driver("SDL_AUDIODRIVER", "tessaly-no-such-driver");
    TempFolder folder;
    writeSineWav(folder.file("tone.wav"), 1000.0, kSampleRate, 1, 3.0, 0.5);
    AudioEngine engine;
    ASSERT_FALSE(engine.hasDevice());
    EngineWaveOut wave(engine);
    MciDevice mci(engine.mixer(), {folder.path().string()});
    ASSERT_TRUE(wave.playSound(folder.file("tone.wav"), 1));
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    startRecording(mci, 16, kSampleRate);
    const auto start = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - start < std::chrono::milliseconds(1500)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(MciDevice::kServiceMs));
        mci.service();
    }
    ASSERT_EQ(mci.execute("save NN " + folder.file("take.wav")).error, kMciOk);
    EXPECT_EQ(mci.recorder().lostFrames(), 0u);

    SoundFile take = readSound(folder.file("take.wav"));
    EXPECT_NEAR(static_cast<double>(take.frames()), 1.5 * kSampleRate, 0.2 * kSampleRate);
    std::vector<float> left = channelOf(take.samples, 0);
    EXPECT_GT(rms(left), 0.3);
    // Three steps of 16 bits: the rounding of three samples.
    EXPECT_EQ(sineBreaks(left, 1000.0, kSampleRate, 3.0 / 32768).size(), 0u);
}
