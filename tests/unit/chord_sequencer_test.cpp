#include <gtest/gtest.h>

#include "ChordHarness.h"

namespace tessaly {
namespace {

using testing::ChordHarness;
using Lines = std::vector<std::string>;
constexpr int kTick = 107;
constexpr int G = 71;

// The accompaniment carried by keyboard play under auto-sync: the downbeat at
// the first key, then one step every fourth tick, looping over the order.
TEST(ChordSequencer, KeyboardPlayCarriesTheOrderRoundAndRound) {
    ChordHarness h;
    MainWindow& f = h.app->form1;
    f.Combo2.setListIndex(0);
    h.figures("WC--------------", "----------------", "KC--------------");
    h.order("15");
    h.s.StepsPerChord = 8;
    h.rebuild();
    f.Check5.setValue(1);
    h.sent();

    // Layer 3 first and free of the last-bar condition, then layer 1; both
    // under the rhythm page's list, so layer 2's empty list does not matter.
    h.keyDown(G);
    EXPECT_EQ(h.chordNotes(), (Lines{"149 60 55", "147 48 55"}));
    EXPECT_EQ(h.s.ChordStep, 1);
    EXPECT_EQ(h.s.ChordIndex, 1);

    h.loop.advance(kTick * 31);  // rows 1..7 hold
    EXPECT_EQ(h.chordNotes(), Lines{});
    EXPECT_EQ(h.s.ChordIndex, 2);
    h.loop.advance(kTick);  // row 8, the fifth: layer 3 joins in the order's last bar
    EXPECT_EQ(h.chordNotes(), (Lines{"147 55 55", "149 67 55"}));

    h.loop.advance(kTick * 28);  // the end of the order: both counters wrap on the same step
    EXPECT_EQ(h.s.ChordStep, 0);
    EXPECT_EQ(h.s.ChordIndex, 1);
    h.sent();
    h.loop.advance(kTick * 4);  // and the first bar again, without layer 3
    EXPECT_EQ(h.chordNotes(), (Lines{"147 48 55"}));
}

TEST(ChordSequencer, TheAuditionDecaysOverEachBarOnTheFirstTwoLayersOnly) {
    ChordHarness h;
    for (long layer = 1; layer <= 3; ++layer) h.chords.SavedPatterns[layer] = "LGWCWEWGKCKEKGHC";
    h.app->chordPageHandlers.metreChanged(true);
    EXPECT_EQ(h.page.Text4.text(), "WEWGKCKEKGHC");
    h.s.RhythmLastStep = 11;  // the rhythm page's half of 3/4
    EXPECT_EQ(h.s.StepsPerChord, 6);
    h.page.Text6.setText("1");
    h.page.Text6.setFocus();
    h.app->form1.SFYXYZ.setFocus();
    h.sent();

    h.page.Check6.userClick();
    // The audition takes the 4/4 strides in every metre.
    EXPECT_EQ(h.s.StepsPerChord, 8);
    EXPECT_EQ(h.s.TotalChordSteps, 8);
    EXPECT_EQ(h.page.HXYS.interval(), kTick);
    h.loop.advance(kTick * 25);
    std::vector<int> expression;
    for (const std::string& m : h.sent()) {
        if (m.rfind("179 11 ", 0) == 0) expression.push_back(std::stoi(m.substr(7)));
        EXPECT_NE(m.rfind("181 11 ", 0), 0u) << m;
        EXPECT_NE(m.rfind("185 11 ", 0), 0u) << m;
    }
    ASSERT_EQ(expression.size(), 25u);
    EXPECT_EQ(expression[0], 120);
    EXPECT_EQ(expression[23], 74);  // a bar of 24 ticks in 3/4
    EXPECT_EQ(expression[24], 120);
}

TEST(ChordSequencer, SpeedsSetTheTempoAndTheRhythmTimerFourTimesOver) {
    ChordHarness h;
    MainWindow& f = h.app->form1;
    h.page.Check6.userClick();
    struct Case {
        int option, listIndex, tickMs;
    };
    for (Case c : {Case{0, 4, 125}, Case{1, 8, 94}, Case{2, 12, 75}}) {
        h.page.Option4[c.option].userClick();
        EXPECT_EQ(f.SD.listIndex(), c.listIndex);
        EXPECT_EQ(h.s.TickMs, c.tickMs);
        EXPECT_EQ(f.BZDS.interval(), 4 * c.tickMs);
        EXPECT_EQ(f.Timer1.interval(), c.tickMs);
    }
    // A running audition keeps the pace it was started with.
    EXPECT_EQ(h.page.HXYS.interval(), kTick);
}

}  // namespace
}  // namespace tessaly
