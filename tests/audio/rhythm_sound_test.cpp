// A built-in rhythm as it sounds: the script driver renders the real
// synthesizer offline into a WAV, and the drum onsets found in it must fall on
// the step grid of the tempo.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"

using namespace tessaly::audio::testing;

namespace {

// The driver's start runs the splash window's three seconds first.
constexpr int kStartMs = 3000;

std::vector<float> renderScript(const TempFolder& folder, const std::string& script, int& rate) {
    const std::string scriptPath = folder.file("rhythm.script");
    std::FILE* f = std::fopen(scriptPath.c_str(), "w");
    EXPECT_NE(f, nullptr);
    if (!f) return {};
    std::fputs(script.c_str(), f);
    std::fclose(f);
    const std::string wav = folder.file("rhythm.wav");
    const std::string command = "TESSALY_SOUNDFONT=" + kTestSoundFont + " '" + TESSALY_SCRIPT_PATH +
                                "' --synth --wav '" + wav + "' '" + scriptPath + "' > /dev/null 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0);
    SF_INFO info{};
    SNDFILE* file = sf_open(wav.c_str(), SFM_READ, &info);
    EXPECT_NE(file, nullptr);
    if (!file) return {};
    std::vector<float> frames(static_cast<std::size_t>(info.frames * info.channels));
    sf_readf_float(file, frames.data(), info.frames);
    sf_close(file);
    rate = info.samplerate;
    return frames;
}

// Onsets in ms from the start of `mono`: 2 ms windows whose energy of the
// first difference (the attack of a hit stands out from its ring) is well
// above that of the 20 ms before, at most one per 100 ms.
std::vector<int> drumOnsetsMs(const std::vector<float>& mono, int rate) {
    const std::size_t hop = static_cast<std::size_t>(rate) / 500;
    std::vector<double> energy;
    for (std::size_t start = 1; start + hop <= mono.size(); start += hop) {
        double sum = 0;
        for (std::size_t i = start; i < start + hop; ++i) sum += (mono[i] - mono[i - 1]) * (mono[i] - mono[i - 1]);
        energy.push_back(sum);
    }
    const double loudest = *std::max_element(energy.begin(), energy.end());
    std::vector<int> onsets;
    for (std::size_t i = 10; i < energy.size(); ++i) {
        double before = 1e-12;
        for (std::size_t j = i - 10; j < i; ++j) before = std::max(before, energy[j]);
        const int ms = static_cast<int>(i * 2);
        if (energy[i] > 0.01 * loudest && energy[i] > 4 * before && (onsets.empty() || ms - onsets.back() > 100))
            onsets.push_back(ms);
    }
    return onsets;
}

}  // namespace

// 02快四 strikes its hi-hat on every step: at tempo 70 a tick is 107 ms, a
// step 428 ms, the first one tick after BzQd.
TEST(RhythmSound, ABuiltInRhythmsHitsFallOnTheStepGridOfItsTempo) {
    TempFolder folder;
    int rate = 0;
    auto take = renderScript(folder,
                             // The chord layers off: the drums alone.
                             "start\npick Form1.Combo1 0\npick Form1.Combo2 0\npick Form1.Combo3 0\n"
                             "move Form1.Label11\npick Form1.File1 1\nget Form1.Label11.Caption\n"
                             "click Form1.BzQd\nadvance 7000\nclick Form1.BzQd\nadvance 1000\n",
                             rate);
    ASSERT_GT(rate, 0);
    auto mono = channelOf(take, 0, static_cast<std::size_t>(kStartMs) * static_cast<std::size_t>(rate) / 1000);
    // Nothing before the first step.
    EXPECT_LT(peak(std::vector<float>(mono.begin(), mono.begin() + 100 * rate / 1000)), 1e-4f);
    auto onsets = drumOnsetsMs(mono, rate);
    // Seventeen steps before the stop at 7000 ms: 107 + 428 k for k = 0..16,
    // the last one the pattern's step 0 again.
    ASSERT_EQ(onsets.size(), 17u) << ::testing::PrintToString(onsets);
    for (std::size_t k = 0; k < onsets.size(); ++k)
        EXPECT_NEAR(onsets[k], 107 + 428 * static_cast<int>(k), 6) << "step " << k;
}
