// The music editor's sequencer: what a play sends, slot by slot.
#include <gtest/gtest.h>

#include <algorithm>

#include "EditorHarness.h"

using namespace tessaly;
using tessaly::testing::EditorHarness;

namespace {

struct Message {
    uint32_t ms;
    int status, data1, data2;
};

std::vector<Message> take(EditorHarness& h) {
    std::vector<Message> out;
    for (const RecordedMidi& m : h.midiPort.take())
        out.push_back({m.timeMs, int(m.message & 0xFF), int((m.message >> 8) & 0xFF), int((m.message >> 16) & 0xFF)});
    return out;
}

std::vector<Message> only(const std::vector<Message>& all, int status, int data1 = -1) {
    std::vector<Message> out;
    for (const Message& m : all)
        if (m.status == status && (data1 < 0 || m.data1 == data1)) out.push_back(m);
    return out;
}

void setBarCount(EditorHarness& h, int lastBar) {
    h.dialogs.queueInputAnswer(std::to_string(lastBar));
    h.yybj.commands().ZDXJZS.userClick();
}

// A whole-song play from ST2, run to its end.
std::vector<Message> playSong(EditorHarness& h) {
    take(h);
    h.yybj.commands().ST2.userClick();
    h.loop.advance(static_cast<uint64_t>(h.app->state.TickMs) * static_cast<uint64_t>(h.song.LastSlotIndex + 2));
    return take(h);
}

}  // namespace

TEST(EditorSequencer, ThePreparingPassPutsTheSoundsIntoTheBarOnShow) {
    EditorHarness h;
    setBarCount(h, 1);
    h.showBar(1);
    h.hit(1, 3);
    h.showBar(0);
    h.yybj.settings().SYYQ[7].userPick(10);
    StepTableType& steps = h.app->midi.StepTable;
    steps[19][0].Key = 99;
    h.editor.sequencer.prepare();
    EXPECT_EQ(steps[3][0].Key, 45);
    EXPECT_EQ(steps[3][0].Volume, 80);
    EXPECT_EQ(steps[3][0].ShortMsg, 80 * 65536 + 45 * 256 + 153);
    EXPECT_EQ(steps[19][0].Key, 99);  // bar 1's record keeps its sound until it plays
    EXPECT_EQ(steps[19][0].On, -1);
    EXPECT_EQ(steps[3][0].On, 0);
    EXPECT_EQ(h.song.SlotNotes(0, 5), 255);
}

TEST(EditorSequencer, AWholeSongPlaysEverySlotOnceOnTheGridOfItsTickAndStops) {
    EditorHarness h;
    setBarCount(h, 1);
    h.writeNotes(0, "KC----XZKD");
    auto sent = playSong(h);
    auto channel0 = only(sent, 144);
    ASSERT_EQ(channel0.size(), 2u);
    EXPECT_EQ(channel0[0].data1, 60);
    EXPECT_EQ(channel0[1].data1, 62);
    EXPECT_EQ(channel0[1].ms - channel0[0].ms, 4u * 188);  // slot 4, at the new song's 188 ms
    // The held note ends at the rest, and the next note stops the rest's pitch again.
    auto offs = only(sent, 128);
    std::vector<int> early;
    for (const Message& m : offs)
        if (m.ms <= channel0[1].ms) early.push_back(m.data1);
    EXPECT_EQ(early, (std::vector<int>{36, 60, 60}));
    EXPECT_EQ(h.app->state.RhythmStep, 32);
    EXPECT_FALSE(h.yybj.commands().YYDS.timerEnabled());
    EXPECT_EQ(h.yybj.commands().ST2.value(), 0);
    EXPECT_EQ(h.yybj.commands().ST2.caption(), "从开始处启动");
    EXPECT_TRUE(h.yybj.commands().BZWJ.enabled());
    EXPECT_TRUE(h.yybj.commands().ST1.enabled());
    // The slots shown as they play: the last bar stays on show.
    EXPECT_EQ(h.yybj.bar().HScroll1.value(), 1);
}

TEST(EditorSequencer, TzOnTheFirstSlotEndsThePlaySilentlyWhereItStands) {
    EditorHarness h;
    h.writeNotes(0, "TZKC");
    h.hit(1, 0);
    auto sent = playSong(h);
    EXPECT_TRUE(only(sent, 144).empty());
    EXPECT_TRUE(only(sent, 153).empty());  // the percussion of the slot does not play either
    EXPECT_EQ(h.app->state.RhythmStep, 0);
    EXPECT_FALSE(h.yybj.commands().YYDS.timerEnabled());
    EXPECT_TRUE(h.yybj.commands().BZWJ.enabled());  // ST2 was checked: its own stop ran
}

TEST(EditorSequencer, AChordIsStrummedAndAllOfItsPossibleNotesAreStopped) {
    EditorHarness h;
    h.writeNotes(1, "CCKC");
    auto sent = playSong(h);
    EXPECT_EQ(h.app->chords.StrumCode, 72);
    EXPECT_EQ(h.app->chords.StrumChannel, 1);
    auto offs = only(sent, 129);
    auto on = only(sent, 145);
    // The strum: three notes 10 ms apart (CC on degree 1 is NoteBase three times), then KC.
    ASSERT_EQ(on.size(), 4u);
    EXPECT_EQ(on[1].ms - on[0].ms, 10u);
    EXPECT_EQ(on[2].ms - on[1].ms, 10u);
    long beforeNote = std::count_if(offs.begin(), offs.end(), [&](const Message& m) { return m.ms == on[3].ms; });
    EXPECT_EQ(beforeNote, 65);
}

TEST(EditorSequencer, ABarAuditionPlaysItsBarAndTakesItsSettingsUnlessItJustPlayed) {
    EditorHarness h;
    setBarCount(h, 3);
    h.showBar(3);
    h.writeNotes(0, "KE");
    EditorSettingsPanel& p = h.yybj.settings();
    p.SYYQ[0].userPick(10);
    h.yybj.commands().BCBXJ.userClick();
    p.SYYQ[0].userPick(20);  // not saved
    take(h);
    h.yybj.commands().ST1.userClick();
    EXPECT_EQ(p.SYYQ[0].listIndex(), 10);  // another bar played last: the saved settings come back
    EXPECT_FALSE(h.yybj.commands().ST2.enabled());
    EXPECT_FALSE(h.yybj.commands().BZWJ.enabled());
    h.loop.advance(188 * 17);
    EXPECT_EQ(h.app->state.RhythmStep, 64);  // one call past the bar's 16 slots ends it
    EXPECT_EQ(h.song.LastSlotIndex, 63);
    EXPECT_FALSE(h.yybj.commands().ST1.value());
    EXPECT_FALSE(h.yybj.commands().YYDS.timerEnabled());
    EXPECT_TRUE(h.yybj.commands().BZWJ.enabled());
    auto notes = only(take(h), 144);
    ASSERT_EQ(notes.size(), 1u);
    EXPECT_EQ(notes[0].data1, 64);

    p.SYYQ[0].userPick(20);
    h.yybj.commands().ST1.userClick();
    EXPECT_EQ(p.SYYQ[0].listIndex(), 20);  // bar 3 played last: the screen is heard
}

TEST(EditorSequencer, AFailingTickIsSwallowedAndTheNextTickTriesAgain) {
    EditorHarness h;
    setBarCount(h, 2);
    ASSERT_TRUE(h.app->controls.set("YYBJ.HScroll1.Max", "0"));
    take(h);
    h.yybj.commands().ST2.userClick();
    h.loop.advance(188 * 40);
    // Showing bar 1 fails on the scroll bar's maximum at every tick from slot 16 on.
    EXPECT_EQ(h.app->state.RhythmStep, 16);
    EXPECT_TRUE(h.yybj.commands().YYDS.timerEnabled());
    h.yybj.commands().ST2.userClick();
    EXPECT_FALSE(h.yybj.commands().YYDS.timerEnabled());
}
