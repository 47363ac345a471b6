// What a key press sounds like through the whole program: the script driver
// renders the built-in synthesizer offline into a WAV, which is measured here.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"

using namespace tessaly;
using namespace tessaly::audio;
using namespace tessaly::audio::testing;

namespace {

// A piano alone on the first channel, so that one pitch sounds.
const std::string kPianoAlone =
    "start\n"
    "set Form1.ComSounds(0).ListIndex 1\n"
    "set Form1.ComSounds(1).ListIndex 0\n"
    "set Form1.ComSounds(2).ListIndex 0\n"
    "advance 200\n";

// Silence in a 16-bit file: no sample beyond one step of the quantization.
constexpr float kWavSilence = 1.5f / 32768.0f;

// `start` runs the splash window's three seconds before the main window is
// ready; times below count from then.
constexpr int kStartMs = 3000;

std::size_t frameAt(int ms, int rate) {
    return static_cast<std::size_t>(kStartMs + ms) * static_cast<std::size_t>(rate) / 1000;
}

}  // namespace

TEST(PlayedSound, KeyGSoundsMiddleCAndFollowsTheTonality) {
    int rate = 0;
    auto inC = renderScript(kPianoAlone + "key down 71\nadvance 800\n", rate);
    ASSERT_GT(rate, 0);
    double hz = estimatePitchHz(channelOf(inC, 0, frameAt(300, rate), frameAt(900, rate)), rate);
    EXPECT_NEAR(hz, 261.63, 261.63 * 0.01);

    // S selects tonality D: the same key sounds two semitones higher
    auto inD = renderScript(kPianoAlone + "key down 83\nkey up 83\nkey down 71\nadvance 800\n", rate);
    hz = estimatePitchHz(channelOf(inD, 0, frameAt(300, rate), frameAt(900, rate)), rate);
    EXPECT_NEAR(hz, 293.66, 293.66 * 0.01);
}

TEST(PlayedSound, KeypadHitSoundsOnThePercussionChannel) {
    int rate = 0;
    // keypad 3 strikes the snare (38) at velocity 100 on channel 9
    auto hit = renderScript(kPianoAlone + "set StepTable(3,5).ShortMsg 6563481\nkey down 99\nadvance 500\n", rate);
    EXPECT_LT(peak(channelOf(hit, 0, 0, frameAt(190, rate))), kWavSilence);
    EXPECT_GT(peak(channelOf(hit, 0, frameAt(200, rate), frameAt(400, rate))), 0.01f);
}

TEST(PlayedSound, SpaceLetsEverythingDecayToSilence) {
    int rate = 0;
    // the three default instruments, the double on channel 2 included
    // the strings release slowly through the reverb: silent within seven seconds
    auto take = renderScript("start\nadvance 100\nkey down 71\nadvance 500\nkey down 32\nadvance 8000\n", rate);
    EXPECT_GT(rms(channelOf(take, 0, frameAt(200, rate), frameAt(600, rate))), 0.005);
    EXPECT_LT(peak(channelOf(take, 0, frameAt(7600, rate))), kWavSilence);
    EXPECT_LT(peak(channelOf(take, 1, frameAt(7600, rate))), kWavSilence);
}

// The command line itself: tessaly-script --synth --wav writes a WAV that is
// loud where the notes are and silent where they are not.
TEST(PlayedSound, ScriptDriverCommandWritesTheTake) {
    TempFolder folder;
    std::string script = folder.file("take.script");
    {
        std::FILE* f = std::fopen(script.c_str(), "w");
        ASSERT_NE(f, nullptr);
        std::fputs("start\nadvance 500\nkey down 71\nkey up 71\nadvance 749\nkey down 72\nkey up 72\n"
                   "advance 428\nkey down 32\nkey up 32\nadvance 8000\n",
                   f);
        std::fclose(f);
    }
    std::string wav = folder.file("take.wav");
    std::string command = std::string("TESSALY_SOUNDFONT=") + kTestSoundFont + " '" + TESSALY_SCRIPT_PATH +
                          "' --synth --wav '" + wav + "' '" + script + "' > /dev/null 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0);
    int rate = 0;
    auto take = readWav(wav, rate);
    ASSERT_EQ(take.size() / 2, frameAt(500 + 749 + 428 + 8000, rate));
    EXPECT_LT(peak(channelOf(take, 0, 0, frameAt(0, rate))), kWavSilence);  // the splash
    EXPECT_LT(peak(channelOf(take, 0, 0, frameAt(490, rate))), kWavSilence);             // before the first key
    EXPECT_GT(rms(channelOf(take, 0, frameAt(550, rate), frameAt(1650, rate))), 0.005);  // KC and KD
    EXPECT_LT(peak(channelOf(take, 0, frameAt(9000, rate))), kWavSilence);               // long after Space
}

// A demonstration score opened from its file plays at once, at tempo 70: a
// tick is 107 ms, so eighths (8 ticks) fall 856 ms apart and the long notes
// (16 ticks) last 1712 ms.
TEST(PlayedSound, DemonstrationScoreOnsetsFallWhereTheScoreSays) {
    int rate = 0;
    auto song = renderScript(kPianoAlone + "dialog 演奏记录/小星星.txt\nclick Form1.Yuepu(2)\nadvance 13000\n", rate);
    auto onsets = onsetsMs(channelOf(song, 0, frameAt(200, rate), frameAt(13200, rate)), rate);
    // KC8 KC KG KG KA KA KG16 KF8 KF KE KE KD KD KC16
    std::vector<int> ticks{8, 8, 8, 8, 8, 8, 16, 8, 8, 8, 8, 8, 8};
    ASSERT_GE(onsets.size(), ticks.size() + 1);
    for (std::size_t i = 0; i < ticks.size(); ++i)
        EXPECT_NEAR(onsets[i + 1] - onsets[i], ticks[i] * 107, 12) << "between notes " << i << " and " << i + 1;
}

// A song of the music editor played from the start: its notes fall on the
// slots that hold them, at the song's tempo (100 beats a minute: a slot, a
// sixteenth, is 15000 / 100 = 150 ms). Each note has a rest before it, so
// that its attack stands out from the note before.
TEST(PlayedSound, EditorSongOnsetsFallOnTheirSlotsAtTheSongsTempo) {
    std::string script = "start\nclick Form1.BJCK\n";
    for (int t = 1; t <= 6; ++t) script += "pick YYBJ.SYYQ(" + std::to_string(t) + ") 0\n";
    script +=
        "pick YYBJ.DQSUDU 12\n"
        "input 1\nclick YYBJ.ZDXJZS\n"
        "focus YYBJ.YF1(0)\ntype YYBJ.YF1(0) KC----XZKEXZKGXZ\n"
        "focus YYBJ.XJZS\n"  // the notes are kept as the box loses the focus
        "set YYBJ.HScroll1.Value 1\n"
        "focus YYBJ.YF1(0)\ntype YYBJ.YF1(0) HCXZKGXZKE------\n"
        "focus YYBJ.XJZS\n"
        "click YYBJ.ST2\nadvance 5500\n";
    int rate = 0;
    auto song = renderScript(script, rate);
    ASSERT_GT(rate, 0);
    // From a little before the play, so that its first attack has silence before it.
    auto onsets = onsetsMs(channelOf(song, 0, frameAt(-100, rate), frameAt(5500, rate)), rate);
    const std::vector<int> slots{0, 4, 6, 16, 18, 20};
    ASSERT_EQ(onsets.size(), slots.size());
    for (std::size_t i = 0; i < slots.size(); ++i)
        EXPECT_NEAR(onsets[i] - 100, slots[i] * 150, 12) << "note " << i;
    // The pitches are the tokens' at key C: KC and HC an octave apart.
    double first = estimatePitchHz(channelOf(song, 0, frameAt(100, rate), frameAt(550, rate)), rate);
    double high = estimatePitchHz(channelOf(song, 0, frameAt(16 * 150 + 50, rate), frameAt(18 * 150 - 20, rate)), rate);
    EXPECT_NEAR(first, 261.63, 261.63 * 0.01);
    EXPECT_NEAR(high, 523.25, 523.25 * 0.01);
}
