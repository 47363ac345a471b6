#include "performance/MousePlay.h"

#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "runtime/Arithmetic.h"
#include "state/SharedState.h"

namespace tessaly {

void MousePlay::wire() {
    for (auto& [index, key] : form_.Picture1) {
        int i = static_cast<int>(index);
        key->onDragOver = [this, i] { Picture1_DragOver(i); };
    }
    form_.Label1.onMouseMove = [this](int, int, float, float) { Label1_MouseMove(); };
}

void MousePlay::stopLastNote() {
    const auto note = toInt16(state_.LastPlayedOffset + state_.NoteBase);
    midi_.StopNote(0, note);
    midi_.StopNote(1, note);
    midi_.StopNote(2, note);
    midi_.StopNote(2, toInt16(note - 5));
}

void MousePlay::showKeyUp(int offset) {
    form_.Picture1[offset].setPicture(state_.IsWhiteKey[offset] ? kWhiteKeyUp : kBlackKeyUp);
}

void MousePlay::Picture1_DragOver(int Index) {
    // Every movement over a key restarts its note: a sweep is a glissando.
    stopLastNote();
    const auto note = toInt16(Index + state_.NoteBase);
    if (form_.ComSounds[0].listIndex() > 0) midi_.StartNote(0, note, midi_.ChannelVelocity[0]);
    if (form_.ComSounds[1].listIndex() > 0) midi_.StartNote(1, note, midi_.ChannelVelocity[1]);
    if (form_.ComSounds[2].listIndex() > 0) {
        midi_.StartNote(2, note, midi_.ChannelVelocity[2]);
        midi_.StartNote(2, toInt16(note - 5), midi_.ChannelVelocity[2]);
    }
    form_.Picture1[Index].setPicture(state_.IsWhiteKey[Index] ? kWhiteKeyDown : kBlackKeyDown);
    if (state_.LastPlayedOffset != Index) showKeyUp(state_.LastPlayedOffset);
    state_.LastPlayedOffset = toInt16(Index);
}

void MousePlay::Label1_MouseMove() {
    stopLastNote();
    showKeyUp(state_.LastPlayedOffset);
}

}  // namespace tessaly
