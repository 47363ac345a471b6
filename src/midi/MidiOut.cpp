#include "midi/MidiOut.h"

#include "forms/Controls.h"
#include "runtime/Arithmetic.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {
// The device name field holds 31 characters and a terminator.
std::string productName(const std::string& name) { return charSubstr(name, 0, 31); }
}  // namespace

MidiOut::MidiOut(Platform& platform, SharedState& state) : platform_(platform), state_(state) {}

bool MidiOut::ListMidiDevices(ListControl& list) {
    list.clear();
    std::string name;
    if (platform_.midi.deviceName(-1, name)) {
        list.addItem(productName(name));
        list.setItemData(list.listCount() - 1, -1);
    }
    int count = platform_.midi.deviceCount();
    for (int id = 0; id < count; ++id) {
        if (!platform_.midi.deviceName(id, name)) continue;
        list.addItem(productName(name));
        list.setItemData(list.listCount() - 1, id);
    }
    return list.listCount() > 0;
}

bool MidiOut::OpenMidi(int32_t deviceId) {
    CloseMidi();
    uint32_t handle = 0;
    int result = platform_.midi.open(deviceId, handle);
    if (result != kMidiOk) ReportMidiError(result);
    else MidiHandle = handle;
    return MidiHandle != 0;
}

void MidiOut::CloseMidi() {
    if (MidiHandle == 0) return;
    int result = platform_.midi.close(MidiHandle);
    if (result != kMidiOk) ReportMidiError(result);
    MidiHandle = 0;
}

int MidiOut::sendRaw(int32_t message) {
    return platform_.midi.shortMessage(MidiHandle, static_cast<uint32_t>(message));
}

void MidiOut::SendMidiOut(int16_t status, int16_t data1, int16_t data2) {
    // data1 * 256 is formed in 16 signed bits: a first data byte above 127 overflows.
    int32_t message = status + multiply16(data1, 256) + data2 * 65536;
    int result = sendRaw(message);
    if (result != kMidiOk) ReportMidiError(result);
}

void MidiOut::StartNote(int16_t channel, int16_t note, int16_t velocity) {
    if (channel < 0 || channel > 15) throw FatalFailure(FailureKind::SubscriptOutOfRange, "channel");
    int pan = (note - state_.NoteBase) * 3 - 8;
    if (pan < 20) pan = 20;
    if (pan > 107) pan = 107;
    // Only the second melody channel follows the pitch; the others keep their place.
    if (channel == 1) SendMidiOut(177, 10, static_cast<int16_t>(pan));
    else SendMidiOut(toInt16(176 + channel), 10, ChannelPan[channel]);
    SendMidiOut(toInt16(144 + channel), note, velocity);
}

void MidiOut::StopNote(int16_t channel, int16_t note) { SendMidiOut(toInt16(128 + channel), note, 0); }

void MidiOut::SendController(int16_t channel, int16_t controller, int16_t value) {
    SendMidiOut(toInt16(176 + channel), controller, value);
}

void MidiOut::SetProgram(int16_t channel, int16_t bank, int16_t program) {
    SendController(channel, 0, bank);
    SendMidiOut(toInt16(192 + channel), program, 0);
}

void MidiOut::ReportMidiError(int code) { platform_.boxes.plainBox(platform_.midi.errorText(code)); }

void MidiOut::PlayRhythmStep() {
    StepRecord& record = StepTable[state_.RhythmStep];
    int result = kMidiOk;
    for (int slot = 0; slot <= 4; ++slot)
        if (record[slot].On) result = sendRaw(record[slot].ShortMsg);
    // Only the last result is looked at: one check on the tick's hot path.
    if (result != kMidiOk) ReportMidiError(result);
}

void MidiOut::PlayKeypadPercussion() {
    int result = sendRaw(StepTable[state_.KeypadIndex][5].ShortMsg);
    if (result != kMidiOk) ReportMidiError(result);
}

void MidiOut::WaitMs(int32_t ms) {
    EventLoop& loop = platform_.loop;
    // The start is kept in single precision: far from boot the clock's low
    // bits are lost and a wait comes out a few milliseconds off.
    const float t0 = static_cast<float>(loop.nowMs());
    auto elapsed = [&] { return static_cast<double>(loop.nowMs()) - static_cast<double>(t0); };
    if (elapsed() >= ms) return;
    const auto deadline = static_cast<uint32_t>(static_cast<double>(t0) + ms);
    do {
        loop.doEvents();
        if (elapsed() < ms) loop.idleUntil(deadline);
    } while (elapsed() < ms);
}

void MidiOut::SetWaveVolume(int32_t left, int32_t) { platform_.wave.setVolume(static_cast<uint32_t>(left)); }

}  // namespace tessaly
