#include <gtest/gtest.h>

#include "Harness.h"
#include "notation/NoteVocabulary.h"
#include "performance/KeyboardPlay.h"
#include "platform/testing/SoundingNotes.h"

using namespace tessaly;
using tessaly::testing::Harness;
using Lines = std::vector<std::string>;

namespace {
constexpr int G = 71, H = 72, J = 74, A = 65, D = 68;
constexpr int kTick = 107;
}  // namespace

TEST(KeyboardPlay, DurationsRoundUpToEvenTicks) {
    // The first key starts counting at 1, so 1 tick makes 2 (written as 2), 2 make 3 (4).
    // With no tick at all the initial 0 is written.
    struct Case {
        int ticks;
        const char* text;
    };
    for (Case c : {Case{0, "KC0KD"}, Case{1, "KC2KD"}, Case{2, "KC4KD"}, Case{3, "KC4KD"}, Case{4, "KC6KD"}}) {
        Harness h;
        h.press(G);
        h.loop.advance(static_cast<uint64_t>(kTick * c.ticks));
        h.press(H);
        EXPECT_EQ(h.app->form1.Text3.text(), c.text) << c.ticks;
    }
}

TEST(KeyboardPlay, AKeyBeforeTheFirstTickWritesTheStaleDuration) {
    Harness h;
    h.press(G);
    h.loop.advance(kTick * 5);  // SinceNoteTicks 6: duration 6
    h.press(H);
    h.press(J);  // no tick in between: the old 6 again
    EXPECT_EQ(h.app->form1.Text3.text(), "KC6KD6KE");
}

TEST(KeyboardPlay, HeldKeyIsBlockedUntilTheButtonGetsTheFocusBack) {
    Harness h;
    h.keyDown(G);
    h.sent();
    h.keyDown(G);
    EXPECT_TRUE(h.sent().empty());
    h.app->form1.SD.setFocus();
    h.app->form1.SFYXYZ.setFocus();  // GotFocus clears KeyHeld
    h.keyDown(G);
    EXPECT_FALSE(h.sent().empty());
    // keypad "." is never held: its auto-repeat reaches the sound call each time
    h.keyDown(vk::Decimal);
    h.keyDown(vk::Decimal);
    EXPECT_EQ(h.log.take(), (std::vector<std::string>{"wave 0|0", "wave 0|0"}));
}

TEST(KeyboardPlay, ShiftTogglesAutoSyncAndPlaysNothing) {
    Harness h;
    h.keyDown(G, 1);
    EXPECT_EQ(h.app->form1.Check5.value(), 1);
    EXPECT_EQ(h.app->state.AutoSyncFlag, -1);
    h.keyDown(G, 1);  // the held G toggles again: Shift does not look at KeyHeld
    EXPECT_EQ(h.app->form1.Check5.value(), 0);
    EXPECT_EQ(h.app->form1.Text3.text(), "");
    h.keyUp(G);
    h.keyDown(G, 2);  // Ctrl is not Shift alone: the note plays
    EXPECT_EQ(h.app->form1.Text3.text(), "KC");
}

TEST(KeyboardPlay, SustainingPlayStopsThePreviousNoteAndAfterATonalityKeyEightOffs) {
    Harness h;
    h.keyDown(G);
    h.keyDown(H);  // two keys at once: the second stops the first
    Lines sent = h.sent();
    EXPECT_EQ(Lines(sent.begin() + 12, sent.begin() + 16), (Lines{"128 60 0", "129 60 0", "130 60 0", "130 55 0"}));
    h.keyDown(D);  // tonality E: NoteBase 40; the sounding note is not stopped here
    EXPECT_TRUE(h.sent().empty());
    EXPECT_EQ(h.app->state.NoteBase, 40);
    EXPECT_EQ(h.app->state.PrevNoteBase, 36);
    EXPECT_EQ(h.app->form1.YD.listIndex(), 4);
    EXPECT_EQ(h.app->form1.XSWB.caption(), "E调");
    h.keyDown(J);
    sent = h.sent();
    EXPECT_EQ(Lines(sent.begin(), sent.begin() + 8), (Lines{"128 66 0", "129 66 0", "130 66 0", "130 61 0", "128 62 0",
                                                            "129 62 0", "130 62 0", "130 57 0"}));
    EXPECT_EQ(sent[9], "144 68 85");  // KE in E: 40 + 28
}

TEST(KeyboardPlay, LiftingAKeyAfterATonalityChangeMissesTheSoundingNote) {
    Harness h;
    h.app->form1.Check1.setValue(1);
    h.keyDown(G);
    h.keyDown(A);  // tonality C again, NoteBase 36 -> 36; try E: 40
    h.keyUp(A);
    h.keyDown(D);
    h.sent();
    h.keyUp(G);
    // the key is stopped by the table at the new NoteBase: 64, while 60 sounds
    EXPECT_EQ(h.sent(), (Lines{"128 64 0", "129 64 0", "130 64 0", "130 59 0"}));
    EXPECT_EQ(h.app->form1.Text3.text(), "");
}

TEST(KeyboardPlay, SilentInstrumentsStillWriteAndMoveTheKey) {
    Harness h;
    for (int i = 0; i < 3; ++i) h.app->form1.ComSounds[i].setListIndex(0);
    h.sent();
    h.keyDown(G);
    Lines sent = h.sent();
    EXPECT_EQ(sent.size(), 4u);  // the note-offs only
    EXPECT_EQ(h.app->form1.Text3.text(), "KC");
    EXPECT_EQ(h.app->form1.Picture1[24].picture(), 103);
    h.keyUp(G);
    EXPECT_EQ(h.app->form1.Picture1[24].picture(), 102);
}

TEST(KeyboardPlay, SpaceAndBackspaceWriteOnlyIntoANonEmptyScore) {
    Harness h;
    h.press(vk::Space);
    EXPECT_EQ(h.app->form1.Text3.text(), "");
    Lines sent = h.sent();
    EXPECT_EQ(sent.size(), 64u * 5);
    EXPECT_EQ(sent[4], "132 36 0");
    h.press(vk::Backspace);
    EXPECT_EQ(h.sent().size(), 64u * 3);
    EXPECT_EQ(h.app->form1.Text3.text(), "");
    h.press(G);
    h.loop.advance(kTick * 3);
    h.press(vk::Backspace);  // the rest keeps the clock of the note before
    h.loop.advance(kTick * 2);
    h.press(H);
    h.press(vk::Space);
    EXPECT_EQ(h.app->form1.Text3.text(), "KC4XZ6KD6TZ");
    // a later take goes on at the end, after the stale duration
    h.press(G);
    EXPECT_EQ(h.app->form1.Text3.text(), "KC4XZ6KD6TZ6KC");
}

TEST(KeyboardPlay, FunctionKeySendsProgramMinusOneForAnEmptyEntry) {
    Harness h;
    SharedState& s = h.app->state;
    s.InstrumentSet(8, 0) = 45;  // F9: 45, 0, 0
    s.InstrumentSet(8, 1) = 0;
    s.InstrumentSet(8, 2) = 0;
    h.keyDown(vk::F1 + 8);
    Lines sent = h.sent();
    Lines tail(sent.end() - 6, sent.end());
    EXPECT_EQ(tail, (Lines{"176 0 0", "192 44 0", "177 0 0", "193 255 255", "178 0 0", "194 255 255"}));
    EXPECT_EQ(h.app->form1.XSWB.caption(), "你已经选择了\r\n       乐器组合 9");
    EXPECT_EQ(s.MelodyProgram[1], 0);
}

TEST(KeyboardPlay, AKeyRunsInTheMiddleOfATickBeforeItCounts) {
    Harness h;
    h.press(G);
    // Timer3 falls due at the same instant as the tick and was armed after
    // Timer1: it runs inside the tick's DoEvents, before the counting.
    TimerControl& other = h.app->form1.Timer3;
    other.setInterval(kTick * 3);
    other.onTimer = [&] {
        other.setTimerEnabled(false);
        h.press(H);  // SinceNoteTicks = 0
    };
    h.loop.advance(0);
    other.setTimerEnabled(true);
    h.loop.advance(kTick * 3);
    EXPECT_EQ(h.app->form1.Text3.text(), "KC4KD");
    EXPECT_EQ(h.app->state.SinceNoteTicks, 1);
}

TEST(KeyboardPlay, IdleEndStopsOnlyTheLastPlayedOffset) {
    Harness h;
    h.press(H);
    h.loop.advance(kTick * 98);
    h.sent();
    h.loop.advance(kTick);
    Lines sent = h.sent();
    // three expression messages, then four note-offs of LastPlayedOffset 0, then HX1K
    ASSERT_GE(sent.size(), 7u + 192u);
    EXPECT_EQ(Lines(sent.begin() + 3, sent.begin() + 7), (Lines{"128 36 0", "129 36 0", "130 36 0", "130 31 0"}));
    EXPECT_EQ(h.app->form1.Text3.text(), "KD99TZ");
    EXPECT_EQ(h.app->state.ScoreText, "KD99TZ");
}

TEST(KeyboardPlay, KeypadAndQuickKeys) {
    Harness h;
    SharedState& s = h.app->state;
    s.KeypadPercussion[7] = 3;
    h.app->midi.StepTable[7][5].ShortMsg = MidiOut::percussionMessage(38, 100);
    h.keyDown(vk::Numpad0 + 7);
    EXPECT_EQ(h.sent(), (Lines{"153 38 100"}));
    EXPECT_EQ(h.app->form1.XSWB.caption(), "小鼓_打击乐");
    // W: program 54 on channel 3, then Combo1 55, whose own event sends it again
    h.keyDown(87);
    EXPECT_EQ(h.sent(), (Lines{"179 0 0", "195 54 0", "179 0 0", "195 54 0"}));
    EXPECT_EQ(h.app->form1.Combo1.listIndex(), 55);
}

TEST(KeyboardPlay, VibratoControllersInOrder) {
    Harness h;
    h.app->form1.Check3[2].setValue(1);
    EXPECT_EQ(h.sent(), (Lines{"178 1 75", "178 65 127", "178 5 25", "178 66 100", "178 91 100"}));
    h.app->form1.Check3[2].setValue(0);
    EXPECT_EQ(h.sent(), (Lines{"178 1 0", "178 65 0", "178 5 0", "178 66 20", "178 91 20"}));
}

TEST(KeyboardPlay, AutoSyncDownbeatAndStepsRideOnTheTick) {
    Harness h;
    h.app->form1.Check5.setValue(1);
    // no chord layer calls, neither at the downbeat nor on the tick
    h.app->form1.xuanyue.setListIndex(0);
    h.app->form1.Combo1.setListIndex(0);
    h.app->form1.Combo2.setListIndex(0);
    h.app->midi.StepTable[0][0] = {-1, 36, 100, MidiOut::percussionMessage(36, 100)};
    h.app->midi.StepTable[1][0] = {-1, 38, 100, MidiOut::percussionMessage(38, 100)};
    h.sent();
    h.keyDown(G);
    Lines sent = h.sent();
    // the downbeat after the notes: expression 127 on channel 9, rhythm step 0
    EXPECT_EQ(Lines(sent.end() - 2, sent.end()), (Lines{"185 11 127", "153 36 100"}));
    EXPECT_EQ(h.app->state.RhythmStep, 1);
    // ticks 1, 2, 3 carry no step; tick 4 plays step 1
    h.loop.advance(kTick * 3);
    h.sent();
    h.loop.advance(kTick);
    EXPECT_EQ(h.sent(), (Lines{"179 11 112", "180 11 112", "185 11 112", "153 38 100"}));
    EXPECT_EQ(h.app->state.RhythmStep, 2);
}

TEST(KeyboardPlay, EscapeSilencesTheLowDoubleThatSpaceLeavesSounding) {
    Harness h;
    SoundingNotes sounding;
    auto follow = [&] {
        for (const RecordedMidi& m : h.midiPort.take()) sounding.apply(m.message);
    };
    int lowest = 0;
    for (int key = 1; key <= 255 && !lowest; ++key)
        if (isNoteKey(key) && h.app->state.keys.KeyNoteOffset[key] == 0) lowest = key;
    ASSERT_NE(lowest, 0);
    h.keyDown(lowest);  // the lowest note on three channels, its double a fourth below
    h.press(vk::Space);  // stops NoteBase and up: the double stays on
    follow();
    EXPECT_EQ(sounding.notes(), (std::set<std::pair<int, int>>{{2, 31}}));

    h.keyDown(vk::Escape);
    follow();
    EXPECT_TRUE(sounding.silent());
    for (auto& [offset, key] : h.app->form1.Picture1)
        EXPECT_EQ(key->picture(), isWhiteKey(static_cast<int>(offset)) ? kWhiteKeyUp : kBlackKeyUp) << offset;
    // Held or repeated, Esc works every time and writes nothing into the score.
    const std::string score = h.app->form1.Text3.text();
    h.keyDown(vk::Escape);
    EXPECT_EQ(h.sent().size(), 32u);
    EXPECT_EQ(h.app->form1.Text3.text(), score);
}
