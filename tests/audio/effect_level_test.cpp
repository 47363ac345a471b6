// The shipped sound effects sit at the level of the instrument: an effect key
// is no louder or softer than a middle C played at the default volume, within
// 3 dB, both rendered through the whole program.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"

using namespace tessaly;
using namespace tessaly::audio;
using namespace tessaly::audio::testing;

namespace {

// The splash's three seconds, then a moment for the main window.
constexpr int kKeyAtMs = 3200;

// The level of a sound: the RMS of its loudest second, both channels mixed,
// so that a short clap and a long tide are heard on the same terms.
double loudestSecondDb(const std::vector<float>& stereo, int rate, std::size_t fromFrame) {
    std::vector<float> mono;
    for (std::size_t frame = fromFrame; 2 * frame + 1 < stereo.size(); ++frame)
        mono.push_back(0.5f * (stereo[2 * frame] + stereo[2 * frame + 1]));
    const std::size_t window = static_cast<std::size_t>(rate);
    double best = 0, sum = 0;
    for (std::size_t i = 0; i < mono.size(); ++i) {
        sum += static_cast<double>(mono[i]) * mono[i];
        if (i >= window) sum -= static_cast<double>(mono[i - window]) * mono[i - window];
        best = std::max(best, sum / static_cast<double>(std::min(i + 1, window)));
    }
    return 10.0 * std::log10(std::max(best, 1e-12));
}

// Runs the driver on the lines, the built-in synthesizer rendering, and gives the level after the key.
double levelOfKey(TempFolder& folder, const std::string& name, const std::string& lines, int listenMs) {
    const std::string script = folder.file(name + ".script"), wav = folder.file(name + ".wav");
    std::FILE* f = std::fopen(script.c_str(), "w");
    EXPECT_NE(f, nullptr);
    if (!f) return 0;
    std::fprintf(f, "start\nadvance 200\n%sadvance %d\n", lines.c_str(), listenMs);
    std::fclose(f);
    const std::string command = std::string("TESSALY_SOUNDFONT=") + kTestSoundFont + " '" + TESSALY_SCRIPT_PATH +
                                "' --synth --wav '" + wav + "' '" + script + "' > /dev/null 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << name;
    int rate = 0;
    const std::vector<float> take = readWav(wav, rate);
    return loudestSecondDb(take, rate, static_cast<std::size_t>(kKeyAtMs) * static_cast<std::size_t>(rate) / 1000);
}

}  // namespace

TEST(EffectLevel, EveryShippedEffectSitsWithin3DbOfAMiddleCAtTheDefaultVolume) {
    TempFolder folder;
    // G is middle C on the three default instruments, held for a second and a half.
    const double note = levelOfKey(folder, "note", "key down 71\nadvance 1500\nkey up 71\n", 1000);
    std::printf("middle C: %.1f dBFS\n", note);
    EXPECT_LT(note, -10.0);  // something sounded, and not at full scale
    EXPECT_GT(note, -60.0);
    // Insert, Home, Page Up, Delete, End, Page Down: the six effect keys.
    const struct {
        int key;
        const char* name;
    } effects[] = {{45, "拍手"}, {36, "雷声"}, {33, "锣"}, {46, "笛子"}, {35, "涨潮"}, {34, "钟声"}};
    for (const auto& effect : effects) {
        const double level =
            levelOfKey(folder, "effect" + std::to_string(effect.key),
                       "key down " + std::to_string(effect.key) + "\nkey up " + std::to_string(effect.key) + "\n", 8000);
        std::printf("%s: %.1f dBFS (%+.1f dB)\n", effect.name, level, level - note);
        EXPECT_NEAR(level, note, 3.0) << effect.name;
    }
}
