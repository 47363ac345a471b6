// The chord audition on the real synthesizer: a piano on layer 1 plays the
// root, third and fifth of each bar, and the pitches found in each bar's
// audio are those of the chord order's triads.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"

using namespace tessaly::audio::testing;

namespace {

// Tempo 70: a tick is 107 ms, a step of 4 ticks 428 ms. The main window is up
// at 3000 ms, the audition starts there and plays its first step on the first tick.
constexpr int kClickMs = 3000, kTickMs = 107, kStepMs = 4 * kTickMs;

// Only layer 1 sounds, a piano, one note every other step.
std::string auditionScript(int tonalityIndex) {
    return "start\n"
           "set Form1.Combo1.ListIndex 1\n"
           "set Form1.Combo2.ListIndex 0\n"
           "set Form1.Combo3.ListIndex 0\n"
           "set Form1.Text4.Text WC--WE--WG------\n"
           "focus Form1.Text6\n"
           "type Form1.Text6 1645\n"
           "focus Form1.SFYXYZ\n"
           "set Form1.YD.ListIndex " +
           std::to_string(tonalityIndex) +
           "\n"
           "click Form1.Check6\n"
           "advance 14000\n";
}

// The MIDI note heard while step `step` sounds, from its steady part.
int noteAtStep(const std::vector<float>& take, int rate, int step) {
    const int from = kClickMs + kTickMs + step * kStepMs + 60;
    auto frame = [rate](int ms) { return static_cast<std::size_t>(ms) * static_cast<std::size_t>(rate) / 1000; };
    const double hz = estimatePitchHz(channelOf(take, 0, frame(from), frame(from + 2 * kStepMs - 120)), rate);
    if (hz <= 0) return -1;
    return static_cast<int>(std::lround(69 + 12 * std::log2(hz / 440.0)));
}

// Each bar's three notes: C major, A minor, F major, G major over the low C.
std::vector<std::vector<int>> barsOfNotes(const std::vector<float>& take, int rate) {
    std::vector<std::vector<int>> bars;
    for (int bar = 0; bar < 4; ++bar) {
        std::vector<int> notes;
        for (int step : {0, 2, 4}) notes.push_back(noteAtStep(take, rate, 8 * bar + step));
        bars.push_back(notes);
    }
    return bars;
}

const std::vector<std::vector<int>> kTriadsInC = {{48, 52, 55}, {57, 60, 64}, {53, 57, 60}, {55, 59, 62}};

}  // namespace

TEST(ChordAudition, TheOrder1645SoundsTheTriadsOfCAMinorFAndG) {
    int rate = 0;
    auto take = renderScript(auditionScript(0), rate);
    ASSERT_GT(rate, 0);
    EXPECT_EQ(barsOfNotes(take, rate), kTriadsInC);
}

TEST(ChordAudition, InCSharpEveryTriadIsASemitoneHigher) {
    int rate = 0;
    auto take = renderScript(auditionScript(1), rate);
    ASSERT_GT(rate, 0);
    std::vector<std::vector<int>> expected = kTriadsInC;
    for (auto& bar : expected)
        for (int& note : bar) ++note;
    EXPECT_EQ(barsOfNotes(take, rate), expected);
}
