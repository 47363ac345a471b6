#include "rhythm/PatternEditing.h"

#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "rhythm/PatternSounds.h"
#include "runtime/Arithmetic.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

constexpr int kThreeFour = 1;
// The columns a "3/4" pattern leaves out; column 16 is never played nor hidden.
constexpr int kFirstHiddenColumn = 12, kLastHiddenColumn = 15;

}  // namespace

PatternEditing::PatternEditing(SharedState& state, MidiOut& midi, MainWindow& form)
    : state_(state), midi_(midi), form_(form) {}

void PatternEditing::wire() {
    RhythmPage& page = form_.rhythmPage;
    for (int k = 0; k < RhythmPage::kTrackCount; ++k) {
        wireBox(k, 0, page.track(k)[0]);
        page.LblInst[k].onClick = [this, k] { LblInst_Click(k); };
        page.LblInst[k].onChange = [this, k] { LblInst_Change(k); };
    }
    form_.VsbVol.onClick = [this] { VsbVol_Click(); };
    form_.VsbVol.onChange = [this] { VsbVol_Change(); };
    for (int i = 0; i < 3; ++i) page.Option1[i].onClick = [this, i] { Option1_Click(i); };
}

void PatternEditing::wireBox(int track, int index, StepBox& box) {
    box.onClick = [this, track, index] { gridClick(track, index); };
}

void PatternEditing::loadGrid() {
    RhythmPage& page = form_.rhythmPage;
    for (int i = 1; i <= RhythmPage::kLastBox; ++i)
        for (int k = 0; k < RhythmPage::kTrackCount; ++k) {
            StepBox& box = page.loadStepBox(k, i);
            wireBox(k, i, box);
            Geometry place = box.geometry();
            place.left = RhythmPage::kBoxPitch * i;
            box.setGeometry(place);
            box.setVisible(true);
        }
}

void PatternEditing::gridClick(int track, int index) {
    midi_.StepTable[index][track].On = truth(form_.rhythmPage.track(track)[index].value() == 1);
}

void PatternEditing::BZA_Click(int Index) { gridClick(0, Index); }
void PatternEditing::BZB_Click(int Index) { gridClick(1, Index); }
void PatternEditing::BZC_Click(int Index) { gridClick(2, Index); }

void PatternEditing::LblInst_Click(int Index) {
    const int16_t key = keyOfList(form_.rhythmPage.LblInst[Index]);
    const int16_t volume = volumeOfList(form_.VsbVol);
    // All sixteen steps, whatever the metre; the slot's Volume is left as it is.
    for (int s = 0; s <= 15; ++s) {
        StepSlot& slot = midi_.StepTable[s][Index];
        slot.Key = key;
        slot.ShortMsg = MidiOut::percussionMessage(key, volume);
    }
}

void PatternEditing::LblInst_Change(int Index) { LblInst_Click(Index); }

void PatternEditing::VsbVol_Click() {
    const int16_t volume = volumeOfList(form_.VsbVol);
    // Only the steps the metre plays: those past it keep their old volume.
    for (int k = 0; k < RhythmPage::kTrackCount; ++k) {
        const int16_t key = keyOfList(form_.rhythmPage.LblInst[k]);
        for (int s = 0; s <= state_.RhythmLastStep; ++s) {
            StepSlot& slot = midi_.StepTable[s][k];
            slot.Volume = volume;
            slot.ShortMsg = MidiOut::percussionMessage(key, volume);
        }
    }
}

void PatternEditing::VsbVol_Change() { VsbVol_Click(); }

void PatternEditing::showLastColumns(bool shown) {
    for (int k = 0; k < RhythmPage::kTrackCount; ++k)
        for (int s = kFirstHiddenColumn; s <= kLastHiddenColumn; ++s) form_.rhythmPage.track(k)[s].setVisible(shown);
}

void PatternEditing::Option1_Click(int Index) {
    const bool threeFour = form_.rhythmPage.Option1[kThreeFour].value();
    // A running rhythm goes on: a step counter past the new end wraps after its next step.
    state_.RhythmLastStep = threeFour ? 11 : 15;
    showLastColumns(!threeFour);
    BZXS();
    state_.StepsPerChord = threeFour ? 6 : 8;
    if (onMetreChanged) onMetreChanged(Index);
}

void PatternEditing::BZXS() {
    const bool threeFour = form_.rhythmPage.Option1[kThreeFour].value();
    const int lastColoured = threeFour ? 10 : 15;
    for (int k = 0; k < RhythmPage::kTrackCount; ++k) {
        ControlArray<StepBox>& row = form_.rhythmPage.track(k);
        // A beat is two steps: red and yellow in turn from step 0, which keeps
        // its own red. In "3/4" column 11 keeps whatever colour it had.
        for (int s = 1; s <= lastColoured; ++s) row[s].setBackColor((s / 2) % 2 == 1 ? kBeatYellow : kBeatRed);
        for (int s = 12; s <= 14; ++s) row[s].setVisible(!threeFour);
    }
}

}  // namespace tessaly
