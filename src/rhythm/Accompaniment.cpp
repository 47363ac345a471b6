#include "rhythm/Accompaniment.h"

#include "chords/ChordLayers.h"
#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "runtime/Arithmetic.h"
#include "runtime/FatalFailure.h"
#include "state/SharedState.h"

namespace tessaly {

int16_t tickMsForTempo(double tempo) {
    if (tempo == 0) throw FatalFailure(FailureKind::DivisionByZero);
    return roundToInt16(7500.0 / tempo);
}

void Accompaniment::resetCounters() {
    state_.RhythmStep = 0;
    state_.ChordStep = 0;
    state_.ScoreTick = 0;
    state_.ChordIndex = 1;
}

void Accompaniment::sendAccentSweep() {
    auto value = toInt16(120 - 2LL * state_.AccompanimentTick);
    midi_.SendMidiOut(179, 11, value);
    midi_.SendMidiOut(180, 11, value);
    midi_.SendMidiOut(185, 11, value);
}

bool Accompaniment::onStepTick() const { return state_.AccompanimentTick % 4 == 0; }

void Accompaniment::step() {
    if (form_.Combo1.listIndex() > 0) chords_.BZHX();
    if (form_.Combo2.listIndex() > 0) chords_.BZHX2();
    if (form_.Combo3.listIndex() > 0 && state_.ChordIndex == state_.ChordCount) chords_.ZHHXJ();

    state_.ChordStep = toInt32(state_.ChordStep + 1LL);
    if (state_.StepsPerChord != 0 && state_.ChordStep % state_.StepsPerChord == 0) {
        chords_.HX1K();  // the chord of the bar ends
        state_.ChordIndex = toInt16(state_.ChordIndex + 1);
        if (state_.ChordIndex > state_.ChordCount) state_.ChordIndex = 1;
    }
    if (state_.ChordStep == state_.TotalChordSteps) state_.ChordStep = 0;

    midi_.PlayRhythmStep();
    state_.RhythmStep = toInt16(state_.RhythmStep + 1);
    if (state_.RhythmStep > state_.RhythmLastStep) state_.RhythmStep = 0;
}

void Accompaniment::advanceTick() {
    state_.AccompanimentTick = toInt32(state_.AccompanimentTick + 1LL);
    if (state_.AccompanimentTick > 2 * state_.RhythmLastStep + 1) state_.AccompanimentTick = 0;
}

void Accompaniment::downbeat() {
    midi_.SendMidiOut(185, 11, 127);
    // Reversed against the timers, and tested on the rhythm page's instrument.
    if (form_.xuanyue.listIndex() > 0) chords_.ZHHXJ();
    if (form_.xuanyue.listIndex() > 0) chords_.BZHX2();
    if (form_.xuanyue.listIndex() > 0) chords_.BZHX();
    midi_.PlayRhythmStep();
}

}  // namespace tessaly
