// The recorder through the whole program, in the script driver with the real
// synthesizer rendered offline: takes recorded on either window and files
// played on the main window.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <numbers>
#include <sstream>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"
#include "app/script/ScriptDriver.h"

using namespace tessaly;
using namespace tessaly::audio;
using namespace tessaly::audio::testing;

namespace {

struct ScriptRun {
    TempFolder folder;
    std::string appDir = folder.file("app");
    std::string output;

    ScriptRun() { std::filesystem::create_directories(std::filesystem::path(appDir) / "演奏记录"); }
    std::string file(const std::string& name) const { return appDir + "/演奏记录/" + name; }

    void run(const std::string& script) {
        ScriptOptions options;
        options.synth = true;
        options.soundFont = kTestSoundFont;
        options.wavPath = folder.file("heard.wav");
        options.appDir = appDir;
        std::ostringstream out;
        {
            ScriptDriver driver(options, out);
            std::istringstream in(script);
            EXPECT_EQ(driver.run(in), 0) << out.str();
        }
        output = out.str();
    }
};

// A piano alone on the first channel, so that one pitch sounds.
const std::string kPianoAlone =
    "start\n"
    "set Form1.ComSounds(0).ListIndex 1\n"
    "set Form1.ComSounds(1).ListIndex 0\n"
    "set Form1.ComSounds(2).ListIndex 0\n"
    "advance 200\n";

// The first frame above -60 dBFS, in ms.
double firstSoundMs(const std::vector<float>& mono, int rate) {
    for (std::size_t i = 0; i < mono.size(); ++i)
        if (std::fabs(mono[i]) > 0.001f) return 1000.0 * static_cast<double>(i) / rate;
    return -1;
}

std::vector<float> range(const std::vector<float>& mono, int rate, int fromMs, int toMs) {
    auto at = [rate](int ms) { return static_cast<long>(ms) * rate / 1000; };
    return {mono.begin() + at(fromMs), mono.begin() + at(toMs)};
}

}  // namespace

// Key G (middle C) pressed 500 ms into a take on the main window; the take
// is saved at the main window's fixed format.
TEST(RecorderScript, AKeyboardTakeOnTheMainWindowIsA16Bit44100HzStereoWavWithTheNote) {
    ScriptRun run;
    run.run(kPianoAlone +
            "click Form1.Image1(2)\n"
            "advance 500\nkey down 71\nadvance 800\nkey down 32\nadvance 700\n"
            "dialog 演奏记录/take.mp3\nclick Form1.BcLY\nget Form1.FJWZ.Caption\n");
    EXPECT_NE(run.output.find("Form1.FJWZ.Caption=成功保存录音。。。"), std::string::npos) << run.output;
    SoundFile take = readSound(run.file("take.wav"));
    EXPECT_EQ(take.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    EXPECT_EQ(take.rate, 44100);
    ASSERT_EQ(take.channels, 2);
    EXPECT_NEAR(static_cast<double>(take.frames()), 2.0 * 44100, 2.0);
    std::vector<float> left = channelOf(take.samples, 0);
    EXPECT_NEAR(firstSoundMs(left, 44100), 500.0, 5.0) << "the note where it was played";
    EXPECT_NEAR(estimatePitchHz(range(left, 44100, 600, 1200), 44100), 261.63, 261.63 * 0.01);
    // The take is what was heard: the rendered output over the same time.
    int heardRate = 0;
    SoundFile heard = readSound(run.folder.file("heard.wav"));
    heardRate = heard.rate;
    std::vector<float> heardLeft = channelOf(heard.samples, 0);
    const double takeStartMs = firstSoundMs(heardLeft, heardRate) - firstSoundMs(left, 44100);
    EXPECT_NEAR(rms(range(left, 44100, 600, 1200)),
                rms(range(heardLeft, heardRate, static_cast<int>(takeStartMs) + 600, static_cast<int>(takeStartMs) + 1200)),
                0.002);
}

// The editor's "普通音质": 8 bits at 22050 Hz, saved under the name as given.
// The take holds a bar of the editor's song, a middle C on the piano alone.
TEST(RecorderScript, TheEditorsOrdinaryQualityIs8Bit22050Hz) {
    ScriptRun run;
    std::string script = "start\nclick Form1.BJCK\n";
    for (int t = 1; t <= 6; ++t) script += "pick YYBJ.SYYQ(" + std::to_string(t) + ") 0\n";
    run.run(script +
            "focus YYBJ.YF1(0)\ntype YYBJ.YF1(0) KC--------------\nfocus YYBJ.XJZS\nadvance 200\n"
            "pick YYBJ.yinzi 2\n"
            "click YYBJ.LUYINJI(2)\n"
            "advance 300\nclick YYBJ.ST1\nadvance 1200\n"
            "dialog 演奏记录/普通.wav\nclick YYBJ.LUYINJI(3)\n");
    SoundFile take = readSound(run.file("普通.wav"));
    EXPECT_EQ(take.format, SF_FORMAT_WAV | SF_FORMAT_PCM_U8);
    EXPECT_EQ(take.rate, 22050);
    ASSERT_EQ(take.channels, 2);
    EXPECT_NEAR(static_cast<double>(take.frames()), 1.5 * 22050, 2.0);
    std::vector<float> left = channelOf(take.samples, 0);
    EXPECT_NEAR(firstSoundMs(left, 22050), 300.0, 5.0);
    EXPECT_NEAR(estimatePitchHz(range(left, 22050, 400, 1000), 22050), 261.63, 261.63 * 0.01);
}

// A WAV and an MP3 played by the triangle: heard at their level under the
// program's wave volume (7/8), and Timer2 finds them stopped at their end.
TEST(RecorderScript, AWavAndAnMp3PlayedOnTheMainWindowAreHeardAndEndStopped) {
    for (const char* name : {"tone.wav", "tone.mp3"}) {
        SCOPED_TRACE(name);
        ScriptRun run;
        const bool mp3 = std::string(name).ends_with("mp3");
        writeSineFile(run.file(name), mp3 ? SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III : SF_FORMAT_WAV | SF_FORMAT_PCM_16,
                      440.0, mp3 ? 22050 : 44100, mp3 ? 1 : 2, 1.5, 0.5);
        run.run("start\nadvance 1000\nevents\n"
                "dialog 演奏记录/" + std::string(name) + "\nclick Form1.Image1(0)\n"
                "advance 1000\nget PlayingFlag\nadvance 2000\nget PlayingFlag\nget Form1.FJWZ.Caption\nevents\n");
        EXPECT_NE(run.output.find("PlayingFlag=-1\nPlayingFlag=0\nForm1.FJWZ.Caption=录音机已停止。。。"), std::string::npos)
            << run.output;
        const std::string type = mp3 ? "MPEGVideo" : "WaveAudio";
        EXPECT_NE(run.output.find("mci OPEN $APPDIR/演奏记录/" + std::string(name) + " TYPE " + type + " ALIAS NN"),
                  std::string::npos);
        EXPECT_NE(run.output.find("mci STOP NN\nmci Close NN\n"), std::string::npos);

        SoundFile heard = readSound(run.folder.file("heard.wav"));
        std::vector<float> left = channelOf(heard.samples, 0);
        const double startMs = firstSoundMs(left, heard.rate);
        EXPECT_NEAR(startMs, 4000.0, 5.0) << "the splash's 3 s, then 1 s";
        const int from = static_cast<int>(startMs);
        std::vector<float> tone = range(left, heard.rate, from + 200, from + 1200);
        EXPECT_NEAR(estimatePitchHz(tone, heard.rate), 440.0, 440.0 * 0.005);
        const double level = 0.5 / std::numbers::sqrt2 * (0xE000 / 65535.0);
        EXPECT_NEAR(rms(tone), level, level * (mp3 ? 0.05 : 0.01));
        EXPECT_LT(peak(range(left, heard.rate, from + 1600, from + 2900)), 1e-4f) << "silent after its end";
    }
}
