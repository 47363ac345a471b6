#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "Harness.h"
#include "performance/KeyboardPlay.h"

namespace tessaly {
namespace {

using testing::Harness;

// Track 0 (key 36) on every step, track 1 (key 38) on step 1 only, track 2
// (key 39) empty: a 38 marks step 1.
const std::string kPattern =
    "050201030400" + std::string(16, '*') + "-*" + std::string(14, '-') + std::string(17, '-') + "x";

struct SequencerHarness : Harness {
    SequencerHarness() {
        // The chord layers off: their strums would move the drums on.
        for (ComboBox* layer : {&app->form1.Combo1, &app->form1.Combo2, &app->form1.Combo3}) layer->setListIndex(0);
        app->state.RhythmFileText = kPattern;
        app->rhythmFiles.OpenJZwj();
        midiPort.take();
    }
    MainWindow& form() { return app->form1; }
    // Percussion hits since the last call: (virtual ms, key).
    std::vector<std::pair<uint64_t, int>> hits() {
        std::vector<std::pair<uint64_t, int>> out;
        for (const RecordedMidi& m : midiPort.take())
            if ((m.message & 0xFF) == 153) out.emplace_back(m.timeMs, (m.message >> 8) & 0xFF);
        return out;
    }
};

TEST(RhythmSequencer, BzQdStartsAndStopsTheTimerAndOnlyTheChordsAreSilenced) {
    SequencerHarness h;
    h.app->state.RhythmStep = 7;
    h.app->state.AccompanimentTick = 9;
    h.app->state.ChordIndex = 3;
    h.form().BzQd.userClick();
    EXPECT_EQ(h.form().BzQd.caption(), "停止");
    EXPECT_TRUE(h.form().BZDS.timerEnabled());
    EXPECT_EQ(h.form().BZDS.interval(), 107);
    EXPECT_EQ(h.app->state.RhythmStep, 0);
    EXPECT_EQ(h.app->state.AccompanimentTick, 0);
    EXPECT_EQ(h.app->state.ChordIndex, 1);

    // The first step one interval after the click, not at it.
    const uint64_t clicked = h.loop.nowMs();
    h.loop.advance(106);
    EXPECT_TRUE(h.hits().empty());
    h.loop.advance(1);
    EXPECT_EQ(h.hits(), (std::vector<std::pair<uint64_t, int>>{{clicked + 107, 36}}));

    h.form().BzQd.userClick();
    EXPECT_EQ(h.form().BzQd.caption(), "启动");
    EXPECT_FALSE(h.form().BZDS.timerEnabled());
    std::vector<std::string> stop = h.sent();
    ASSERT_EQ(stop.size(), 3u * 64u);
    for (const std::string& message : stop) EXPECT_TRUE(message.starts_with("131 ") || message.starts_with("132 ") ||
                                                        message.starts_with("133 ")) << message;
    // The counters keep their values until the next start.
    EXPECT_EQ(h.app->state.RhythmStep, 1);
}

TEST(RhythmSequencer, AMetreChangeDuringPlayWrapsAfterTheRecordItPlays) {
    SequencerHarness h;
    h.form().BzQd.userClick();
    h.loop.advance(107 * 4 * 13);  // thirteen steps: RhythmStep is 13
    ASSERT_EQ(h.app->state.RhythmStep, 13);
    h.hits();
    h.form().rhythmPage.Option1[1].userClick();
    EXPECT_EQ(h.app->state.RhythmLastStep, 11);
    EXPECT_TRUE(h.form().BZDS.timerEnabled());  // the metre stops nothing
    h.loop.advance(107 * 4);
    EXPECT_EQ(h.app->state.RhythmStep, 0);
    h.loop.advance(107 * 4 * 2);
    // Record 13 played, then 0, then 1 (the 38 of step 1).
    auto hits = h.hits();
    ASSERT_EQ(hits.size(), 4u);
    EXPECT_EQ(hits[3].second, 38);
}

TEST(RhythmSequencer, AClickIsHeardAtItsStepsNextTurnAndALoadRestartsNothing) {
    SequencerHarness h;
    h.form().BzQd.userClick();
    h.loop.advance(107 * 4 * 3);
    ASSERT_EQ(h.app->state.RhythmStep, 3);
    h.hits();
    h.form().rhythmPage.BZC[3].userClick();
    h.loop.advance(107 * 4);
    EXPECT_EQ(h.hits(), (std::vector<std::pair<uint64_t, int>>{{107 * 13 + 3000, 36}, {107 * 13 + 3000, 39}}));

    h.app->state.RhythmFileText = kPattern;
    h.app->rhythmFiles.OpenJZwj();
    EXPECT_EQ(h.app->state.RhythmStep, 4);
    EXPECT_TRUE(h.form().BZDS.timerEnabled());
    // Box 16 is stored in record 16, which no step reaches.
    h.form().rhythmPage.BZC[16].userClick();
    EXPECT_EQ(h.app->midi.StepTable[16][2].On, -1);
    h.loop.advance(107 * 4 * 16);
    auto hits = h.hits();
    EXPECT_EQ(hits.size(), 16u + 1u);
    for (const auto& hit : hits) EXPECT_NE(hit.second, 39);
}

TEST(RhythmSequencer, KeypadPlusAndMinusGoThroughBzQdOrTimer1) {
    SequencerHarness h;
    h.form().SFYXYZ.setFocus();
    h.press(vk::Add);
    EXPECT_EQ(h.form().BzQd.value(), 1);
    EXPECT_TRUE(h.form().BZDS.timerEnabled());
    h.press(vk::Subtract);
    EXPECT_EQ(h.form().BzQd.value(), 0);
    EXPECT_FALSE(h.form().BZDS.timerEnabled());

    h.form().Check5.setValue(1);
    EXPECT_EQ(h.app->state.AutoSyncFlag, -1);
    h.press(vk::Add);
    EXPECT_TRUE(h.form().Timer1.timerEnabled());
    EXPECT_EQ(h.form().BzQd.value(), 0);
    h.hits();
    h.loop.advance(107);
    EXPECT_EQ(h.hits().size(), 1u);  // Timer1 carries the step
    h.press(vk::Subtract);
    EXPECT_FALSE(h.form().Timer1.timerEnabled());
}

// With an empty chord order nothing brings the chord step back to 0: the
// counter is wide enough for hours of rhythm.
TEST(RhythmSequencer, TheChordStepRunsPastSixteenBitsWithAnEmptyChordOrder) {
    SequencerHarness h;
    h.app->state.TotalChordSteps = 0;
    h.app->state.ChordStep = 32767;
    h.app->accompaniment.step();
    EXPECT_EQ(h.app->state.ChordStep, 32768);
    h.app->state.AccompanimentTick = 32767;
    h.app->accompaniment.advanceTick();
    EXPECT_EQ(h.app->state.AccompanimentTick, 0);
}

}  // namespace
}  // namespace tessaly
