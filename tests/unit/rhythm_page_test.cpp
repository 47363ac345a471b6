#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Harness.h"

namespace tessaly {
namespace {

using testing::Harness;

std::string colours(const ControlArray<StepBox>& row) {
    std::string out;
    for (int s = 0; s <= 16; ++s)
        out += !row[s].visible() ? '.' : row[s].backColor() == kBeatRed ? 'R' : row[s].backColor() == kBeatYellow ? 'Y' : '?';
    return out;
}

TEST(RhythmPage, TheGridIsLoadedAtStartInBeatGroups) {
    Harness h;
    RhythmPage& page = h.app->form1.rhythmPage;
    for (int k = 0; k < 3; ++k) {
        EXPECT_EQ(page.track(k).count(), 17u);
        for (int s = 0; s <= 16; ++s) {
            EXPECT_EQ(page.track(k)[s].geometry().left, 13 * s);
            EXPECT_EQ(page.track(k)[s].geometry().width, page.track(k)[0].geometry().width);
        }
        // Two steps a beat, red then yellow; box 16 keeps the colour of box 0.
        EXPECT_EQ(colours(page.track(k)), "RRYYRRYYRRYYRRYYR") << k;
    }
    EXPECT_EQ(h.app->controls.get("Form1.BZB(3).BackColor"), "65535");
    EXPECT_EQ(h.app->controls.get("Form1.LblInst(2).ListCount"), "47");
    EXPECT_EQ(h.app->form1.VsbVol.text(), "100");
}

TEST(RhythmPage, TheMetreHidesTheLastFourColumnsAndCallsTheChordHalfOnce) {
    Harness h;
    RhythmPage& page = h.app->form1.rhythmPage;
    std::vector<int> metres;
    h.app->patternEditing.onMetreChanged = [&](int metre) {
        // The rhythm's half is done before the chords are asked.
        EXPECT_EQ(h.app->state.StepsPerChord, metre == 1 ? 6 : 8);
        metres.push_back(metre);
    };
    page.BZA[13].userClick();
    page.Option1[1].userClick();
    EXPECT_EQ(h.app->state.RhythmLastStep, 11);
    EXPECT_EQ(colours(page.BZA), "RRYYRRYYRRYY....R");
    EXPECT_EQ(h.app->controls.get("Form1.Option1(1).Value"), "-1");
    EXPECT_EQ(h.app->controls.get("Form1.Option1(2).Value"), "0");

    page.Option1[0].userClick();
    EXPECT_EQ(h.app->state.RhythmLastStep, 15);
    EXPECT_EQ(colours(page.BZA), "RRYYRRYYRRYYRRYYR");
    // A hidden box kept its state and its step.
    EXPECT_EQ(page.BZA[13].value(), 1);
    EXPECT_EQ(h.app->midi.StepTable[13][0].On, -1);
    EXPECT_EQ(metres, (std::vector<int>{1, 0}));
}

TEST(RhythmPage, InstrumentChangesEveryStepButVolumeOnlyThePlayedOnes) {
    Harness h;
    RhythmPage& page = h.app->form1.rhythmPage;
    MidiOut& midi = h.app->midi;
    page.Option1[1].userClick();
    h.app->form1.VsbVol.userPick(2);  // 70, steps 0..11 only
    for (int s : {0, 11}) {
        EXPECT_EQ(midi.StepTable[s][1].Volume, 70) << s;
        EXPECT_EQ((midi.StepTable[s][1].ShortMsg >> 16) & 0xFF, 70) << s;
    }
    EXPECT_EQ(midi.StepTable[12][1].Volume, 100);

    page.LblInst[1].userPick(46);  // 三角铃-开音, key 81, on all sixteen steps
    for (int s : {0, 11, 15}) {
        EXPECT_EQ(midi.StepTable[s][1].Key, 81) << s;
        EXPECT_EQ(midi.StepTable[s][1].ShortMsg, MidiOut::percussionMessage(81, 70)) << s;
    }
    // Its Volume field is left alone: past the metre it still says 100.
    EXPECT_EQ(midi.StepTable[15][1].Volume, 100);
    EXPECT_EQ(midi.StepTable[16][1].Key, 0);

    // Back in 4/4 the last four steps keep the old volume until the next change.
    page.Option1[2].userClick();
    EXPECT_EQ(midi.StepTable[14][0].Volume, 100);
    h.app->form1.VsbVol.userPick(7);
    EXPECT_EQ(midi.StepTable[14][0].Volume, 120);
}

TEST(RhythmPage, EveryGridClickWritesItsOwnRecord) {
    Harness h;
    RhythmPage& page = h.app->form1.rhythmPage;
    page.BZA[0].userClick();
    page.BZB[5].userClick();
    page.BZC[16].userClick();
    EXPECT_EQ(h.app->controls.get("StepTable(0,0).On"), "-1");
    EXPECT_EQ(h.app->controls.get("StepTable(5,1).On"), "-1");
    EXPECT_EQ(h.app->controls.get("StepTable(16,2).On"), "-1");
    EXPECT_EQ(h.app->controls.get("StepTable(5,0).On"), "0");
    page.BZB[5].userClick();
    EXPECT_EQ(h.app->controls.get("StepTable(5,1).On"), "0");
    EXPECT_EQ(h.app->controls.get("Form1.BZB(5).Value"), "0");
}

}  // namespace
}  // namespace tessaly
