#include <gtest/gtest.h>

#include "ChordHarness.h"
#include "chords/ChordTables.h"

namespace tessaly {
namespace {

using testing::ChordHarness;
using Lines = std::vector<std::string>;

TEST(ChordLayers, TheFiguresOfChordOneAreStretchedOverTheOrder) {
    ChordHarness h;
    h.figures("WCWEWGXZ--------", "CC--CM--CL------", "KCKEKGHC--------");
    h.order("1645");
    h.s.StepsPerChord = 8;
    h.rebuild();
    EXPECT_EQ(h.s.TotalChordSteps, 32);
    // Bars of C, A minor, F and G: the same rhythm, each degree's own notes.
    EXPECT_EQ(h.layerRows(1, {0, 1, 2, 3, 4}), (std::vector<int32_t>{12, 16, 19, 254, 255}));
    EXPECT_EQ(h.layerRows(1, {8, 9, 10, 11, 12}), (std::vector<int32_t>{21, 24, 28, 254, 255}));
    EXPECT_EQ(h.layerRows(1, {16, 17, 18}), (std::vector<int32_t>{17, 21, 24}));
    EXPECT_EQ(h.layerRows(1, {24, 25, 26}), (std::vector<int32_t>{19, 23, 26}));
    EXPECT_EQ(h.layerRows(2, {0, 2, 4, 10, 12, 20, 26}), (std::vector<int32_t>{72, 79, 65, 84, 70, 68, 83}));
    EXPECT_EQ(h.layerRows(3, {0, 3, 27}), (std::vector<int32_t>{24, 36, 43}));

    // In 3/4 the strides are six steps: the second chord starts at row 6.
    h.figures("WCWEWGKCKEKG", "CC--CC------", "CL----------");
    h.s.StepsPerChord = 6;
    h.rebuild();
    EXPECT_EQ(h.s.TotalChordSteps, 24);
    EXPECT_EQ(h.layerRows(1, {6, 7, 11, 12}), (std::vector<int32_t>{21, 24, 40, 17}));
    EXPECT_EQ(h.layerRows(2, {0, 6, 12}), (std::vector<int32_t>{72, 77, 75}));
}

TEST(ChordLayers, ScanningKeepsCodesBehindTheLastTokenAndDropsALoneCharacter) {
    ChordHarness h;
    h.chords.ChordPatternCodes[3] = 99;
    h.figures("CC--", "", "WCW");
    h.app->chords.HXYPSB();
    EXPECT_EQ(h.chords.ChordPatternCodes[0], 72);
    EXPECT_EQ(h.chords.ChordPatternCodes[1], 255);
    EXPECT_EQ(h.chords.ChordPatternCodes[2], 12);
    EXPECT_EQ(h.chords.ChordPatternCodes[3], 99);
}

// Every chord code and the three notes it sounds, with the ranges as they
// stand: the low and centre rows count from 0, and 78 falls among the high.
TEST(ChordLayers, StrumChordSoundsEachCodeByItsRangeTenMillisecondsApart) {
    ChordHarness h;
    parseVoicingTable(h.chords);
    h.app->midi.LayerVelocity[4] = 90;
    struct Case {
        int code;
        int notes[3];
    };
    const Case cases[] = {{65, {0, 0, 0}},    {66, {7, 12, 16}},   {71, {16, 21, 24}}, {72, {0, 0, 0}},
                          {73, {12, 16, 19}}, {77, {19, 23, 26}},  {78, {0, 0, 0}},    {79, {16, 19, 24}},
                          {85, {26, 31, 35}}, {64, {0, 0, 0}},     {86, {0, 0, 0}}};
    h.midiPort.take();
    for (const Case& c : cases) {
        h.app->chords.StrumCode = static_cast<int16_t>(c.code);
        h.app->chords.StrumChannel = 4;
        const uint32_t start = h.loop.nowMs();
        h.app->chords.StrumChord();
        auto sent = h.midiPort.take();
        ASSERT_EQ(sent.size(), 3u) << c.code;
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(sent[i].message, static_cast<uint32_t>(148 | (36 + c.notes[i]) << 8 | 90 << 16)) << c.code;
            EXPECT_EQ(sent[i].timeMs - start, static_cast<uint32_t>(10 * i)) << c.code;
        }
    }
}

TEST(ChordLayers, ASingleNoteStopsTheLayersLastNoteOrChord) {
    ChordHarness h;
    parseVoicingTable(h.chords);
    h.figures("WCCMWE----------", "----------------", "----------------");
    h.order("1");
    h.rebuild();
    h.midiPort.take();
    h.app->midi.ChannelVelocity[3] = 70;

    h.s.ChordStep = 0;
    h.app->chords.BZHX();  // WC after nothing: stops note 36 + 0, pan, note on
    EXPECT_EQ(h.sent(), (Lines{"131 36 0", "179 10 40", "147 48 70"}));
    EXPECT_EQ(h.app->midi.LayerVelocity[3], 70);
    h.s.ChordStep = 1;
    h.app->chords.BZHX();  // CM: strummed over the WC, nothing stopped
    EXPECT_EQ(h.sent(), (Lines{"147 52 70", "147 55 70", "147 60 70"}));
    EXPECT_EQ(h.chords.LastLayerCode[1], 79);
    h.s.ChordStep = 2;
    h.app->chords.BZHX();  // WE after a chord: the chord's code, then all 64 notes
    Lines sent = h.sent();
    ASSERT_EQ(sent.size(), 1u + 64 + 2);
    EXPECT_EQ(sent[0], "131 115 0");
    EXPECT_EQ(sent[1], "131 36 0");
    EXPECT_EQ(sent[64], "131 99 0");
    EXPECT_EQ(sent[66], "147 52 70");

    // With the layer's list at 0 a single note is skipped, a chord still sounds.
    h.app->form1.Combo1.setListIndex(0);
    h.sent();
    h.s.ChordStep = 0;
    h.app->chords.BZHX();
    EXPECT_EQ(h.sent(), Lines{});
    h.s.ChordStep = 1;
    h.app->chords.BZHX();
    EXPECT_EQ(h.sent().size(), 3u);
}

TEST(ChordLayers, LayerThreeStopsLayerTwosNoteAndStrumsWithChannelFivesVelocity) {
    ChordHarness h;
    parseVoicingTable(h.chords);
    h.figures("----------------", "KC--------------", "WGCM------------");
    h.order("1");
    h.rebuild();
    h.app->midi.ChannelVelocity[3] = 55;
    h.s.ChordStep = 0;
    h.app->chords.BZHX2();
    h.sent();
    h.app->chords.ZHHXJ();  // WG: layer 2's KC is stopped on channel 4, WG starts on 5
    EXPECT_EQ(h.sent(), (Lines{"132 60 0", "181 10 35", "149 55 55"}));
    EXPECT_EQ(h.chords.LastLayerCode[3], 19);
    EXPECT_EQ(h.chords.LastLayerCode[2], 24);
    h.s.ChordStep = 1;
    h.app->chords.ZHHXJ();  // CM with velocity 0 until the editor sets one
    EXPECT_EQ(h.sent(), (Lines{"149 52 0", "149 55 0", "149 60 0"}));
    EXPECT_EQ(h.app->midi.LayerVelocity[5], 0);
}

}  // namespace
}  // namespace tessaly
