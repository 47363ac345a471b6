#pragma once
#include <cstdint>

#include "platform/Platform.h"
#include "runtime/FixedTable.h"

namespace tessaly {

class ListControl;
struct SharedState;

// One percussion hit ready to send: ShortMsg = Volume * 65536 + Key * 256 + 153.
struct StepSlot {
    int16_t On = 0;
    int16_t Key = 0;
    int16_t Volume = 0;
    int32_t ShortMsg = 0;
};
using StepRecord = FixedTable<StepSlot, 0, 6>;
using StepTableType = FixedTable<StepRecord, 0, 9999>;

// The one owner of the MIDI output device: packs and sends short messages,
// keeps the channel pans and the table of ready percussion messages.
class MidiOut {
public:
    MidiOut(Platform& platform, SharedState& state);

    bool ListMidiDevices(ListControl& list);
    bool OpenMidi(int32_t deviceId);
    void CloseMidi();
    void SendMidiOut(int16_t status, int16_t data1, int16_t data2);
    void StartNote(int16_t channel, int16_t note, int16_t velocity);
    void StopNote(int16_t channel, int16_t note);
    void SendController(int16_t channel, int16_t controller, int16_t value);
    void SetProgram(int16_t channel, int16_t bank, int16_t program);
    void ReportMidiError(int code);
    void PlayRhythmStep();
    void PlayKeypadPercussion();
    void WaitMs(int32_t ms);
    void SetWaveVolume(int32_t left, int32_t right);

    // The message as a whole 32-bit word, for a caller that sends it directly.
    int sendRaw(int32_t message);

    uint32_t MidiHandle = 0;
    FixedTable<int16_t, 0, 15> ChannelPan;
    FixedTable<int16_t, 0, 15> ChannelVelocity;
    FixedTable<int16_t, 0, 15> LayerVelocity;
    StepTableType StepTable;

    // A ready percussion message on channel 9.
    static int32_t percussionMessage(int key, int velocity) { return velocity * 65536 + key * 256 + 153; }

private:
    Platform& platform_;
    SharedState& state_;
};

}  // namespace tessaly
