// A take played on the typing keyboard becomes an arranged editor song: saved
// from the score panel, imported by the editor's DRYP under the chord page's
// progression and the rhythm page's pattern, and played from the start
// through the real synthesizer, rendered offline.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"

using namespace tessaly;
using namespace tessaly::audio;
using namespace tessaly::audio::testing;

namespace {

struct Render {
    std::string output;
    std::vector<float> stereo;
    int rate = 0;
};

Render render(const std::string& script) {
    Render r;
    r.stereo = renderScript(script, r.rate, &r.output);
    return r;
}

// At tempo 100 a main-window tick is 75 ms: G, J, L and V held for 8, 8, 4
// and 12 ticks, Space ends the take. The chord page gets fixed figures and
// the order "15"; the rhythm page keeps the pattern it loaded at start.
// In the editor the doubled melody track 1 is silenced, so that one piano
// carries the tune; with `melody` false the piano is silenced too.
std::string story(bool melody) {
    std::string s =
        "start\n"
        "pick Form1.SD 12\n"
        "set Form1.Text4.Text CL--------------\n"
        "set Form1.Text5.Text LC--LE--LG--LE--\n"
        "set Form1.Text7.Text XZ--------------\n"
        "focus Form1.Text6\ntype Form1.Text6 15\n"
        "focus Form1.SFYXYZ\n"
        "key down 71\nadvance 600\nkey down 74\nadvance 600\nkey down 76\nadvance 300\n"
        "key down 86\nadvance 900\nkey down 32\n"
        "get Form1.Text3.Text\n"
        "dialog 演奏记录/键盘\nclick Form1.Yuepu(4)\n"
        "click Form1.BJCK\n"
        "dialog 演奏记录/键盘(乐谱).txt\nclick YYBJ.DRYP\n"
        "pick YYBJ.SYYQ(1) 0\n";
    if (!melody) s += "pick YYBJ.SYYQ(0) 0\n";
    s += "get BarStrings(0,0)\nget TickMs\nmidi\nget CurrentBar\nclick YYBJ.ST2\nadvance 4000\nmidi\n";
    return s;
}

// Note-ons (velocity above 0) printed after the marker, as (ms, channel).
std::vector<std::pair<int, int>> noteOnsAfter(const std::string& output, const std::string& marker) {
    std::vector<std::pair<int, int>> ons;
    std::istringstream lines(output.substr(output.find(marker)));
    std::string line;
    while (std::getline(lines, line)) {
        if (line.empty() || line[0] != '@') continue;
        std::istringstream fields(line.substr(1));
        int ms = 0, status = 0, key = 0, velocity = 0;
        fields >> ms >> status >> key >> velocity;
        if (status >= 144 && status < 160 && velocity > 0) ons.emplace_back(ms, status - 144);
    }
    return ons;
}

}  // namespace

TEST(ImportStory, AKeyboardTakeImportedPlaysWithChordsAndDrumsAndItsMelodyOnTheSlotGrid) {
    Render full = render(story(true));
    Render accompaniment = render(story(false));
    ASSERT_GT(full.rate, 0);
    ASSERT_EQ(full.stereo.size(), accompaniment.stereo.size());
    // The take, its slots (a slot is 15000 / 100 = 150 ms) and the tempo taken over.
    ASSERT_NE(full.output.find("Form1.Text3.Text=KC10KE8KG4HC12TZ\n"), std::string::npos) << full.output;
    ASSERT_NE(full.output.find("BarStrings(0,0)=KC--------KE------KG--HC--------\n"), std::string::npos);
    ASSERT_NE(full.output.find("TickMs=150\n"), std::string::npos);

    // What the play sent: the melody on channel 0 at slots 0, 5, 9 and 11,
    // the chords on channels 4 and 5, the drums on channel 9.
    const auto ons = noteOnsAfter(full.output, "CurrentBar=");
    std::vector<int> melody;
    int chords = 0, drums = 0;
    for (auto [ms, channel] : ons) {
        if (channel == 0) melody.push_back(ms);
        if (channel == 4 || channel == 5) ++chords;
        if (channel == 9) ++drums;
    }
    ASSERT_EQ(melody.size(), 4u);
    const int start = melody[0];
    const std::vector<int> slots{0, 5, 9, 11};
    for (std::size_t i = 0; i < slots.size(); ++i) EXPECT_EQ(melody[i] - start, slots[i] * 150) << "note " << i;
    EXPECT_GE(chords, 6);
    EXPECT_GE(drums, 6);

    // Heard: the accompaniment alone sounds all through the song, and the
    // melody, the difference of the two renders, starts its notes on the grid.
    const std::size_t from = static_cast<std::size_t>(start - 100) * full.rate / 1000;
    const std::size_t to = static_cast<std::size_t>(start + 2400) * full.rate / 1000;
    const std::vector<float> backing = channelOf(accompaniment.stereo, 0, from, to);
    EXPECT_GT(rms(channelOf(accompaniment.stereo, 0, from + full.rate / 10, to)), 0.002);  // above -54 dBFS
    EXPECT_GE(onsetsMs(backing, full.rate).size(), 4u) << "chords and drums strike all through";
    std::vector<float> tune(full.stereo.size());
    for (std::size_t i = 0; i < tune.size(); ++i) tune[i] = full.stereo[i] - accompaniment.stereo[i];
    const auto onsets = onsetsMs(channelOf(tune, 0, from, to), full.rate);
    ASSERT_EQ(onsets.size(), slots.size());
    for (std::size_t i = 0; i < slots.size(); ++i) EXPECT_NEAR(onsets[i] - 100, slots[i] * 150, 12) << "note " << i;
    // The first note is middle C on the piano.
    EXPECT_NEAR(estimatePitchHz(channelOf(tune, 0, from + full.rate * 15 / 100, from + full.rate * 70 / 100), full.rate),
                261.63, 261.63 * 0.01);
}
