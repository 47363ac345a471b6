#include "chords/ChordSequencer.h"

#include "chords/ChordLayers.h"
#include "chords/ChordState.h"
#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "rhythm/Accompaniment.h"
#include "runtime/Arithmetic.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"
#include "state/SharedState.h"

namespace tessaly {

void ChordSequencer::wire() {
    ChordPage& page = form_.chordPage;
    page.HXYS.onTimer = [this] { HXYS_Timer(); };
    page.Check6.onClick = [this] { Check6_Click(); };
    for (auto& [index, option] : page.Option4) {
        const int i = static_cast<int>(index);
        option->onClick = [this, i] { Option4_Click(i); };
    }
}

void ChordSequencer::HXYS_Timer() {
    // The only dynamics: the expression falls over the bar. Layer 3 keeps its own.
    const auto expression = toInt16(120 - 2LL * state_.AccompanimentTick);
    midi_.SendMidiOut(179, 11, expression);
    midi_.SendMidiOut(180, 11, expression);
    if (state_.AccompanimentTick == 0) layers_.HX1K();

    if (state_.AccompanimentTick % 4 == 0) {
        if (form_.Combo1.listIndex() >= 1) layers_.BZHX();
        if (form_.Combo2.listIndex() >= 1) layers_.BZHX2();
        // Layer 3 closes the progression: it plays in the order's last bar only.
        if (form_.Combo3.listIndex() > 0 && state_.ChordIndex == state_.ChordCount) layers_.ZHHXJ();

        state_.ChordStep = toInt32(state_.ChordStep + 1LL);
        if (state_.StepsPerChord == 0) throw FatalFailure(FailureKind::Overflow, "除数为零");
        if (state_.ChordStep % state_.StepsPerChord == 0) state_.ChordIndex = toInt16(state_.ChordIndex + 1);
        // One pass of the order, then the audition stops by itself.
        if (state_.ChordStep == state_.TotalChordSteps) {
            layers_.HX1K();
            form_.chordPage.HXYS.setTimerEnabled(false);
            form_.chordPage.Check6.setValue(0);
            state_.ChordStep = 0;
        }
    }

    state_.AccompanimentTick = toInt32(state_.AccompanimentTick + 1LL);
    if (state_.AccompanimentTick > 2 * state_.RhythmLastStep + 1) state_.AccompanimentTick = 0;
}

void ChordSequencer::Check6_Click() {
    ChordPage& page = form_.chordPage;
    state_.RhythmStep = 0;
    state_.ChordStep = 0;
    state_.AccompanimentTick = 0;
    state_.ChordIndex = 1;
    // Whatever the metre: in 3/4 the audition reads the figures with 4/4's strides.
    state_.StepsPerChord = 8;
    layers_.HXYPSB();
    layers_.HXJS();

    if (page.Check6.value() == 1) {
        page.HXYS.setInterval(state_.TickMs);
        page.HXYS.setTimerEnabled(true);
        page.Check6.setCaption("停止");
        chords_.SavedPatterns[1] = page.Text4.text();
        chords_.SavedPatterns[2] = page.Text5.text();
        chords_.SavedPatterns[3] = page.Text7.text();
    } else {
        page.HXYS.setTimerEnabled(false);
        layers_.HX1K();
        page.Check6.setCaption("启动");
    }
}

void ChordSequencer::Option4_Click(int Index) {
    // Tempo 60, 80 or 100; picking the entry runs the tempo box's own event too.
    form_.SD.setListIndex(4 * (Index + 1));
    state_.TickMs = tickMsForTempo(numericValue(form_.SD.text()));
    // A chord carried by the rhythm's timer then runs at a quarter of the pace
    // until the rhythm is started again.
    form_.BZDS.setInterval(4 * state_.TickMs);
}

}  // namespace tessaly
