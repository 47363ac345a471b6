#include <gtest/gtest.h>

#include "Harness.h"
#include "runtime/FatalFailure.h"

using namespace tessaly;
using tessaly::testing::Harness;
using Lines = std::vector<std::string>;

TEST(MidiOut, PanFollowsThePitchOnChannelOneOnlyWithItsClamps) {
    Harness h;
    MidiOut& midi = h.app->midi;
    midi.StartNote(0, 36 + 50, 90);
    midi.StartNote(1, 36 + 0, 90);   // offset 0: 20 at the lower clamp
    midi.StartNote(1, 36 + 9, 90);   // offset 9: 19 before the clamp
    midi.StartNote(1, 36 + 24, 90);  // KC: centred
    midi.StartNote(1, 36 + 38, 90);
    midi.StartNote(1, 36 + 39, 90);  // 109, clamped to 107
    midi.StartNote(8, 60, 90);       // channels 8..15 sit hard left
    EXPECT_EQ(h.sent(), (Lines{"176 10 64", "144 86 90", "177 10 20", "145 36 90", "177 10 20", "145 45 90",
                               "177 10 64", "145 60 90", "177 10 106", "145 74 90", "177 10 107", "145 75 90",
                               "184 10 0", "152 60 90"}));
    // transposing does not shift the pan: it follows the offset from NoteBase
    h.app->state.NoteBase = 46;
    midi.StartNote(1, 46 + 24, 90);
    EXPECT_EQ(h.sent(), (Lines{"177 10 64", "145 70 90"}));
    EXPECT_THROW(midi.StartNote(16, 60, 90), FatalFailure);
    EXPECT_THROW(midi.StartNote(-1, 60, 90), FatalFailure);
}

TEST(MidiOut, FirstDataByteAbove127OverflowsSixteenBits) {
    Harness h;
    MidiOut& midi = h.app->midi;
    midi.SendMidiOut(144, 127, 127);
    EXPECT_EQ(h.sent(), (Lines{"144 127 127"}));
    EXPECT_THROW(midi.SendMidiOut(144, 128, 0), FatalFailure);
    EXPECT_TRUE(h.sent().empty());
    // a program of -1 goes out as the arithmetic packs it
    midi.SetProgram(0, 0, -1);
    EXPECT_EQ(h.sent(), (Lines{"176 0 0", "192 255 255"}));
}

TEST(MidiOut, KeypadHitAndRhythmStepSendReadyMessages) {
    Harness h;
    MidiOut& midi = h.app->midi;
    h.app->state.KeypadIndex = 3;
    midi.StepTable[3][5].ShortMsg = MidiOut::percussionMessage(38, 100);
    midi.PlayKeypadPercussion();  // On is not looked at
    h.app->state.RhythmStep = 9999;
    midi.StepTable[9999][0] = {-1, 36, 90, MidiOut::percussionMessage(36, 90)};
    midi.StepTable[9999][4] = {-1, 42, 80, MidiOut::percussionMessage(42, 80)};
    midi.StepTable[9999][5] = {-1, 49, 80, MidiOut::percussionMessage(49, 80)};  // slot 5 is not a rhythm slot
    midi.PlayRhythmStep();
    EXPECT_EQ(h.sent(), (Lines{"153 38 100", "153 36 90", "153 42 80"}));
    h.app->state.RhythmStep = 10000;
    EXPECT_THROW(midi.PlayRhythmStep(), FatalFailure);
    h.app->state.KeypadIndex = -1;
    EXPECT_THROW(midi.PlayKeypadPercussion(), FatalFailure);
}

TEST(MidiOut, ErrorsRaiseABoxEachAndDoNotUnwind) {
    Harness h;
    MidiOut& midi = h.app->midi;
    midi.CloseMidi();
    EXPECT_EQ(midi.MidiHandle, 0u);
    midi.StopNote(0, 60);
    midi.StopNote(0, 61);
    auto boxes = h.log.take();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].rfind("box |", 0), 0u);
    // reopening works and the device list keeps the built-in synthesizer first
    EXPECT_TRUE(midi.OpenMidi(-1));
    EXPECT_EQ(h.app->form1.ComDevies.listCount(), 1);
    EXPECT_EQ(h.app->form1.ComDevies.itemData(0), -1);
    h.midiPort.failWith(kMidiAllocated);
    // the close before the open fails too: the handle is gone whatever the result
    EXPECT_FALSE(midi.OpenMidi(-1));
    EXPECT_EQ(midi.MidiHandle, 0u);
    EXPECT_EQ(h.log.take().size(), 2u);
}

TEST(MidiOut, DeviceListWithNoDevicesIsEmpty) {
    struct NoDevices : RecordingMidiPort {
        using RecordingMidiPort::RecordingMidiPort;
        bool deviceName(int, std::string&) override { return false; }
    };
    Harness h(false);
    NoDevices port(h.loop);
    Platform platform{h.loop, port, h.wave, h.boxes};
    MidiOut midi(platform, h.app->state);
    EXPECT_FALSE(midi.ListMidiDevices(h.app->form1.ComDevies));
    EXPECT_EQ(h.app->form1.ComDevies.listCount(), 0);
}

TEST(MidiOut, WaitMsLetsTimersRunAndReturnsOnTime) {
    Harness h;
    int ticks = 0;
    TimerControl& other = h.app->form1.Timer3;
    other.onTimer = [&] { ++ticks; };
    other.setInterval(10);
    other.setTimerEnabled(true);
    uint32_t before = h.loop.nowMs();
    h.app->midi.WaitMs(35);
    EXPECT_EQ(h.loop.nowMs() - before, 35u);
    EXPECT_EQ(ticks, 3);
    h.app->midi.WaitMs(0);
    EXPECT_EQ(h.loop.nowMs() - before, 35u);
}
