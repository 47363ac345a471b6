#include "analysis/ChordAddition.h"

#include "chords/ChordState.h"
#include "editor/Editor.h"
#include "editor/SongModel.h"
#include "forms/MainWindow.h"
#include "runtime/Arithmetic.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

constexpr int kFirstChordTrack = 4;
constexpr int kFirstRhythmTrack = 7;

}  // namespace

std::string chordStepToken(int code) {
    static constexpr char kRegisters[] = "LWKHM";
    static constexpr char kSteps[] = "CDEFGAB";
    static constexpr int kSemitones[7] = {0, 2, 4, 5, 7, 9, 11};
    if (code >= 0 && code <= 55) {
        const int octave = code / 12;
        for (int step = 0; step < 7; ++step)
            if (kSemitones[step] == code % 12) return {kRegisters[octave], kSteps[step]};
        return "--";
    }
    if (code >= 65 && code <= 85) return {kSteps[(code - 65) % 7], "LCM"[(code - 65) / 7]};
    return code == 254 ? "XZ" : "--";
}

void ChordAddition::ZNHXTJ() {
    EditorState& s = e_.s;
    EditorWindow& editor = e_.form;
    MainWindow& main = e_.mainForm;
    const int16_t slotsPerBar = s.slotsPerBar();
    const int boxesPerBar = slotsPerBar / 2;
    const long total = e_.shared.TotalChordSteps;

    // Codes, one step every two slots. The row counter runs to twice the
    // song's last slot, past its end; and the step count itself is read
    // once before the cycle starts, one row behind the progression.
    for (long i = 0; i <= static_cast<long>(s.LastSlotIndex) - 1; ++i) {
        const long row = i <= total ? i : integerRemainder(i, total);
        for (int layer = 1; layer <= 3; ++layer) {
            const int track = kFirstChordTrack + layer - 1;
            s.SlotNotes(2 * i, track) = toInt16(chords_.ChordStepTable(row, layer));
            s.SlotNotes(2 * i + 1, track) = 255;
        }
    }
    FXJSHX();
    for (long bar = 0; bar <= s.BarCount; ++bar)
        for (int track = kFirstChordTrack; track < kFirstRhythmTrack; ++track) s.BarStrings(bar, track).clear();

    // Every bar takes the rhythm page's rows from their first box, and one
    // box more than the bar holds: the next bar overwrites it, except behind the last.
    for (long bar = 0; bar <= s.BarCount; ++bar)
        for (int k = 0; k <= boxesPerBar; ++k) {
            const long slot = s.slotOf(bar, 2 * k);
            for (int row = 0; row < RhythmPage::kTrackCount; ++row) {
                const int track = kFirstRhythmTrack + row;
                s.SlotTokens(slot, track) = main.rhythmPage.track(row)[k].value() == 1 ? "O" : "-";
                s.SlotTokens(slot + 1, track) = "-";
            }
        }

    for (long bar = 0; bar <= s.BarCount; ++bar)
        for (long offset = 0; offset < slotsPerBar; ++offset)
            for (int track = kFirstChordTrack; track < kFirstRhythmTrack; ++track)
                s.BarStrings(bar, track) += s.SlotTokens(s.slotOf(bar, offset), track);

    EditorSettingsPanel& settings = editor.settings();
    for (int i = 1; i <= 3; ++i) {
        editor.bar().YF1[i + 3].setText(s.BarStrings(s.CurrentBar, i + 3));
        settings.SYYQ[i + 6].setListIndex(main.rhythmPage.LblInst[i - 1].listIndex());
    }
    settings.SYYQ[4].setListIndex(main.Combo1.listIndex());
    settings.SYYQ[5].setListIndex(main.Combo2.listIndex());
    settings.SYYQ[6].setListIndex(main.Combo3.listIndex());

    // Three passes over the first row of boxes, from tracks 5, 6 and 7: each
    // box runs its own click as it changes, and only the last pass stays in view.
    for (int i = 1; i <= 3; ++i)
        for (long k = 0; k < slotsPerBar; ++k)
            editor.bar().DJY1[k].setValue(s.SlotTokens(s.slotOf(s.CurrentBar, k), i + 4) == "O" ? 1 : 0);

    settings.DQSUDU.setListIndex(main.SD.listIndex());
    // Away and back, so that bar 0 is shown afresh.
    editor.bar().HScroll1.setValue(2);
    editor.bar().HScroll1.setValue(0);
}

void ChordAddition::FXJSHX() {
    EditorState& s = e_.s;
    for (int track = kFirstChordTrack; track < kFirstRhythmTrack; ++track)
        for (long slot = 0; slot <= static_cast<long>(s.LastSlotIndex) - 1; ++slot)
            s.SlotTokens(slot, track) = chordStepToken(s.SlotNotes(slot, track));
}

}  // namespace tessaly
